// Records of old versions, brought to the present shape. The result is still big-endian: TrasformaElemBtoN follows, as
// for any other record.
#pragma once

#include <array>
#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

struct Oldelemento {   // versions 0 to 2
    std::array<std::uint8_t, 68> byte{};
};
struct elemento_Ext {   // versions 3 and 4
    std::array<std::uint8_t, 102> byte{};
};

// Every field by the place that it had; a type that did not exist gives only its head.
void TrasformaOldNew(const Oldelemento& vecchio, elemento& nuovo);
// Reserved and known records with their heads brought within bounds; a type that did not exist gives only its head.
void TrasformaExtDoub(const elemento_Ext& vecchio, elemento& nuovo);

// A fixed colour of old to a number of the colour table; an unknown one gives 1, black.
std::int16_t ColOldToNew(std::int32_t colore);

extern const Aref ArefVecchio;   // tag of a record that had none

}   // namespace tessaro
