// Arming a kind of undo.
#include "model/Annulla.h"

#include <utility>

#include "model/Strumento.h"
#include "model/TabellaStato.h"

namespace tessaro {

constinit std::int32_t annullamento = 0, inizioAggiunta = 0, numElementoScalato = 0;
constinit double scalaImmagineX = 1, scalaImmagineY = 1;

namespace {

constinit std::int32_t armato = aNiente;
constexpr std::int16_t stringaDelTipo[] = {6, 1, 2, 3, 4, 5, 7, 4, 9, 10, 11};

}   // namespace

std::int16_t StringaAnnulla(std::int32_t kind) {
    return stringaDelTipo[kind >= 0 && kind <= aScalaPict ? kind : aNiente];
}

void PoniAnnulla(std::int32_t kind) {
    annullamento = armato = kind;
    if (kind != aSposta) return;
    // From zero, so that a zero gets no sign: the dialog of the move shows these.
    XDeltaSpost = 0 - XDeltaSpost;
    YDeltaSpost = 0 - YDeltaSpost;
    ZDeltaSpost = 0 - ZDeltaSpost;
}

std::int32_t TipoArmato() { return std::exchange(armato, aNiente); }

namespace {
const VoceStato righe[] = {
    voce<annullamento>("annullamento"),
    voce<inizioAggiunta>("inizioAggiunta"),
    voce<numElementoScalato>("numElementoScalato"),
    voce<scalaImmagineX>("scalaImmagineX"),
    voce<scalaImmagineY>("scalaImmagineY"),
    {"armato", [] { armato = aNiente; }},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
