// Settings files: the start settings text, graphics parameters, colours.
#pragma once

#include <cstdint>

#include "dialogs/Parametri.h"

namespace tessaro {

void leggiparam();   // "TESSCONT"
void LeggiTipo(std::int16_t& velocita);
extern PStr255 strTav;   // tablet name
extern std::int16_t databit, bitstop, parity;
extern std::int16_t NeroVers, RossoVers, VerdeVers, BluVers, CianoVers, MagentaVers, GialloVers;   // plotter pens

bool ParamGraf();   // dialog 2013; at start-up loads "PGraf56". False: cancelled
// A settings file of binary numbers in the settings folder. False when it is not there.
bool ApriImpostazioni(const char* nome, bool scrivere);
void ChiudiImpostazioni();

}   // namespace tessaro
