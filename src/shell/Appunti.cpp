// Elements on the clipboard.
#include "shell/Appunti.h"

#include <string>
#include <utility>

#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "editing/Scelta.h"
#include "editing/Sposta.h"
#include "files/ElementiInBytes.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Scrap.h"
#include "raster/CreaPict.h"
#include "raster/Immagini.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoIlleggibili = 9430, avvisoSenzaPosto = 9431;

// Where the pointer is, on the grid when it is on; the middle of the view when it is elsewhere.
puntot luogo() {
    Point p = GetMouse();
    if (!PtInRect(p, myViewRect))
        p = Point{(myViewRect.top + myViewRect.bottom) / 2, (myViewRect.left + myViewRect.right) / 2};
    puntot q;
    VidToReal(p, q);
    if (griglia.attiva) AttaccaGriglia(q.x, q.y);
    return q;
}

void scegliDa(std::int32_t primo) {
    NessunaSelezione();
    for (std::int32_t n = primo; n <= indElem; ++n)
        if (Elem(n).tipo != tVertice) Elem(n).selezionato = 1;
    Puntosel.attiva = 1;
    Puntosel.oggetto = oMarker;   // no grid; one thing alone gets its own name
    RistabilisciSelezione();
}

// The last move's deltas stay those of the person's own.
void porta(const puntot& dove) {
    if (!(rettSel.xmax >= rettSel.xmin)) return;   // all of it on hidden layers
    const double x = XDeltaSpost, y = YDeltaSpost, z = ZDeltaSpost;
    XDeltaSpost = dove.x - (rettSel.xmin + rettSel.xmax) / 2;
    YDeltaSpost = dove.y - (rettSel.ymin + rettSel.ymax) / 2;
    ZDeltaSpost = 0;
    SpostaSelezione();
    XDeltaSpost = x;
    YDeltaSpost = y;
    ZDeltaSpost = z;
}

bool incolla(const std::string& bytes, bool alloStessoPosto) {
    const puntot dove = luogo();
    CominciaAggiunta();
    const std::int32_t primo = indElem + 1;
    const EsitoElementi esito = ElementiDaBytes(bytes);
    if (esito != EsitoElementi::entrati) {
        StopAlert(esito == EsitoElementi::senzaPosto ? avvisoSenzaPosto : avvisoIlleggibili);
        return false;
    }
    scegliDa(primo);
    if (!alloStessoPosto) porta(dove);
    PoniAnnulla(aAggiunta);
    return true;
}

}   // namespace

bool CopiaElementi() {
    Sapori forme;
    if (std::string bytes = ElementiInBytes(); !bytes.empty())
        forme.push_back({std::string(mimeElementi), [bytes = std::move(bytes)] { return bytes; }});
    return PutPicScrap(std::move(forme));
}

void IncollaElementi(bool alloStessoPosto) {
    std::string bytes;
    if (!GetScrap(mimeElementi, bytes)) return IncollaPict();
    Sposta2ndClick = 0;   // what a half-done move was to move is no longer the selection
    if (!incolla(bytes, alloStessoPosto)) return;
    DisegnaSelezione();
    InvalFinestra();
}

}   // namespace tessaro
