// The dialog of the preferences. What is accepted is in force at once, but for the language, and is kept.
#include "shell/Preferenze.h"

#include <algorithm>

#include "dialogs/Parametri.h"
#include "display/Ridisegno.h"
#include "files/Impostazioni.h"
#include "model/Documento.h"
#include "model/Giornale.h"
#include "model/PreferenzeVista.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "shell/Modificato.h"
#include "shell/Recupero.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 9490, lista = 9490;   // 1 prompt of the colour
enum : std::int16_t {                                  // items
    vLingua = 4,
    vDistanza = 6,
    vMemoria = 8,
    vUnita = 10,
    vSecondi = 12,
    vPredefiniti = 19,
    vInizio = 21,
    vRotella = 22,
    vMorbide = 23,
    vColore = 24,
    vAgganci = 25,   // and by TipoAggancio, to 31
    vRecupero = 32,
};

struct Valori {
    std::int16_t lingua = linguaDelDesktop, unita = 0, distanza = 10, secondi = 1;
    std::int32_t memoria = 256;
    std::uint8_t pagina = 1, rotella = 0, morbide = 0, agganci = 0, recupero = 1;
    RGBColor colore;

    static Valori inForza() {
        return {linguaPreferita,    unitaNuovi,   distanzaAggancio, recuperoSecondi, memoriaGiornale, mostraInizio,
                rotellaIngrandisce, lineeMorbide, agganciAttivi,    recuperoAttivo,  coloreEvidenza};
    }
    static Valori predefiniti() {
        return {inizioDi<linguaPreferita>,    inizioDi<unitaNuovi>,      inizioDi<distanzaAggancio>,
                inizioDi<recuperoSecondi>,    inizioDi<memoriaGiornale>, inizioDi<mostraInizio>,
                inizioDi<rotellaIngrandisce>, inizioDi<lineeMorbide>,    inizioDi<agganciAttivi>,
                inizioDi<recuperoAttivo>,     inizioDi<coloreEvidenza>};
    }
    void applica() const {
        linguaPreferita = lingua;
        unitaNuovi = unita;
        distanzaAggancio = distanza;
        recuperoSecondi = secondi;
        memoriaGiornale = memoria;
        mostraInizio = pagina;
        rotellaIngrandisce = rotella;
        lineeMorbide = morbide;
        agganciAttivi = agganci;
        coloreEvidenza = colore;
        PoniRecupero(recupero);
        if (!noWindow) SetWindowSmooth(theWindow, lineeMorbide != 0);
    }
};

std::int32_t tinta(const RGBColor& c) { return (c.red >> 8 << 16) | (c.green >> 8 << 8) | c.blue >> 8; }

class TPreferenze : public TParametri {
    Valori v = Valori::inForza();

    void spunta(std::uint8_t& valore) {
        CambiaCheck(itemCorrente);
        valore = valore == 0;
    }

    void scegliColore() {
        RGBColor nuovo;
        if (!GetColor(GetIndString(lista, 1), v.colore, nuovo)) return;
        if (tinta(nuovo) == 0) nuovo = {0x0101, 0x0101, 0x0101};   // black over the drawing would show nothing
        v.colore = nuovo;
        SetDialogItemValue(theDialog, vColore, tinta(v.colore));
    }

    void predefiniti() {
        v = Valori::predefiniti();
        esito = 1;
        Display();
    }

public:
    TPreferenze() { Poni(1, 2, 0, 0, dialogo); }

    void Display() override {
        SetDialogItemValue(theDialog, vLingua, v.lingua + 1);
        SetDialogItemValue(theDialog, vUnita, v.unita + 1);
        ScriviCampoReale(vDistanza, v.distanza, 0);
        ScriviCampoReale(vMemoria, v.memoria, 0);
        ScriviCampoReale(vSecondi, v.secondi, 0);
        SetDialogItemValue(theDialog, vInizio, v.pagina);
        SetDialogItemValue(theDialog, vRotella, v.rotella);
        SetDialogItemValue(theDialog, vMorbide, v.morbide);
        SetDialogItemValue(theDialog, vRecupero, v.recupero);
        SetDialogItemValue(theDialog, vColore, tinta(v.colore));
        for (int t = agEstremo; t < numAgganci; ++t)
            SetDialogItemValue(theDialog, static_cast<std::int16_t>(vAgganci + t - 1),
                               (v.agganci & BitAggancio(static_cast<TipoAggancio>(t))) != 0);
        HiliteDialogItem(theDialog, vSecondi, v.recupero ? 0 : 255);
    }

    void ItemColpito() override {
        switch (itemCorrente) {
        case vLingua: v.lingua = static_cast<std::int16_t>(GetDialogItemValue(theDialog, vLingua) - 1); break;
        case vUnita: v.unita = static_cast<std::int16_t>(GetDialogItemValue(theDialog, vUnita) - 1); break;
        case vInizio: spunta(v.pagina); break;
        case vRotella: spunta(v.rotella); break;
        case vMorbide: spunta(v.morbide); break;
        case vRecupero:
            spunta(v.recupero);
            HiliteDialogItem(theDialog, vSecondi, v.recupero ? 0 : 255);
            break;
        case vColore: scegliColore(); break;
        case vPredefiniti: predefiniti(); break;
        default:
            if (itemCorrente < vAgganci || itemCorrente >= vAgganci + static_cast<int>(numAgganci) - 1) return;
            CambiaCheck(itemCorrente);
            v.agganci ^= BitAggancio(static_cast<TipoAggancio>(itemCorrente - vAgganci + 1));
        }
    }

    void IngGene(std::uint8_t ripristino) override {
        esito = 1;
        if (ripristino) return;
        double memoria = 0;
        if (!LeggiCampo(vDistanza, distanzaAggancioMinima, distanzaAggancioMassima, v.distanza)
            || !LeggiCampo(vMemoria, 1.0, 65536.0, memoria))
            return;
        if (v.recupero && !LeggiCampo(vSecondi, minimoRecupero, massimoRecupero, v.secondi)) return;
        v.memoria = static_cast<std::int32_t>(memoria);
        v.applica();
        ScriviPreferenze();
        if (!noWindow) InvalFinestra();
    }

    void Dialogo() override {
        const DialogoAperto aperto(dialogoId);
        SetDialogItemMenu(theDialog, vLingua, menuLingue);
        SetDialogItemMenu(theDialog, vUnita, menuUnita);
        Giro(vDistanza);
    }
};

}   // namespace

void Preferenze() {
    const PortaCorrente porta;
    TPreferenze().Dialogo();
}

void UnitaDelDisegnoNuovo() {
    if (unitaNuovi < 1) return;
    PoniUnitaDisegno(static_cast<std::int16_t>(unitaNuovi - 1));
    SegnaSalvato();   // it is the new drawing's own, and no step
    GiornaleNuovo();
}

}   // namespace tessaro
