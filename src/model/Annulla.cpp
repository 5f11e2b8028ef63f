// Arming a kind of undo.
#include "model/Annulla.h"

#include <utility>

#include "model/Attributi.h"
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
    {"annullamento", VoceStato::i32, &annullamento, 0},
    {"inizioAggiunta", VoceStato::i32, &inizioAggiunta, 0},
    {"numElementoScalato", VoceStato::i32, &numElementoScalato, 0},
    {"scalaImmagineX", VoceStato::f64, &scalaImmagineX, 1},
    {"scalaImmagineY", VoceStato::f64, &scalaImmagineY, 1},
    {"armato", VoceStato::i32, &armato, 0},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
