// The commands, each over an engine that runs. They say what is wrong themselves.
#pragma once

#include <string_view>

#include "batch/Chiamata.h"

namespace tessaro {

// Reads what the call names, does its work and prints; the status that the process ends with. Faults are said on
// standard error, with the file.
Esito ComandoConverti(const Chiamata& c);
Esito ComandoInforma(const Chiamata& c);
Esito ComandoRegistra(const Chiamata& c);
Esito ComandoRaddrizza(const Chiamata& c);
Esito ComandoMisura(const Chiamata& c);
Esito ComandoStampa(const Chiamata& c);
Esito ComandoMiniatura(const Chiamata& c);

// A whole text as a number between bounds; v stays when it is none.
[[nodiscard]] bool LeggiNumero(std::string_view s, double min, double max, double& v);

}   // namespace tessaro
