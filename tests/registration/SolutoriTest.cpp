// The perspective solvers against geometry: photographs of a plane by cameras that are known, the construction by
// vanishing points against crossings worked out in homogeneous coordinates, and quadrilaterals that are none.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <random>

#include "dialogs/Errori.h"
#include "registration/gauss.h"
#include "registration/PuntiControllo.h"
#include "registration/Solutori.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

using Quad = std::array<Coppia, 4>;

// A camera above the plane Z = 0, looking at it through three turns; plane and photograph in sheet units.
struct Camera {
    double beccheggio, rollio, deriva;   // radians
    double distanza, focale;

    [[nodiscard]] Coppia fotografa(const Coppia& p) const {
        const double ca = std::cos(beccheggio), sa = std::sin(beccheggio), cb = std::cos(rollio), sb = std::sin(rollio);
        const double cc = std::cos(deriva), sc = std::sin(deriva);
        const double x0 = cc * p.x - sc * p.y, y0 = sc * p.x + cc * p.y;
        const double x1 = cb * x0, z1 = -sb * x0;
        const double y2 = ca * y0 - sa * z1, z2 = sa * y0 + ca * z1 + distanza;
        return {2500 + focale * x1 / z2, 2000 + focale * y2 / z2};
    }
};

const Camera camere[] = {
    {0.3, 0.2, 0.1, 6000, 4000}, {-0.7, 0.4, 0.05, 9000, 5000}, {0.9, -0.3, 0.8, 8000, 3000},
    {0, 0, 0, 5000, 5000},       {0.6, 0, 0, 7000, 3500},       {0.05, -0.9, 3.1, 12000, 9000},
};

constexpr Quad piano{{{-1000, 800}, {-1000, -800}, {1000, -800}, {1000, 800}}};

Quad immagine(const Camera& c) {
    Quad q;
    for (std::size_t i = 0; i < 4; ++i) q[i] = c.fotografa(piano[i]);
    return q;
}

// --- points and lines as triples, in long double

struct Tripla {
    long double a, b, c;
};
Tripla tripla(const Coppia& p) { return {p.x, p.y, 1}; }
Tripla per(const Tripla& u, const Tripla& v) {
    return {u.b * v.c - u.c * v.b, u.c * v.a - u.a * v.c, u.a * v.b - u.b * v.a};
}
Tripla retta(const Coppia& p, const Coppia& q) { return per(tripla(p), tripla(q)); }
Coppia punto(const Tripla& t) { return {static_cast<double>(t.a / t.c), static_cast<double>(t.b / t.c)}; }
Coppia lungo(const Coppia& da, const Coppia& a, double parte) {
    return {da.x + (a.x - da.x) * parte, da.y + (a.y - da.y) * parte};
}
// Crossing of the lines that join opposite sides of q at these parts of P1 P4 and P3 P4, through the vanishing points.
Coppia costruito(const Quad& q, double parte1, double parte2) {
    const Tripla fuga1 = per(retta(q[0], q[1]), retta(q[2], q[3]));
    const Tripla fuga2 = per(retta(q[0], q[3]), retta(q[1], q[2]));
    return punto(per(per(tripla(lungo(q[0], q[3], parte1)), fuga1), per(tripla(lungo(q[2], q[3], parte2)), fuga2)));
}

void vicini(const Coppia& a, const Coppia& b, double tolleranza) {
    EXPECT_NEAR(a.x, b.x, tolleranza);
    EXPECT_NEAR(a.y, b.y, tolleranza);
}

constexpr ErroriPrep errori{25, 26, 25, 25, 26, 26};

Att4Pt preparato(const Quad& src, const Quad& dst) {
    Att4Pt r;
    r.src = src;
    r.dst = dst;
    ErroreAlert(PreparaQuattro(r, errori));
    return r;
}

Coppia mappa(const Att4Pt& r, bool curva, Coppia p) {
    TrasformaFuga(r, curva, p.x, p.y);
    return p;
}

// Directions of parallel sides carry the error of the 32-bit pi.
constexpr double tolleranzaAngoli = 1e-3;

constexpr Quad trapezio{{{500, 2500}, {900, 700}, {2600, 400}, {3300, 2800}}};
constexpr Quad altro{{{300, 2900}, {700, 500}, {3100, 900}, {3400, 2300}}};

}   // namespace

TEST(Omografia, FourPointsRecoverThePlaneOfAPhotograph) {
    constexpr double grandezza = 2000;
    for (const Camera& c : camere) {
        Coefficienti coef{};
        ASSERT_TRUE(RisolviOmografia(immagine(c), piano, coef));
        for (double x = -1500; x <= 1500; x += 250) {
            for (double y = -1200; y <= 1200; y += 200) {
                Coppia p = c.fotografa({x, y});
                TrasformaOmografia(coef, p.x, p.y);
                vicini(p, {x, y}, 1e-9 * grandezza);
            }
        }
    }
}

TEST(Omografia, PointsThatDefineNoneLeaveTheOldOne) {
    const Quad collineari{{{100, 100}, {200, 200}, {300, 300}, {400, 400}}};
    const Quad uguali{{{5, 5}, {5, 5}, {5, 5}, {5, 5}}};
    const Quad nulli{};
    for (const Quad& q : {collineari, uguali, nulli}) {
        Coefficienti coef{1, 0, 0, 0, 1, 0, 0, 0, 0};
        EXPECT_FALSE(RisolviOmografia(q, piano, coef));
        EXPECT_EQ(coef, (Coefficienti{1, 0, 0, 0, 1, 0, 0, 0, 0}));
    }
}

TEST(Gauss, TheTraceTellsEveryStep) {
    double a[3][colonneGauss] = {{0, 1}, {2, 0}}, b[3] = {3, 4}, x[3] = {};
    testing::internal::CaptureStderr();
    EXPECT_EQ(gauss(a, b, x, 2), 0);
    stampa_sol(x, 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              " Pivoting: passo (0)\nMatrice\n\t0\t1\n\t2\t0\nmatr[j][j] non nullo per j=2\nScambio Riga 0 con 1\n"
              "Vettore soluzioni\n\tx(0)=2\n\tx(1)=3\n");
    EXPECT_EQ(x[0], 2);
    EXPECT_EQ(x[1], 3);
}

TEST(Omografia, ARectangleOntoItselfIsSolvedOutLoud) {
    Coefficienti coef{};
    testing::internal::CaptureStderr();
    ASSERT_TRUE(RisolviOmografia(piano, piano, coef));
    const std::string traccia = testing::internal::GetCapturedStderr();
    for (double x = -1500; x <= 1500; x += 500) {
        Coppia p{x, 0.7 * x};
        TrasformaOmografia(coef, p.x, p.y);
        vicini(p, {x, 0.7 * x}, 1e-9);
    }
    for (int k = 0; k < 7; ++k)
        EXPECT_NE(traccia.find(" Pivoting: passo (" + std::to_string(k) + ")\nMatrice\n\t"), std::string::npos) << k;
    const std::size_t dopo = traccia.rfind("Matrice\n");   // the worked-out one, behind all steps
    EXPECT_GT(dopo, traccia.rfind("matr[j][j] non nullo per j="));
    EXPECT_GT(traccia.find("Vettore soluzioni\n\tx(0)=1\n\tx(1)="), dopo);
    EXPECT_NE(traccia.find("\tx(7)="), std::string::npos);
}

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's run-time library tells of every allocation.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*malloc)(const volatile void*, std::size_t),
                                                         void (*free)(const volatile void*));

namespace {
int allocazioni = 0;
void contaAllocazione(const volatile void*, std::size_t) { ++allocazioni; }
void nonContare(const volatile void*) {}
}   // namespace

TEST(Gauss, ATraceThatNobodyReadsMakesNoText) {
    const int prima = ::dup(STDERR_FILENO), nulla = ::open("/dev/null", O_WRONLY);
    ASSERT_GE(prima, 0);
    ::dup2(nulla, STDERR_FILENO);
    Coefficienti coef{};
    static const bool ascolta = __sanitizer_install_malloc_and_free_hooks(contaAllocazione, nonContare) != 0;
    allocazioni = 0;
    const bool risolto = RisolviOmografia(trapezio, piano, coef);
    const int quante = allocazioni;
    ::dup2(prima, STDERR_FILENO);
    ::close(prima);
    ::close(nulla);
    ASSERT_TRUE(ascolta);
    EXPECT_TRUE(risolto);
    EXPECT_EQ(quante, 0);
}
#endif

TEST(Gauss, SystemsWithoutOneSolutionAreTold) {
    double dipendenti[3][colonneGauss] = {{1, 2}, {2, 4}}, senza[3][colonneGauss] = {{0, 1}, {0, 2}};
    double b[3] = {1, 2}, x[3] = {7, 8, 9};
    testing::internal::CaptureStderr();
    EXPECT_EQ(gauss(dipendenti, b, x, 2), 1);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Righe linearmente dipendenti. Soluzioni infinite\n\n"),
              std::string::npos);
    testing::internal::CaptureStderr();
    EXPECT_EQ(gauss(senza, b, x, 2), -1);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Pivot NULLO !!\n\n"), std::string::npos);
    EXPECT_EQ(x[0], 7);
}

TEST(Gauss, RandomSystemsAreSolved) {
    std::mt19937 caso(7);
    std::uniform_real_distribution<double> valore(-10, 10);
    for (int giro = 0; giro < 200; ++giro) {
        const int n = 1 + giro % 9;
        double a[colonneGauss][colonneGauss] = {}, b[colonneGauss] = {};
        double x[colonneGauss] = {}, attesa[colonneGauss] = {};
        for (int i = 0; i < n; ++i) attesa[i] = valore(caso);
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < n; ++j) {
                a[i][j] = valore(caso) + (i == (j + 1) % n ? 40 : 0);
                b[i] += a[i][j] * attesa[j];
            }
        }
        ASSERT_EQ(gauss(a, b, x, n), 0);
        for (int i = 0; i < n; ++i) EXPECT_NEAR(x[i], attesa[i], 1e-7) << n;
    }
}

TEST(PuntiDiFuga, ThePlainScaleIsItsOwnConstruction) {
    const Att4Pt r = preparato(trapezio, altro);
    for (double u = 0; u <= 1; u += 0.125)
        for (double v = 0; v <= 1; v += 0.125)
            vicini(mappa(r, false, costruito(trapezio, u, v)), costruito(altro, u, v), 1e-6);
    EXPECT_TRUE(avvisi.empty());
}

TEST(PuntiDiFuga, TheCurveTakesCornersAndCentreToTheirs) {
    const auto centro = [](const Quad& q) { return punto(per(retta(q[0], q[2]), retta(q[1], q[3]))); };
    std::vector<std::pair<Quad, Quad>> coppie{{trapezio, altro}, {altro, trapezio}, {trapezio, piano}, {piano, altro}};
    for (const Camera& c : camere)
        if (GuastoAttacchi(immagine(c)) == 0) coppie.emplace_back(immagine(c), altro);   // in the order told
    ASSERT_GT(coppie.size(), std::size_t{6});
    for (const auto& [src, dst] : coppie) {
        const Att4Pt r = preparato(src, dst);
        for (std::size_t i = 0; i < 4; ++i) vicini(mappa(r, true, src[i]), dst[i], tolleranzaAngoli);
        vicini(mappa(r, true, centro(src)), centro(dst), tolleranzaAngoli);
    }
}

// The construction is no perspective: how far it goes off inside the quadrilateral, in hundredths of the plane's side.
TEST(PuntiDiFuga, TheErrorOnATruePerspectiveIsKnown) {
    constexpr double lato = 2000;
    std::printf("error on a true perspective, %% of the plane's side: camera, two-piece curve, plain scale\n");
    int viste = 0;
    for (const Camera& c : camere) {
        if (GuastoAttacchi(immagine(c)) != 0) continue;
        const Att4Pt r = preparato(immagine(c), piano);
        double errore[2] = {};
        for (double x = -1000; x <= 1000; x += 50) {
            for (double y = -800; y <= 800; y += 50) {
                for (const bool curva : {false, true}) {
                    const Coppia p = mappa(r, curva, c.fotografa({x, y}));
                    errore[curva] = std::max(errore[curva], std::hypot(p.x - x, p.y - y));
                }
            }
        }
        std::printf("  pitch %5.2f roll %5.2f yaw %4.2f   %7.4f   %7.4f\n", c.beccheggio, c.rollio, c.deriva,
                    100 * errore[1] / lato, 100 * errore[0] / lato);
        // The curve halves what a plain scale misses, and is exact where there is nothing to miss.
        EXPECT_LT(errore[1], errore[0] / 2 + 1e-3);
        EXPECT_LT(errore[1], 0.03 * lato);
        ++viste;
    }
    EXPECT_GE(viste, 3);
    EXPECT_TRUE(avvisi.empty());
}

TEST(PuntiDiFuga, ARectangleOntoARectangleIsLinear) {
    const Quad grande{{{100, 3300}, {100, 300}, {4100, 300}, {4100, 3300}}};
    const Att4Pt r = preparato(piano, grande);
    EXPECT_TRUE(r.par1 && r.par2 && r.par1d && r.par2d);
    EXPECT_EQ(r.fuga1.x, 0);
    for (double x = -1000; x <= 1000; x += 250)
        for (double y = -800; y <= 800; y += 200)
            for (const bool curva : {false, true})
                vicini(mappa(r, curva, {x, y}), {2100 + 2 * x, 1800 + y * 3000 / 1600}, tolleranzaAngoli);
}

TEST(PuntiDiFuga, FivePointsTakeTheGivenCentreOfTheSource) {
    // Onto itself with a centre of its own: the target's lines start at the same global point, so all points stay.
    Att4Pt r;
    r.src = r.dst = trapezio;
    r.srcC = {1700, 1500};
    xAttacco5 = 1700;
    yAttacco5 = 1500;
    r.dstC = {-1, -1};   // not asked where sides are not parallel
    ErroreAlert(PreparaCinque(r, errori));
    EXPECT_TRUE(avvisi.empty());
    EXPECT_NEAR(r.mid1, r.mid1d, 1e-9);
    EXPECT_NEAR(r.mid2, r.mid2d, 1e-9);
    for (double u = 0.1; u < 1; u += 0.2) {
        const Coppia p = costruito(trapezio, u, 1 - u);
        vicini(mappa(r, true, p), p, 1e-6);
    }
    // Across parallel sides it is the target centre that counts, and axis 1 has its centres measured from the far side.
    r.src = r.dst = piano;
    r.srcC = {-200, 100};
    r.dstC = {400, -300};
    ErroreAlert(PreparaCinque(r, errori));
    vicini(mappa(r, true, {200, 100}), {-400, -300}, tolleranzaAngoli);
}

TEST(PuntiDiFuga, WhatIsNoQuadrilateralAlertsOrStaysFinite) {
    const Quad linea{{{0, 0}, {1, 1}, {2, 2}, {3, 3}}}, uno{{{5, 5}, {5, 5}, {5, 5}, {5, 5}}};
    for (const Quad& q : {linea, uno}) {
        avvisi.clear();
        Coppia p = mappa(preparato(q, piano), true, {10, 20});
        EXPECT_FALSE(avvisi.empty());
        avvisi.clear();
        p = mappa(preparato(piano, q), true, {10, 20});
        EXPECT_FALSE(avvisi.empty());
        (void)p;
    }
    std::mt19937 caso(11);
    std::uniform_real_distribution<double> dove(0, 4000), poco(-1e-4, 1e-4);
    for (int giro = 0; giro < 500; ++giro) {
        Quad q;
        for (Coppia& c : q) c = {dove(caso), dove(caso)};
        q[2] = {lungo(q[0], q[1], 0.3).x + poco(caso), lungo(q[0], q[1], 0.3).y + poco(caso)};   // almost on a side
        avvisi.clear();
        const Coppia p = mappa(preparato(q, altro), true, {dove(caso), dove(caso)});
        EXPECT_TRUE(!avvisi.empty() || (std::isfinite(p.x) && std::isfinite(p.y)));
    }
}

TEST(PuntiDiFuga, TheFreeSolverNamesItsOwnErrors) {
    att4Pt.src = {{{0, 0}, {10, 0}, {20, 0}, {30, 0}}};
    att4Pt.dst = piano;
    ErroreAlert(PrepAtt4pt());
    ASSERT_FALSE(avvisi.empty());
    EXPECT_NE(avvisi[0].testo.find("source"), std::string::npos) << avvisi[0].testo;
    att4Pt.src = trapezio;
    att4Pt.dst = altro;
    deformProspettica = 0;   // the free form takes the curve all the same
    ErroreAlert(PrepAtt4pt());
    double x = trapezio[2].x, y = trapezio[2].y;
    Traf4Pt(x, y);
    vicini({x, y}, altro[2], 1e-6);
}
