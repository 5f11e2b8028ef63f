// The view's scale and place: zooms, scrolling and the layout of the window.
#include "display/Zoom.h"

#include <algorithm>
#include <cmath>

#include "dialogs/Errori.h"
#include "display/Disposizione.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Automation.h"
#include "platform/Menus.h"

namespace tessaro {

constinit Rect DragRect{};
constinit Rect GrowRect{};

constinit std::uint8_t NewDis = 0;
constinit Rect Screen{};
constinit ControlHandle VScroll = nullptr;
constinit ControlHandle HScroll = nullptr;
constinit ControlHandle panel = nullptr;

namespace {

constexpr std::int32_t margine = 7;      // pixels round the drawing after ZoomRilievo
constexpr double limiteAngolo = 1e9;     // scroll positions stay within 32 bits with room for a view beside them
constexpr double scalaMassima = 20000;   // the widest sheet, 32767 units, still fits the scroll bars
constexpr double scalaMinima = 1e-12;

double larghezza() { return myViewRect.right - myViewRect.left; }
double altezza() { return myViewRect.bottom - myViewRect.top; }

std::int32_t angolo(double v) { return arrotonda32(std::isnan(v) ? 0 : std::clamp(v, -limiteAngolo, limiteAngolo)); }

// What follows from scale and corner.
void allinea() {
    OrigX = PageCorner.h - latoCella;
    OrigY = PageCorner.v - hToolbar;
    AggiornaBarre();
}

// The corner's coordinate when the scale grows by f and the place `fermo`, pixels from the view's edge, stays.
std::int32_t attorno(std::int32_t valore, double f, double fermo) {
    return angolo(std::round(valore * f) + std::round(fermo * (f - 1)));
}

// Scales by f about a place of the view, pixels from its top left. A factor that would push the corner past its limit is held
// to the limit.
void scalaAttorno(double f, double h, double v) {
    const double piuLontano = std::max(std::fabs(PageCorner.h + larghezza()), std::fabs(PageCorner.v + altezza()));
    if (f > 1 && piuLontano * f > limiteAngolo) f = std::max(1.0, limiteAngolo / piuLontano);
    const double prima = scalavid;
    CambiaScala(scalavid * f);
    f = scalavid / prima;
    PageCorner.h = attorno(PageCorner.h, f, h);
    PageCorner.v = attorno(PageCorner.v, f, v);
}

void scalaAttornoAlCentro(double f) { scalaAttorno(f, larghezza() / 2, altezza() / 2); }

void vediFoglio() {
    CambiaScala(
        std::min((larghezza() - barraScorrimento) / Xfoglio / 100, (altezza() - barraScorrimento) / yfoglio / 100));
    PageCorner = {};
}

void soloFinestra() {
    const double prima = scalavid;
    ZoomFinestra();
    const double f = scalavid / prima;
    PageCorner.h = angolo(PageCorner.h * f);
    PageCorner.v = angolo(PageCorner.v * f);
}

void scalaPerTipo(std::int16_t kind) {
    constexpr double reale = 72 / DecPollice;   // one to one at 72 dots an inch
    switch (kind) {
    case 1: vediFoglio(); break;
    case 2: scalaAttornoAlCentro(reale / scalavid); break;
    case 3: scalaAttornoAlCentro(reale * 2 / scalavid); break;
    case 4: scalaAttornoAlCentro(reale * 4 / scalavid); break;
    case 5: scalaAttornoAlCentro(reale / 2 / scalavid); break;
    case 6: scalaAttornoAlCentro(reale / 4 / scalavid); break;
    case 7: scalaAttornoAlCentro(2); break;
    case 8: scalaAttornoAlCentro(0.5); break;
    case 9: soloFinestra(); break;
    case 10: ZoomRilievo(); break;
    case 11: ZoomDisegno(); break;
    default: break;
    }
}

void ridisegnaVista() {
    SetPortWindowPort(theWindow);
    DrawTopBar();
    Ridisegna();
}

// --- extents

void estendi(double x, double y) {
    // A coordinate that is no number or endless would leave no scale to show anything at.
    if (std::isfinite(x) && std::isfinite(y)) AggRettSel(x, y);
}

void estendiElemento(std::int32_t n) {
    const elemento& e = Elem(n);
    if (e.tipo != tTesto) {
        PerEstremi(n, estendi);
    } else if (VisioneGraf.mostraTesti && std::isfinite(e.test.x) && std::isfinite(e.test.y)) {
        AggRetSelTesto(e);
    }
}

void estendiVisibili(std::int32_t da, std::int32_t a) {
    for (std::int32_t i = da; i <= a; ++i)
        if (LucidoVisibile(Elem(i).lucido)) estendiElemento(i);
}

}   // namespace

bool EstremiDisegno(std::int32_t da, std::int32_t a, RettSel& out) {
    const RettSel prima = rettSel;
    AzzeraRettSel();
    // Twice: AggRettSel widens a minimum or else a maximum, so the maxima are right once no minimum moves any more.
    estendiVisibili(da, a);
    estendiVisibili(da, a);
    out = rettSel;
    rettSel = prima;
    return out.xmin <= out.xmax && out.ymin <= out.ymax;
}

void CambiaScala(double nuova) {
    if (!std::isfinite(nuova) || nuova <= 0) return;
    scalavid = std::clamp(nuova, scalaMinima, scalaMassima);
    AggiornaTolleranze();
}

void FaiZoom(std::int16_t kind) {
    if (AvvioInForza().script) Delay(30);   // the pause after a menu choice: only a script's clock keeps it
    if (kind < 1 || kind > 11 || noWindow || !theWindow) return;
    for (std::int16_t i = voci::zoom::foglio; i <= voci::zoom::riduci; ++i) CheckMenuItem(menuZoom, i, i == kind);
    scalaPerTipo(kind);
    allinea();
    ridisegnaVista();
}

void ZoomAttorno(double f, Point fermo) {
    if (noWindow || !theWindow) return;
    if (PtInRect(fermo, myViewRect)) {
        scalaAttorno(f, fermo.h - myViewRect.left, fermo.v - myViewRect.top);
    } else {
        scalaAttornoAlCentro(f);
    }
    allinea();
}

void ZoomAlPuntatore(std::int16_t kind) {
    const Point p = GetMouse();
    if (noWindow || !theWindow || !PtInRect(p, myViewRect)) return FaiZoom(kind);
    for (std::int16_t i = voci::zoom::foglio; i <= voci::zoom::riduci; ++i) CheckMenuItem(menuZoom, i, i == kind);
    ZoomAttorno(kind == voci::zoom::ingrandisci ? 2 : 0.5, p);
    ridisegnaVista();
}

void ZoomFinestra() {
    const Stato stato;
    ClipRect(GetPortBounds(theWindow));
    Rect r;
    if (!SelRect(r) || r.right == r.left || r.bottom == r.top) return;
    const std::int32_t dh = r.left - latoCella, dv = r.top - hToolbar;
    PageCorner.h += dh;
    PageCorner.v += dv;
    OrigX += dh;
    OrigY += dv;
    TabletSegueVista();
    const double f = std::min(larghezza() / (r.right - r.left), altezza() / (r.bottom - r.top));
    CambiaScala(std::min(scalavid * f, MaxScalavid));
    FlushEvents();
}

void VediArea(double xmin, double ymin, double xmax, double ymax) {
    constexpr double bordo = 24;   // pixels on each side
    const double w = std::max(larghezza() - 2 * bordo, 1.0), h = std::max(altezza() - 2 * bordo, 1.0);
    const double dx = xmax - xmin, dy = ymax - ymin;
    if (!(dx >= 0) || !(dy >= 0)) return;
    CambiaScala(std::min({dx > 0 ? w / dx : MaxScalavid, dy > 0 ? h / dy : MaxScalavid, MaxScalavid}));
    PageCorner.h = angolo(std::round((xmin + xmax) / 2 * scalavid - larghezza() / 2));
    PageCorner.v = angolo(std::round((ymin + ymax) / 2 * scalavid - altezza() / 2));
    allinea();
}

void ZoomDisegno() {
    RettSel r;
    if (EstremiDisegno(3, indElem, r)) {
        VediArea(r.xmin, r.ymin, r.xmax, r.ymax);
    } else {
        vediFoglio();
    }
}

void ZoomRilievo() {
    double xmax = 0, ymax = 0, xmin = 0, ymin = 0, dx = 0, dy = 0;
    ContrMaxMin(xmax, ymax, xmin, ymin, dx, dy);
    CambiaScala(std::min({(larghezza() - barraScorrimento) / dx, (altezza() - barraScorrimento) / dy, MaxScalavid}));
    PageCorner.h = angolo(std::round(xmin * scalavid) - margine);
    PageCorner.v = angolo(std::round(ymin * scalavid) - margine);
}

void ContrMaxMin(double& xmax, double& ymax, double& xmin, double& ymin, double& width, double& height) {
    const RettSel prima = rettSel;
    AzzeraRettSel();
    AggRettSel(0, 0);
    AggRettSel(XFDecimi, YFDecimi);
    estendiVisibili(3, indElem);
    xmax = rettSel.xmax;
    ymax = rettSel.ymax;
    xmin = rettSel.xmin;
    ymin = rettSel.ymin;
    width = xmax - xmin;
    height = ymax - ymin;
    rettSel = prima;
    if (width >= 0 && height >= 0) return;
    width = height = -1;
    ErroreAlert(4);
}

// --- the window

void MoveScrollBars() {
    if (!theWindow || !VScroll || !HScroll) return;
    const Rect r = GetPortBounds(theWindow);
    const std::int32_t alto = r.bottom - r.top;
    constexpr std::int32_t s = barraScorrimento;   // a bar is a pixel wider: its edge lies on the window's
    const auto poni = [](ControlHandle c, std::int32_t left, std::int32_t top, std::int32_t w, std::int32_t h) {
        MoveSizeControl(c, SetRect(left, top, left + std::max(w, 0), top + std::max(h, 0)));
    };
    poni(VScroll, r.right - s, r.top - 1, s + 1, alto - s + 2);
    poni(HScroll, r.left + fineRiga, r.bottom - s, r.right - r.left - fineRiga - s + 1, s + 1);
    if (panel) poni(panel, 0, fondoCelle, latoCella, alto - fondoCelle - s + 2);
    SetControlSteps(VScroll, passoRiga, static_cast<std::int32_t>(altezza()));
    SetControlSteps(HScroll, passoRiga, static_cast<std::int32_t>(larghezza()));
}

void SetupLimits() {
    Screen = ScreenBounds();
    DragRect = SetRect(Screen.left + 4, Screen.top + 24, Screen.right - 4, Screen.bottom - 4);
    GrowRect = SetRect(Screen.left, Screen.top + 24, Screen.right, Screen.bottom);
}

void ReSizeWindow(std::int32_t width, std::int32_t height) {
    if (!theWindow) return;
    SetupLimits();
    SizeWindow(theWindow, std::max(width, 16), std::max(height, 16));
    DisponiVista();
    InvalWind();
    MoveScrollBars();
    MoveToolbar();
}

void AggiornaBarre() {
    if (!VScroll || !HScroll) return;
    const auto poni = [](ControlHandle c, double foglio, std::int32_t valore) {
        // The range grows to hold a view that lies beside the sheet, so that scrolling goes on from where it is.
        SetControlMinimum(c, std::min(0, valore));
        SetControlMaximum(c, std::max(arrotonda32(scalavid * foglio), valore));
        SetControlValue(c, valore);
    };
    poni(HScroll, XFDecimi, PageCorner.h);
    poni(VScroll, YFDecimi, PageCorner.v);
}

void DisponiVista() {
    if (!theWindow) return;
    const Rect r = GetPortBounds(theWindow);
    myViewRect = Rect{r.top + hToolbar, r.left + latoCella, r.bottom - barraScorrimento, r.right - barraScorrimento};
}

namespace {
const VoceStato righe[] = {
    voce<NewDis>("NewDis"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
