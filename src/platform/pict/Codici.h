// The opcodes of a stored picture one after the other: where each begins, which data are its own, and the picture's head.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/pict/Lettore.h"

namespace tessaro {

// Opcodes by number where the code needs their names; figure families are base + verb (0 frame ... 4 fill), + 8 `same`.
enum : std::uint16_t {
    opNop = 0x00,
    opClip = 0x01,
    opBkPat = 0x02,
    opTxFont = 0x03,
    opTxFace = 0x04,
    opTxMode = 0x05,
    opPnSize = 0x07,
    opPnMode = 0x08,
    opPnPat = 0x09,
    opFillPat = 0x0A,
    opOvSize = 0x0B,
    opOrigin = 0x0C,
    opTxSize = 0x0D,
    opFgColor = 0x0E,
    opBkColor = 0x0F,
    opTxRatio = 0x10,
    opVersion = 0x11,
    opBkPixPat = 0x12,
    opPnPixPat = 0x13,
    opFillPixPat = 0x14,
    opRGBFgCol = 0x1A,
    opRGBBkCol = 0x1B,
    opHiliteMode = 0x1C,
    opHiliteColor = 0x1D,
    opDefHilite = 0x1E,
    opLine = 0x20,
    opLineFrom = 0x21,
    opShortLine = 0x22,
    opShortLineFrom = 0x23,
    opLongText = 0x28,
    opDHText = 0x29,
    opDVText = 0x2A,
    opDHDVText = 0x2B,
    opRect = 0x30,
    opRRect = 0x40,
    opOval = 0x50,
    opArc = 0x60,
    opPoly = 0x70,
    opRgn = 0x80,
    opPackBitsRect = 0x98,
    opDirectBitsRect = 0x9A,
    opShortComment = 0xA0,
    opLongComment = 0xA1,
    opEndPic = 0xFF,
    opHeader = 0x0C00,
    opCompresso = 0x8200,
    opNonCompresso = 0x8201,
};

struct Voce {
    std::uint16_t op = opNop;
    std::string_view dati;
    bool intera = true;   // false: the data end before the opcode's own do
};

// The head of a picture and its opcodes in order. A picture is its bytes without a file header.
class VociPict {
public:
    explicit VociPict(std::string_view bytes);
    [[nodiscard]] bool valido() const { return versione != 0; }
    // False behind the last opcode, at the end of the data, or where an opcode's length cannot be told.
    bool prossima(Voce& v);
    [[nodiscard]] bool finito() const { return fine; }   // the end opcode was met
    [[nodiscard]] double parte() const;                  // of the bytes, up to the opcode that comes next, 0 to 1

    Rect frame;            // as stored, 72 to the inch unless the picture tells its own
    int versione = 0;      // 1 or 2; 0: no picture
    bool esteso = false;   // version 2 that carries resolution and source rectangle
    Rect sorgente;         // the space of the opcodes' coordinates
    double dpiX = 72, dpiY = 72;

private:
    void leggiTesta();
    bool misura(Voce& v);
    Lettore l;
    std::string_view tutto;
    bool fine = false;
};

}   // namespace tessaro
