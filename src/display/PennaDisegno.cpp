// The pen that tools expect, and what a picture tells a printer about it.
#include <array>

#include "display/Disegno.h"
#include "display/Pixel.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/Penna.h"
#include "model/TabellaStato.h"

namespace tessaro {

constinit double SpessorePenna = 2.5;
constinit std::uint8_t DisegnaPict = 0;
constinit std::uint8_t StoStampando = 0;

namespace {

// The printer comment's two numbers, high byte first as pictures have them.
void larghezzaLinea(std::int16_t numeratore, std::int16_t denominatore) {
    const auto n = static_cast<std::uint16_t>(numeratore), d = static_cast<std::uint16_t>(denominatore);
    const std::array<char, 4> byte{static_cast<char>(n >> 8), static_cast<char>(n & 255), static_cast<char>(d >> 8),
                                   static_cast<char>(d & 255)};
    PicComment(setLineWidth, {byte.data(), byte.size()});
}

}   // namespace

void ColoreDaTabella(std::int16_t numero) {
    if (numero < 1 || numero > coloriPresenti || numero > maxColori) {
        ForeColor(blackColor);
        return;
    }
    RGBForeColor(arrColori[static_cast<std::size_t>(numero - 1)].rgb);
}

void PennaAttuale() {
    PenPat(PatAttuale);
    PenMode(ModoAttuale);
    ColoreDaTabella(colorAttuale);
    PenSize(spessore, spessore);
}

void CommBegin() {
    if (!DisegnaPict) return;
    PicComment(picDwgBeg, {});
    PicComment(dashedBegin, {});
    larghezzaLinea(12, 10);
}

void CommEnd() {
    if (!DisegnaPict) return;
    PicComment(dashedEnd, {});
    PicComment(picDwgEnd, {});
}

// Kept: the width sent follows SpessorePenna alone, whatever the size of the pen on the screen.
void PenSizeLaser(std::int16_t size) {
    (void)size;
    if (DisegnaPict) larghezzaLinea(arrotonda16(28.35 * SpessorePenna), 100);
}

namespace {
const VoceStato righe[] = {
    voce<SpessorePenna>("SpessorePenna"),
    voce<DisegnaPict>("DisegnaPict"),
    voce<StoStampando>("StoStampando"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
