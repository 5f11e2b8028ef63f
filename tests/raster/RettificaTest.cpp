// The rectified pixels against a plain loop over every source pixel, and what the command does around them.
#include <gtest/gtest.h>

#include <random>

#include "Banco.h"
#include "model/Archivio.h"
#include "model/Elemento.h"
#include "model/Registrazione.h"
#include "model/Selezione.h"
#include "raster/NuovaImmagine.h"
#include "registration/MappaFoglio.h"
#include "support/Avvisi.h"

using namespace prova;

namespace {

using Rettifica = BancoRaster;

struct Sorte {
    std::mt19937 g;
    explicit Sorte(std::uint32_t seme) : g(seme) {}
    double fra(double a, double b) { return std::uniform_real_distribution<double>(a, b)(g); }
    int intero(int a, int b) { return std::uniform_int_distribution<int>(a, b)(g); }
};

// Control points round the picture and destination points anywhere near, in the mode that the draw gives.
void registraAcaso(Sorte& s, double x, double y, double w, double h) {
    const auto intorno = [&](double px, double py, double quanto) {
        return Coppia{px + s.fra(-quanto, quanto), py + s.fra(-quanto, quanto)};
    };
    const Quad src{intorno(x, y + h, 20), intorno(x, y, 20), intorno(x + w, y, 20), intorno(x + w, y + h, 20)};
    const double k = s.fra(0.4, 1.6), dx = s.fra(-300, 300), dy = s.fra(-300, 300);
    Quad dst;
    for (std::size_t i = 0; i < 4; ++i) dst[i] = intorno(dx + k * src[i].x, dy + k * src[i].y, 25);
    attaccoAttivo.tipo = s.intero(0, 2);
    deformProspettica = s.intero(0, 1) == 1;
    xAttacco5 = x + w / 2;
    yAttacco5 = y + h / 2;
    attaccoAttivo.SetXYAtt(4, (dst[0].x + dst[2].x) / 2 + s.fra(-5, 5), (dst[0].y + dst[2].y) / 2);
    preparaAttacco(src, dst);
}

TEST_F(Rettifica, everyPixelIsThatOfThePlainLoop) {
    const SenzaTraccia muto;
    int fatti = 0;
    for (std::uint32_t giro = 0; giro < 60; ++giro) {
        SetUp();
        Sorte s(giro);
        const double x = s.fra(-50, 400), y = s.fra(-50, 400), w = s.fra(100, 200), h = s.fra(100, 200);
        const std::int32_t n = mettiPict(pixelAcaso(s.intero(20, 90), s.intero(20, 90), giro), x, y, w, h);
        registraAcaso(s, x, y, w, h);
        risoluzione = s.intero(49, 140);
        coeffRisoluzione = risoluzione / 72;
        bitColore = BitDi(static_cast<std::int16_t>(s.intero(1, 3)));
        tipoPitc = 1;
        tipoTaglio = static_cast<std::int16_t>(s.intero(1, 2));
        std::int32_t poligono = 0;
        if (s.intero(0, 2) > 0) {
            std::vector<Coppia> punti;
            double px = x + w / 2, py = y + h / 2;
            if (tipoTaglio == 2) attaccoAttivo.Traf4Pt(px, py);
            for (int k = s.intero(3, 12); k > 0; --k)   // any polygon, one that crosses itself too
                punti.push_back({px + s.fra(-w, w) * 0.6, py + s.fra(-h, h) * 0.6});
            poligono = mettiPolilinea(punti);
        }
        CalcolaVertici(Elem(n), poligono);
        filiRaster = 1 + static_cast<std::int32_t>(giro % 3);
        const std::uint8_t modo = deformProspettica;
        const bool qualcosa = larghBitMap > 0 && altBitMap > 0;
        ASSERT_EQ(PictureToPixMap(Elem(n).pict.maniglia, poligono != 0), qualcosa) << giro;
        EXPECT_EQ(deformProspettica, 1);
        if (!qualcosa) continue;
        ++fatti;
        deformProspettica = modo;
        const Pixels atteso =
            giudica(Elem(n).pict.maniglia, [&](const Tela& a, Tela& b) { cicloPiano(a, b, poligono != 0); });
        const Pixels avuto = pixelDelPict(Elem(indElem).pict.maniglia);
        ASSERT_EQ(differenza(avuto, atteso), "") << "draw " << giro << ", mode " << attaccoAttivo.tipo << ", depth "
                                                 << bitColore << ", cut " << (poligono ? tipoTaglio : 0);
    }
    EXPECT_GT(fatti, 50);
}

// Crosses of a sheet that has shrunk and was folded somewhere, each off by a little.
std::vector<PuntoNoto> crociPiegate(Sorte& s, double x, double y, double w, double h, int punti) {
    std::vector<PuntoNoto> p;
    const double piega = x + w * s.fra(0.3, 0.7), k = s.fra(0.6, 1.4);
    for (int i = 0; i < punti; ++i) {
        const double px = x + s.fra(-0.05, 1.05) * w, py = y + s.fra(-0.05, 1.05) * h, t = (px - piega) / (w / 8);
        p.push_back(
            {{px, py},
             {k * px - 4 * std::tanh(t) + s.fra(-0.5, 0.5), -(k * py + 3 * std::exp(-t * t)) + s.fra(-0.5, 0.5)}});
    }
    return p;
}

// Told, by many points: the same plain loop over every source pixel is the judge, whatever the net, the cut and the threads;
// and the net is the mapping itself to a hundredth of a pixel.
TEST_F(Rettifica, everyPixelByManyPointsIsThatOfThePlainLoop) {
    constexpr Metodo metodi[] = {Metodo::affine, Metodo::proiettivo, Metodo::terzo, Metodo::lastra};
    int fatti = 0, perRete = 0;
    for (std::uint32_t giro = 0; giro < 40; ++giro) {
        SetUp();
        Sorte s(giro);
        const double x = s.fra(-50, 400), y = s.fra(-50, 400), w = s.fra(100, 300), h = s.fra(100, 300);
        const std::int32_t n = mettiPict(pixelAcaso(s.intero(20, 90), s.intero(20, 90), giro), x, y, w, h);
        const auto punti = crociPiegate(s, x, y, w, h, s.intero(14, 40));
        SoluzionePunti soluzione;
        ASSERT_TRUE(RisolviPunti(punti, metodi[giro % 4], soluzione)) << giro;
        MappaFoglio m(soluzione.mappa, punti, false);
        ASSERT_TRUE(m);
        const ConMappa parola(&m);
        risoluzione = s.intero(49, 140);
        coeffRisoluzione = risoluzione / 72;
        bitColore = BitDi(static_cast<std::int16_t>(s.intero(1, 3)));
        tipoPitc = 1;
        tipoTaglio = static_cast<std::int16_t>(s.intero(1, 2));
        const double pixel = DecPunto / coeffRisoluzione;
        // Some nets end inside the picture: what lies outside goes by the mapping itself.
        const double bordo = giro % 3 == 0 ? -20 : 20;
        if (giro % 5 != 4) perRete += m.PerPixel(x - bordo, y - bordo, x + w + bordo, y + h + bordo, 0.01 * pixel);
        for (int i = 0; i < 200; ++i) {
            const Coppia p{s.fra(x, x + w), s.fra(y, y + h)}, a = m(p), b = m.esatta(p);
            ASSERT_LE(std::hypot(a.x - b.x, a.y - b.y), 0.01 * pixel) << giro;
        }
        std::int32_t poligono = 0;
        if (s.intero(0, 2) > 0) {
            std::vector<Coppia> vertici;
            double px = x + w / 2, py = y + h / 2;
            if (tipoTaglio == 2) attaccoAttivo.Traf4Pt(px, py);
            for (int k = s.intero(3, 12); k > 0; --k)
                vertici.push_back({px + s.fra(-w, w) * 0.6, py + s.fra(-h, h) * 0.6});
            poligono = mettiPolilinea(vertici);
        }
        CalcolaVertici(Elem(n), poligono);
        filiRaster = 1 + static_cast<std::int32_t>(giro % 3);
        const bool qualcosa = larghBitMap > 0 && altBitMap > 0;
        ASSERT_EQ(PictureToPixMap(Elem(n).pict.maniglia, poligono != 0), qualcosa) << giro;
        if (!qualcosa) continue;
        ++fatti;
        const Pixels atteso =
            giudica(Elem(n).pict.maniglia, [&](const Tela& a, Tela& b) { cicloPiano(a, b, poligono != 0); });
        ASSERT_EQ(differenza(pixelDelPict(Elem(indElem).pict.maniglia), atteso), "") << "draw " << giro;
    }
    EXPECT_GT(fatti, 30);
    EXPECT_GT(perRete, 25);
}

TEST_F(Rettifica, aRowsStretchesAreThePointsThatAreInside) {
    for (std::uint32_t giro = 0; giro < 300; ++giro) {
        Sorte s(giro);
        ultimoTaglio = s.intero(0, 9);
        for (std::size_t i = 0; i <= static_cast<std::size_t>(ultimoTaglio); ++i) {   // whole numbers: many coincide
            Xtaglio[i] = s.intero(0, 8) * (giro % 2 ? 1.0 : 0.37);
            Ytaglio[i] = s.intero(0, 8) * (giro % 2 ? 1.0 : 0.37);
        }
        if (giro % 7 == 0) Xtaglio[0] = std::numeric_limits<double>::quiet_NaN();
        const FilaPunti fila{-1, giro % 2 ? 0.25 : 0.00009, giro % 3 ? s.intero(0, 32) * 0.25 : Ytaglio[0] + 0.00005};
        const std::int32_t fine = giro % 2 ? 60 : 40000;
        std::vector<TrattoFila> tratti;
        TrattiInterni(fila, -3, fine, tratti);
        auto t = tratti.begin();
        for (std::int32_t h = -3; h < fine; ++h) {
            while (t != tratti.end() && h >= t->a) ++t;
            const bool dentro = t != tratti.end() && h >= t->da;
            ASSERT_EQ(dentro, InternoPol(fila.x0 + h * fila.passo, fila.y)) << giro << " at " << h;
        }
    }
}

TEST_F(Rettifica, aPlainMoveKeepsTheSizeAndCarriesThePicture) {
    const std::int32_t n = mettiPict(pixelAcaso(30, 20, 1), 100, 200, 300, 200);
    preparaAttacco(0, {{{100, 400}, {100, 200}, {400, 200}, {400, 400}}},
                   {{{600, 500}, {600, 300}, {900, 300}, {900, 500}}});
    coeffRisoluzione = 72.0 / 72;
    CalcolaVertici(Elem(n), 0);
    EXPECT_DOUBLE_EQ(rapportoDimensione, 1);
    EXPECT_DOUBLE_EQ(coeffRisoluzioneSrc, 1.8);
    ASSERT_TRUE(PictureToPixMap(Elem(n).pict.maniglia, false));
    const auto& e = Elem(indElem).pict;
    EXPECT_DOUBLE_EQ(e.x, 600);
    EXPECT_DOUBLE_EQ(e.y, 300);
    EXPECT_DOUBLE_EQ(e.larghezza, 300);
    EXPECT_DOUBLE_EQ(e.altezza, 200);
    EXPECT_EQ(indElem, n + 1) << "the source stays";
}

TEST_F(Rettifica, aPolylineBesideTheResultIsRefusedAndChangesNothing) {
    const std::int32_t n = mettiPict(pixelAcaso(30, 20, 1), 0, 0, 300, 200);
    preparaAttacco(1, {{{0, 200}, {0, 0}, {300, 0}, {300, 200}}}, {{{0, 200}, {0, 0}, {300, 0}, {300, 200}}});
    const std::int32_t p = mettiPolilinea({{1000, 1000}, {1100, 1000}, {1100, 1100}});
    tipoTaglio = 2;
    coeffRisoluzione = 1;
    CalcolaVertici(Elem(n), p);
    const std::int32_t prima = indElem;
    EXPECT_FALSE(PictureToPixMap(Elem(n).pict.maniglia, true));
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{128});
    EXPECT_EQ(indElem, prima);
    EXPECT_EQ(deformProspettica, 1);
}

TEST_F(Rettifica, aResultThatMemoryCannotHoldIsRefusedWithItsSize) {
    const std::int32_t n = mettiPict(pixelAcaso(30, 20, 1), 0, 0, 300, 200);
    // Nearly on the horizon: the picture's far edge comes out kilometres away.
    preparaAttacco(0, {{{0, 0}, {1, 0}, {0, 0}, {0, 0}}}, {{{0, 0}, {1e6, 0}, {0, 0}, {0, 0}}});
    coeffRisoluzione = 2;
    CalcolaVertici(Elem(n), 0);
    EXPECT_FALSE(PictureToPixMap(Elem(n).pict.maniglia, false));
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{128});
    EXPECT_NE(avvisi[0].testo.find("MB"), std::string::npos) << avvisi[0].testo;
}

TEST_F(Rettifica, aFullDrawingTakesNothingAndSaysNothing) {
    const std::int32_t n = mettiPict(pixelAcaso(30, 20, 1), 0, 0, 300, 200);
    preparaAttacco(0, {{{0, 0}, {100, 0}, {0, 0}, {0, 0}}}, {{{0, 0}, {100, 0}, {0, 0}, {0, 0}}});
    coeffRisoluzione = 1;
    CalcolaVertici(Elem(n), 0);
    maxElementi = indElem;
    EXPECT_TRUE(PictureToPixMap(Elem(n).pict.maniglia, false));
    EXPECT_EQ(indElem, n);
    EXPECT_TRUE(avvisi.empty());
}

TEST_F(Rettifica, theLastSelectedPictureAndPolylineAreTaken) {
    const std::int32_t a = mettiPict(pixelAcaso(4, 4, 1), 0, 0, 30, 30), p = mettiPolilinea({{0, 0}, {9, 0}, {9, 9}}),
                       b = mettiPict(pixelAcaso(4, 4, 1), 0, 0, 30, 30), q = mettiPolilinea({{0, 0}, {9, 0}, {9, 9}});
    seleziona(a, oPict);
    EXPECT_EQ(PictScelta().pict, a);
    EXPECT_EQ(PictScelta().poligono, 0);
    for (const std::int32_t n : {p, b, q}) seleziona(n, Elem(n).tipo == tPict ? oPict : oPoligono);
    EXPECT_EQ(PictScelta().pict, b);
    EXPECT_EQ(PictScelta().poligono, q);
}

TEST_F(Rettifica, aWideRasterIsWrittenInBandsThatShowItWhole) {
    for (const std::int32_t w : {19999, 20000, 20001, 45000}) {
        for (const std::int16_t bit : {std::int16_t{8}, std::int16_t{32}}) {
            const auto f = FormatoPer(bit, nullptr);
            Tela t;
            ASSERT_TRUE(NuovaTela(t, w, 3, *f, true));
            for (std::int32_t y = 0; y < 3; ++y)
                for (std::int64_t i = 0; i < std::int64_t(w) * t.byte; ++i)
                    t.riga(y)[i] = static_cast<std::uint8_t>(i * 7 + y);
            const std::int32_t unita = PixelPerUnita(w, 3);
            const std::string bytes =
                ExtendedStdBits(t, *f, Rect{0, 0, (3 + unita - 1) / unita, (w + unita - 1) / unita}, 1);
            const auto fonte = ApriFonte(bytes);
            ASSERT_TRUE(fonte) << w;
            ASSERT_GE(fonte->width, w);
            ASSERT_LT(fonte->width, w + unita);
            std::vector<std::uint32_t> avuta(static_cast<std::size_t>(fonte->width)),
                attesa(static_cast<std::size_t>(w));
            for (std::int32_t y = 0; y < 3; ++y) {
                fonte->riga(y, 0, fonte->width, avuta.data());
                f->decodifica(t.riga(y), w, attesa.data());
                avuta.resize(attesa.size());
                ASSERT_EQ(avuta, attesa) << w << " row " << y;
                avuta.resize(static_cast<std::size_t>(fonte->width));
            }
        }
    }
}

}   // namespace
