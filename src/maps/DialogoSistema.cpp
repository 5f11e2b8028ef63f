// Naming systems: fields, what PROJ makes of them, and the search by words.
#include "maps/DialogoSistema.h"

#include <algorithm>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Lettura.h"
#include "maps/Frasi.h"
#include "maps/SistemaRiferimento.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 9350, menuSecondo = 9350, menuTrovati = 9351;
constexpr std::int16_t bottoneOk = 1, bottoneAnnulla = 2;
constexpr std::int16_t campoPrimo = 4, cercaPrimo = 5, dettoPrimo = 6, sceltaSecondo = 8, campoSecondo = 10,
                       cercaSecondo = 11, dettoSecondo = 12, elencoTrovati = 14;
enum : std::int16_t { nientAltro = 1, longitudineLatitudine = 2, altroSistema = 3 };
constexpr const char* wgs84 = "EPSG:4326";

std::string mostra(const SistemaTrovato& s) { return Utf8ToMac(s.codice.empty() ? s.nome : s.codice + "  " + s.nome); }

class TParSistema {
    SistemiDisegno sistemi = SistemiDelDisegno();
    std::vector<std::string> trovati;   // what the found ones put into a field
    std::int16_t cercato = campoPrimo;
    std::int16_t scelta = nientAltro;

    static std::string campo(std::int16_t item) { return MacToUtf8(GetDialogItemText(theDialog, item)); }

    // What PROJ makes of a field, below it.
    static void spiega(std::int16_t item, std::int16_t detto) {
        const std::string testo = campo(item);
        SistemaTrovato s;
        std::string frase;
        if (testo.find_first_not_of(' ') == std::string::npos)
            frase = item == campoPrimo ? Frase(FraseMappe::nessunSistema) : std::string();
        else
            frase = TrovaSistema(testo, s) ? mostra(s) : Frase(FraseMappe::sistemaNonTrovato, Utf8ToMac(testo));
        SetDialogItemText(theDialog, detto, frase);
    }

    void mostraScelta() const {
        SetDialogItemValue(theDialog, sceltaSecondo, scelta);
        for (const std::int16_t item : {campoSecondo, cercaSecondo})
            HiliteDialogItem(theDialog, item, scelta == altroSistema ? 0 : 255);
    }

    void riempi(const std::vector<SistemaTrovato>& v) {
        trovati.clear();
        while (CountMenuItems(menuTrovati) > 0) DeleteMenuItem(menuTrovati, 1);
        for (const SistemaTrovato& s : v) {
            AppendMenu(menuTrovati, mostra(s));
            trovati.push_back(s.codice.empty() ? s.nome : s.codice);
        }
        SetDialogItemMenu(theDialog, elencoTrovati, menuTrovati);
        HiliteDialogItem(theDialog, elencoTrovati, v.empty() ? 255 : 0);
    }

    void cerca(std::int16_t item) {
        constexpr std::size_t massimi = 60;
        cercato = item;
        std::vector<SistemaTrovato> v = CercaSistemi(campo(item), massimi);
        SistemaTrovato uno;
        if (v.empty() && TrovaSistema(campo(item), uno)) v.push_back(uno);
        riempi(v);
        if (v.empty()) {
            SysBeep(30);
            return;
        }
        prendi(1);
    }

    void prendi(std::int32_t quale) {
        if (quale < 1 || quale > static_cast<std::int32_t>(trovati.size())) return;
        SetDialogItemValue(theDialog, elencoTrovati, quale);
        SetDialogItemText(theDialog, cercato, Utf8ToMac(trovati[static_cast<std::size_t>(quale - 1)]));
        spiega(cercato, cercato == campoPrimo ? dettoPrimo : dettoSecondo);
    }

    // A field's system as it is kept; false when it names none that can be used, which is said.
    static bool sistema(std::int16_t item, std::string& dove) {
        const std::string testo = campo(item);
        dove.clear();
        if (testo.find_first_not_of(' ') == std::string::npos) return true;
        SistemaTrovato s;
        if (TrovaSistema(testo, s)) {
            dove = s.codice.empty() ? testo : s.codice;
            return true;
        }
        const FraseMappe perche = s.nome.empty() ? FraseMappe::sistemaNonTrovato : FraseMappe::sistemaNonReale;
        MostraGuasto({noErr, Frase(perche, Utf8ToMac(testo)), {}, -1});
        SelectDialogItemText(theDialog, item, 0, 255);
        return false;
    }

    bool accetta() {
        SistemiDisegno nuovi = sistemi;
        if (!sistema(campoPrimo, nuovi.disegno)) return false;
        nuovi.secondo = scelta == longitudineLatitudine ? wgs84 : "";
        if (scelta == altroSistema && !sistema(campoSecondo, nuovi.secondo)) return false;
        return PoniSistemi(nuovi);
    }

    void colpito(std::int16_t item) {
        switch (item) {
        case campoPrimo: spiega(campoPrimo, dettoPrimo); break;
        case campoSecondo: spiega(campoSecondo, dettoSecondo); break;
        case cercaPrimo: cerca(campoPrimo); break;
        case cercaSecondo: cerca(campoSecondo); break;
        case elencoTrovati: prendi(GetDialogItemValue(theDialog, elencoTrovati)); break;
        case sceltaSecondo:
            scelta = static_cast<std::int16_t>(GetDialogItemValue(theDialog, sceltaSecondo));
            mostraScelta();
            break;
        default: break;
        }
    }

public:
    void esegui() {
        ParamText({}, {}, {}, {});
        const DialogoAperto aperto(dialogo);
        SetDialogItemMenu(theDialog, sceltaSecondo, menuSecondo);
        SetDialogItemText(theDialog, campoPrimo, Utf8ToMac(sistemi.disegno));
        const bool gradi = sistemi.secondo == wgs84;
        scelta = sistemi.secondo.empty() ? nientAltro : gradi ? longitudineLatitudine : altroSistema;
        if (scelta == altroSistema) SetDialogItemText(theDialog, campoSecondo, Utf8ToMac(sistemi.secondo));
        riempi({});
        spiega(campoPrimo, dettoPrimo);
        spiega(campoSecondo, dettoSecondo);
        mostraScelta();
        SelectDialogItemText(theDialog, campoPrimo, 0, 255);
        std::int16_t item = 0;
        do {
            ModalDialog(MyMovableFilter, item);
            if (item == bottoneOk && !accetta()) item = 0;
            colpito(item);
        } while (item != bottoneOk && item != bottoneAnnulla && !quitPending());
    }
};

}   // namespace

void ParSistema() {
    if (CaricaProj() == nullptr) return MostraGuasto({noErr, Frase(FraseMappe::senzaProj), {}, -1});
    TParSistema().esegui();
}

}   // namespace tessaro
