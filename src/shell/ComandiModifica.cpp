// The Edit menu: a table of its items.
#include "shell/Comandi.h"

#include "display/Ridisegno.h"
#include "editing/AnnullaComando.h"
#include "editing/BloccoImmagini.h"
#include "editing/Cancella.h"
#include "editing/Conversioni.h"
#include "editing/LucidiClassi.h"
#include "editing/Scelta.h"
#include "editing/SeparaPict.h"
#include "editing/Sposta.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Voci.h"
#include "platform/Dialogs.h"
#include "raster/CreaPict.h"
#include "raster/Immagini.h"
#include "raster/ScalaImmagine.h"
#include "shell/Appunti.h"
#include "shell/Calcolatrice.h"
#include "shell/Preferenze.h"
#include "shell/Proprieta.h"

namespace tessaro {

namespace {

void selezionaTutto() {
    SelezionaTutto();
    Ridisegna();
}

void spostaDiValori() {
    if (!Puntosel.attiva) return;
    Sposta();
    Ridisegna();
}

// What could not be copied is not cleared.
void taglia() {
    if (CopiaElementi()) CancellaSelezione();
}

void separa() {
    if (Puntosel.attiva) SeparaPict();
}

// Chosen again it closes, as its mark says.
void mostraProprieta() { proprietaDialog ? ChiudiProprieta() : ApriProprieta(); }

struct VoceModifica {
    std::int16_t item;
    bool conFinestra;
    void (*azione)();
};
constexpr VoceModifica modifiche[] = {
    {voci::modifica::annulla, true, AnnullaUltima},
    {voci::modifica::taglia, true, taglia},
    {voci::modifica::copia, true, [] { CopiaElementi(); }},
    {voci::modifica::incolla, true, [] { IncollaElementi(false); }},
    {voci::modifica::incollaSulPosto, true, [] { IncollaElementi(true); }},
    {voci::modifica::incollaImmagine, true, IncollaPict},
    {voci::modifica::cancella, false, CancellaSelezione},
    {voci::modifica::selezionaTutto, true, selezionaTutto},
    {voci::modifica::primoPiano, true, [] { AvantiEIndietroSelezione(true); }},
    {voci::modifica::inFondo, true, [] { AvantiEIndietroSelezione(false); }},
    {voci::modifica::sposta, true, spostaDiValori},
    {voci::modifica::separaImmagine, true, separa},
    {voci::modifica::inPoligonali, true, TrasformaPoligSel},
    {voci::modifica::inSegmenti, true, TrasformaSegmentiSel},
    {voci::modifica::suLucido, true, [] { PoniLucido(); }},
    {voci::modifica::scalaImmagine, true, ScalaImmagine},
    {voci::modifica::immagineDaSelezione, true, CreaImmagineDaSelezione},
    {voci::modifica::ripeti, true, RipetiUltima},
    {voci::modifica::bloccaImmagini, true, CambiaBloccoImmagini},
    {voci::modifica::proprieta, false, mostraProprieta},
    {voci::modifica::preferenze, false, Preferenze},
};

}   // namespace

void DoEdit() {
    const bool sempre = theItem == voci::modifica::proprieta || theItem == voci::modifica::preferenze;
    if (CalcWindow && !sempre) {   // the only thing to take back is the path's last point
        if (theItem == voci::modifica::annulla) IndietroPercorso();
        return;
    }
    for (const VoceModifica& v : modifiche) {
        if (v.item != theItem) continue;
        if (!v.conFinestra || !noWindow) v.azione();
        return;
    }
    SysBeep(30);
}

}   // namespace tessaro
