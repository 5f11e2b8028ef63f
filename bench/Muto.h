// The toolbox off screen with nobody to ask: alerts take a button of a table or their default, everything else is cancelled.
#pragma once

#include <cstdlib>

#include "platform/Automation.h"

namespace misure {

using namespace tessaro;

inline constexpr Copione muto{
    .passo = [] { return false; },
    .avviso = [](std::int16_t, std::string_view, std::int16_t predefinito) { return predefinito; },
    .dialogoAperto = [](std::int16_t, std::string_view) {},
    .passoDialogo = [](DialogPtr) { return false; },
    .dialogoChiuso = [](std::int16_t) {},
    .file = [](bool, std::string&) { return false; },
    .popup = [] { return std::int16_t{0}; },
    .colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; },
    .stampa = [](std::string&, std::int32_t&, std::int32_t&) { return false; },
    .carta = [](double&, double&) { return false; },
    .beep = [](std::int32_t) {},
};

inline void avvia(int& argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    SetCopione(&muto);
    Avvio avvio;
    avvio.script = true;
    StartToolbox(argc, argv, avvio);
}

}   // namespace misure
