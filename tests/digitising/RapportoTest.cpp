// The registration report against geometry of its own: complex numbers for the similarity, a known camera for the
// perspective, and quadrilaterals with every fault.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>

#include "digitising/RapportoAttacchi.h"
#include "digitising/RapportoTesti.h"
#include "model/Unita.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

using Punti = std::array<Coppia, 5>;

constexpr Punti quadrato{{{1000, 2000}, {1000, 1000}, {2000, 1000}, {2000, 2000}, {1500, 1500}}};

DatiRapporto dati(const Punti& foglio, const Punti& destinazione = quadrato, std::int32_t modo = 1) {
    DatiRapporto d;
    d.foglio = foglio;
    d.destinazione = destinazione;
    d.dati = {true, true, true, true, true};
    d.rappvid = 0.1;
    d.decimiUnita = 10000;
    d.altezzaFoglio = 2970;
    d.modo = modo;
    xAttacco5 = foglio[4].x;   // the five-point construction reads it there
    yAttacco5 = foglio[4].y;
    return d;
}

// A camera that looks at the destination's plane aslant.
Coppia fotografa(const Coppia& p) {
    const double x = p.x - 1500, y = p.y - 1500, profondita = 5000 + 0.4 * x - 0.7 * y;
    return {1800 + 4200 * (0.9 * x + 0.1 * y) / profondita, 1300 + 4200 * (0.8 * y - 0.05 * x) / profondita};
}
Punti fotografata() {
    Punti p;
    for (std::size_t i = 0; i < p.size(); ++i) p[i] = fotografa(quadrato[i]);
    return p;
}

void vicini(const Coppia& a, const Coppia& b, double tolleranza) {
    EXPECT_NEAR(a.x, b.x, tolleranza);
    EXPECT_NEAR(a.y, b.y, tolleranza);
}

}   // namespace

TEST(Rapporto, ScaleTurnAndRealPlacesAreThoseOfTheSheet) {
    fogliovuoto();
    const std::complex<double> passo = std::polar(0.25, 0.4), base(5000, 9000);   // enlargement and turn, sheet to real
    const auto reale = [&](const Coppia& p) { return base + passo * std::complex<double>(p.x, -p.y); };
    for (std::int16_t n = 1; n <= 5; ++n) {
        const Coppia& p = quadrato[static_cast<std::size_t>(n - 1)];
        AssegnaAttacco(n, p.x, p.y);
    }
    const auto r1 = reale(quadrato[0]), r2 = reale(quadrato[1]);
    auto& secondo = Elem(2).att;
    secondo.x1 = r1.real();
    secondo.y1 = r1.imag();
    secondo.x2 = r2.real();
    secondo.y2 = r2.imag();
    secondo.coordReali = secondo.quattroPunti = OKAttacco5 = 1;
    CalcTransfC();
    const RapportoAttacchi r = CalcolaRapportoAttacchi(DatiDelMomento());
    EXPECT_TRUE(r.coordReali);
    EXPECT_NEAR(r.rapporto, 0.25, 1e-12);
    EXPECT_NEAR(r.scala, decimiUnita * 0.25, 1e-8);
    EXPECT_NEAR(r.rotazione, 0.4, 1e-6);   // directions carry the error of the 32-bit pi
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_TRUE(r.punti[i].dato);
        const auto atteso = reale(quadrato[i]);
        vicini(r.punti[i].reale, {atteso.real(), atteso.imag()}, 1e-3);
    }
    EXPECT_TRUE(r.avvisi.empty());
}

TEST(Rapporto, WithoutRealCoordinatesTheSheetsScaleCounts) {
    DatiRapporto d = dati(quadrato);
    d.dati = {true, false, false, false, false};
    const RapportoAttacchi r = CalcolaRapportoAttacchi(d);
    EXPECT_EQ(r.scala, 1000);
    EXPECT_EQ(r.rotazione, 0);
    vicini(r.punti[0].reale, {100, 97}, 1e-12);
    EXPECT_FALSE(r.conResidui);
    EXPECT_FALSE(r.punti[0].mappato);
    ASSERT_EQ(r.avvisi.size(), 1U);
    EXPECT_EQ(r.avvisi[0], (AvvisoPunti{Difetto::mancanti, false, {2, 3, 4}}));
}

TEST(Rapporto, FourPointsOfAPhotographFitAndTheFifthChecksThem) {
    Punti destinazione = quadrato;
    destinazione[4].x += 3;   // point 5 was measured 5 units off
    destinazione[4].y += 4;
    testing::internal::CaptureStderr();
    const RapportoAttacchi r = CalcolaRapportoAttacchi(dati(fotografata(), destinazione));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");   // looking leaves no trace on the console
    for (std::size_t i = 0; i < 4; ++i) {
        vicini(r.punti[i].dove, quadrato[i], 1e-6);
        EXPECT_TRUE(r.punti[i].contato);
    }
    vicini(r.punti[4].dove, quadrato[4], 1e-6);
    EXPECT_NEAR(r.punti[4].residuo, 5, 1e-6);
    EXPECT_NEAR(r.punti[4].residuoReale, 0.5, 1e-7);
    EXPECT_FALSE(r.punti[4].contato);
    EXPECT_LT(r.massimo, 1e-6);
    EXPECT_TRUE(r.avvisi.empty());
}

TEST(Rapporto, TheFiveCornersOfTheConstructionHaveTheirResiduals) {
    // Target sides are not parallel: both lines of the centre start at the control point itself, so it stays there.
    const Punti storto{{{300, 2900}, {700, 500}, {3100, 900}, {3400, 2300}, {1900, 1700}}};
    const Punti foglio = fotografata();
    const RapportoAttacchi r = CalcolaRapportoAttacchi(dati(foglio, storto, 2));
    const double scarto = std::hypot(foglio[4].x - 1900, foglio[4].y - 1700);
    vicini(r.punti[4].dove, foglio[4], 1e-6);
    EXPECT_NEAR(r.punti[4].residuo, scarto, 1e-6);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_LT(r.punti[i].residuo, 1e-3);
    EXPECT_EQ(r.peggiore, 5);
    EXPECT_NEAR(r.massimo, scarto, 1e-6);
    EXPECT_NEAR(r.medio, scarto / std::sqrt(5), 1e-6);
    EXPECT_NEAR(r.massimoReale, scarto / 10, 1e-7);
    EXPECT_TRUE(avvisi.empty());
}

TEST(Rapporto, APlainScaleMissesTheCentreOfAPerspective) {
    DatiRapporto d = dati(fotografata());
    d.prospettica = false;
    const RapportoAttacchi r = CalcolaRapportoAttacchi(d);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_LT(r.punti[i].residuo, 1e-3);
    EXPECT_GT(r.punti[4].residuo, 10);
    RecordProperty("plain_scale_off_by_sheet_units", std::to_string(r.punti[4].residuo));
}

TEST(Rapporto, EveryFaultOfThePointsIsNamed) {
    using enum Difetto;
    const auto con = [](std::size_t i, Coppia c) {
        Punti p = quadrato;
        p[i] = c;
        return p;
    };
    const Punti specchio{{{2000, 2000}, {2000, 1000}, {1000, 1000}, {1000, 2000}, {1500, 1500}}};
    const Punti linea{{{0, 400}, {100, 300}, {200, 200}, {300.02, 100}, {9, 9}}};
    const struct {
        const char* caso;
        Punti foglio, destinazione;
        std::int32_t modo;
        std::vector<AvvisoPunti> attesi;
    } casi[] = {
        {"good", quadrato, quadrato, 1, {}},
        {"two in one place", con(2, {1000, 1000.0005}), quadrato, 1, {{coincidenti, false, {2, 3}}}},
        {"two targets in one place", quadrato, con(3, {1000, 2000}), 1, {{coincidenti, true, {1, 4}}}},
        {"three on a line", con(2, {1500, 1500.4}), quadrato, 1, {{allineati, false, {2, 3, 4}}}},
        {"a unit and a half off the line", con(2, {1502, 1498}), quadrato, 1, {}},
        {"all on a line", linea, quadrato, 1, {{allineati, false, {1, 2, 3, 4}}}},
        {"mirrored", quadrato, specchio, 1, {{specchiati, true, {1, 2, 3, 4}}}},
        {"mirrored on the sheet",
         specchio,
         quadrato,
         1,
         {{disordine, false, {1, 2, 3, 4}}, {specchiati, true, {1, 2, 3, 4}}}},
        {"a target dented", quadrato, con(2, {1300, 1700}), 1, {{concavi, true, {1, 2, 3, 4}}}},
        {"in order but dented", con(2, {1300, 1700}), quadrato, 1, {{concavi, false, {1, 2, 3, 4}}}},
        {"sides that cross",
         quadrato,
         Punti{{{0, 0}, {100, 100}, {100, 0}, {0, 100}, {50, 50}}},
         1,
         {{concavi, true, {1, 2, 3, 4}}}},
        {"the centre is of five points alone", con(4, {1000, 1000}), quadrato, 1, {}},
        {"a centre in a corner", con(4, {1000, 1000}), quadrato, 2, {{coincidenti, false, {2, 5}}}},
        {"two points look at two", linea, con(3, {1000, 2000}), 0, {}},
        {"two points in one place",
         con(1, {1000, 2000}),
         con(1, {1000, 2000}),
         0,
         {{coincidenti, false, {1, 2}}, {coincidenti, true, {1, 2}}}},
    };
    for (const auto& c : casi)
        EXPECT_EQ(CalcolaRapportoAttacchi(dati(c.foglio, c.destinazione, c.modo)).avvisi, c.attesi) << c.caso;
    DatiRapporto d = dati(quadrato);
    d.coordReali = true;
    EXPECT_EQ(CalcolaRapportoAttacchi(d).avvisi[0], (AvvisoPunti{realiCoincidenti, false, {1, 2}}));
    EXPECT_TRUE(avvisi.empty());   // in words, never by an alert
}

TEST(Rapporto, PointsThatDefineNothingHaveNoPlaceAndNoResidual) {
    const Punti linea{{{100, 100}, {200, 200}, {300, 300}, {400, 400}, {250, 250}}};
    const RapportoAttacchi r = CalcolaRapportoAttacchi(dati(linea));
    EXPECT_FALSE(r.conResidui);
    EXPECT_FALSE(r.punti[0].mappato);
    const TestiRapporto t = TestiDi(r);
    EXPECT_NE(t.massimo.find("do not define"), std::string::npos);
    EXPECT_TRUE(t.medio.empty());
    EXPECT_TRUE(
        CalcolaRapportoAttacchi(dati(linea, quadrato, 2)).conResidui);   // the construction goes on, as it stands
    EXPECT_TRUE(avvisi.empty());
}

TEST(Rapporto, WhatIsShownChangesOnlyWithWhatItIsMadeFrom) {
    fogliovuoto();
    const DatiRapporto prima = DatiDelMomento();
    EXPECT_TRUE(prima == DatiDelMomento());
    TransfCoord.ingr = std::nan("");
    const DatiRapporto senza = DatiDelMomento();
    EXPECT_FALSE(prima == senza);
    EXPECT_TRUE(senza == DatiDelMomento());   // a scale that is no number does not repaint for ever
    attaccoAttivo.xAtt[2] += 1e-9;
    EXPECT_FALSE(senza == DatiDelMomento());
}

TEST(Rapporto, TheTextKeepsItsColumnsInLine) {
    const std::string s = TestoRapporto(TestiDi(CalcolaRapportoAttacchi(dati(quadrato))), "plan");
    std::vector<std::string> righe(1);
    for (const char c : s) {
        if (c == '\n') {
            righe.emplace_back();
        } else {
            righe.back() += c;
        }
    }
    EXPECT_NE(righe[0].find("plan"), std::string::npos);
    const auto testata = std::find_if(righe.begin(), righe.end(), [](auto& r) { return r.starts_with("Point"); });
    ASSERT_NE(testata, righe.end());
    for (auto r = testata + 1; r != testata + 6; ++r) EXPECT_EQ(r->size(), testata->size()) << *r;
    EXPECT_NE((testata + 1)->find("1  1000.000  2000.000  100.000   97.000"), std::string::npos) << *(testata + 1);
}
