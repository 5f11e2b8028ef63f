// Undo and Redo, and what the menu says of them.
#include "editing/AnnullaComando.h"

#include <algorithm>
#include <string>

#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/Giornale.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "tools/Costruzione.h"

namespace tessaro {

namespace {

constexpr std::int16_t listaAnnulla = 128, listaRipeti = 9170;
constexpr std::int16_t annullaComando = 20, ripetiComando = 21;   // of listaRipeti, with ^0 for the command
constexpr std::int16_t annullaPunto = 22, ripetiPunto = 23;

std::string conNome(std::int16_t stringa, const std::string& comando) {
    std::string s = GetIndString(listaRipeti, stringa);
    if (const auto dove = s.find("^0"); dove != std::string::npos) s.replace(dove, 2, comando);
    return s;
}

std::string testoVoce(const NomePasso* n, bool annulla) {
    if (!n) return GetIndString(annulla ? listaAnnulla : listaRipeti, StringaAnnulla(aNiente));
    if (n->punto) return GetIndString(listaRipeti, annulla ? annullaPunto : ripetiPunto);
    if (n->tipo == aNiente && !n->comando.empty()) return conNome(annulla ? annullaComando : ripetiComando, n->comando);
    const std::int32_t tipo = n->tipo == aNiente ? std::int32_t{aElemento} : n->tipo;
    return GetIndString(annulla ? listaAnnulla : listaRipeti, StringaAnnulla(tipo));
}

// What is selected stays so while it is there; the summary follows the flags, the box the records.
void rivediSelezione(const EsitoPasso& esito) {
    if (!Puntosel.attiva) return;
    if (Puntosel.oggetto < oMeshOrigine && esito.indice >= 3) Puntosel.indice = esito.indice;
    RistabilisciSelezione();
}

void rivediDocumento() {
    colorCorrente = std::clamp<std::int16_t>(colorCorrente, 1, std::max<std::int16_t>(coloriPresenti, 1));
    RifaiMenuColori();
    AggiornaBarre();
    DrawPallette();
    scriviSempreCoord = 1;
}

// A move's deltas are always those of the way back.
void voltaSpostamento(const NomePasso* n) {
    if (n && n->tipo == aSposta) PoniAnnulla(aSposta);
}

void passo(const NomePasso* nome, EsitoPasso (*muovi)()) {
    if (!nome) return;
    SospendiAz();
    Sposta2ndClick = 0;   // the selection may have gone from under a move that waits for its second click
    voltaSpostamento(nome);
    const bool figura = nome->punto;
    const EsitoPasso esito = muovi();
    rivediSelezione(esito);
    if (esito.righe || figura) rivediDocumento();
    InvalWind();
    SospendiAz();
}

}   // namespace

void AnnullaUltima() {
    if (Azione == sPercorso) {   // a measured path: nothing of it is in the drawing
        InvalWind();
        if (percorsoMisurato.indietro) percorsoMisurato.indietro();   // takes its own rubber off and on
        return;
    }
    passo(DaAnnullare(), AnnullaPasso);
}

void RipetiUltima() {
    if (Azione == sPercorso) return;
    passo(DaRipetere(), RipetiPasso);
}

void AggiornaVociAnnulla() {
    const NomePasso *indietro = DaAnnullare(), *avanti = DaRipetere();
    SetMenuItemText(menuModifica, voci::modifica::annulla, testoVoce(indietro, true));
    SetMenuItemText(menuModifica, voci::modifica::ripeti, testoVoce(avanti, false));
    (avanti ? EnableMenuItem : DisableMenuItem)(menuModifica, voci::modifica::ripeti);
    annullamento = indietro ? indietro->tipo : std::int32_t{aNiente};
}

}   // namespace tessaro
