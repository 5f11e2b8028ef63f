// The lock of pictures.
#include "editing/BloccoImmagini.h"

#include "display/Sovrapposto.h"
#include "model/Archivio.h"
#include "model/Selezione.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Menus.h"

namespace tessaro {

constinit std::uint8_t immaginiBloccate = 0;

namespace {

constinit std::uint8_t scansioneNuova = 0;   // a scan came in, and no drawing tool was taken since

void poni(std::uint8_t bloccate) {
    scansioneNuova = 0;
    immaginiBloccate = bloccate;
    CheckMenuItem(menuModifica, voci::modifica::bloccaImmagini, bloccate != 0);
    if (!bloccate || !ArrElementi) return;
    bool lasciate = false;
    for (std::int32_t i = 3; i <= indElem; ++i) {
        if (Elem(i).tipo != tPict || !Elem(i).selezionato) continue;
        Elem(i).selezionato = 0;
        lasciate = true;
    }
    if (!lasciate) return;
    RistabilisciSelezione();
    DisegnaSelezione();
}

}   // namespace

void CambiaBloccoImmagini() { poni(immaginiBloccate ? 0 : 1); }
void ScansioneArrivata() { scansioneNuova = 1; }
void ScansioneInUso() {
    if (scansioneNuova) poni(1);
}
void AzzeraBloccoImmagini() { poni(0); }

namespace {
const VoceStato righe[] = {
    voce<immaginiBloccate>("immaginiBloccate"),
    voce<scansioneNuova>("scansioneNuova"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
