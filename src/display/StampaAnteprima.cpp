// The print preview: the sheet with its pages on it, and the choices that change them.
#include <algorithm>
#include <cmath>
#include <string>

#include "dialogs/Parametri.h"
#include "display/Disegno.h"
#include "display/Stampa.h"
#include "display/StampaPiastrelle.h"
#include "model/Registrazione.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/Fonts.h"
#include "platform/paint/RasterPort.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogoAnteprima = 9145;
enum Voce : std::int16_t {
    vStampa = 1,
    vChiudi = 2,
    vFormato = 3,
    vTela = 4,
    vPagine = 5,
    vCrocini = 10,
    vSovrapposte,
    vNumeri,
    vRighello,
    vVuote,
    vUna,
    vCompresse,
    vStriscia = 20,
};
constexpr std::int32_t telaW = 460, telaH = 400, orlo = 12;   // pixels

struct Casella {
    Voce voce;
    std::uint8_t ScelteStampa::*scelta;
};
constexpr Casella caselle[] = {
    {vCrocini, &ScelteStampa::crocini},     {vSovrapposte, &ScelteStampa::sovrapposte},
    {vNumeri, &ScelteStampa::numeri},       {vRighello, &ScelteStampa::righello},
    {vVuote, &ScelteStampa::saltaVuote},    {vUna, &ScelteStampa::unaPagina},
    {vCompresse, &ScelteStampa::compresse},
};

// The page rectangle of the kept format, on the printer that is kept.
Rect paginaTenuta() {
    PMPageFormat f;
    PMRect r;
    PMPrintSettings s;
    PMUnflattenPageFormat(hPageFormat, f);
    PMUnflattenPrintSettings(hPrintSettings, s);
    PMSessionHoldToPrinter(printSession, s, f);
    PMGetAdjustedPageRect(f, r);
    const auto intero = [](double p) { return static_cast<std::int32_t>(std::lround(p)); };
    return Rect{intero(r.top), intero(r.left), intero(r.bottom), intero(r.right)};
}

// What changes while the preview draws, away from the window.
class VistaAltrove {
    double scala = scalavid, testo = ScalaTesto;
    std::int32_t h = OrigX, v = OrigY;
    std::uint8_t pict = DisegnaPict;
    GrafPtr porto = GetPort();

public:
    explicit VistaAltrove(GrafPtr dove) {
        SetPort(dove);
        DisegnaPict = 1;
    }
    ~VistaAltrove() {
        SetPort(porto);
        scalavid = scala;
        ScalaTesto = testo;
        OrigX = h;
        OrigY = v;
        DisegnaPict = pict;
    }
    VistaAltrove(const VistaAltrove&) = delete;
    VistaAltrove& operator=(const VistaAltrove&) = delete;
};

// Pages in the sheet's points; `perPunto` pixels each.
void disegnaPiastrelle(const Piastrelle& p, double perPunto, Point zero) {
    const auto h = [&](double x) { return zero.h + static_cast<std::int32_t>(std::lround(x * perPunto)); };
    const auto v = [&](double y) { return zero.v + static_cast<std::int32_t>(std::lround(y * perPunto)); };
    constexpr RGBColor segno{0x1F00, 0x6B00, 0xC800};
    for (std::int32_t n = 1; n <= p.pagine(); ++n) {
        const double x = p.colonna(n) * p.passoH, y = p.riga(n) * p.passoV;
        const Rect r{v(y), h(x), v(y + p.alta) + 1, h(x + p.larga) + 1};
        PenNormal();
        RGBForeColor(segno);
        if (scelteStampa.saltaVuote && PiastrellaVuota(p, n)) {
            RGBForeColor({0xC000, 0xC000, 0xC000});
            PaintRect(r);
            RGBForeColor(segno);
        }
        FrameRect(r);
        const std::string cifra = std::to_string(n);
        const std::int32_t corpo = std::clamp((r.right - r.left) / 5, 9, 18);
        if (r.right - r.left < 16) continue;
        TextFont(0);
        TextFace(bold);
        TextMode(srcCopy);
        TextSize(static_cast<std::int16_t>(corpo));
        MoveTo(r.left + 4, r.top + corpo + 2);
        DrawString(cifra);
    }
}

void disegnaTela(const Piastrelle& p) {
    const std::int32_t ratio = GetPort()->ratio;
    RasterPort tela(telaW, telaH, ratio);
    const VistaAltrove vista(&tela);
    constexpr double puntiUnita = 72 / DecPollice;
    // The pages as a whole reach beyond the sheet.
    const double largo = std::max((p.colonne - 1) * p.passoH + p.larga + 0.0, puntiUnita * XFDecimi * p.scala);
    const double alto = std::max((p.righe - 1) * p.passoV + p.alta + 0.0, puntiUnita * YFDecimi * p.scala);
    const double perPunto = std::min((telaW - 2.0 * orlo) / largo, (telaH - 2.0 * orlo) / alto);
    const Point zero{static_cast<std::int32_t>((telaH - alto * perPunto) / 2),
                     static_cast<std::int32_t>((telaW - largo * perPunto) / 2)};
    RGBBackColor({0xDD00, 0xDD00, 0xDD00});
    EraseRect(Rect{0, 0, telaH, telaW});
    RGBBackColor({65535, 65535, 65535});
    EraseRect(SetRect(zero.h, zero.v, zero.h + static_cast<std::int32_t>(largo * perPunto),
                      zero.v + static_cast<std::int32_t>(alto * perPunto)));
    scalavid = puntiUnita * p.scala * perPunto;
    ScalaTesto = scalavid * DecPunto;
    OrigX = -zero.h;
    OrigY = -zero.v;
    Disegna();
    disegnaPiastrelle(p, perPunto, zero);
    SetDialogItemPicture(theDialog, vTela, tela.pixMap());
}

void aggiorna() {
    const Piastrelle p = PiastrelleDi(paginaTenuta(), scelteStampa);
    std::int32_t piene = 0;
    for (std::int32_t n = 1; n <= p.pagine(); ++n) piene += !scelteStampa.saltaVuote || !PiastrellaVuota(p, n);
    ParamText(std::to_string(piene), std::to_string(p.righe), std::to_string(p.colonne),
              std::to_string(static_cast<int>(std::lround(p.scala * 1000)) / 10));
    for (const Casella& c : caselle) SetDialogItemValue(theDialog, c.voce, scelteStampa.*c.scelta);
    HiliteDialogItem(theDialog, vStriscia, scelteStampa.sovrapposte && !scelteStampa.unaPagina ? 0 : 255);
    HiliteDialogItem(theDialog, vSovrapposte, scelteStampa.unaPagina ? 255 : 0);
    DrawDialog(theDialog);
    disegnaTela(p);
}

// False when the strip's width is refused; it is said and selected.
bool leggiStriscia() {
    if (!scelteStampa.sovrapposte) return true;
    double mm = scelteStampa.strisciaMm;
    if (!LeggiCampoReale(vStriscia, 1, 100, mm)) return false;
    scelteStampa.strisciaMm = mm;
    return true;
}

void cambia(std::int16_t voce) {
    for (const Casella& c : caselle)
        if (c.voce == voce) scelteStampa.*c.scelta ^= 1;
}

}   // namespace

bool AnteprimaStampa() {
    DoDefault(nullptr);
    theDialog = GetNewDialog(dialogoAnteprima);
    ScriviCampoReale(vStriscia, scelteStampa.strisciaMm, 1);
    aggiorna();
    std::int16_t voce = 0;
    for (;;) {
        ModalDialog(MyMovableFilter, voce);
        if (voce == vChiudi) break;
        if (voce == vStampa && leggiStriscia()) break;
        if (voce == vFormato) DoPageSetupDialog();
        cambia(voce);
        if (voce == vStriscia) {   // typed a moment ago: taken when it is a width, without a word when it is none yet
            std::int16_t dove = 0;
            double mm = 0;
            const PStr255 s(std::string_view(GetDialogItemText(theDialog, vStriscia)));
            const std::uint8_t uscitaPrima = uscita;
            if (STRtoFP(1, 100, s, mm, dove, 0) > 0 && mm >= 1 && mm <= 100) scelteStampa.strisciaMm = mm;
            uscita = uscitaPrima;
        }
        if (voce != vStampa) aggiorna();
    }
    DisposeDialog(theDialog);
    theDialog = nullptr;
    return voce == vStampa;
}

}   // namespace tessaro
