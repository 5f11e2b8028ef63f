// DWG files: what is written is what a reader of someone else's making finds, and no file harms the program.
#include "dwg/Confronto.h"
#include "dwg/Dwg.h"
#include "dwg/kit/leggidwg/LeggiDwg.h"
#include "dwg/kit/scrividwg/Compressione2007.h"
#include "dwg/kit/scrividwg/CompressioneDwg.h"
#include "dwg/kit/scrividwg/Controlli2007.h"
#include "dwg/kit/scrividwg/OggettoDwg.h"
#include "platform/Process.h"

#include <algorithm>
#include <random>
#include <sstream>

using namespace prova;

namespace {

std::string bitDi(const BitDwg& b) {
    std::string s;
    for (std::size_t i = 0; i < b.quantiBit(); ++i) s += (b.dati()[i / 8] >> (7 - i % 8) & 1) != 0 ? '1' : '0';
    return s;
}

TEST(BitDwg, eachCodeHasItsShortForms) {
    const struct {
        std::function<void(BitDwg&)> scrivi;
        const char* bit;
    } casi[] = {
        {[](BitDwg& b) { b.BS(0); }, "10"},
        {[](BitDwg& b) { b.BS(256); }, "11"},
        {[](BitDwg& b) { b.BS(15); }, "0100001111"},
        {[](BitDwg& b) { b.BS(257); }, "000000000100000001"},
        {[](BitDwg& b) { b.BS(-1); }, "001111111111111111"},
        {[](BitDwg& b) { b.BL(0); }, "10"},
        {[](BitDwg& b) { b.BL(255); }, "0111111111"},
        {[](BitDwg& b) { b.BL(256); }, "0000000000000000010000000000000000"},
        {[](BitDwg& b) { b.BD(0); }, "10"},
        {[](BitDwg& b) { b.BD(1); }, "01"},
        {[](BitDwg& b) { b.DD(3.5, 3.5); }, "00"},
        {[](BitDwg& b) { b.H(hPunta, 0); }, "01010000"},
        {[](BitDwg& b) { b.H(hPossiede, 0x1FF); }, "001100100000000111111111"},
        {[](BitDwg& b) { b.OT(0x1F4); }, "0100000100"},
    };
    for (const auto& c : casi) {
        BitDwg b;
        c.scrivi(b);
        EXPECT_EQ(bitDi(b), c.bit);
    }
    BitDwg negativo;
    negativo.BD(-0.0);
    EXPECT_EQ(negativo.quantiBit(), 66U) << "a zero that has a sign keeps it";
}

TEST(BitDwg, aLengthIsPutInOverItsPlaceAcrossBytes) {
    BitDwg b;
    b.BB(1);
    b.RL(0);
    b.BB(3);
    b.poniRL(2, 0x12345678);
    BitDwg atteso;
    atteso.BB(1);
    atteso.RL(0x12345678);
    atteso.BB(3);
    EXPECT_EQ(bitDi(b), bitDi(atteso));
}

// The unpacking as the format's description tells it.
std::string decomprimi(const std::string& s) {
    std::string d;
    std::size_t i = 0;
    const auto prossimo = [&] { return static_cast<std::size_t>(static_cast<unsigned char>(s.at(i++))); };
    const auto lungo = [&] {
        std::size_t n = 0, b = 0;
        while ((b = prossimo()) == 0) n += 0xFF;
        return n + b;
    };
    const auto letterali = [&](std::size_t n) {
        d += s.substr(i, n);
        i += n;
    };
    const auto serie = [&] {
        const std::size_t b = prossimo();
        if ((b & 0xF0) != 0) {
            --i;
            return;
        }
        letterali(b == 0 ? 0x0F + lungo() + 3 : b + 3);
    };
    serie();
    for (std::size_t op = prossimo(); op != 0x11; op = prossimo()) {
        std::size_t n = 0, distanza = 0, poi = 0;
        if (op >= 0x40) {
            n = (op >> 4) - 1;
            distanza = (prossimo() << 2 | (op >> 2 & 3)) + 1;
            poi = op & 3;
        } else {
            n = op == 0x20 ? lungo() + 0x21 : op - 0x1E;
            const std::size_t b = prossimo();
            distanza = (b >> 2 | prossimo() << 6) + 1;
            poi = b & 3;
        }
        EXPECT_LE(distanza, d.size());
        for (std::size_t k = 0; k < n; ++k) d += d[d.size() - distanza];
        if (poi != 0)
            letterali(poi);
        else
            serie();
    }
    return d;
}

// The unpacking of 2007, as the format's description tells it.
std::string decomprimi2007(const std::string& s) {
    std::string d;
    std::size_t i = 0;
    const auto prossimo = [&] { return static_cast<std::size_t>(static_cast<unsigned char>(s.at(i++))); };
    // Words of a literal run, from the end to the front of each length.
    const auto letterali = [&](std::size_t n) {
        static constexpr const char* parole[32] = {"",
                                                   "1:0",
                                                   "2:0",
                                                   "3:0",
                                                   "4:0",
                                                   "1:4 4:0",
                                                   "1:5 4:1 1:0",
                                                   "2:5 4:1 1:0",
                                                   "8:0",
                                                   "1:8 8:0",
                                                   "1:9 8:1 1:0",
                                                   "2:9 8:1 1:0",
                                                   "4:8 8:0",
                                                   "1:12 4:8 8:0",
                                                   "1:13 4:9 8:1 1:0",
                                                   "2:13 4:9 8:1 1:0",
                                                   "g:0",
                                                   "8:9 1:8 8:0",
                                                   "1:17 g:1 1:0",
                                                   "3:16 g:0",
                                                   "4:16 g:0",
                                                   "1:20 4:16 g:0",
                                                   "2:20 4:16 g:0",
                                                   "3:20 4:16 g:0",
                                                   "8:16 g:0",
                                                   "8:17 1:16 g:0",
                                                   "1:25 8:17 1:16 g:0",
                                                   "2:25 8:17 1:16 g:0",
                                                   "4:24 8:16 g:0",
                                                   "1:28 4:24 8:16 g:0",
                                                   "2:28 4:24 8:16 g:0",
                                                   "1:30 4:26 8:18 g:2 2:0"};
        while (n > 0) {
            const std::size_t k = std::min<std::size_t>(n, 32);
            std::istringstream righe(k == 32 ? "g:16 g:0" : parole[k]);
            for (std::string p; righe >> p;) {
                const std::size_t dove = i + std::stoul(p.substr(2));
                std::string w = s.substr(dove, p[0] == 'g' ? 16 : static_cast<std::size_t>(p[0] - '0'));
                if (p[0] == 'g') std::rotate(w.begin(), w.begin() + 8, w.end());
                if (p[0] == '2' || p[0] == '3') std::reverse(w.begin(), w.end());
                d += w;
            }
            i += k;
            n -= k;
        }
    };
    const auto lungo = [&](std::size_t op) {
        std::size_t n = op + 8, k = 0;
        if (op != 15) return n;
        n += k = prossimo();
        if (k == 0xFF) do {
                k = prossimo();
                k |= prossimo() << 8;
                n += k;
            } while (k == 0xFFFF);
        return n;
    };
    std::size_t op = prossimo(), n = 0, distanza = 0;
    if (op == 0x20) {
        i += 2;
        letterali(prossimo() & 7);
    } else {
        letterali(lungo(op));
    }
    while (i < s.size()) {
        op = prossimo();
        for (bool primo = true;; primo = false) {
            if (!primo && op >> 4 == 15) op &= 15;
            const std::size_t genere = op >> 4;
            if (genere == 0) {
                distanza = prossimo();
                const std::size_t b = prossimo();
                n = (op & 15) + 0x13 + (b >> 3 & 0x10);
                distanza += ((b & 0x78) << 5) + 1;
                op = b;
            } else if (genere == 1) {
                n = (op & 15) + 3;
                distanza = prossimo();
                op = prossimo();
                distanza += ((op & 0xF8) << 5) + 1;
            } else if (genere == 2) {
                distanza = prossimo();
                distanza |= prossimo() << 8;
                n = op & 7;
                if ((op & 8) == 0) {
                    op = prossimo();
                    n += op & 0xF8;
                } else {
                    ++distanza;
                    n += prossimo() << 3;
                    op = prossimo();
                    n += ((op & 0xF8) << 8) + 0x100;
                }
            } else {
                n = genere;
                distanza = op & 15;
                op = prossimo();
                distanza += ((op & 0xF8) << 1) + 1;
            }
            EXPECT_LE(distanza, d.size());
            for (std::size_t k = 0; k < n; ++k) d += d[d.size() - distanza];
            if ((op & 7) != 0) {
                letterali(op & 7);
                break;
            }
            if (i >= s.size()) break;
            op = prossimo();
            if (op >> 4 == 0) {
                letterali(lungo(op));
                break;
            }
        }
    }
    return d;
}

TEST(CompressioneDwg, everyPageUnpacksToItself) {
    std::mt19937 caso(20);
    for (int giro = 0; giro < 300; ++giro) {
        std::string dati;
        const std::size_t quanti = 4 + caso() % 0x7400;
        const std::size_t lettere = 1 + caso() % (giro % 3 == 0 ? 256 : 4);
        while (dati.size() < quanti) {
            if (giro % 2 == 0 && dati.size() > 50 && caso() % 4 == 0)
                dati += dati.substr(caso() % (dati.size() - 40), 3 + caso() % 400);
            dati += static_cast<char>(caso() % lettere);
        }
        dati.resize(quanti);
        ASSERT_EQ(decomprimi(ComprimiDwg(dati)), dati) << giro;
        ASSERT_EQ(decomprimi2007(ComprimiDwg2007(dati)), dati) << giro;
    }
}

// The bytes of a file that was not written here; empty when there are none.
std::string fileDelMondo(const char* nome) {
    const char* cartella = std::getenv("TESSARO_DATA");
    if (cartella == nullptr) {
        std::printf("no real files here: TESSARO_DATA is not set\n");
        return {};
    }
    std::ifstream f(std::string(cartella) + "/dwg/" + nome, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

TEST(Dwg2007, parityAndChecksAreThoseOfOtherProgramsFiles) {
    const std::string s = fileDelMondo("ldwg_example_2007.dwg");
    if (s.empty()) return;
    // Blocks of one page, taken apart, then put together again.
    const auto dati = [&s](std::size_t dove, std::size_t blocchi, std::size_t utili) {
        std::string d;
        for (std::size_t b = 0; b < blocchi; ++b)
            for (std::size_t i = 0; i < utili; ++i) d += s[dove + b + i * blocchi];
        return d;
    };
    constexpr std::size_t mappa = 0x480, maniglie = 0x6B440;
    const std::string diSistema = dati(mappa, 4, 239), diDati = dati(maniglie, 7, 251);
    EXPECT_EQ(ConParita2007(diSistema, Parita2007::pagineSistema), s.substr(mappa, std::size_t{4} * 255));
    EXPECT_EQ(ConParita2007(diDati, Parita2007::pagineDati), s.substr(maniglie, std::size_t{7} * 255));
    // What the map of sections tells of that page: 0x5F3 bytes packed, 0x6CB unpacked, and both checks.
    const std::string imballati = diDati.substr(0, 0x5F3), sciolti = decomprimi2007(imballati);
    EXPECT_EQ(sciolti.size(), 0x6CBU);
    EXPECT_EQ(Crc2007(imballati), 0x2BCF7AACF4E8B605U);
    EXPECT_EQ(Somma2007(sciolti), 0x1BFBB1A1U);
}

template <class T>
T& aggiungi(OdDbDatabase& db, const char* layer, std::int16_t peso) {
    auto e = std::make_unique<T>();
    e->layer = db.layers.getOrAdd(layer);
    e->lineWeight = peso;
    T& r = *e;
    db.spazioModello().appendOdDbEntity(std::move(e));
    return r;
}

// Every class that the export makes, in national coordinates and in awkward numbers.
OdDbDatabase disegno(int quante) {
    OdDbDatabase db = createDatabase(true, 0);
    OdDbLinetypeTableRecord tratteggio;
    tratteggio.name = "DASHED";
    tratteggio.comments = "__ __";
    tratteggio.patternLength = 40;
    tratteggio.dashes = {20, -20};
    const OdDbObjectId linea = db.linetypes.add(tratteggio);
    for (int i = 0; i < quante; ++i) {
        auto& l = aggiungi<OdDbLine>(db, "Layer 7", 30);
        l.startPoint = {1234567.125 + i, 5012345.1 / 3, i % 2 == 0 ? 0 : -1.5};
        l.endPoint = {-1e-9 * i, 5012355.75, i % 2 == 0 ? 0 : 1e300};
        l.linetype = linea;
        auto& c = aggiungi<OdDbCircle>(db, "Layer 99", 211);
        c.center = {0.1, -0.2, 3.5};
        c.radius = 1e-7 + i;
        c.color.setColorIndex(static_cast<std::int16_t>(1 + i % 255));
        auto& a = aggiungi<OdDbArc>(db, "0", kLnWtByLayer);
        a.center = {1, 2, 0};
        a.radius = 3;
        a.startAngle = 0.25;
        a.endAngle = 6.1;
        auto& t = aggiungi<OdDbText>(db, "Layer 7", kLnWtByLayer);
        t.position = {4, 5, 0};
        t.height = 2.5 / 3;
        t.rotation = 0.1 * i;
        t.textString = "particella n\xC2\xB0 12 \xE2\x82\xAC, citt\xC3\xA0";
        auto& p = aggiungi<OdDb3dPolyline>(db, "Layer 7", 9);
        for (int k = 0; k < 2 + i % 5; ++k) p.vertici.push_back({{k / 3.0, k * 1e5, -k * 0.1}});
        p.closed = i % 3 == 0;
    }
    return db;
}

bool senzaAiutante(const OdError& e) {
    if (e.codice != eHelperMissing) return false;
    std::printf("no DWG is read here: %s\n", e.nota.c_str());
    return true;
}

OdError rilettoDwg(OdDbDatabase& db, const std::string& byte) {
    const FileCad f(byte);
    SenzaMisura m;
    return LeggiDwg(db, f.spec(), m);
}

std::string scrittoDwg(OdDbDatabase& db, std::int16_t versione) {
    OdWrFileBuf b;
    SenzaMisura m;
    EXPECT_EQ(writeFile(db, b, OdDbSaveType::kDwg, versione, m).codice, eOk);
    return {b.byte.begin(), b.byte.end()};
}

TEST(ScriviDwg, someoneElsesReaderFindsEveryEntityOfEachVersion) {
    for (const std::int16_t versione : std::initializer_list<std::int16_t>{16, 21, 23, 25, 27, 29}) {
        for (const int quante : {0, 40, 700}) {   // none; some; objects over many pages
            if (quante == 700 && versione != 25 && versione != 27) continue;
            OdDbDatabase inteso = disegno(quante);
            const std::string byte = scrittoDwg(inteso, versione);
            EXPECT_EQ(byte.substr(0, 6), VersioneDi(versione)->sigla);
            OdDbDatabase riletto = createDatabase(false, 0);
            const OdError e = rilettoDwg(riletto, byte);
            if (senzaAiutante(e)) return;
            ASSERT_EQ(e.codice, eOk) << versione << ' ' << getErrorDescription(e);
            const Differenze d = ConfrontaDatabase(inteso, riletto, versione);
            EXPECT_EQ(d.quante, 0) << versione << ": " << d.prima;
            EXPECT_EQ(riletto.spazioModello().entita.size(), inteso.spazioModello().entita.size()) << versione;
        }
    }
}

TEST(ScriviDwg, layersThatTheShortNamesOfR12WouldJoinStayApart) {
    OdDbDatabase db = createDatabase(true, 0);
    const std::string lungo(40, 'A');
    for (const char* coda : {"uno", "due"}) db.layers.getOrAdd(lungo + coda);
    const std::string byte = scrittoDwg(db, 16);
    EXPECT_NE(byte.find(std::string(31, 'A') + '\0'), std::string::npos);
    EXPECT_NE(byte.find(std::string(29, 'A') + "~2" + '\0'), std::string::npos);
}

TEST(ScriviDwg, aDamagedFileIsAMessageAndNoHarm) {
    OdDbDatabase inteso = disegno(20);
    const std::string intero = scrittoDwg(inteso, 23);
    std::mt19937 caso(4);
    for (int giro = 0; giro < 12; ++giro) {
        std::string byte = intero;
        if (giro % 3 == 0) byte.resize(caso() % byte.size());
        for (unsigned k = 0; k < 1U << giro % 8 && !byte.empty(); ++k)
            byte[caso() % byte.size()] = static_cast<char>(caso());
        OdDbDatabase riletto = createDatabase(false, 0);
        const OdError e = rilettoDwg(riletto, byte);
        if (senzaAiutante(e)) return;
        EXPECT_TRUE(e.codice == eOk || !getErrorDescription(e).empty());
    }
}

TEST(LeggiDwg, theFilesOfTheWorldComeInWhateverTheirAge) {
    const char* cartella = std::getenv("TESSARO_DATA");
    if (cartella == nullptr) {
        std::printf("no real files here: TESSARO_DATA is not set\n");
        return;
    }
    // Entities of model space that other readers find too.
    const struct {
        const char* nome;
        std::size_t almeno;
        OdDbClasse classe;
        std::size_t quante;
    } casi[] = {{"ldwg_r1.4_entities.dwg", 8, OdDbClasse::Line, 3},
                {"ldwg_r10_entities.dwg", 10, OdDbClasse::Line, 2},
                {"ldwg_r11_entities-2d.dwg", 8, OdDbClasse::Circle, 1},
                {"ldwg_example_r13.dwg", 40, OdDbClasse::Line, 8},
                {"ldwg_example_r14.dwg", 40, OdDbClasse::Polyline, 11},
                {"acadsharp_sample_AC1015.dwg", 90, OdDbClasse::Line, 26},
                {"ldwg_example_2004.dwg", 40, OdDbClasse::Polyline, 11},
                {"ldwg_example_2007.dwg", 40, OdDbClasse::Line, 8},
                {"ldwg_example_2013.dwg", 40, OdDbClasse::Line, 8},
                {"qcad_oda_conversion.dwg", 300, OdDbClasse::Arc, 31}};
    for (const auto& c : casi) {
        OdDbDatabase db = createDatabase(false, 0);
        SenzaMisura m;
        const OdError e = LeggiDwg(db, FSMakeFSSpec(std::string(cartella) + "/dwg/" + c.nome), m);
        if (senzaAiutante(e)) return;
        ASSERT_EQ(e.codice, eOk) << c.nome << ' ' << getErrorDescription(e);
        std::size_t quante = 0;
        for (const OdDbEntityPtr& x : db.spazioModello().entita) quante += x->classe == c.classe ? 1 : 0;
        EXPECT_EQ(quante, c.quante) << c.nome;
        EXPECT_GE(db.spazioModello().entita.size(), c.almeno) << c.nome;
    }
}

TEST(LeggiDwg, filesBeforeR13NameByPlaceWhatLaterOnesNameByHandle) {
    const char* cartella = std::getenv("TESSARO_DATA");
    if (cartella == nullptr) {
        std::printf("no real files here: TESSARO_DATA is not set\n");
        return;
    }
    OdDbDatabase db = createDatabase(false, 0);
    SenzaMisura m;
    const OdError e = LeggiDwg(db, FSMakeFSSpec(std::string(cartella) + "/dwg/ldwg_r11_entities-2d.dwg"), m);
    if (senzaAiutante(e)) return;
    ASSERT_EQ(e.codice, eOk) << getErrorDescription(e);
    std::string inseriti;
    for (const OdDbEntityPtr& x : db.spazioModello().entita) {
        if (const auto* i = odCast<OdDbBlockReference>(*x)) inseriti += db.blocks[i->blockTableRecord].name + ' ';
        const auto* const c = odCast<OdDbCircle>(*x);
        EXPECT_EQ(c == nullptr ? 2 : c->center.z, 2) << "the height that its common part tells";
        const auto* const q = odCast<OdDbDimension>(*x);
        EXPECT_EQ(q == nullptr ? 8U : db.blocks[q->dimBlock].entita.size(), 8U);
    }
    EXPECT_EQ(inseriti, "BLOCK1 BLOCK2 ");
    const OdDbBlockTableRecord& quota = db.blocks[db.blocks.getAt("*D2")];
    EXPECT_EQ(db.layers[quota.entita.back()->layer].name, "DEFPOINTS");
    EXPECT_EQ(quota.entita.front()->color.metodo, OdCmColor::byBlock);
}

TEST(Processo, aProgramThatTakesTooLongOrIsNotThereIsStopped) {
    const FileTemporaneo uscita;
    ChiamataProcesso c;
    c.uscita = uscita.percorso();
    c.programma = "no-such-program-of-ours";
    EXPECT_EQ(EseguiProcesso(c).esito, EsitoProcesso::manca);
    c.programma = "sleep";
    c.argomenti = {"60"};
    c.continua = [] { return false; };
    EXPECT_EQ(EseguiProcesso(c).esito, EsitoProcesso::fermato);
    c.continua = nullptr;
    c.secondi = 0;
    EXPECT_EQ(EseguiProcesso(c).esito, EsitoProcesso::lento);
    c.programma = "sh";
    c.argomenti = {"-c", "echo fatto; echo perche >&2; exit 7"};
    c.secondi = 60;
    const FineProcesso f = EseguiProcesso(c);
    EXPECT_EQ(f.esito, EsitoProcesso::finito);
    EXPECT_EQ(f.stato, 7);
    EXPECT_EQ(f.detto, "perche");
    std::ifstream letto(uscita.percorso());
    std::string riga;
    EXPECT_TRUE(std::getline(letto, riga) && riga == "fatto");
}

}   // namespace
