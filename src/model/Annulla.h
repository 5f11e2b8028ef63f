// The kinds of undo: what a command arms names the menu item and tells what the step that ends behind it was. The steps
// themselves are the journal's (model/Giornale.h).
#pragma once

#include <cstdint>

namespace tessaro {

enum TipoAnnulla : std::int32_t {
    aNiente = 0,
    aCancella = 1,   // records were deleted
    aSposta = 5,     // the selection was moved
    aAggiunta = 6,   // records were added
    aElemento = 7,   // one record was changed
    aMeshOrigine = 8,
    aMeshDestinazione = 9,
    aScalaPict = 10,
};

// TipoAnnulla: what the running command has armed; at rest the kind of the step that Undo takes back, 0 when there is none
// or its command arms no kind.
extern std::int32_t annullamento;
extern std::int32_t inizioAggiunta;             // indElem before an addition
extern std::int32_t numElementoScalato;         // the picture scaled last
extern double scalaImmagineX, scalaImmagineY;   // factors of the last scaling of a picture, 1

void PoniAnnulla(std::int32_t kind);   // arms a kind; a move's deltas become those of the way back
std::int32_t TipoArmato();             // the kind armed last since the last call, aNiente when none was

// Edit's first item for a kind: string of list 128.
std::int16_t StringaAnnulla(std::int32_t kind);

}   // namespace tessaro
