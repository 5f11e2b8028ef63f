// The dialog of the tablet's settings.
#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/Parametri.h"
#include "digitising/TavolettaLettori.h"
#include "digitising/TavolettaPacchetti.h"
#include "files/Impostazioni.h"
#include "model/Cursore.h"
#include "model/Stato.h"
#include "model/Unita.h"
#include "platform/Menus.h"
#include "platform/Quickdraw.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogoTavoletta = 9101, avvisoTavoletta = 9104;
constexpr std::int16_t campoPorta = 6, sceltaPorta = 8, campoConteggi = 20;
constexpr std::int16_t menuPorte = 9163, primaPorta = 2;   // its first item stands for no choice
constexpr std::int16_t testi = 9160, primoStato = 5, binarioCorto = 18, nessunaTrovata = 20, scegli = 21;

// A pop-up: its item, the menu of its texts, the global that it sets, what stands on its first row.
struct Scelta {
    std::int16_t item, menu;
    std::int16_t* valore;
    std::int16_t primo;
};
const Scelta scelte[] = {
    {4, 9161, &lettoreScelto, 1}, {10, 9162, &formatoTavoletta, 1}, {12, 9164, &velbaud, 1},
    {14, 9165, &databit, 6},      {16, 9166, &bitstop, 1},          {18, 9167, &parity, 1},
};
constexpr std::int16_t itemFormato = 10, itemBit = 14;

class TParTavoletta : public TParametri {
    std::vector<std::string> porte;   // UTF-8
    std::string porta;
    double conteggi = 0;

    // The ports of this moment as a menu.
    void elencaPorte() {
        porte = SerialPorts();
        numPorte = static_cast<std::int16_t>(std::min<std::size_t>(porte.size(), 99));
        portaScelta = 0;
        while (CountMenuItems(menuPorte) >= primaPorta) DeleteMenuItem(menuPorte, CountMenuItems(menuPorte));
        SetMenuItemText(menuPorte, 1, GetIndString(testi, porte.empty() ? nessunaTrovata : scegli));
        for (std::int16_t i = 0; i < numPorte; ++i) {
            const std::string nome = Utf8ToMac(porte[static_cast<std::size_t>(i)]);
            AppendMenu(menuPorte, nome);
            if (nome == PortaTavIn.view()) portaScelta = static_cast<std::int16_t>(i + 1);
        }
        SetDialogItemMenu(theDialog, sceltaPorta, menuPorte);
        SetDialogItemValue(theDialog, sceltaPorta, portaScelta + 1);
    }

    static std::int32_t scelto(std::int16_t item) {
        const auto* s =
            std::find_if(std::begin(scelte), std::end(scelte), [=](const Scelta& x) { return x.item == item; });
        return GetDialogItemValue(theDialog, item) - 1 + s->primo;
    }

    void portaDallaLista() {
        const auto riga = static_cast<std::size_t>(GetDialogItemValue(theDialog, sceltaPorta));
        if (riga < primaPorta || riga - primaPorta >= porte.size()) return;
        portaScelta = static_cast<std::int16_t>(riga - 1);
        SetDialogItemText(theDialog, campoPorta, Utf8ToMac(porte[riga - primaPorta]));
    }

public:
    void Display() override {
        for (const Scelta& s : scelte) {
            SetDialogItemMenu(theDialog, s.item, s.menu);
            SetDialogItemValue(theDialog, s.item, *s.valore - s.primo + 1);
        }
        SetDialogItemText(theDialog, campoPorta, PortaTavIn.view());
        ScriviCampoReale(campoConteggi, puntimm, 3);
        elencaPorte();
    }

    void IngGene(std::uint8_t) override {
        if (!LeggiCampo(campoConteggi, 1.0, 1000.0, conteggi)) return;
        porta = GetDialogItemText(theDialog, campoPorta);
        // The first byte of a binary packet is known by its eighth bit.
        if (scelto(itemFormato) != static_cast<std::int32_t>(FormatoPacchetti::binario) || scelto(itemBit) == 8) return;
        esito = 0;
        StopAlertParam(avvisoTavoletta, GetIndString(testi, binarioCorto));
    }

    void Dialogo() override {
        ParamText(GetIndString(testi, static_cast<std::int16_t>(primoStato + lettoreVivo)), "", "", "");
        const DialogoAperto aperto(dialogoId);
        Display();
        SelectDialogItemText(theDialog, campoPorta, 0, 255);
        do {
            ModalDialog(MyMovableFilter, itemCorrente);
            if (itemCorrente == sceltaPorta) portaDallaLista();
            esito = 1;
            if (itemCorrente == okItem) IngGene(0);
            if (quitPending()) break;
        } while (!Accettato() && itemCorrente != annullaItem);
        if (Accettato()) accetta();
    }

private:
    void accetta() {
        for (const Scelta& s : scelte) *s.valore = static_cast<std::int16_t>(scelto(s.item));
        PortaTavIn = PortaTavOut = PStr255(std::string_view(porta));
        puntimm = conteggi;
        ScalaTavoletta();
    }
};

}   // namespace

void ParTavoletta() {
    const PortaCorrente porta;
    TParTavoletta d;
    d.Poni(1, 2, 0, 0, dialogoTavoletta);
    d.Dialogo();
    if (!d.Accettato()) return;
    ScriviParTavoletta();
    if (TabAbilit) AccendiTavoletta(static_cast<LettoreTavoletta>(lettoreScelto));
}

}   // namespace tessaro
