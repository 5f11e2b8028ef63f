// The string of a text record.
#pragma once

#include "model/Elemento.h"
#include "text/PascalString.h"

namespace tessaro {

// At most 40 characters; the bytes behind them are 0, whatever stood there.
void PoniScritta(elemento& e, const PStr255& s);

}   // namespace tessaro
