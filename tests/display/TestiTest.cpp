// Texts on a raster at every angle: their ink against the box that a click hits, and what a stored picture gets.
#include "display/Testi.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "bitmap/BitMap.h"
#include "display/Disegno.h"
#include "display/RiquadroTesto.h"
#include "display/Scena.h"
#include "display/Sovrapposto.h"
#include "editing/AttacchiCambiati.h"
#include "editing/Scelta.h"
#include "model/Lucidi.h"
#include "model/Selezione.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Pict.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"

namespace {

using namespace tessaro;
using prova::Scena;

constexpr int lato = 600, mezzo = lato / 2;

// How dark a pixel is, 0 to 1.
double inchiostro(const Scena& s, int x, int y) { return 1 - static_cast<double>(s.porta.pixel(x, y) & 0xFF) / 255; }

double tutto(const Scena& s) {
    double n = 0;
    for (int y = 0; y < lato; ++y)
        for (int x = 0; x < lato; ++x) n += inchiostro(s, x, y);
    return n;
}

TEST(Testi, InkLiesWhereAClickHitsAndIsAsDarkAtEveryAngle) {
    Scena s(lato, lato);
    const char* const scritta = "sore mare vasca";   // no letter leaves the box of 0.7 and 0.3
    double diritto = 0;
    for (const std::int16_t angolo : std::initializer_list<std::int16_t>{100, 0, 200, 300, -100, 7, 45, 99, 101, 120,
                                                                         150, 250, 333, 399, -37, -250}) {
        SCOPED_TRACE("angle " + std::to_string(angolo));
        indElem = 2;
        const std::int32_t n = prova::testo(mezzo, mezzo, scritta, angolo);
        s.pulisci();
        FaiT(indElem);
        const double t = angolo == 100 ? 0 : (angolo - 100) * M_PI / 200;   // clockwise
        double lungo = 0;
        int fuori = 0;
        for (int y = 0; y < lato; ++y)
            for (int x = 0; x < lato; ++x) {
                if (inchiostro(s, x, y) < 0.5) continue;
                const double qui = (x + 0.5 - mezzo) * std::cos(t) + (y + 0.5 - mezzo) * std::sin(t);
                lungo = std::max(lungo, qui);
                // The box's ends are those of whole pixels measured at the stored size: letters may touch them.
                if (qui < 2 || qui > Elem(n).test.larghezza * ScalaTesto - 2) continue;
                fuori += !SelTesto(puntot{static_cast<double>(x), static_cast<double>(y), 0}, n);
            }
        EXPECT_EQ(fuori, 0);
        EXPECT_NEAR(lungo, Elem(n).test.larghezza * ScalaTesto, 12);
        if (angolo == 100) diritto = tutto(s);
        EXPECT_NEAR(tutto(s) / diritto, 1, 0.04);
    }
}

TEST(Testi, AQuarterTurnIsTheSamePixelsTurned) {
    Scena s(lato, lato);
    const auto disegna = [&](std::int16_t angolo) {
        indElem = 2;
        prova::testo(mezzo, mezzo, "Quota 12.5", angolo);
        s.pulisci();
        FaiT(indElem);
        return s.immagine();
    };
    const std::vector<std::uint32_t> p100 = disegna(100), p200 = disegna(200), p300 = disegna(300), p0 = disegna(0);
    int diversi = 0;
    for (int y = 1; y < lato; ++y)
        for (int x = 1; x < lato; ++x) {
            const auto a = [](const std::vector<std::uint32_t>& p, int h, int v) {
                return p[static_cast<std::size_t>(v * lato + h)];
            };
            const std::uint32_t vero = a(p100, x, y);
            diversi += vero != a(p200, lato - 1 - y, x);
            diversi += vero != a(p300, lato - 1 - x, lato - 1 - y);
            diversi += vero != a(p0, y, lato - 1 - x);
        }
    EXPECT_EQ(diversi, 0);
}

TEST(Testi, SizesBelowTwoAreDrawnAtTwoAndHiddenTextsNotAtAll) {
    Scena s(lato, lato);
    Scena::scala(0.001);
    s.pulisci();
    Disegna();
    const auto vuoto = s.immagine();
    prova::testo(100000, 100000, "oooo", 100);
    Disegna();
    EXPECT_NE(s.immagine(), vuoto);
    s.pulisci();
    VisioneGraf.mostraTesti = 0;
    Disegna();
    EXPECT_EQ(s.immagine(), vuoto);
}

TEST(Testi, TheVeilOfOtherSheetsPalesAText) {
    Scena s(lato, lato);
    for (const std::int16_t angolo : std::initializer_list<std::int16_t>{100, 0, 200, 300, 150}) {
        indElem = 2;
        VisioneGraf.grigiaAltri = 0;
        const std::int32_t n = prova::testo(mezzo, mezzo, "strada", angolo);
        s.pulisci();
        FaiT(indElem);
        const double pieno = tutto(s);
        Elem(n).lucido = 4;
        VisioneGraf.grigiaAltri = 1;
        s.pulisci();
        FaiT(indElem);
        EXPECT_LT(tutto(s), pieno * 0.6) << angolo;
        EXPECT_GT(tutto(s), pieno * 0.05) << angolo;
    }
}

// Where the ink lies in the frame of an anchor and a turn: how far along, and the middle across.
struct Inchiostro {
    double lungo = 0, traverso = 0, quanto = 0;
};
Inchiostro lungo(const Scena& s, double h, double v, std::int16_t angolo) {
    const double t = (angolo - 100) * M_PI / 200;
    Inchiostro i;
    for (int y = 0; y < lato; ++y)
        for (int x = 0; x < lato; ++x) {
            const double n = inchiostro(s, x, y);
            if (n < 0.3) continue;
            i.quanto += n;
            i.lungo += n * ((x - h) * std::cos(t) + (y - v) * std::sin(t));
            i.traverso += n * ((y - v) * std::cos(t) - (x - h) * std::sin(t));
        }
    i.lungo /= i.quanto;
    i.traverso /= i.quanto;
    return i;
}

TEST(Testi, ThePreviewDrawsTheTextOnceMoreWhereItsCopyWouldBe) {
    constexpr std::array<Coppia, 4> da{{{100, 100}, {100, 0}, {200, 0}, {200, 100}}};
    constexpr std::array<Coppia, 4> girato{{{300, 300}, {400, 300}, {400, 400}, {300, 400}}};   // a quarter turn
    constexpr std::array<Coppia, 4> doppio{{{200, 400}, {200, 200}, {400, 200}, {400, 400}}};
    struct Caso {
        std::int32_t tipo;
        const std::array<Coppia, 4>& a;
        std::int16_t angolo, voluto;
    };
    for (const Caso& c : {Caso{0, girato, 100, 200},
                          {1, girato, 100, 200},
                          {1, girato, 130, 230},
                          {1, doppio, 100, 100},
                          {0, doppio, 120, 120}}) {
        SCOPED_TRACE("mode " + std::to_string(c.tipo) + " angle " + std::to_string(c.angolo));
        Scena s(lato, lato);
        for (std::int16_t n = 1; n <= 4; ++n) {
            const auto i = static_cast<std::size_t>(n - 1);
            AssegnaAttacco(n, da[i].x, da[i].y);
            attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(n - 1), c.a[i].x, c.a[i].y);
        }
        AttacchiCambiati();
        attaccoAttivo.tipo = c.tipo;
        attaccoAttivo.PreparaAttacco();
        attaccoAttivo.SetModificato(0);
        const std::int32_t n = prova::testo(110, 60, "strada", c.angolo);
        s.pulisci();
        FaiT(n);
        const Inchiostro solo = lungo(s, 110, 60, c.angolo);
        attaccoAttivo.SetModificato(1);
        FaiT(n);
        ForeColor(whiteColor);   // what is left without the text itself
        PenNormal();
        PenMode(patCopy);
        elemento copia = Elem(n);
        attaccoAttivo.TrasformaCopia(copia);
        EXPECT_NEAR(copia.test.angolo, c.voluto, 1);
        const double scala = static_cast<double>(copia.test.dimensione) / Elem(n).test.dimensione;
        PaintRect(Rect{0, 0, 170, 200});
        const Inchiostro i = lungo(s, copia.test.x, copia.test.y, c.voluto);
        EXPECT_NEAR(i.lungo, solo.lungo * scala, 3);
        EXPECT_NEAR(i.traverso, solo.traverso * scala, 1.5);
        EXPECT_NEAR(i.quanto / solo.quanto, scala * scala, 0.35 * scala * scala);

        // The highlight frames both, and takes both off again.
        Puntosel = {1, 0, 1, oTesto, n};
        s.pulisci();
        const auto vuoto = s.immagine();
        DisegnaTestoSel(n);
        int dentro = 0;
        for (const PuntoD& p : AngoliTesto(copia))
            for (int dy = -2; dy <= 2; ++dy)
                for (int dx = -2; dx <= 2; ++dx)
                    dentro += inchiostro(s, static_cast<int>(p.h) + dx, static_cast<int>(p.v) + dy) > 0.5;
        EXPECT_GT(dentro, 8);
        DisegnaTestoSel(n);
        EXPECT_EQ(s.immagine(), vuoto);
    }
}

std::vector<std::int16_t> commenti(const std::string& pict, std::string& rotazione) {
    VociPict voci(pict);
    Voce v;
    std::vector<std::int16_t> numeri;
    while (voci.prossima(v)) {
        if (v.op != opShortComment && v.op != opLongComment) continue;
        const auto n = static_cast<std::int16_t>(static_cast<unsigned char>(v.dati[0]) << 8
                                                 | static_cast<unsigned char>(v.dati[1]));
        numeri.push_back(n);
        if (n == 150) rotazione = std::string(v.dati.substr(4));
    }
    return numeri;
}

TEST(Testi, AStoredPictureHasTheCommentsOfATurnedTextAndItsImage) {
    Scena s(lato, lato);
    const auto registra = [&](std::int16_t angolo) {
        indElem = 2;
        const std::int32_t n = prova::testo(mezzo, mezzo, "Rio Marina", angolo);
        OpenPicture(Rect{0, 0, lato, lato});
        FaiT(n);
        return ClosePicture();
    };
    std::string rotazione;
    EXPECT_TRUE(commenti(registra(100), rotazione).empty());
    const std::string pict = registra(150);   // 45 degrees
    EXPECT_EQ(commenti(pict, rotazione), (std::vector<std::int16_t>{150, 154, 151, 190, 191}));
    EXPECT_EQ(rotazione, std::string("\0\0\0\x2D\0\0\0\x2D\0\0", 10));
    // Played back on a raster it shows one text: the turned image, with the ink of the text drawn directly.
    s.pulisci();
    FaiT(indElem);
    const double vero = tutto(s);
    s.pulisci();
    ClipRect(s.porta.portRect);
    ASSERT_TRUE(DrawPicture(pict, Rect{0, 0, lato, lato}));
    EXPECT_NEAR(tutto(s) / vero, 1, 0.25);
    EXPECT_EQ(commenti(registra(-100), rotazione).size(), 5U);
}

}   // namespace
