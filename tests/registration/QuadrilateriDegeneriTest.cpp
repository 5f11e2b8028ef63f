// Quadrilaterals of all kinds, above all those that hardly are any: every mode ends in an alert or in finite numbers, and
// a number that is none has a length of nothing or the horizon behind it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <set>

#include "dialogs/Errori.h"
#include "digitising/AttaccoAggiungi.h"
#include "display/Disegno.h"
#include "editing/Scelta.h"
#include "model/Selezione.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"
#include "registration/Solutori.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

using Quad = std::array<Coppia, 4>;

std::mt19937 caso;

double tra(double a, double b) { return std::uniform_real_distribution<double>(a, b)(caso); }
std::size_t uno(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(caso); }
Coppia ovunque() { return {tra(0, 4200), tra(0, 3000)}; }
Coppia lungo(const Coppia& a, const Coppia& b, double parte) {
    return {a.x + (b.x - a.x) * parte, a.y + (b.y - a.y) * parte};
}

// By how much a shape misses being degenerate, sheet units: not at all, and through all magnitudes.
double quasi() { return uno(3) == 0 ? 0 : tra(-1, 1) * std::pow(10, tra(-12, 0)); }
Coppia accanto(const Coppia& p) { return {p.x + quasi(), p.y + quasi()}; }

Quad buono() {
    return {{{tra(0, 1500), tra(1700, 3000)},
             {tra(0, 1500), tra(0, 1400)},
             {tra(2500, 4200), tra(0, 1400)},
             {tra(2500, 4200), tra(1700, 3000)}}};
}
Quad rettangolo() {
    const double x = tra(0, 1500), y = tra(0, 1400), w = tra(1, 2000), h = tra(1, 1500);
    return {{{x, y + h}, {x, y}, {x + w, y}, {x + w, y + h}}};
}
Quad tutti() { return {{ovunque(), ovunque(), ovunque(), ovunque()}}; }
Quad coincidenti() {
    Quad q = buono();
    const std::size_t i = uno(4), j = (i + 1 + uno(3)) % 4;
    q[i] = accanto(q[j]);
    return q;
}
Quad unPunto() {
    const Coppia p = ovunque();
    return {{accanto(p), accanto(p), accanto(p), accanto(p)}};
}
Quad treInFila() {
    Quad q = buono();
    const std::size_t i = uno(4);
    q[i] = accanto(lungo(q[(i + 1) % 4], q[(i + 2 + uno(2)) % 4], tra(-1, 2)));
    return q;
}
Quad tuttiInFila() {
    const Coppia a = ovunque(), b = uno(3) ? ovunque() : Coppia{a.x, tra(0, 3000)};
    Quad q;
    for (Coppia& p : q) p = accanto(lungo(a, b, tra(-1, 2)));
    return q;
}
Quad incrociato() {
    Quad q = buono();
    std::swap(q[uno(4)], q[uno(4)]);
    return q;
}
Quad parallelogramma() {
    Quad q = buono();
    q[3] = accanto({q[0].x + q[2].x - q[1].x, q[0].y + q[2].y - q[1].y});
    return q;
}
Quad trapezio() {
    Quad q = buono();
    const double k = tra(0.3, 3);
    if (uno(2)) {
        q[3] = accanto({q[2].x + k * (q[0].x - q[1].x), q[2].y + k * (q[0].y - q[1].y)});
    } else {
        q[3] = accanto({q[0].x + k * (q[2].x - q[1].x), q[0].y + k * (q[2].y - q[1].y)});
    }
    return q;
}
Quad raddrizzato() {   // whole numbers, so that sums cancel to the last digit
    Quad q = tutti();
    for (Coppia& p : q) p = {std::round(p.x / 500) * 500, std::round(p.y / 500) * 500};
    return q;
}

using Forma = Quad (*)();
constexpr Forma forme[] = {buono,       rettangolo, tutti,           coincidenti, unPunto,    treInFila,
                           tuttiInFila, incrociato, parallelogramma, trapezio,    raddrizzato};

void poni(const Quad& src, const Quad& dst, const Coppia& centro, const Coppia& centroD) {
    for (std::int16_t n = 1; n <= 4; ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        AssegnaAttacco(n, src[i].x, src[i].y);
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(i), dst[i].x, dst[i].y);
    }
    XA1 = src[0].x;
    YA1 = src[0].y;
    XA2 = src[1].x;
    YA2 = src[1].y;
    xAttacco5 = centro.x;
    yAttacco5 = centro.y;
    attaccoAttivo.SetXYAtt(4, centroD.x, centroD.y);
}

bool finito(const Coppia& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// The record's own numbers: none of them came of a division by nothing.
bool sano(const Att4Pt& r) {
    for (const double v : {r.len1, r.len2, r.mid1, r.mid2, r.len1d, r.len2d, r.mid1d, r.mid2d, r.k1, r.k2, r.r1, r.r2,
                           r.t1, r.t2, r.d1, r.d2})
        if (!std::isfinite(v)) return false;
    return r.len1d != 0 && r.len2d != 0;
}

struct Conto {
    int prove = 0, avvisate = 0, finite = 0, spiegate = 0;
};

// Points of all places of the sheet and the corners themselves, through one prepared mapping.
template <class Spiega, class Mappa>
void prova1(const Quad& src, bool avvisato, Spiega spiegabile, Conto& conto, Mappa mappa) {
    for (std::size_t i = 0; i < 6; ++i) {
        Coppia p = i < 4 ? src[i] : ovunque();
        const Coppia da = p;
        mappa(p.x, p.y);
        ++conto.prove;
        if (avvisato) {
            ++conto.avvisate;
        } else if (finito(p)) {
            ++conto.finite;
        } else {
            ++conto.spiegate;
            EXPECT_TRUE(spiegabile(da)) << da.x << ", " << da.y << " goes to " << p.x << ", " << p.y;
        }
    }
}

}   // namespace

TEST(QuadrilateriDegeneri, EveryModeEndsInAnAlertOrInNumbers) {
    constexpr int giri = 4000;
    caso.seed(20260);
    fogliovuoto();
    const auto avvisato = [&](auto lavoro) {
        prova::avvisi.clear();
        lavoro();
        for (const std::int16_t n : prova::numeriAvvisi()) EXPECT_EQ(n, 999);   // errors 23 to 26, in words
        return !prova::avvisi.empty();
    };
    std::set<int> rami;
    Conto quattro, cinque, inverso, libero, omografia, due;
    testing::internal::CaptureStderr();
    for (int giro = 0; giro < giri && !HasFailure(); ++giro) {
        const Quad src = forme[uno(std::size(forme))](), dst = forme[uno(std::size(forme))]();
        poni(src, dst, uno(3) ? ovunque() : src[uno(4)], uno(3) ? ovunque() : dst[uno(4)]);
        SCOPED_TRACE(giro);
        const Att4Pt& r = attaccoAttivo.lavoro;
        const auto avanti = [](double& x, double& y) { attaccoAttivo.Traf4Pt(x, y); };
        const auto indietro = [](double& x, double& y) { attaccoAttivo.Traf4PtInverso(x, y); };
        const auto malato = [&](const Coppia&) { return !sano(r); };

        attaccoAttivo.tipo = 1;
        const Coefficienti prima = attaccoAttivo.coef;
        bool a = avvisato([] { ErroreAlert(attaccoAttivo.PreparaAttacco()); });
        rami.insert(r.par1 | r.par2 << 1 | r.par1d << 2 | r.par2d << 3);
        deformProspettica = 0;
        prova1(src, a, malato, quattro, avanti);
        deformProspettica = 1;
        // A system without a solution leaves the old coefficients: finite, since those were.
        const auto numeri = [](const Coefficienti& c) {
            return std::all_of(c.begin(), c.end() - 1, [](double v) { return std::isfinite(v); });
        };
        EXPECT_TRUE(numeri(prima));
        EXPECT_TRUE(numeri(attaccoAttivo.coef));
        const auto orizzonte = [](const Coppia& p) {
            return 1 + (attaccoAttivo.coef[6] * p.x + attaccoAttivo.coef[7] * p.y) == 0;
        };
        prova1(src, false, orizzonte, omografia, avanti);
        prova1(src, a, malato, libero, [&](double& x, double& y) { TrasformaFuga(r, true, x, y); });

        attaccoAttivo.tipo = 2;
        a = avvisato([] { ErroreAlert(attaccoAttivo.PreparaAttacco()); });
        prova1(src, a, malato, cinque, avanti);
        deformProspettica = 0;
        prova1(src, a, malato, cinque, avanti);
        deformProspettica = 1;

        attaccoAttivo.tipo = 1;
        a = avvisato([] { ErroreAlert(attaccoAttivo.PreparaAttaccoInverso()); });
        prova1(dst, a, malato, inverso, indietro);

        att4Pt.src = src;
        att4Pt.dst = dst;
        a = avvisato([] { ErroreAlert(PrepAtt4pt()); });
        prova1(
            src, a, [](const Coppia&) { return !sano(att4Pt); }, libero, [](double& x, double& y) { Traf4Pt(x, y); });

        attaccoAttivo.tipo = 0;
        EXPECT_FALSE(avvisato([] { ErroreAlert(attaccoAttivo.PreparaAttacco()); }));
        prova1(
            src, false, [&](const Coppia&) { return XA1 == XA2 && YA1 == YA2; }, due, avanti);
    }
    (void)testing::internal::GetCapturedStderr();   // the solver's trace
    EXPECT_EQ(rami.size(), std::size_t{16});
    const struct {
        const char* modo;
        const Conto& conto;
    } tutti[] = {{"four points, plain", quattro}, {"five points", cinque}, {"inverse", inverso}, {"free", libero},
                 {"homography", omografia},       {"two points", due}};
    for (const auto& [modo, c] : tutti) {
        std::printf("%-20s %6d points: %6d after an alert, %6d finite, %5d explained\n", modo, c.prove, c.avvisate,
                    c.finite, c.spiegate);
        EXPECT_GT(c.finite, c.prove / 4) << modo;
    }
}

// Drawing, picking and copying under a mapping that throws points anywhere: over the horizon, to infinity, to no number.
TEST(QuadrilateriDegeneri, APreviewOfAnyMappingIsDrawnPickedAndCopied) {
    fogliovuoto();
    caso.seed(7);
    RasterPort porta(400, 300, 1);
    SetPort(&porta);
    scalavid = 0.1;
    AggiornaTolleranze();
    segmento(100, 100, 3000, 2500);
    marker(900, 900);
    polilinea({{200, 2000}, {1500, 300}, {2600, 2600}});
    Elem(indElem - 2).poli.patternArea = 38;
    cerchio(1500, 1500, 400);
    Elem(indElem).cerc.patternArea = 38;
    arco(2000, 1200, 300, 30, 200);
    Elem(indElem).arco.patternArea = 38;
    const std::int32_t t = testo(800, 1600, "Strada vecchia", 40);
    Elem(t).test.dimensione = 12;
    Elem(t).test.altezza = 12;
    Elem(t).test.larghezza = 300;
    const std::int32_t disegnati = indElem;
    std::uint32_t ora = 0;
    testing::internal::CaptureStderr();
    for (int giro = 0; giro < 40; ++giro) {
        const Quad src = forme[uno(std::size(forme))](), dst = forme[uno(std::size(forme))]();
        poni(src, dst, ovunque(), ovunque());
        attaccoAttivo.SetModificato(1);
        for (attaccoAttivo.tipo = 0; attaccoAttivo.tipo <= 2; ++attaccoAttivo.tipo) {
            ErroreAlert(attaccoAttivo.PreparaAttacco());
            Disegna();
            EventRecord clic;
            clic.when = ora += 1000;   // never a double click
            const Coppia p = ovunque();
            ScegliElemento(clic, {p.x, p.y, 0});
            NessunaSelezione();
            for (std::int32_t i = 3; i <= disegnati; ++i) Elem(i).selezionato = Elem(i).tipo != tVertice;
            Puntosel.numSel = 6;
            AggiungiMultipla(1);
            EXPECT_EQ(indElem, 2 + 2 * (disegnati - 2));
            Disegna();   // the copies themselves, once more transformed
            for (std::int32_t i = 3; i <= disegnati; ++i) Elem(i).selezionato = 0;
            indElem = disegnati;
        }
    }
    (void)testing::internal::GetCapturedStderr();
    SetPort(nullptr);
}
