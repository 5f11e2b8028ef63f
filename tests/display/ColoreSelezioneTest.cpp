// The selection in its own colour, and what follows a zoom of a large drawing.
#include <gtest/gtest.h>

#include "display/Disegno.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/PreferenzeVista.h"
#include "model/Selezione.h"
#include "platform/Automation.h"
#include "Scena.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr std::uint32_t rgb = 0xFFFFFF;

struct Mostrato {
    std::vector<std::uint32_t> pixel = ShownPixels(theWindow);
    std::int32_t larga = GetPortBounds(theWindow).right;
    [[nodiscard]] std::uint32_t in(std::int32_t h, std::int32_t v) const {
        return pixel[static_cast<std::size_t>(v * larga + h)] & rgb;
    }
    [[nodiscard]] bool ha(std::uint32_t colore, const Rect& r) const {
        for (std::int32_t v = r.top; v < r.bottom; ++v)
            for (std::int32_t h = r.left; h < r.right; ++h)
                if ((in(h, v) | 1) == (colore | 1)) return true;
        return false;
    }
};

void scegli(std::int32_t n) {
    Elem(n).selezionato = 1;
    RistabilisciSelezione();
}

}   // namespace

TEST(ColoreSelezione, ShowsBandDotsAndGripsOverAnyGround) {
    coloreEvidenza = {0x1C1C, 0x7171, 0xD8D8};
    constexpr std::uint32_t colore = 0x1C71D8;
    for (const RGBColor& fondo : {RGBColor{65535, 65535, 65535}, RGBColor{}, RGBColor{0x1C1C, 0x7171, 0xD8D8}}) {
        const FinestraProva finestra(400, 300);
        FinestraProva::vedi(1, 0, 0);
        segmento(60, 100, 300, 100);
        PenNormal();
        RGBForeColor(fondo);
        PaintRect(myViewRect);
        const std::uint32_t sotto = Mostrato().in(92, 60);
        scegli(3);
        const Mostrato m;
        const std::int32_t riga = 100 - OrigY, da = 60 - OrigX, a = 300 - OrigX;
        EXPECT_TRUE(m.ha(colore, SetRect(da + 50, riga - 3, da + 60, riga + 3)));         // the band
        EXPECT_TRUE(m.ha(~sotto & rgb, SetRect(da + 50, riga - 3, da + 60, riga + 3)));   // the dots, as ever
        for (const std::int32_t h : {da, a}) {
            EXPECT_EQ(m.in(h, riga) | 1, colore | 1);   // a grip
            EXPECT_EQ(m.in(h - 3, riga - 3), rgb);      // and its rim
        }
        EXPECT_EQ(m.in(da + 50, riga + 20), sotto);
        Elem(3).selezionato = 0;
        RistabilisciSelezione();
        EXPECT_FALSE(Mostrato().ha(~sotto & rgb, myViewRect));   // and nothing of it stays
    }
}

TEST(ColoreSelezione, ALargeDrawingIsScaledAtOnceAndItsPaintingGivesWayToTheWheel) {
    FinestraProva finestra(400, 300);
    ASSERT_TRUE(AllocaElementi(40000));
    AzzeraArchivio();
    FinestraProva::vedi(1, 0, 0);
    segmento(100, 100, 100, 200);
    Ridisegna();
    sogliaAnteprimaZoom = 1;
    EventRecord e;
    e.where = {myViewRect.top, myViewRect.left};
    AutoPost(e);
    do WaitNextEvent(e, 0);
    while (!AutoQueueEmpty());
    Pizzica(1.25);   // about the view's corner, which is the sheet's
    const auto nero = [&](std::int32_t x, std::int32_t y) { return finestra.porta().pixel(x, y) == prova::nero; };
    const std::int32_t h = 125 - OrigX, v = 190 - OrigY;
    EXPECT_TRUE(nero(h, v) || nero(h - 1, v) || nero(h + 1, v));   // not painted anew: the old line, scaled
    // A step of the wheel that waits ends the painting, and the scaled picture stays.
    e = {};
    e.what = EventKind::wheel;
    AutoPost(e);
    for (int i = 0; i < 0x4000; ++i) segmento(200, 20, 200, 200);   // enough for the scan to ask
    Ridisegna();
    EXPECT_FALSE(nero(250 - OrigX, 100 - OrigY));
    EXPECT_TRUE(nero(h, v) || nero(h - 1, v) || nero(h + 1, v));
    do WaitNextEvent(e, 0);
    while (!AutoQueueEmpty());
    Ridisegna();
    EXPECT_TRUE(nero(h, v));
    EXPECT_TRUE(nero(250 - OrigX, 100 - OrigY));
}
