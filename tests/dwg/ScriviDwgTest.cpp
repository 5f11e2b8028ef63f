// DWG files: what is written is what a reader of someone else's making finds, and no file harms the program.
#include "dwg/Confronto.h"
#include "dwg/Dwg.h"
#include "dwg/kit/leggidwg/LeggiDwg.h"
#include "platform/Process.h"

#include <algorithm>
#include <random>
#include <sstream>

using namespace prova;

namespace {

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
