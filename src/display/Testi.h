// Text records on the current port, at any angle.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/Elemento.h"

namespace tessaro {

// The characters of a text record; a damaged length is held to the field.
std::string_view ScrittaDi(const elemento& e);
// One text with its anchor at sheet x, y, `fattore` times its size, at the stored angle number `angolo`; `altezza` is
// the height in points that the veil of other sheets covers.
void DisegnaTesto(const double& x, const double& y, const double& fattore, std::int16_t angolo, std::int16_t altezza,
                  const elemento* record);
// Record `index` as it stands and, while the live transformation is previewed, once more as it would become.
void FaiT(std::int32_t index);

}   // namespace tessaro
