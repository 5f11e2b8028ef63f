// Markers: stored at one click, and the choice of their shape.
#include "tools/Marker.h"

#include "dialogs/Parametri.h"
#include "display/Disegno.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "tools/CursoreVincolato.h"
#include "tools/PennaFigura.h"

namespace tessaro {

void FaiMarker() {
    const bool digitato = IntroDigitale != 0;
    if (digitato) {
        xcurs = XDigit;
        ycurs = YDigit;
        zcurs = ZDigit;
    } else {
        Croce();
        AttaccaCursore(xcurs, ycurs, zcurs);
    }
    CominciaAggiunta();
    PennaDefinitiva();
    fai(tMarker, xcurs, ycurs, markerCorrente, 0, 0);
    Memorizza(tMarker, xcurs, ycurs, zcurs, markerCorrente, 0, 0, spessore, colorCorrente, NumPat, "");
    if (!digitato) Croce();
    PoniAnnulla(aAggiunta);
    IntroDigitale = 0;
}

void CambiaMarkerSel(std::int16_t simbolo) {
    const auto cambia = [simbolo](std::int32_t n) {
        if (Elem(n).tipo == tMarker) Elem(n).mark.forma = simbolo;
    };
    if (Puntosel.multipla) {
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).selezionato) cambia(n);
    } else if (Puntosel.attiva && Puntosel.oggetto == oMarker && Puntosel.indice >= 3 && Puntosel.indice <= indElem) {
        cambia(Puntosel.indice);
    }
    InvalWind();
}

namespace {

constexpr std::int16_t ultimaForma = 5, chiudi = 6;   // items: 1 to 5 are the shapes

// Escape means the Cancel of other dialogs, item 2; here that would choose a shape.
bool filtroForme(DialogPtr d, EventRecord& e, std::int16_t& item) {
    constexpr std::uint32_t escape = 27;
    if (e.what == EventKind::keyDown && (e.message & 0xFF) == escape) {
        item = chiudi;
        return true;
    }
    return MyMovableFilter(d, e, item);
}

}   // namespace

// A shape closes the dialog as the button does. Shape 6 cannot be chosen here.
void DisplayScegliMark() {
    if (markerCorrente >= 1 && markerCorrente <= ultimaForma) SetDialogItemValue(theDialog, markerCorrente, 1);
}

void ScegliMarker() {
    constexpr std::int16_t dialogo = 2005;
    const DialogoAperto aperto(dialogo);
    DisplayScegliMark();
    do { ModalDialog(filtroForme, Noitem); } while (Noitem < 1 || Noitem > chiudi);
    if (Noitem <= ultimaForma && !quitPending()) {
        if (Puntosel.attiva && Azione == sFermo) {
            CambiaMarkerSel(Noitem);
        } else {
            RadioBoxItem(markerCorrente);
        }
    }
}

}   // namespace tessaro
