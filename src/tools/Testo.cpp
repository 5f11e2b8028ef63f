// Texts: stored at one click, like markers.
#include "tools/Testo.h"

#include "display/Sovrapposto.h"
#include "display/Testi.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "tools/CursoreVincolato.h"
#include "tools/PennaFigura.h"

namespace tessaro {

void FaiTesto(const PStr255& testo, std::int16_t angolo) {
    CominciaAggiunta();
    const Stato stato;
    Croce();
    AttaccaCursore(xcurs, ycurs, zcurs);   // the elevation is dropped: a text has none
    PennaDefinitiva();
    Memorizza(tTesto, xcurs, ycurs, 0, 0, 0, 0, 0, colorCorrente, angolo, testo);
    // Kept: with a full store the last record is drawn again, if it is a text.
    if (indElem >= 3 && Elem(indElem).tipo == tTesto) FaiT(indElem);
    PoniAnnulla(aAggiunta);
    Croce();
    lastX = xcurs;
    lastY = ycurs;
}

}   // namespace tessaro
