// The undo command: the kind's own action, then one step back in the figure in progress.
#include "editing/AnnullaComando.h"

#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Strumento.h"
#include "tools/Costruzione.h"

namespace tessaro {

namespace {

// A segment in progress goes back to the start of the one before, which is dropped with no undo of its own.
void passoIndietro() {
    if (Azione != sPrimoPunto || indElem < 3 || Elem(indElem).tipo != tSegmento) return;
    const auto& s = Elem(indElem).segm;
    Xini = s.x1;
    Yini = s.y1;
    Zinizio = s.z1;
    --indElem;
}

}   // namespace

void AnnullaUltima() {
    SospendiAz();
    const bool tornano = annullamento == aCancella;
    EseguiAnnulla();
    // Records come back with their flags, and numbers that a selection holds may mean something else now.
    if (tornano) NessunaSelezione();
    passoIndietro();
    InvalWind();
    SospendiAz();
    if (Azione == sPercorso && percorsoMisurato.indietro)
        percorsoMisurato.indietro();   // takes its own rubber off and on
}

}   // namespace tessaro
