// Where a record keeps what several types have.
#pragma once

#include "model/Elemento.h"

namespace tessaro {

f16* ColoreDi(elemento& e);   // its colour number; null for pictures, vertices and what is no element

}   // namespace tessaro
