// Point lists: rows into markers, faults in rows, the characters of three encodings, and points out as rows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "exchange/FormatoXYZ.h"
#include "exchange/XYZ.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "platform/Automation.h"
#include "platform/Resources.h"
#include "support/Avvisi.h"
#include "support/FileProva.h"
#include "support/Foglio.h"
#include "support/Tasti.h"

using namespace tessaro;
using namespace prova;

namespace {

void formato(std::int16_t tipo, std::array<std::int16_t, 4> colonne) {
    TipoForm = tipo;
    DatoP = colonne;
}

void prepara(std::int16_t tipo, std::array<std::int16_t, 4> colonne) {
    fogliovuoto();
    rappvid = 1;
    YFDecimi = 1000;
    formato(tipo, colonne);
}

void leggi(std::string_view testo) {
    const FileProva file(testo);
    LeggiXYZ();
    if (RefNum == 0) tessaro::FSpOpenDF(FSMakeFSSpec("/dev/null"), fsRdPerm, RefNum);   // FileProva closes one
}

std::string scrivi() {
    FileProva file("", fsRdWrPerm);
    ScriviXYZ();
    return file.contenuto();
}

std::string resoconto() { return avvisi.empty() ? std::string() : avvisi.back().testo; }

std::string aref(std::int32_t n) {
    const Aref a = Elem(n).testa.aref;
    return MacToUtf8({reinterpret_cast<const char*>(a.data()) + 1, a[0]});
}

TEST(XYZ, RigaConTabIntera) {
    prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaAref, colonnaNessuna});
    colorCorrente = 3;
    VisioneGraf.lucidoCorrente = 7;
    leggi("12.5\t7\tP1");
    ASSERT_EQ(indElem, 3);
    const elemento& e = Elem(3);
    EXPECT_EQ(e.tipo, tMarker);
    EXPECT_DOUBLE_EQ(e.mark.x, 12.5);
    EXPECT_DOUBLE_EQ(e.mark.y, 993);
    EXPECT_EQ(e.mark.colore, 3);
    EXPECT_EQ(e.lucido, 7);
    EXPECT_EQ(e.mark.z, 0.0);
    EXPECT_EQ(aref(3), "P1");
    EXPECT_EQ(resoconto(), "Imported: 1 marker.");
}

TEST(XYZ, UltimaFineRigaNonDaRecord) {
    for (const char* testo : {"1\t2\t3\r4\t5\t6\r", "1\t2\t3\r\n4\t5\t6\r\n", "1\t2\t3\n!remark\n4\t5\t6\n"}) {
        prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaZ, colonnaNessuna});
        leggi(testo);
        EXPECT_EQ(indElem, 4) << testo;
        EXPECT_EQ(Elem(4).mark.z, 6.0);
        EXPECT_EQ(resoconto(), "Imported: 2 markers.");
    }
}

TEST(XYZ, UnValorePerRiga) {
    prepara(rigaPerValore, {colonnaAref, colonnaX, colonnaY, colonnaNessuna});
    leggi("A1\r10\r20\rlonger than thirteen\r30\r40");
    ASSERT_EQ(indElem, 4);
    EXPECT_EQ(aref(3), "A1");
    EXPECT_DOUBLE_EQ(Elem(4).mark.x, 30);
    EXPECT_EQ(aref(4), "longer than t");
}

TEST(XYZ, UnaRigaConUnCampoGuastoRestaFuori) {
    bottoni[3007] = 1;
    prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaZ, colonnaNessuna});
    leggi("x\t2\t3\n4\t5\tz\n7\t8\t9");
    ASSERT_EQ(indElem, 3);
    EXPECT_DOUBLE_EQ(Elem(3).mark.x, 7);
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{1008, 3007, 1008, 3007, 9110}));
    EXPECT_EQ(resoconto(), "Imported: 1 marker.\nLeft out: 2 rows that cannot be read.");
    EXPECT_NE(avvisi[3].testo.find('2'), std::string::npos);   // the line's number
}

// A number beyond all range is a number.
TEST(XYZ, SoloUnTestoENumeroGuasto) {
    prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaZ, colonnaNessuna});
    leggi("1\t2\t1e-60\n1\t2\t1e60");
    ASSERT_EQ(indElem, 4);
    EXPECT_EQ(Elem(3).mark.z, 0);
    EXPECT_EQ(Elem(4).mark.z, 1e38);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9110});
}

TEST(XYZ, FermareChiudeLElenco) {
    bottoni[3007] = 2;
    prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaZ, colonnaNessuna});
    leggi("1\t2\t3\n\t\t\n\t\t\n\t\t\n7\t8\t9");
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{1008, 3007, 9110}));
    EXPECT_NE(resoconto().find("Reading was stopped at line 2."), std::string::npos) << resoconto();
    EXPECT_EQ(uscita, 1);
    EXPECT_EQ(indElem, 3);
}

TEST(XYZ, RigaTroncataDalFile) {
    bottoni[3007] = 1;
    prepara(rigaPerValore, {colonnaX, colonnaY, colonnaZ, colonnaNessuna});
    leggi("1\n2\n3\n4\n5\n");
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{3007, 9110}));
    EXPECT_EQ(indElem, 3);
}

TEST(XYZ, ArchivioPienoFinisceInSilenzio) {
    fogliovuoto(5);
    formato(rigaPerPunto, {colonnaX, colonnaY, colonnaNessuna, colonnaNessuna});
    rappvid = 1;
    YFDecimi = 100;
    leggi("1\t1\n2\t2\n3\t3\n4\t4\n5\t5\n");
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(resoconto(), "Imported: 3 markers.\nThe drawing is full.\n"
                           "Reading broke off at line 3. What was read before it is in the drawing.");
}

TEST(XYZ, EscFermaLElencoEQuantoLettoResta) {
    prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaNessuna, colonnaNessuna});
    std::string elenco;
    for (int i = 0; i < 1500; ++i) elenco += std::to_string(i) + "\t1\n";
    premiEsc();
    leggi(elenco);
    EXPECT_GT(indElem, 200);
    EXPECT_LT(indElem, 1500);
    EXPECT_EQ(Elem(indElem).tipo, tMarker);
    EXPECT_NE(resoconto().find("Reading was stopped at line "), std::string::npos) << resoconto();
}

TEST(XYZ, EscFermaLaScritturaEIlFileDiPrimaResta) {
    prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaNessuna, colonnaNessuna});
    for (int i = 0; i < 1500; ++i) Memorizza(tMarker, i, 1, 0, 1, 0, 0, 1, 1, 1, PStr255(""));
    premiEsc();
    const std::string scritto = scrivi();
    EXPECT_EQ(uscita, 1);   // by which the caller drops the new file
    EXPECT_LT(std::count(scritto.begin(), scritto.end(), '\r'), 1500);
    uscita = 0;
}

TEST(XYZ, LettereAccentateDiTreCodifiche) {
    constexpr const char* file[] = {
        "\xEF\xBB\xBF"
        "1\t2\tcitt\xC3\xA0\r\n",   // UTF-8 with its mark
        "1\t2\tcitt\xC3\xA0\n",     // UTF-8
        "1\t2\tcitt\xE0\r\n",       // CP1252
        "1\t2\tcitt\x88\r",         // Mac Roman
    };
    for (const char* testo : file) {
        prepara(rigaPerPunto, {colonnaX, colonnaY, colonnaAref, colonnaNessuna});
        leggi(testo);
        EXPECT_EQ(aref(3), "città") << testo;
        EXPECT_DOUBLE_EQ(Elem(3).mark.x, 1);
    }
}

TEST(XYZ, SegmentiInCatenaECerchiRipetuti) {
    prepara(rigaPerPunto, {colonnaNessuna, colonnaX, colonnaY, colonnaZ});
    cerchio(500, 500, 9);
    segmento(0, 1000, 10, 990, 1, 2);
    segmento(10, 990, 20, 990, 2, 2);
    segmento(20, 990, 30, 990, 5, 5);
    testo(1, 1, "gone");
    cerchio(500, 500, 9);
    polilinea({{1, 1000}, {2, 1000}});
    EXPECT_EQ(scrivi(), "     0.000\t     0.000\t     0.000\r"
                        "     0.000\t     0.000\t     1.000\r"
                        "    10.000\t    10.000\t     2.000\r"
                        "    20.000\t    10.000\t     2.000\r"
                        "    20.000\t    10.000\t     5.000\r"
                        "    30.000\t    10.000\t     5.000\r"
                        "    30.000\t    10.000\t     5.000\r"
                        "     1.000\t     0.000\t     0.000\r"
                        "     2.000\t     0.000\t     0.000\r");
}

TEST(XYZ, ScrittoERiletto) {
    for (const std::int16_t tipo : {rigaPerValore, rigaPerPunto}) {
        prepara(tipo, {colonnaAref, colonnaY, colonnaX, colonnaZ});
        ArefMarkerDef = {3, 'P', '0', '1'};
        marker(123.456, 999.5, 7.25);
        marker(1e6, -4000, -1);
        const std::string primo = scrivi();
        AzzeraArchivio();
        ArefMarkerDef = {};
        bottoni[3011] = 1;
        leggi(primo.substr(0, primo.size() - 1));
        EXPECT_EQ(scrivi(), primo);
        EXPECT_EQ(indElem, 4);
    }
}

TEST(XYZ, FileVeri) {
    const char* dati = std::getenv("TESSARO_DATA");
    if (dati == nullptr) GTEST_SKIP() << "no real files: TESSARO_DATA is not set";
    bottoni[3007] = 1;
    for (const std::int16_t tipo : {rigaPerValore, rigaPerPunto})
        for (const auto& f : std::filesystem::directory_iterator(std::filesystem::path(dati) / "xyz")) {
            prepara(tipo, {colonnaAref, colonnaX, colonnaY, colonnaZ});
            ASSERT_EQ(FSpOpenDF(FSMakeFSSpec(f.path().string()), fsRdPerm, RefNum), noErr) << f.path();
            LeggiXYZ();
            FSClose(RefNum);
            EXPECT_LE(indElem, maxElementi) << f.path();
            for (std::int32_t n = 3; n <= indElem; ++n) EXPECT_EQ(Elem(n).tipo, tMarker) << f.path() << " " << n;
        }
}

TEST(FormatoXYZ, LeImpostazioniTornanoUguali) {
    formato(rigaPerPunto, {colonnaAref, colonnaX, colonnaNessuna, colonnaZ});
    TFormatoXYZ f;
    f.scrivipar();
    std::ostringstream byte;
    byte << std::ifstream(SettingsFolder() + "/FormParD", std::ios::binary).rdbuf();
    EXPECT_EQ(byte.str().substr(0, 10), std::string("\0\x0D\0\4\0\1\0\5\0\3", 10));
    formato(rigaPerValore, {1, 2, 3, 5});
    f.leggipar();
    f.inggene(1);
    EXPECT_EQ(TipoForm, rigaPerPunto);
    EXPECT_EQ(DatoP, (std::array<std::int16_t, 4>{colonnaAref, colonnaX, colonnaNessuna, colonnaZ}));
    EXPECT_EQ(ColonneXYZ(), 3);
    // A file that names a column twice, or one that is not there, gives the defaults.
    for (const std::int16_t seconda : {std::int16_t{1}, std::int16_t{77}}) {
        formato(rigaPerPunto, {1, seconda, 3, 5});
        f.scrivipar();
        f.leggipar();
        f.inggene(1);
        EXPECT_EQ(TipoForm, rigaPerValore);
        EXPECT_EQ(DatoP, (std::array<std::int16_t, 4>{1, 2, 3, 5}));
    }
    f.scrivipar();
}

}   // namespace
