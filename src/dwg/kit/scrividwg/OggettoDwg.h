// One object of a DWG file: its data, its texts and its references, which the formats join in different ways.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dwg/kit/scrividwg/BitDwg.h"

namespace tessaro {

// The formats that are written, in the order of their making: what one brought, later ones keep.
enum class FormatoDwg : std::uint8_t { r14, r2000, r2004, r2007, r2010 };

// Text as the formats before 2007 hold it: code page 1252, and "\U+XXXX" for what that has not.
std::string TestoDwg(std::string_view utf8);
// UTF-16 in little-endian bytes. What is no UTF-8 becomes U+FFFD.
std::string TestoDwg16(std::string_view utf8);

// An angle in radians from 0 up to a whole turn, as other programs write it.
double GiroInteroDwg(double a);

// Kinds of a reference.
enum : unsigned { hProprio = 0, hPossiedeDebole = 2, hPossiede = 3, hPuntaDebole = 4, hPunta = 5 };

class OggettoDwg {
public:
    // `entita`: the common part is an entity's. `dati` already holds type and handle, and no extended data.
    OggettoDwg(FormatoDwg formato, unsigned tipo, OdDbHandle handle);

    FormatoDwg formato;
    BitDwg dati, riferimenti;
    void TV(std::string_view utf8);    // a text of variable length
    void colore(const OdCmColor& c);   // of a table's record or a header variable
    void segnaLunghezza();             // formats to R14: the place of the bit count, which stands among the data
    // The object as it lies in the file: size, bytes, check.
    std::string byte();

private:
    BitDwg testi;
    bool conTesti = false;
    std::size_t postoLunghezza = 0;
};

// Data, texts and references of the header's variables, and objects of format 2007 and later: how texts are told.
void chiudiTesti(BitDwg& dati, const BitDwg& testi, bool conTesti);

}   // namespace tessaro
