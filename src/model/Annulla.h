// One level of undo. The last operation decides the kind; each kind has its own trick instead of a journal.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

enum TipoAnnulla : std::int32_t {
    aNiente = 0,
    aCancella = 1,   // records parked from indElem + 1 to AnnullaIndElem
    aSposta = 5,     // the selection was moved
    aAggiunta = 6,   // records from inizioAggiunta + 1 to indElem
    aElemento = 7,   // record daRecuperare against recuperaElemento
    aMeshOrigine = 8,
    aMeshDestinazione = 9,
    aScalaPict = 10,   // one way
};

extern std::int32_t annullamento;               // TipoAnnulla
extern std::int32_t AnnullaIndElem;             // top of the parked records
extern std::int32_t inizioAggiunta;             // indElem before an addition
extern elemento recuperaElemento;               // saved copy of one record
extern std::int32_t daRecuperare;               // its number, 0 when there is none
extern std::int32_t numElementoScalato;         // the scaled picture's record
extern double scalaImmagineX, scalaImmagineY;   // its factors, 1

void PoniAnnulla(std::int32_t kind);       // arms an undo: gives parked pictures up, sets Edit item 1's text
void TestoAnnulla(std::int16_t stringa);   // Edit item 1's text := string of list 128

// The kind's own action, first half of the undo command. True when the drawing changed and is to be redrawn.
// Kind 5 calls ripetiSpostamento.
bool EseguiAnnulla();
extern void (*ripetiSpostamento)();   // SpostaSelezione; set by editing at start

}   // namespace tessaro
