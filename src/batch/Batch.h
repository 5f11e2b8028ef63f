// Commands without a window: one drawing or picture in, one result out, over the same engine and without a display.
// `tessaro3d NAME ...` where NAME is a row of the table in Comandi.cpp.
#pragma once

#include <string>
#include <string_view>

namespace tessaro {

bool EComando(std::string_view parola);   // a command's name, as the first argument
// Runs the command that argv[1] names, to its end: the process leaves with its status, which is an Esito.
[[noreturn]] void EseguiComando(int argc, char** argv);

// "en" or "it": the environment's language of messages. It needs no toolbox.
std::string LinguaAmbiente();

}   // namespace tessaro
