// What the right button offers: a row an item tells where it fits and what it does.
#include "shell/MenuContesto.h"

#include <iterator>

#include "dialogs/Errori.h"
#include "digitising/Attacchi.h"
#include "display/Ridisegno.h"
#include "editing/AnnullaComando.h"
#include "editing/Scelta.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "registration/attaccoDinamico.h"
#include "shell/Comandi.h"
#include "shell/Rinuncia.h"
#include "tools/FiguraInMano.h"

namespace tessaro {

namespace {

bool figura() { return Azione != sFermo; }
bool conIndietro() { return FiguraInCorso() || Azione == sPercorso; }
bool modoLasciabile() { return !figura() && Modalita != mSelezione && Modalita != mDigitazione; }
bool scelto() { return !figura() && !CalcWindow && !Sposta2ndClick && Puntosel.attiva; }
bool sceltiElementi() { return scelto() && Puntosel.oggetto < oMeshOrigine; }
bool fermo() { return !figura() && !CalcWindow && !Sposta2ndClick; }
bool sempre() { return true; }

template <std::int16_t voce>
void comandoModifica() {
    DoCommand(std::uint32_t{menuModifica} << 16 | voce);
}

template <std::int16_t n>
void origine() {
    Attacco(n);
}

template <std::int16_t n>
void destinazione() {
    AttaccoDin(n);
}

void giraDinamica() {
    // Kept: the switch is item 11 and its tick stands on item 13.
    attaccoAttivo.SetModificato(attaccoAttivo.GetModificato() ? 0 : 1);
    if (attaccoAttivo.GetModificato())
        ErroreAlert(attaccoAttivo.PreparaAttacco());   // points may have moved since the last time
    InvalWind();
}

struct VoceContesto {
    std::int16_t voce;
    bool (*adatta)();
    void (*azione)();   // null: it only shows a state
};
using namespace voci::scorciatoie;
constexpr VoceContesto contesto[] = {
    {termina, figura, TerminaFigura},
    {chiudi, PuoChiudere, ChiudiPolilinea},
    {indietro, conIndietro, AnnullaUltima},
    {abbandona, FiguraInCorso, AbbandonaFigura},
    {rinuncia, modoLasciabile, [] { Rinuncia(); }},
    {taglia, sceltiElementi, comandoModifica<voci::modifica::taglia>},
    {copia, sceltiElementi, comandoModifica<voci::modifica::copia>},
    {incolla, fermo, comandoModifica<voci::modifica::incolla>},
    {incollaSulPosto, fermo, comandoModifica<voci::modifica::incollaSulPosto>},
    {cancella, scelto, comandoModifica<voci::modifica::cancella>},
    {primoOrigine, sempre, origine<1>},
    {primoOrigine + 1, sempre, origine<2>},
    {primoOrigine + 2, sempre, origine<3>},
    {ultimoOrigine, sempre, origine<4>},
    {primoDestinazione, sempre, destinazione<1>},
    {primoDestinazione + 1, sempre, destinazione<2>},
    {primoDestinazione + 2, sempre, destinazione<3>},
    {ultimoDestinazione, sempre, destinazione<4>},
    {cambiaDinamica, sempre, giraDinamica},
    {dinamicaAttiva, sempre, nullptr},
};

// In the selecting mode the cursor does not follow the pointer: control points and what is pasted go where the click was.
void preparaLuogo() {
    if (Modalita != mSelezione || CalcWindow) return;
    puntot p;
    VidToReal(EventPoint, p);
    xcurs = p.x;
    ycurs = p.y;
    ScegliPerMenu(p);
}

}   // namespace

void MenuContesto() {
    preparaLuogo();
    for (const VoceContesto& v : contesto) (v.adatta() ? EnableMenuItem : DisableMenuItem)(menuScorciatoie, v.voce);
    CheckMenuItem(menuScorciatoie, dinamicaAttiva, attaccoAttivo.GetModificato() != 0);
    const std::int16_t scelta = PopUpMenuSelect(menuScorciatoie, EventPoint, 0);
    for (const VoceContesto& v : contesto)
        if (v.voce == scelta && v.azione) v.azione();
}

}   // namespace tessaro
