// Turning a picture: drawn at the resolution that was asked for, then each pixel of the turned frame asked back.
#include "raster/pictrot.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "dialogs/Errori.h"
#include "display/Zoom.h"
#include "editing/Domanda.h"
#include "editing/Selezionati.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "raster/Gruppo.h"
#include "raster/Indietro.h"
#include "raster/Lavoro.h"
#include "raster/NuovaImmagine.h"
#include "raster/raster.h"
#include "raster/RotazioneMorbida.h"
#include "raster/Sorgente.h"
#include "text/Conversione.h"

namespace tessaro {

tPictRot pictRot;

namespace {

struct Estremi {
    double minimo, massimo;
};
Estremi estremi(double a, double b, double c, double d) {
    return {std::min(std::min(a, b), std::min(c, d)), std::max(std::max(a, b), std::max(c, d))};
}

std::int16_t bitDiColori(std::int16_t colori) {
    constexpr std::int16_t bit[] = {1, 8, 16, 32};
    return bit[std::clamp<int>(colori, 1, 4) - 1];
}

// Each turned corner is cut to a whole pixel.
CorniceGiro corniceDi(double c, double s, double W, double H) {
    const auto t = [](double v) { return static_cast<double>(Troncato(v)); };
    const Estremi x = estremi(0, t(s * -H), t(W * c - H * s), t(c * W));
    const Estremi y = estremi(0, t(c * H), t(H * c + W * s), t(s * W));
    return {Troncato32(x.minimo), Troncato32(y.minimo), Troncato32(x.massimo - x.minimo),
            Troncato32(y.massimo - y.minimo)};
}

// The size of the turned picture, from the old one and not from the pixels.
void nuovaMisura(tPictRot& p) {
    const double c = std::cos(p.angolo), s = std::sin(p.angolo), w = p.larghezza, h = p.altezza;
    const Estremi x = estremi(0, h * s, w * c + h * s, w * c), y = estremi(0, h * c, h * c - w * s, -w * s);
    p.larghezza = x.massimo - x.minimo;
    p.altezza = y.massimo - y.minimo;
}

}   // namespace

namespace {

// The told form: the picture drawn on w by h pixels, and each pixel of the frame asked back. Empty when it was stopped, or
// behind alert 128.
std::string rotazione(const tPictRot& p, std::int16_t bit, const CorniceGiro& q, std::int64_t w, std::int64_t h,
                      LavoroRaster& lavoro) {
    const auto memoria = [](std::int64_t pixel) {
        AvvisoMemoria(pixel * 4);
        return std::string();
    };
    Sorgente sorgente(PictBytes(p.pictIn), w, h, bit);
    Tela src, giro;
    if (!sorgente.leggibile() || !sorgente.intera(src)) return memoria(w * h);
    if (p.angolo != 0) {
        if (!NuovaTela(giro, q.larghezza, q.altezza, sorgente.formato(), true))
            return memoria(w * h + std::int64_t(q.larghezza) * q.altezza);
        const Giro g{std::cos(p.angolo), std::sin(p.angolo), q.ox, q.oy};
        if (!PercorriIndietro(src, giro, RichiestaGiro(g, src), [&lavoro](double f) { return lavoro.passo(f); }))
            return {};
        std::swap(src, giro);
        giro.dati.reset();
    }
    std::string bytes = ImmagineDaTela(src, sorgente.formato(), FrameDi(src), p.tipoPict);
    return bytes.empty() ? memoria(w * h) : bytes;   // which says nothing when the person stopped it
}

}   // namespace

void RuotaImmagine(tPictRot* p) {
    constexpr double puntiPerCm = 28;   // Kept: whole points a centimetre; sizes in pixels hang on it
    const std::int64_t w = Troncato(puntiPerCm * p->larghezza), h = Troncato(puntiPerCm * p->altezza);
    const std::int64_t W = p->risoluzione * w / 72, H = p->risoluzione * h / 72;
    p->pictOut = 0;
    if (W <= 0 || H <= 0 || W > 0x7FFFFFF0 || H > 0x7FFFFFF0) return AvvisoMemoria(W * H * 4);
    LavoroRaster lavoro;
    const std::int16_t bit = bitDiColori(p->colori);
    CorniceGiro q{0, 0, static_cast<std::int32_t>(W), static_cast<std::int32_t>(H)};
    if (p->angolo != 0)
        q = corniceDi(std::cos(p->angolo), std::sin(p->angolo), static_cast<double>(W), static_cast<double>(H));
    std::string bytes = morbida ? RotazioneMorbida(*p, bit, q, W, H, lavoro) : rotazione(*p, bit, q, W, H, lavoro);
    if (bytes.empty()) return;
    p->pictOut = NewPict(std::move(bytes));
    if (p->angolo != 0) nuovaMisura(*p);
}

// --- the command

namespace {

constexpr std::int16_t dialogo = 9000, campoAngolo = 4, campoRisoluzione = 5, menuColori = 10, scambia = 20;
constexpr std::int16_t menuBitRotazione = 9171, minimaRot = 10, massimaRot = 2000;
constexpr double giroIntero = 360;

class TModificaImmagine : public TParametri {
public:
    TModificaImmagine() { Poni(1, 2, 0, 0, dialogo); }
    bool Chiedi();

private:
    void Display() override;
    void ItemColpito() override;
    void IngGene(std::uint8_t) override;

    tPictRot lavoro = pictRot;
    std::uint8_t fineMorbido = morbida;
    Gruppo trasferimento{11, 3, pictRot.tipoPict};
};

void TModificaImmagine::Display() {
    SetDialogItemMenu(theDialog, menuColori, menuBitRotazione);
    ScriviCampoReale(campoAngolo, RadToAng(lavoro.angolo, gradCorrente), 4);
    SetDialogItemText(theDialog, campoRisoluzione, NumToString(lavoro.risoluzione).view());
    SetDialogItemValue(theDialog, menuColori, lavoro.colori);
    trasferimento.mostra();
    SetDialogItemValue(theDialog, scambia, lavoro.sostituisci);
    SetDialogItemValue(theDialog, spuntaMorbida, fineMorbido);
}

void TModificaImmagine::ItemColpito() {
    if (trasferimento.ha(itemCorrente)) trasferimento.scegli(itemCorrente);
    if (itemCorrente == menuColori) PopUp(menuColori, menuBitRotazione, 0, 1, lavoro.colori);
    if (itemCorrente != scambia && itemCorrente != spuntaMorbida) return;
    CambiaCheck(itemCorrente);
    std::uint8_t& spunta = itemCorrente == scambia ? lavoro.sostituisci : fineMorbido;
    spunta = spunta == 0;
}

void TModificaImmagine::IngGene(std::uint8_t) {
    double angolo = 0;
    if (!LeggiCampo(campoAngolo, -giroIntero, giroIntero, angolo)
        || !LeggiCampo(campoRisoluzione, minimaRot, massimaRot, lavoro.risoluzione))
        return;
    lavoro.angolo = AngToRad(angolo, gradCorrente);
    lavoro.tipoPict = trasferimento.valore;
}

bool TModificaImmagine::Chiedi() {
    ParamText(NomeAngoli(), "", "", "");
    const DialogoAperto aperto(dialogo);
    Giro(campoAngolo);
    if (!Accettato() || quitPending()) return false;
    pictRot = lavoro;
    morbida = fineMorbido;
    return true;
}

}   // namespace

void ModificaRuotaImmagine() {
    if (!UnSoloElemento() || Elem(Puntosel.indice).tipo != tPict || !TModificaImmagine().Chiedi()) {
        SysBeep(100);
        return;
    }
    const std::int32_t n = Puntosel.indice;
    auto& e = Elem(n).pict;
    pictRot.pictIn = e.maniglia;
    pictRot.larghezza = e.larghezza / 100;
    pictRot.altezza = e.altezza / 100;
    RuotaImmagine(&pictRot);
    if (pictRot.pictOut == 0) return;
    const double larghezza = 100 * pictRot.larghezza, altezza = 100 * pictRot.altezza;
    if (pictRot.sostituisci) {
        const PicHandle vecchia = e.maniglia;
        e.maniglia = pictRot.pictOut;
        e.larghezza = larghezza;
        e.altezza = altezza;
        KillPicture(vecchia);
    } else if (indElem < maxElementi) {
        CominciaAggiunta();
        Memorizza(tPict, e.x, e.y, 0, larghezza, altezza, 0, spessore, colorCorrente, NumPat, PStr255(""));
        Elem(indElem).pict.maniglia = pictRot.pictOut;
    } else {
        KillPicture(pictRot.pictOut);
    }
    pictRot.pictIn = pictRot.pictOut = 0;
    InvalFinestra();
}

namespace {
const VoceStato righe[] = {{"pictRot", [] { pictRot = tPictRot{}; }, nullptr}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
