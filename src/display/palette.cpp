// The fixed strips of the window: tool palette on the left, bar on top, and the tags that explain their cells.
#include "display/palette.h"

#include "display/Disposizione.h"

#include "display/Lettura.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "display/Barra.h"
#include "display/Zoom.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/Events.h"
#include "platform/Resources.h"
#include "text/Conversione.h"

namespace tessaro {

PStr63 StrOperCorr("");

namespace {

constexpr std::int16_t listaAiuti = 1102, aiutoRiga = 23;

// The cells, one after another.
template <class F>
void perOgniCella(F f) {
    for (int i = 0; i < numCelle; ++i) f(static_cast<CellaPalette>(i));
}
std::int16_t aiutoDi(CellaPalette c) { return static_cast<std::int16_t>(c + 1); }

bool scuro(const RGBColor& c) { return c.red + c.green + c.blue < 3 * 32768; }

// A colour some way from `da` to `a`, in hundredths.
RGBColor miscela(const RGBColor& da, const RGBColor& a, int percento) {
    const auto una = [percento](std::uint16_t x, std::uint16_t y) {
        return static_cast<std::uint16_t>((x * (100 - percento) + y * percento) / 100);
    };
    return {una(da.red, a.red), una(da.green, a.green), una(da.blue, a.blue)};
}

// The strip's ground moved towards its own text colour.
RGBColor tonoStriscia(int percento) {
    const RGBColor fondo = SystemStripColour();
    return miscela(fondo, scuro(fondo) ? RGBColor{65535, 65535, 65535} : RGBColor{}, percento);
}

void riempi(const Rect& r, const RGBColor& c) {
    RGBForeColor(c);
    PenPat(qdBlack);
    PenMode(patCopy);
    PaintRect(r);
}

void linea(std::int32_t h1, std::int32_t v1, std::int32_t h2, std::int32_t v2, const RGBColor& c) {
    PenNormal();
    RGBForeColor(c);
    MoveTo(h1, v1);
    LineTo(h2, v2);
}

// The number of the current sheet over its icon.
void numeroLucido() {
    const Rect& r = numeroNelLucido;
    riempi(r, SystemStripColour());
    TextFont(3);
    TextSize(9);
    TextFace(0);
    TextMode(srcOr);
    RGBForeColor(tonoStriscia(100));
    const PStr255 numero = NumToString(VisioneGraf.lucidoCorrente);
    MoveTo((r.left + r.right - StringWidth(numero.view())) / 2, r.bottom - 2);
    DrawString(numero.view());
}

void disegnaCelle() {
    perOgniCella([](CellaPalette c) {
        const std::int32_t icona = IconaCella(c);
        DrawIcona(RettangoloCella(c), CellaAccesa(c) ? IconaAccesa(icona) : icona);
    });
    numeroLucido();
}

void scriviOperazione() {
    const Rect r = RigaOperazione();
    RGBForeColor(ColoreFisso(blackColor));
    BackColor(whiteColor);
    EraseRect(r);
    TextFont(4);
    TextSize(9);
    TextFace(0);
    TextMode(srcOr);
    MoveTo(4, r.bottom - 3);
    DrawString(StrOperCorr.view());
}

// The foot of the window: rule, coordinate line and the operation now running.
void disegnaPiede() {
    linea(0, myViewRect.bottom, fineRiga - 1, myViewRect.bottom, ColoreFisso(blackColor));
    BackColor(whiteColor);
    EraseRect(RigaCoordinate());
    if (StrOperCorr.view().empty()) {
        RidisegnaLettura();   // nothing may have moved, so nobody else would
        return;
    }
    scriviOperazione();
}

// --- tags

struct Riposo {
    Point dove;                  // where the pointer rests
    std::uint32_t dal = 0;       // ticks since when
    std::int16_t mostrato = 0;   // entry whose tag is out, 0 none
};
constinit Riposo riposo{};

struct Zona {
    std::int16_t voce = 0;   // entry of the help list, 0 outside
    Rect r;
};

Zona zonaDi(Point p) {
    if (const CellaPalette c = CellaSotto(p); c != numCelle) return {aiutoDi(c), RettangoloCella(c)};
    const Rect riga = RigaCoordinate();
    if (PtInRect(p, riga)) return {aiutoRiga, riga};
    return {};
}

void nascondi() {
    if (riposo.mostrato) HMHideTag();
    riposo.mostrato = 0;
}

}   // namespace

void DrawIcona(const Rect& r, std::int32_t id) {
    const std::int32_t fuoco = IconaAccesa(0);
    const bool accesa = id >= fuoco;
    riempi(r, SystemStripColour());
    if (accesa) riempi(InsetRect(r, 2, 2), tonoStriscia(22));
    // An icon without a lit form of its own stands on the lit ground as it is.
    if (!PlotIconID(r, id) && accesa) PlotIconID(r, id - fuoco);
}

bool TrackIcon(const Rect& r, std::int32_t id, std::int32_t litId) {
    const Stato stato;
    ClipRect(GetPortBounds(theWindow));
    bool dentro = true;
    DrawIcona(r, litId);
    while (StillDown()) {
        const bool ora = PtInRect(GetMouse(), r);
        if (ora != dentro) DrawIcona(r, ora ? litId : id);
        dentro = ora;
    }
    dentro = PtInRect(GetMouse(), r) && !quitPending() && !DragGivenUp();
    DrawIcona(r, id);
    return dentro;
}

void DrawPallette() {
    if (noWindow || !theWindow) return;
    {
        const Stato stato;
        ClipRect(GetPortBounds(theWindow));
        const std::int32_t fondo = myViewRect.bottom;
        riempi(SetRect(0, 0, latoCella, fondo), SystemStripColour());
        disegnaCelle();
        linea(latoCella - 1, 0, latoCella - 1, fondo - 1, tonoStriscia(25));
        disegnaPiede();
    }
    AggiornaValori();
    BackColor(whiteColor);
    ClipRect(myViewRect);
}

void DrawOperazCorr() {
    if (noWindow || !theWindow) return;
    {
        const Stato stato;
        ClipRect(GetPortBounds(theWindow));
        scriviOperazione();
    }
    FlushWindow(theWindow);
}

void DrawTopBar() {
    if (noWindow || !theWindow) return;
    const Stato stato;
    const Rect porta = GetPortBounds(theWindow);
    ClipRect(porta);
    riempi(SetRect(latoCella, 0, porta.right, hToolbar), SystemStripColour());
    linea(latoCella, hToolbar - 1, porta.right, hToolbar - 1, tonoStriscia(25));
    // The column of the scroll bar and the corner where the two bars meet.
    riempi(SetRect(myViewRect.right, hToolbar, porta.right, porta.bottom), SystemStripColour());
    riempi(SetRect(fineRiga, myViewRect.bottom, porta.right, porta.bottom), SystemStripColour());
}

void inizializzaMainToolbar() {
    if (!theWindow) return;
    perOgniCella([](CellaPalette c) {
        NameWindowPart(theWindow, aiutoDi(c), RettangoloCella(c), GetIndString(listaAiuti, aiutoDi(c)));
    });
    CreaBarra();
    MoveToolbar();
}

// The coordinate line moves with the window's foot.
void MoveToolbar() {
    if (!theWindow) return;
    DisponiBarra();
    NameWindowPart(theWindow, aiutoRiga, RigaCoordinate(), GetIndString(listaAiuti, aiutoRiga));
}

void InitializeTags() { riposo = Riposo{}; }

std::int32_t HelpTagControl(Point where, std::uint32_t time, std::uint8_t on) {
    constexpr std::int32_t attesa = 100;   // ticks of rest before a tag comes out
    const Zona zona = on && theWindow ? zonaDi(where) : Zona{};
    if (zona.voce == 0 || !(where == riposo.dove)) {
        if (zona.voce != riposo.mostrato) nascondi();
        riposo.dove = where;
        riposo.dal = time;
    }
    if (zona.voce == 0 || riposo.mostrato) return -1;
    const auto trascorso = static_cast<std::int32_t>(std::min<std::uint32_t>(time - riposo.dal, 1 << 30));
    if (trascorso <= attesa) return attesa + 1 - trascorso;
    HMDisplayTag(theWindow, zona.r, listaAiuti, zona.voce);
    riposo.mostrato = zona.voce;
    return -1;
}

namespace {
const VoceStato righe[] = {voce<StrOperCorr>("StrOperCorr"), {"riposo", InitializeTags, nullptr}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
