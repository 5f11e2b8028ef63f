// The one level of undo.
#include "model/Annulla.h"

#include <utility>

#include "model/Archivio.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

constinit std::int32_t annullamento = 0, AnnullaIndElem = 0, inizioAggiunta = 0, daRecuperare = 0,
                       numElementoScalato = 0;
constinit elemento recuperaElemento{};
constinit double scalaImmagineX = 1, scalaImmagineY = 1;
void (*ripetiSpostamento)() = nullptr;

namespace {

constexpr std::int16_t listaAnnulla = 128;
constexpr std::int16_t stringaDelTipo[] = {6, 1, 2, 3, 4, 5, 7, 4, 9, 10, 11};
constexpr std::int16_t stringaRipristina = 8;   // redo of a deletion

void rilasciaParcheggiati() {
    for (std::int32_t i = indElem + 1; i <= AnnullaIndElem && i <= maxElementi; ++i) {
        if (Elem(i).tipo != tPict) continue;
        KillPicture(Elem(i).pict.maniglia);
        Elem(i).pict.maniglia = 0;
    }
}

}   // namespace

void TestoAnnulla(std::int16_t stringa) {
    SetMenuItemText(menuModifica, voci::modifica::annulla, GetIndString(listaAnnulla, stringa));
}

void PoniAnnulla(std::int32_t kind) {
    if (annullamento == aCancella) rilasciaParcheggiati();
    annullamento = kind;
    if (kind == aSposta) {
        // From zero, so that a zero gets no sign: the dialog of the move shows these.
        XDeltaSpost = 0 - XDeltaSpost;
        YDeltaSpost = 0 - YDeltaSpost;
        ZDeltaSpost = 0 - ZDeltaSpost;
    }
    if (kind >= 0 && kind <= aScalaPict) TestoAnnulla(stringaDelTipo[kind]);
}

bool EseguiAnnulla() {
    switch (annullamento) {
    case aCancella:
        inizioAggiunta = indElem;
        indElem = AnnullaIndElem;
        annullamento = aAggiunta;
        TestoAnnulla(stringaRipristina);
        return true;
    case aSposta:
        if (ripetiSpostamento) ripetiSpostamento();
        return true;
    case aAggiunta:
        AnnullaIndElem = indElem;
        indElem = inizioAggiunta;
        PoniAnnulla(aCancella);
        return true;
    case aElemento:
        // The grid's change arms this kind with no record to bring back: nothing is swapped then.
        if (daRecuperare < 1 || daRecuperare > indElem) return false;
        std::swap(Elem(daRecuperare), recuperaElemento);
        return true;
    case aMeshOrigine: std::swap(meshOrigine, undoMeshOrigine); return true;
    case aMeshDestinazione: std::swap(meshDestinazione, undoMeshDestinazione); return true;
    case aScalaPict:
        if (numElementoScalato >= 3 && numElementoScalato <= indElem && Elem(numElementoScalato).tipo == tPict) {
            auto& p = Elem(numElementoScalato).pict;
            p.larghezza = p.larghezza / scalaImmagineX;
            p.altezza = p.altezza / scalaImmagineY;
        }
        PoniAnnulla(aNiente);
        return true;
    default: return false;
    }
}

namespace {
const VoceStato righe[] = {
    voce<annullamento>("annullamento"),
    voce<AnnullaIndElem>("AnnullaIndElem"),
    voce<inizioAggiunta>("inizioAggiunta"),
    voce<daRecuperare>("daRecuperare"),
    voce<numElementoScalato>("numElementoScalato"),
    voce<scalaImmagineX>("scalaImmagineX"),
    voce<scalaImmagineY>("scalaImmagineY"),
    {"recuperaElemento", [] { recuperaElemento = elemento{}; }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
