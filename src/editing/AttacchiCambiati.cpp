// The registration after its points.
#include "editing/AttacchiCambiati.h"

#include "dialogs/Errori.h"
#include "display/Ridisegno.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

void TrasformazioniCambiate() {
    ErroriIncontrati errori;
    if (!AggiornaTrasformazioni(errori)) return;
    ErroreAlert(errori);
    InvalWind();
}

void AttacchiCambiati() {
    CopiePunti12();
    TrasformazioniCambiate();
}

}   // namespace tessaro
