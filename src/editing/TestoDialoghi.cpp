// The dialogs of texts: string and angle, and a size of one's own.
#include "dialogs/Parametri.h"
#include "display/Testi.h"
#include "editing/TestoSelezione.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "text/Conversione.h"
#include "text/FileDati.h"
#include "tools/Testo.h"

namespace tessaro {

namespace {

enum : std::int16_t { okItem = 1, annullaItem = 2, campoTesto = 4, ripristina = 5, campoAngolo = 10 };

constexpr std::int16_t erroreTesto = -3;
constexpr std::int32_t capienza = 40;

std::int16_t angoloMostrato(std::int16_t angolo) { return arrotonda16(AngToAttuale(angolo)); }

// The unit that the angle is shown in, by list 9131.
std::string unitaAngolo() {
    const bool centesimali = tipoAngolo != 1 && gradCorrente == gradCentesimali;
    return GetIndString(9131, centesimali ? 1 : 2);
}

void mostra(bool modifica) {
    constexpr std::int16_t nuovo = 100;   // horizontal
    if (modifica && Puntosel.multipla) {
        SetDialogItemText(theDialog, campoTesto, "");
        SetDialogItemText(theDialog, campoAngolo, "");
    } else {
        const bool unTesto = modifica && Puntosel.oggetto == oTesto;
        SetDialogItemText(theDialog, campoTesto, unTesto ? ScrittaDi(Elem(Puntosel.indice)) : std::string_view{});
        const std::int16_t angolo = unTesto ? std::int16_t{Elem(Puntosel.indice).test.angolo} : nuovo;
        SetDialogItemText(theDialog, campoAngolo, NumToString(angoloMostrato(angolo)).view());
    }
    SelectDialogItemText(theDialog, campoTesto, 0, 255);
}

struct Voluto {
    PStr255 testo;
    std::int16_t angolo = 0;
};

// err_ as the parsers set it; a refused field is selected where its fault begins.
bool leggi(Voluto& v) {
    v.testo = PStr255(std::string_view(GetDialogItemText(theDialog, campoTesto)));
    err_ = 1;
    if (v.testo[0] > capienza) {
        err_ = erroreTesto;
        SysBeep(30);
        SelectDialogItemText(theDialog, campoTesto, capienza, 255);
        return false;
    }
    std::int16_t mostrato = 0;
    if (!LeggiCampoIntero(campoAngolo, -400, 400, mostrato)) return false;
    v.angolo = arrotonda16(AttualeToAng(mostrato));
    return true;
}

bool chiedi(bool modifica, Voluto& v) {
    constexpr std::int16_t dialogo = 131;
    constexpr std::int16_t listaMia = 9431, testoNuovo = 1;
    ParamText(modifica ? GetIndString(129, 22) : GetIndString(listaMia, testoNuovo),
              modifica ? GetIndString(129, 33) : std::string(), unitaAngolo(), "");
    const DialogoAperto aperto(dialogo);
    mostra(modifica);
    bool bene = false;
    do {
        ModalDialog(MyMovableFilter, Noitem);
        if (Noitem == ripristina) mostra(modifica);
        if (Noitem == okItem) bene = leggi(v);
    } while (!bene && Noitem != annullaItem);
    return bene;
}

}   // namespace

void PoniTesti(std::uint8_t suSelezione) {
    const bool modifica = suSelezione && Puntosel.attiva;
    Voluto v;
    if (!chiedi(modifica, v)) return;
    PoniAnnulla(aNiente);
    if (modifica) {
        CambiaTesti(v.testo, v.angolo);
    } else {
        FaiTesto(v.testo, v.angolo);
    }
}

std::int16_t ScegliDimFMac(std::int16_t massimo, std::int16_t minimo, std::int16_t proposta) {
    constexpr std::int16_t dialogo = 9100, campo = 4;
    const DialogoAperto aperto(dialogo);
    SetDialogItemText(theDialog, campo, NumToString(proposta).view());
    SelectDialogItemText(theDialog, campo, 0, 255);
    std::int16_t corpo = 0;
    err_ = 0;
    do {
        ModalDialog(MyMovableFilter, Noitem);
        if (Noitem != okItem) continue;
        LeggiCampoIntero(campo, minimo, massimo, corpo);
    } while (Noitem != annullaItem && !(Noitem == okItem && err_ > 0));
    return Noitem == okItem ? corpo : std::int16_t{0};
}

}   // namespace tessaro
