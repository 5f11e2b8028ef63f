// The live transformation: its block in a drawing, byte by byte, and the two-point mode.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "digitising/Attacchi.h"
#include "digitising/AttaccoAggiungi.h"
#include "editing/AttacchiCambiati.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "platform/Files.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"
#include "support/Attacco.h"
#include "support/Foglio.h"
#include "text/FileDati.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr std::size_t grandezza = 627;

struct FileDiProva {
    std::string percorso = (std::filesystem::temp_directory_path()
                            / ("attacco-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name())))
                               .string();
    ~FileDiProva() { std::filesystem::remove(percorso); }

    template <class Lavoro>
    void apri(std::int8_t permesso, Lavoro lavoro) const {
        const FSSpec spec = FSMakeFSSpec(percorso);
        uscita = 0;
        ASSERT_EQ(FSpOpenDF(spec, permesso, RefNum), noErr);
        lavoro();
        ASSERT_EQ(FSClose(RefNum), noErr);
    }
    [[nodiscard]] std::string contenuto() const {
        std::ifstream f(percorso, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    void metti(const std::string& byte) const { std::ofstream(percorso, std::ios::binary) << byte; }
};

double doppio(const std::string& b, std::size_t dove) {
    std::uint64_t v = 0;
    for (std::size_t i = 0; i < 8; ++i) v = v << 8 | static_cast<std::uint8_t>(b[dove + i]);
    return std::bit_cast<double>(v);
}

ActiveAttach distinto() {
    ActiveAttach a;
    a.rotazione = 0.5;
    a.tipo = 2;
    a.SetDelta(1, 2, 3);
    a.transf.rot11 = 4;
    a.transf.rot22 = 7;
    a.SetIngr(8);
    a.SetCoord(9, 10, 11, 12, 13, 14);
    for (std::int16_t i = 0; i < 5; ++i) a.SetXYAtt(i, 100 + i, 200 + i);
    a.opzione = 0;
    a.modificato = 1;
    a.lavoro.src[0] = {20, 21};
    a.lavoro.srcC = {28, 29};
    a.lavoro.dst[3] = {36, 37};
    a.lavoro.dstC = {38, 39};
    a.lavoro.okDst = 1;
    a.lavoro.o1 = 40;
    a.lavoro.mid2d = 51;
    a.lavoro.ang1 = 52;
    a.lavoro.fuga1 = {56, 57};
    a.lavoro.fuga2d = {62, 63};
    a.lavoro.par1d = 1;
    a.lavoro.par2 = 1;
    a.lavoro.k1 = 64;
    a.lavoro.d2 = 71;
    a.radioTipo = 0x1D2E;
    return a;
}

}   // namespace

TEST(AttaccoDinamico, TheBlockHasEveryFieldAtItsPlace) {
    const FileDiProva f;
    f.metti("");
    f.apri(fsRdWrPerm, [] { distinto().WriteAttacco(); });
    const std::string b = f.contenuto();
    ASSERT_EQ(b.size(), grandezza);
    const std::pair<std::size_t, double> doppi[] = {
        {0, 0.5},   {9, 1},     {25, 3},    {33, 4},   {57, 7},   {65, 8},   {73, 9},   {113, 14}, {121, 100},
        {129, 200}, {137, 101}, {193, 204}, {203, 20}, {211, 21}, {267, 28}, {331, 36}, {347, 38}, {355, 39},
        {365, 40},  {453, 51},  {461, 52},  {493, 56}, {549, 63}, {561, 64}, {617, 71}};
    for (const auto& [dove, valore] : doppi) EXPECT_EQ(doppio(b, dove), valore) << "at " << dove;
    const std::pair<std::size_t, int> byte[] = {{8, 2},   {201, 0}, {202, 1}, {363, 0},    {364, 1},   {557, 1},
                                                {558, 0}, {559, 0}, {560, 1}, {625, 0x1D}, {626, 0x2E}};
    for (const auto& [dove, valore] : byte) EXPECT_EQ(static_cast<std::uint8_t>(b[dove]), valore) << "at " << dove;
}

TEST(AttaccoDinamico, ABlockReadIsTheBlockWritten) {
    const FileDiProva f;
    f.metti("");
    f.apri(fsRdWrPerm, [] { distinto().WriteAttacco(); });
    const std::string prima = f.contenuto();
    ActiveAttach a;
    f.apri(fsRdPerm, [&] { a.ReadAttacco(); });
    EXPECT_EQ(a.GetTipo(), 2);
    EXPECT_EQ(a.GetModificato(), 1);
    f.metti("");
    f.apri(fsRdWrPerm, [&] { a.WriteAttacco(); });
    EXPECT_EQ(f.contenuto(), prima);
}

TEST(AttaccoDinamico, AnyBlockIsWrittenBackAsItWasRead) {
    const FileDiProva f;
    std::mt19937 caso(627);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int giro = 0; giro < 20; ++giro) {
        std::string blocco(grandezza, '\0');
        for (char& c : blocco) c = static_cast<char>(byte(caso));
        f.metti(blocco);
        ActiveAttach a;
        f.apri(fsRdPerm, [&] { a.ReadAttacco(); });
        EXPECT_EQ(a.GetTipo(), static_cast<std::uint8_t>(blocco[8]));
        f.metti("");
        f.apri(fsRdWrPerm, [&] { a.WriteAttacco(); });
        EXPECT_EQ(f.contenuto(), blocco);
    }
}

TEST(AttaccoDinamico, ABlockThatEndsEarlyChangesNothing) {
    const FileDiProva f;
    ActiveAttach a = distinto();
    for (const std::size_t quanti : {std::size_t{0}, std::size_t{8}, std::size_t{300}, grandezza - 1}) {
        f.metti(std::string(quanti, '\x7F'));
        f.apri(fsRdPerm, [&] { a.ReadAttacco(); });
        EXPECT_NE(uscita, 0);
        EXPECT_EQ(a.radioTipo, 0x1D2E);
        EXPECT_EQ(a.xAtt, distinto().xAtt);
        EXPECT_EQ(a.rotazione, 0.5);
    }
    uscita = 0;
}

TEST(AttaccoDinamico, TwoPointsCarryTheSheetOntoTheDestination) {
    fogliovuoto();
    attaccoAttivo.tipo = 0;
    AssegnaAttacco(1, 100, 100);
    AssegnaAttacco(2, 300, 200);
    AttacchiCambiati();
    attaccoAttivo.SetXYAtt(0, 1000, 1000);
    attaccoAttivo.SetXYAtt(1, 950, 1100);   // a quarter turn, half the size
    attaccoAttivo.PreparaAttacco();
    const double voluti[][4] = {{100, 100, 1000, 1000}, {300, 200, 950, 1100}, {100, 300, 900, 1000}};
    for (const auto& v : voluti) {
        double x = v[0], y = v[1];
        attaccoAttivo.Traf4Pt(x, y);
        EXPECT_NEAR(x, v[2], 1e-3);
        EXPECT_NEAR(y, v[3], 1e-3);
    }
    EXPECT_NEAR(attaccoAttivo.transf.ingr, 0.5, 1e-12);
}

TEST(AttaccoDinamico, PreparationNeedsTwoPointsAndPoint4CountsFromItsOwnRest) {
    fogliovuoto();
    attaccoAttivo.tipo = 0;
    attaccoAttivo.PreparaAttacco();   // nothing given: point 4 rests at (0, 1)
    EXPECT_EQ(attaccoAttivo.lavoro.okSrc, 1);
    EXPECT_EQ(attaccoAttivo.transf.deltaX, 0);
    AssegnaAttacco(1, 100, 100);
    AttacchiCambiati();
    attaccoAttivo.PreparaAttacco();
    EXPECT_EQ(attaccoAttivo.transf.deltaX, 0);
    AssegnaAttacco(4, 0, 0);   // the origin is a place for point 4
    attaccoAttivo.PreparaAttacco();
    EXPECT_EQ(attaccoAttivo.transf.deltaX, 900);
}

namespace {

// Source and destination points 1 to 4 (and the source's centre), prepared in this mode.
void prepara(std::int32_t tipo, const std::array<Coppia, 4>& src, const std::array<Coppia, 4>& dst) {
    fogliovuoto();
    preparaAttacco(tipo, src, dst);
}

constexpr std::array<Coppia, 4> quadrato{{{1000, 2000}, {1000, 1000}, {2000, 1000}, {2000, 2000}}};
constexpr std::array<Coppia, 4> trapezio{{{500, 2500}, {900, 700}, {2600, 400}, {3300, 2800}}};
// A quarter turn and twice the size about point 1.
constexpr std::array<Coppia, 4> girato{{{1000, 2000}, {3000, 2000}, {3000, 4000}, {1000, 4000}}};

Coppia mappato(double x, double y) {
    attaccoAttivo.Traf4Pt(x, y);
    return {x, y};
}

}   // namespace

TEST(AttaccoDinamico, ThePreviewNeedsTheSwitchAndPreparedPoints) {
    attaccoAttivo.SetModificato(1);
    EXPECT_FALSE(AnteprimaAttiva());
    attaccoAttivo.SetRot(1, 2, 3, 4);   // the fourth lands on the third place
    EXPECT_EQ(attaccoAttivo.transf.rot12, 2);
    EXPECT_EQ(attaccoAttivo.transf.rot21, 4);
    EXPECT_EQ(attaccoAttivo.transf.rot22, 0);
    prepara(1, trapezio, quadrato);
    EXPECT_TRUE(AnteprimaAttiva());
    attaccoAttivo.SetModificato(0);
    EXPECT_FALSE(AnteprimaAttiva());
}

TEST(AttaccoDinamico, EachModeHasItsOwnMapping) {
    for (std::int32_t tipo = 0; tipo <= 2; ++tipo) {
        xAttacco5 = 1700;
        yAttacco5 = 1500;
        prepara(tipo, trapezio, quadrato);
        const std::size_t quanti = tipo == 0 ? 2 : 4;
        for (std::size_t i = 0; i < quanti; ++i) {
            const Coppia p = mappato(trapezio[i].x, trapezio[i].y);
            EXPECT_NEAR(p.x, quadrato[i].x, 1e-3) << tipo << " " << i;   // the similarity has the 32-bit pi
            EXPECT_NEAR(p.y, quadrato[i].y, 1e-3) << tipo << " " << i;
        }
    }
    // Without perspective, four points are a plain scale along the sides: half way stays half way.
    prepara(1, trapezio, quadrato);
    const Coppia mezzo{1900, 2650};
    EXPECT_GT(std::fabs(mappato(mezzo.x, mezzo.y).x - 1500), 10);
    deformProspettica = 0;
    EXPECT_NEAR(mappato(mezzo.x, mezzo.y).x, 1500, 1e-6);
}

TEST(AttaccoDinamico, TheInversePreparationTakesTheDestinationBack) {
    for (const std::int32_t tipo : {0, 1}) {
        prepara(tipo, trapezio, quadrato);
        attaccoAttivo.PreparaAttaccoInverso();
        double x = quadrato[1].x, y = quadrato[1].y;
        attaccoAttivo.Traf4PtInverso(x, y);
        EXPECT_NEAR(x, trapezio[1].x, 1e-3);
        EXPECT_NEAR(y, trapezio[1].y, 1e-3);
    }
}

TEST(AttaccoDinamico, CopiesGoOntoTheirLayerAndLeaveTheOriginal) {
    prepara(0, quadrato, girato);
    const std::int32_t testa = polilinea({{1000, 2000}, {1000, 1000}, {2000, 1000}});
    Elem(testa).lucido = 3;
    for (std::int32_t i = 1; i <= 2; ++i) Elem(testa + i).lucido = 3;
    const std::int32_t giro = arco(1000, 1000, 100, 10, 50);
    Puntosel = {1, 1, 2, oArco, giro};
    Elem(testa).selezionato = Elem(giro).selezionato = 1;
    AggiungiMultipla(7);
    ASSERT_EQ(indElem, giro + 4);
    EXPECT_EQ(Elem(giro + 1).lucido, 7);
    EXPECT_EQ(Elem(giro + 2).lucido, 3);   // vertices keep theirs
    EXPECT_EQ(Elem(giro + 1).selezionato, 0);
    EXPECT_NEAR(Elem(giro + 3).vert.x, 3000, 1e-2);
    EXPECT_NEAR(Elem(giro + 3).vert.y, 4000, 1e-2);
    EXPECT_EQ(Elem(giro + 3).vert.distanzaTesta, 2);
    EXPECT_EQ(Elem(testa).poli.x, 1000);
    const auto& a = Elem(giro + 4).arco;
    EXPECT_NEAR(a.raggio, 200, 1e-3);
    EXPECT_NEAR(a.angoloInizio, 100, 1e-3);
    // No room: nothing, and nothing is torn.
    ASSERT_TRUE(AllocaElementi(5));
    AzzeraArchivio();
    polilinea({{0, 0}, {1, 1}});
    Puntosel = {1, 0, 1, oPoligono, 3};
    AggiungiElemento(1);
    EXPECT_EQ(indElem, 4);
}

TEST(AttaccoDinamico, ATextTurnsAndGrowsWithItsCopyAndItsAngleIsTruncated) {
    struct Caso {
        std::int32_t tipo;
        std::int16_t angolo;
    };
    for (const Caso& c : {Caso{0, 100}, Caso{1, 100}, Caso{0, 30}, Caso{1, 30}}) {
        prepara(c.tipo, quadrato, girato);
        const std::int32_t n = testo(1000, 2000, "Sasso", c.angolo);
        Elem(n).test.altezza = 9;
        Elem(n).test.dimensione = 9;
        Elem(n).test.larghezza = 25;
        Puntosel = {1, 0, 1, oTesto, n};
        AggiungiElemento(0);
        const auto& t = Elem(indElem).test;
        EXPECT_EQ(t.altezza, 18);
        EXPECT_EQ(t.larghezza, 50);
        EXPECT_EQ(t.dimensione, 18);
        const int giro = (t.angolo - c.angolo + 400) % 400;   // a quarter is 100 of the 400
        EXPECT_TRUE(giro == 100 || giro == 99 || giro == 300 || giro == 299) << c.tipo << " " << t.angolo;
    }
}

TEST(AttaccoDinamico, AnAngleIsRoundedAndStaysWithinATurn) {
    constexpr double gon = 3.14159265358979323846 / 200;
    struct Caso {
        std::int32_t tipo;
        std::int16_t angolo;
        double giro;   // gon
        std::int16_t voluto;
    };
    constexpr Caso casi[] = {
        {0, 100, 30.7, 131}, {0, 10, -10.7, 399}, {0, 0, -1.7, 398}, {0, 250, 0.99, 251},
        {0, 390, 10.2, 0},   {1, 100, 30.7, 131}, {1, 10, 0.9, 11},  {1, 10, -10.7, 399},
    };
    for (const Caso& c : casi) {
        std::array<Coppia, 4> src = quadrato;
        if (c.tipo == 0) std::swap(src[1], src[3]);   // a level baseline: directions just above and below 0
        std::array<Coppia, 4> dst = src;
        const double seno = std::sin(c.giro * gon), coseno = std::cos(c.giro * gon);
        for (Coppia& p : dst) {
            const double x = p.x - 1000, y = p.y - 1000;
            p = {2000 + coseno * x - seno * y, 1000 + seno * x + coseno * y};
        }
        prepara(c.tipo, src, dst);
        const std::int32_t n = testo(1000, 1000, "Sasso", c.angolo);
        Elem(n).test.altezza = 9;
        Puntosel = {1, 0, 1, oTesto, n};
        AggiungiElemento(0);
        EXPECT_EQ(Elem(indElem).test.angolo, c.voluto) << c.tipo << ", " << c.angolo << " turned by " << c.giro;
    }
}

TEST(AttaccoDinamico, EveryChangeOfAPointPreparesWhileThePreviewIsOn) {
    const auto metti = [](void (*lavoro)(std::int16_t), std::int16_t n, double x, double y) {
        XDigit = x;
        YDigit = y;
        IntroDigitale = 1;
        lavoro(n);
    };
    for (const bool anteprima : {false, true}) {
        prepara(1, trapezio, quadrato);
        attaccoAttivo.SetModificato(anteprima ? 1 : 0);
        const auto& l = attaccoAttivo.lavoro;
        metti(Attacco, 3, 2700, 450);
        EXPECT_EQ(l.src[2].x, anteprima ? 2700 : trapezio[2].x);
        metti(AttaccoDin, 2, 1010, 990);
        EXPECT_EQ(l.dst[1].y, anteprima ? 990 : quadrato[1].y);
        const std::int32_t p = polilinea({{400, 2400}, {800, 600}, {2500, 300}, {3200, 2700}});
        Puntosel = {1, 0, 1, oPoligono, p};
        TrasformaPuntiOrigine();
        EXPECT_EQ(l.src[0].x, anteprima ? 400 : trapezio[0].x);
        TrasformaPuntiDestinazione();
        EXPECT_EQ(l.dst[3].x, anteprima ? 3200 : quadrato[3].x);
        Puntosel = {};
        if (!anteprima) continue;
        const Coppia q = mappato(800, 600);   // the mapping follows, not the record alone
        EXPECT_NEAR(q.x, 800, 1e-6);
        EXPECT_NEAR(q.y, 600, 1e-6);
    }
}

TEST(AttaccoDinamico, APictureCopiedHasDataOfItsOwn) {
    prepara(0, quadrato, girato);
    const std::int32_t n = immagine(10, 20, 30, 40, "dati");
    Puntosel = {1, 0, 1, oPict, n};
    AggiungiElemento(2);
    ASSERT_EQ(indElem, n + 1);
    EXPECT_NE(Elem(indElem).pict.maniglia, Elem(n).pict.maniglia);
    EXPECT_EQ(PictBytes(Elem(indElem).pict.maniglia), "dati");
    EXPECT_EQ(Elem(indElem).pict.x, 10);
}
