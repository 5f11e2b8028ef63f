// What the tools leave on the drawing: figures alone, and of one that is given up nothing.
#include <gtest/gtest.h>

#include <algorithm>

#include "display/Disegno.h"
#include "display/Elastico.h"
#include "display/Sovrapposto.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/Vincoli.h"
#include "platform/paint/RasterPort.h"
#include "support/Foglio.h"
#include "tools/Costruzione.h"
#include "tools/Marker.h"

using namespace tessaro;
using namespace prova;

namespace {

// A raster for a window.
class Schermo {
    static constexpr int larghezza = 400, altezza = 300;
    RasterPort porta{larghezza, altezza, 1};
    GrafPtr prima = GetPort();

public:
    Schermo() { SetPort(&porta); }
    ~Schermo() { SetPort(prima); }
    Schermo(const Schermo&) = delete;
    Schermo& operator=(const Schermo&) = delete;

    // Pixels that are not white.
    [[nodiscard]] int segnati() const {
        const std::uint32_t* p = porta.pixels();
        return static_cast<int>(
            std::count_if(p, p + larghezza * altezza, [](std::uint32_t v) { return (v & 0xFFFFFF) != 0xFFFFFF; }));
    }
};

void muovi(double x, double y) {
    xcurs = x;
    ycurs = y;
    const bool segmento = Azione == sPercorso || operazCorrente < opTesto || (Azione == sPrimoPunto && CurvePerPunti);
    if (Azione)
        FaiElemento(segmento ? tSegmento : Azione == sTerzoPunto && operazCorrente == opArco ? tArco : tCerchio);
}

void premi(std::int16_t bottone) {
    tabButton = bottone;
    if (Azione == sFermo) {
        InitSegm();
    } else if (Azione == sTerzoPunto) {
        FineArcoRaggio();
    } else {
        FineSegm();
    }
}

}   // namespace

TEST(Elastico, AFigureGivenUpLeavesTheScreenAsItWas) {
    fogliovuoto();
    spessore = 3;
    for (const std::int32_t strumento : {0, 1}) {
        SCOPED_TRACE(strumento);
        operazCorrente = strumento;
        const Schermo schermo;
        muovi(300, 300);
        premi(1);
        for (const double x : {350, 520, 780}) muovi(x, 420);
        premi(0);
        EXPECT_EQ(Azione, sFermo);
        EXPECT_EQ(schermo.segnati(), 0);
    }
}

TEST(Elastico, TheFirstPointIsMarkedWhileAClickThereCloses) {
    fogliovuoto();
    operazCorrente = opPolilinea;
    Modalita = mDigitazione;
    muovi(300, 300);
    premi(1);
    muovi(500, 300);
    premi(1);
    EXPECT_FALSE(ChiusuraDelMomento().c_e);   // a way back along its only side closes nothing
    muovi(500, 600);
    premi(1);
    const SegnoChiusura s = ChiusuraDelMomento();
    EXPECT_TRUE(s.c_e);
    EXPECT_TRUE(s.x == 300 && s.y == 300);
    Modalita = mAttacco;   // a click there would set a control point
    EXPECT_FALSE(ChiusuraDelMomento().c_e);
    Modalita = mDigitazione;
    operazCorrente = opMarker;
    EXPECT_FALSE(ChiusuraDelMomento().c_e);
    operazCorrente = opPolilinea;
    FineFigura();
    EXPECT_FALSE(ChiusuraDelMomento().c_e);
}

TEST(Elastico, AFinishedFigureStandsAloneAsARepaintWouldDrawIt) {
    const struct {
        const char* caso;
        std::int32_t strumento;
        bool perPunti;
    } casi[] = {{"segment", 0, false},
                {"circle by centre", 5, false},
                {"circle through points", 5, true},
                {"arc by centre", 6, false},
                {"arc through points", 6, true}};
    for (const auto& c : casi) {
        SCOPED_TRACE(c.caso);
        fogliovuoto();
        operazCorrente = c.strumento;
        CurvePerPunti = c.perPunti;
        const Schermo schermo;
        muovi(400, 400);
        premi(1);
        if (c.strumento != 6 && !c.perPunti) premi(1);   // on the same spot: ignored
        muovi(500, 420);
        premi(1);
        muovi(700, 430);
        if (Azione) premi(1);
        muovi(610, 520);
        if (Azione) premi(1);
        EXPECT_EQ(Azione, sFermo);
        const int lasciati = schermo.segnati();
        EXPECT_GT(lasciati, 20);

        const Schermo pulito;
        ColoreDaTabella(colorCorrente);
        PenNormal();
        for (std::int32_t n = 3; n <= indElem; ++n) {
            const elemento& e = Elem(n);
            if (e.tipo == tSegmento) fai(tSegmento, e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2, 0);
            if (e.tipo == tCerchio) fai(tCerchio, e.cerc.cx, e.cerc.cy, e.cerc.raggio, 0, 0);
            if (e.tipo == tArco) fai(tArco, e.arco.cx, e.arco.cy, e.arco.raggio, e.arco.angoloInizio, e.arco.ampiezza);
        }
        EXPECT_EQ(lasciati, pulito.segnati());
    }
}
