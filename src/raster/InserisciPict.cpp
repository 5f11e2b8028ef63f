// A dropped picture becomes an element.
#include "raster/InserisciPict.h"

#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/pict/Pict.h"
#include "raster/Immagini.h"

namespace tessaro {

void MyInsertPICT(const std::string& dati) {
    constexpr std::int16_t avvisoMemoria = 128;
    PoniAnnulla(aNiente);
    if (indElem >= maxElementi) return InvalWind();
    Rect r;
    double dpiX = 72, dpiY = 72;
    const std::string_view pict = PictNelFile(dati);
    if (!PictFrame(pict, r, dpiX, dpiY) || EmptyRect(r)) {
        StopAlert(avvisoMemoria);
        return;
    }
    inizioAggiunta = indElem;
    const double larghezza = DecPunto * (r.right - r.left), altezza = DecPunto * (r.bottom - r.top);
    if (MemorizzaPict(std::string(pict), xcurs, ycurs, larghezza, altezza)) PoniAnnulla(aAggiunta);
    InvalWind();
}

}   // namespace tessaro
