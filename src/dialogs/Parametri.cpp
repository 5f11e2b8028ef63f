// The base of the settings dialogs, fields with bounds, the filter that keeps windows painted, the thermometer.
#include "dialogs/Parametri.h"

#include "dialogs/Errori.h"
#include "model/Documento.h"
#include "platform/Resources.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

constinit DialogPtr theDialog = nullptr;
std::array<PStr255, 32> Stdato = [] {
    std::array<PStr255, 32> a;
    a.fill(PStr255(""));
    return a;
}();
constinit std::int16_t Noitem = 0, inx = 0, err_ = 1;
using Ridipinge = void (*)();
constinit Ridipinge ridipingiFinestra = nullptr;

namespace {

constexpr std::int32_t fineCampo = 255;   // a field holds no more
constexpr std::uint8_t tastoInvio = 13;
constexpr std::uint8_t tastoEnter = 3;

PStr255 testoCampo(std::int16_t item) { return PStr255(std::string_view(GetDialogItemText(theDialog, item))); }

// Says what is wrong with a refused field and selects it; gives the code back.
std::int16_t rifiuta(std::int16_t item, std::int16_t code, const double& min, const double& max) {
    SbaglioCampo(code, min, max);
    SelezionaErrore(item, code, inx);
    return code;
}

// 1, or the parser's code. value is left alone by a fault. The parser lets every readable number pass, so the bounds of
// the field are tested here.
std::int16_t leggiReale(std::int16_t item, const double& min, const double& max, double& value) {
    double letto = 0;
    const std::int16_t code = STRtoFP(min, max, testoCampo(item), letto, inx, 0);
    if (code < 1) return rifiuta(item, code, min, max);
    if (letto > max) return rifiuta(item, -1, min, max);
    if (letto < min) return rifiuta(item, -2, min, max);
    value = letto;
    return code;
}

std::int16_t leggiIntero(std::int16_t item, std::int16_t min, std::int16_t max, std::int16_t& value) {
    std::int16_t letto = 0;
    const std::int16_t code = STRtoINT(min, max, testoCampo(item), letto, inx, 0);
    if (code < 1) return rifiuta(item, code, min, max);
    value = letto;
    return code;
}

void spostaSegno(std::int16_t& da, std::int16_t a) {
    SetDialogItemValue(theDialog, da, 0);
    da = a;
    SetDialogItemValue(theDialog, a, 1);
}

}   // namespace

void TParametri::Poni(std::int16_t ok, std::int16_t annulla, std::int16_t salva, std::int16_t ripristina,
                      std::int16_t dialogo) {
    okItem = ok;
    annullaItem = annulla;
    salvaItem = salva;
    ripristinaItem = ripristina;
    dialogoId = dialogo;
}

void TParametri::RadioBoxItem(std::int16_t& gruppo) { spostaSegno(gruppo, itemCorrente); }

// Kept: the item that was hit last is flipped, whatever the argument.
void TParametri::CambiaCheck(std::int16_t item) {
    (void)item;
    SetDialogItemValue(theDialog, itemCorrente, GetDialogItemValue(theDialog, itemCorrente) == 0 ? 1 : 0);
}

bool TParametri::LeggiCampo(std::int16_t item, const double& min, const double& max, double& value) {
    esito = leggiReale(item, min, max, value);
    if (esito <= 0) rifiutato = {item, false, min, max};
    return esito > 0;
}

bool TParametri::LeggiCampo(std::int16_t item, std::int16_t min, std::int16_t max, std::int16_t& value) {
    esito = leggiIntero(item, min, max, value);
    if (esito <= 0) rifiutato = {item, true, static_cast<double>(min), static_cast<double>(max)};
    return esito > 0;
}

// Whether the refused field would pass now; nothing is shown or stored.
bool TParametri::rimediato() const {
    if (rifiutato.item == 0 || itemCorrente != rifiutato.item) return false;
    const std::uint8_t prima = uscita;
    std::int16_t posto = 0, numero = 0;
    double letto = 0;
    const std::int16_t code =
        rifiutato.intero ? STRtoINT(static_cast<std::int16_t>(rifiutato.min), static_cast<std::int16_t>(rifiutato.max),
                                    testoCampo(rifiutato.item), numero, posto, 0)
                         : STRtoFP(rifiutato.min, rifiutato.max, testoCampo(rifiutato.item), letto, posto, 0);
    uscita = prima;
    return code > 0 && (rifiutato.intero || (letto >= rifiutato.min && letto <= rifiutato.max));
}

void TParametri::OscuraAnnulla() {
    if (esito <= 0 && rimediato()) esito = 1;
    HiliteDialogItem(theDialog, annullaItem, esito <= 0 ? 255 : 0);
}

void TParametri::Giro(std::int16_t primoCampo, ModalFilter filtro) {
    Riprendi();
    Display();
    SelectDialogItemText(theDialog, primoCampo, 0, 100);
    do {
        ModalDialog(filtro, itemCorrente);
        ItemColpito();
        if (itemCorrente == okItem) IngGene(0);
        if (itemCorrente == ripristinaItem) {
            Riprendi();
            IngGene(1);
            Display();
        }
        OscuraAnnulla();
        if (quitPending()) break;
    } while ((itemCorrente != okItem && itemCorrente != annullaItem) || esito <= 0);
}

bool LeggiCampoReale(std::int16_t item, const double& min, const double& max, double& value) {
    err_ = leggiReale(item, min, max, value);
    return err_ > 0;
}

bool LeggiCampoIntero(std::int16_t item, std::int16_t min, std::int16_t max, std::int16_t& value) {
    err_ = leggiIntero(item, min, max, value);
    return err_ > 0;
}

void ScriviCampoReale(std::int16_t item, const double& value, std::int16_t decimals) {
    PStr255 s;
    RToStr(value, decimals, s);
    SetDialogItemText(theDialog, item, s.view());
}

void SelezionaErrore(std::int16_t item, std::int16_t code, std::int16_t pos) {
    const bool unCarattere = code == 0 || code == -3;
    SelectDialogItemText(theDialog, item, unCarattere ? pos : 0, unCarattere ? pos + 1 : fineCampo);
}

void RadioBoxItem(std::int16_t& item) { spostaSegno(item, Noitem); }

bool MyMovableFilter(DialogPtr d, EventRecord& e, std::int16_t& item) {
    switch (e.what) {
    case EventKind::keyDown:
    case EventKind::autoKey: {
        const auto tasto = static_cast<std::uint8_t>(e.message);
        if (tasto != tastoInvio && tasto != tastoEnter) return false;
        item = 1;
        return true;
    }
    case EventKind::updateEvt:
        item = 0;
        if (e.window != theWindow) {
            DrawDialog(d);
            return true;
        }
        if (ridipingiFinestra == nullptr) return false;   // the loop outside will do it
        ridipingiFinestra();
        return true;
    default: return false;
    }
}

void PopUp(std::int16_t item, std::int16_t menu, std::int16_t distanza, std::uint8_t dialogoPopup,
           std::int16_t& valore) {
    (void)menu;
    (void)distanza;
    (void)dialogoPopup;
    const std::int32_t scelta = GetDialogItemValue(theDialog, item);
    if (scelta > 0)
        valore = static_cast<std::int16_t>(scelta);
    else
        SetDialogItemValue(theDialog, item, valore);
}

Termometro::Termometro(const PStr255& titolo) { ProgressOpen(titolo.view()); }
Termometro::Termometro(LavoroLungo quale, ProgressKind genere) {
    constexpr std::int16_t lista = 9640;
    ProgressOpen(GetIndString(lista, static_cast<std::int16_t>(quale)), genere);
}
Termometro::~Termometro() { ProgressClose(); }
bool Termometro::passo(double frazione) { return ProgressStep(frazione); }
bool Termometro::fermato() const { return ProgressStopped(); }

}   // namespace tessaro
