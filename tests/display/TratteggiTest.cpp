// The hatch of a polyline against a slow pixel-free reference: which pieces of which lines are drawn.
#include "display/Tratteggi.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "../display/Scena.h"
#include "model/Archivio.h"
#include "model/Elemento.h"
#include "model/Registrazione.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "text/Conversione.h"

using namespace tessaro;
using namespace prova;

namespace {

struct Pezzo {
    Point a, b;
};

// Keeps the lines drawn on it.
struct PortaLinee : GrafPort {
    std::vector<Pezzo> pezzi;
    PortaLinee() {
        portRect = SetRect(0, 0, 1000, 1000);
        clip = Region::of(portRect);
    }
    void stdLine(Point a, Point b) override { pezzi.push_back({a, b}); }
    void stdRect(GrafVerb, const Rect&, const Pattern&) override {}
    void stdOval(GrafVerb, const Rect&, const Pattern&) override {}
    void stdArc(GrafVerb, const Rect&, std::int32_t, std::int32_t, const Pattern&) override {}
    void stdPoly(GrafVerb, const Polygon&, const Pattern&) override {}
    void stdRgn(GrafVerb, const Region&, const Pattern&) override {}
    void stdBits(const PixMap&, const Rect&, const Rect&) override {}
    void stdText(std::string_view) override {}
    void stdComment(std::int16_t, std::string_view) override {}
};

struct Prova {
    PortaLinee porta;
    GrafPtr prima = GetPort();
    Prova() {
        fogliovuoto(20000);
        SetPort(&porta);
        Scena::scala(1);
        OrigX = OrigY = 0;
    }
    ~Prova() { SetPort(prima); }
    Prova(const Prova&) = delete;
    Prova& operator=(const Prova&) = delete;
};

std::int32_t figura(const std::vector<std::pair<double, double>>& punti, double passo, double angolo = 0) {
    std::int32_t testa = 0;
    for (const auto& [x, y] : punti) {
        Memorizza(testa ? tVertice : tPoligono, x, y, 0, 0, 0, 0, 1, 1, 1, "");
        if (!testa) testa = indElem;
    }
    Elem(testa).poli.passoTratt = passo / 100;
    Elem(testa).poli.angoloTratt = angolo;
    return testa;
}

// The pieces by the book: every line against every side, ends inclusive, falling, in pairs.
std::vector<Pezzo> aMano(std::int32_t testa) {
    const auto& h = Elem(testa).poli;
    const double passo = h.passoTratt * 100, a = static_cast<double>(PigMezzi) + h.angoloTratt;
    const double c = std::cos(a), s = std::sin(a);
    std::vector<std::pair<double, double>> v;
    double min = 1e30, max = -1e30;
    for (std::int32_t i = testa; i <= testa + h.numVertici; ++i) {
        const double x = Elem(i).poli.x, y = Elem(i).poli.y;
        v.emplace_back(x * c + y * s, -x * s + y * c);
        min = std::min(min, v.back().second);
        max = std::max(max, v.back().second);
    }
    v.push_back(v.front());
    std::vector<Pezzo> pezzi;
    for (double n = std::trunc(min / passo); n * passo <= max; ++n) {
        const double q = n * passo;
        std::vector<double> p;
        for (std::size_t i = 1; i < v.size(); ++i) {
            const auto [pa, qa] = v[i - 1];
            const auto [pb, qb] = v[i];
            if (q < std::min(qa, qb) || q > std::max(qa, qb) || qa == qb) continue;
            p.push_back(pa - (qa - q) * (pa - pb) / (qa - qb));
        }
        std::sort(p.begin(), p.end(), std::greater<>());
        for (std::size_t i = 1; i < p.size(); i += 2) {
            const auto punto = [&](double t) { return Point{arrotonda32(t * s + q * c), arrotonda32(t * c - q * s)}; };
            pezzi.push_back({punto(p[i - 1]), punto(p[i])});
        }
    }
    return pezzi;
}

void uguali(const std::vector<Pezzo>& a, const std::vector<Pezzo>& b) {
    ASSERT_EQ(a.size(), b.size());
    // The last digit of a crossing may fall on the other side of a half pixel.
    const auto vicino = [](Point p, Point q) { return std::abs(p.h - q.h) <= 1 && std::abs(p.v - q.v) <= 1; };
    for (std::size_t i = 0; i < a.size(); ++i)
        EXPECT_TRUE(vicino(a[i].a, b[i].a) && vicino(a[i].b, b[i].b)) << "piece " << i;
}

}   // namespace

TEST(Tratteggi, ScanMatchesEveryLineAgainstEverySide) {
    std::mt19937 caso(11);
    std::uniform_real_distribution<double> dove(5, 995), giro(-3.2, 3.2);
    for (int volta = 0; volta < 30; ++volta) {
        Prova p;
        std::vector<std::pair<double, double>> punti;   // crosses itself everywhere: more than 60 crossings a line
        for (int i = 0; i < 3 + volta * 10; ++i) punti.emplace_back(dove(caso), dove(caso));
        const std::int32_t testa = figura(punti, 2 + volta, giro(caso));
        Hatch_Poligon(testa);
        EXPECT_FALSE(p.porta.pezzi.empty());
        uguali(p.porta.pezzi, aMano(testa));
    }
}

TEST(Tratteggi, LinesOfAllPolygonsLieOnOneGridThroughTheOrigin) {
    // 7 units apart and no angle: the lines run down, at whole multiples of 7.
    for (const double x0 : {3.0, 100.5, 211.0}) {
        Prova p;
        Hatch_Poligon(figura({{x0, 10}, {x0 + 50, 10}, {x0 + 50, 60}, {x0, 60}}, 7));
        EXPECT_EQ(p.porta.pezzi.size(), 7U) << x0;
        for (const Pezzo& z : p.porta.pezzi) {
            EXPECT_EQ(z.a.h % 7, 0);
            EXPECT_EQ(z.a.h, z.b.h);
            EXPECT_EQ(std::abs(z.a.v - z.b.v), 50);
        }
    }
}

TEST(Tratteggi, CrossedAddsTheOtherDirectionAndOpenFiguresAreClosed) {
    Prova p;
    const std::int32_t testa = figura({{101, 101}, {199, 101}, {199, 199}, {101, 199}}, 10);
    Hatch_Poligon(testa);
    EXPECT_EQ(p.porta.pezzi.size(), 9U);
    Elem(testa).poli.incrociato = 1;
    p.porta.pezzi.clear();
    Hatch_Poligon(testa);
    EXPECT_EQ(p.porta.pezzi.size(), 18U);
}

TEST(Tratteggi, FinerThanThePixelsPaintsWhatEveryPieceByItselfPaints) {
    for (const std::int32_t ratio : {1, 2})
        for (const double angolo : {-1.5707963267948966, 0.0, 0.4, -0.9}) {
            Prova p;
            std::vector<std::pair<double, double>> pettine;   // teeth a fraction of a pixel wide
            for (int i = 0; i < 700; ++i) pettine.emplace_back(20 + i * 0.3, i % 3 ? 30 : 200 - i % 7 * 11.3);
            const std::int32_t testa = figura(pettine, 2.5, angolo);
            Elem(testa).poli.incrociato = 1;
            Hatch_Poligon(testa);   // every piece is kept
            RasterPort unito(300, 300, ratio), pezzi(300, 300, ratio);
            SetPort(&pezzi);
            for (const Pezzo& z : p.porta.pezzi) {
                MoveTo(z.a.h, z.a.v);
                LineTo(z.b.h, z.b.v);
            }
            SetPort(&unito);
            Hatch_Poligon(testa);
            const auto quanti = static_cast<std::ptrdiff_t>(unito.rowPixels()) * unito.deviceHeight();
            EXPECT_TRUE(std::equal(unito.pixels(), unito.pixels() + quanti, pezzi.pixels()))
                << angolo << " at " << ratio;
            SetPort(&p.porta);
        }
}

TEST(Tratteggi, DamagedNumbersDrawNothingAndFarFiguresOnlyWhatIsSeen) {
    Prova p;
    const double nan = std::nan(""), inf = HUGE_VAL;
    for (const double passo : {0.0, -5.0, nan, inf, 1e-12}) Hatch_Poligon(figura({{1, 1}, {90, 1}, {90, 90}}, passo));
    Hatch_Poligon(figura({{nan, nan}, {90, nan}, {nan, 90}}, 5));
    Hatch_Poligon(figura({{1, 1}, {inf, 1}, {90, -inf}}, 5));
    p.porta.pezzi.clear();
    Hatch_Poligon(figura({{1e14, 1e14}, {1e14 + 100, 1e14}, {1e14, 1e14 + 100}}, 2));
    EXPECT_TRUE(p.porta.pezzi.empty());
    Hatch_Poligon(figura({{-1e12, -1e12}, {1e12, -1e12}, {1e12, 1e12}, {-1e12, 1e12}}, 100));
    EXPECT_NEAR(static_cast<double>(p.porta.pezzi.size()), 11, 1);   // ten fit, and one beyond either edge
    EXPECT_EQ(UscitaTratt, 0);
}
