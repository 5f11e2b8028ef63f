// Placing what came in, and showing it.
#include "shell/Arrivo.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "display/Ridisegno.h"
#include "display/Zoom.h"
#include "editing/BloccoImmagini.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/PuntiElemento.h"
#include "model/Registrazione.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/Dialogs.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoFoglioPiccolo = 9400, avvisoFuoriFoglio = 9401, risponde2 = 2;

// --- a picture in the sheet

std::string centimetri(double decimi) {
    PStr255 s;
    RToStr(decimi / 100, 1, s);
    return s.str();
}

// Asks whether the sheet is to grow to w by h, sheet units.
void offriFoglio(double w, double h) {
    constexpr double foglioMassimo = 32767;   // sheet units, 16 bits
    constexpr double unMillimetro = 10;       // what a scanner adds at a sheet's edge is not worth a question
    if ((w <= XFDecimi + unMillimetro && h <= YFDecimi + unMillimetro) || w > foglioMassimo || h > foglioMassimo)
        return;
    ParamText(centimetri(w) + " x " + centimetri(h), centimetri(XFDecimi) + " x " + centimetri(YFDecimi), "", "");
    if (CautionAlert(avvisoFoglioPiccolo) != risponde2) return;
    const auto cresci = [](double misura, std::int16_t& decimi, double& cm) {
        decimi = std::max(decimi, static_cast<std::int16_t>(std::ceil(misura)));
        cm = decimi / 100.0;
    };
    cresci(w, XFDecimi, Xfoglio);
    cresci(h, YFDecimi, yfoglio);
    AggiornaBarre();
}

void immagineNelFoglio(elemento& e) {
    auto& p = e.pict;
    const double w = p.larghezza, h = p.altezza, x = p.x, y = p.y;
    if (!(std::isfinite(w + h + x + y)) || w <= 0 || h <= 0) return;
    offriFoglio(w, h);
    p.x = std::clamp(x, 0.0, std::max(XFDecimi - w, 0.0));
    p.y = std::clamp(y, 0.0, std::max(YFDecimi - h, 0.0));
}

// --- things far from the sheet

struct Riquadro {
    double xmin, ymin, xmax, ymax;
};

bool fuoriDalFoglio(const Riquadro& r) { return r.xmin < 0 || r.ymin < 0 || r.xmax > XFDecimi || r.ymax > YFDecimi; }

// Origin and scale that put the box in the sheet with a margin: control points 1 and 2 at the lower left and the upper right
// corner get real coordinates, and the records from `da` on keep theirs.
void portaNelFoglio(const Riquadro& r, std::int32_t da) {
    constexpr double usabile = 0.9;   // of the sheet's sides
    const Coppia vecchi[2] = {{r.xmin, r.ymax}, {r.xmin + std::max({r.xmax - r.xmin, r.ymax - r.ymin, 1.0}), r.ymax}};
    Coppia reali[2], basso, alto;
    for (int i = 0; i < 2; ++i) DigiToReal(vecchi[i].x, vecchi[i].y, reali[i].x, reali[i].y);
    DigiToReal(r.xmin, r.ymax, basso.x, basso.y);
    DigiToReal(r.xmax, r.ymin, alto.x, alto.y);
    const double w = alto.x - basso.x, h = alto.y - basso.y;
    const double servono = std::max(w / (usabile * XFDecimi), h / (usabile * YFDecimi));   // real units a sheet unit
    const double scala = ScalaRotonda(std::max(servono, 1e-9) * decimiUnita);
    const double perUnita = scala / decimiUnita;
    // The corner's coordinates are round ones: a tenth of a decimetre of the sheet, or so.
    const double passo = ScalaRotonda(perUnita * 100);
    const auto origine = [&](double centro, double foglio) {
        return std::floor((centro - foglio * perUnita / 2) / passo + 0.5) * passo;
    };
    const Coppia angolo{origine((basso.x + alto.x) / 2, XFDecimi), origine((basso.y + alto.y) / 2, YFDecimi)};

    AssegnaAttacco(1, 0, YFDecimi);
    AssegnaAttacco(2, XFDecimi, 0);
    CopiePunti12();
    auto& att = Elem(2).att;
    att.x1 = angolo.x;
    att.y1 = angolo.y;
    att.x2 = angolo.x + XFDecimi * perUnita;
    att.y2 = angolo.y + YFDecimi * perUnita;
    att.coordReali = 1;
    CalcTransfC();
    CalcolaRapporti();

    Coppia nuovi[2];
    for (int i = 0; i < 2; ++i) RealToDigi(reali[i].x, reali[i].y, nuovi[i].x, nuovi[i].y);
    TransfRec t;
    CalcTransfFogli(t, vecchi[0], vecchi[1], nuovi[0], nuovi[1]);
    for (std::int32_t n = da; n <= indElem; ++n) TrasformaElemento(Elem(n), t);
}

void offriOrigine(const Riquadro& r, std::int32_t da) {
    if (!fuoriDalFoglio(r) || XFDecimi <= 0 || YFDecimi <= 0) return;
    Coppia basso, alto;
    DigiToReal(r.xmin, r.ymax, basso.x, basso.y);
    DigiToReal(r.xmax, r.ymin, alto.x, alto.y);
    const auto da2 = [](const Coppia& c) {
        PStr255 x, y;
        RToStr(c.x, 2, x);
        RToStr(c.y, 2, y);
        return x.str() + "; " + y.str();
    };
    ParamText(da2(basso), da2(alto), "", "");
    if (CautionAlert(avvisoFuoriFoglio) == risponde2) portaNelFoglio(r, da);
}

// --- the view

// Beside what was there already, something of it to be seen is enough: the person works at this view.
void mostra(const Riquadro& r, bool vuoto) {
    constexpr double minimo = 4;   // pixels: less is a speck
    const double sinistra = XVidD(r.xmin), alto = YVidD(r.ymin), destra = XVidD(r.xmax), basso = YVidD(r.ymax);
    const bool tutto = sinistra >= myViewRect.left && alto >= myViewRect.top && destra <= myViewRect.right
                       && basso <= myViewRect.bottom;
    const bool parte =
        sinistra < myViewRect.right && alto < myViewRect.bottom && destra > myViewRect.left && basso > myViewRect.top;
    const bool dentro = vuoto ? tutto : parte || tutto;
    const bool punto = r.xmin == r.xmax && r.ymin == r.ymax;
    if (dentro && (!vuoto || punto || destra - sinistra >= minimo || basso - alto >= minimo)) return;
    VediArea(r.xmin, r.ymin, r.xmax, r.ymax);
    InvalFinestra();
}

}   // namespace

double ScalaRotonda(double v) {
    constexpr double gradini[] = {1, 1.5, 2, 2.5, 4, 5, 7.5, 10};
    const double potenza = std::pow(10, std::floor(std::log10(v)));
    for (const double g : gradini)
        if (g * potenza >= v * (1 - 1e-12)) return g * potenza;
    return 10 * potenza;
}

Arrivo::Arrivo() : prima(noWindow ? 2 : indElem) {}

Arrivo::~Arrivo() {
    if (noWindow || indElem <= prima) return;
    const std::int32_t da = prima + 1;
    const bool vuoto = prima <= 2 && !Elem(2).att.coordReali;
    const bool immagine = Elem(da).tipo == tPict;
    if (vuoto && immagine && da == indElem) immagineNelFoglio(Elem(da));
    if (immagine) ScansioneArrivata();
    RettSel r;
    if (!EstremiDisegno(da, indElem, r)) return;
    if (vuoto && !immagine) {
        offriOrigine({r.xmin, r.ymin, r.xmax, r.ymax}, da);
        if (!EstremiDisegno(da, indElem, r)) return;
    }
    mostra({r.xmin, r.ymin, r.xmax, r.ymax}, prima <= 2);
}

}   // namespace tessaro
