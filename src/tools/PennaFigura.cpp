// The pens of the construction tools: the ...Attuale globals say what the pen holds, so that a repaint can put it back.
#include "tools/PennaFigura.h"

#include "display/Disegno.h"
#include "model/Penna.h"
#include "platform/Quickdraw.h"

namespace tessaro {

namespace {

void prendi(std::int16_t colore, std::int16_t modo) {
    colorAttuale = colore;
    ModoAttuale = modo;
    spess = static_cast<std::int16_t>(spessore / 2);   // a repaint leaves that of the last element
    PennaAttuale();
}

}   // namespace

void PennaElastico() {
    PatAttuale = PatCorrente;
    prendi(1, patXor);
    ForeColor(blackColor);   // xor inverts whatever colour 1 of the table has become
}

void PennaDefinitiva() { prendi(colorCorrente, patCopy); }

}   // namespace tessaro
