// Settings files: the start settings text, graphics parameters, colours.
#pragma once

#include <cstdint>

#include "dialogs/Parametri.h"

namespace tessaro {

void leggiparam();   // "TESSCONT"
// The lines of the open "TESSCONT", in their order; `velocita` is the line's speed as it counts. A line that cannot be
// read leaves its value, and a message at the end names all of them.
void LeggiTipo(std::int16_t& velocita);
extern PStr255 strTav;   // tablet name
// The serial line of a digitiser: bits of a word; 1 one, 2 one and a half, 3 two stop bits; 1 none, 2 odd, 3 even parity.
extern std::int16_t databit, bitstop, parity;
extern std::int16_t velbaud;              // speed: 1 to 5 are 1200, 2400, 4800, 9600, 19200 bits a second; 1
extern PStr255 PortaTavIn, PortaTavOut;   // device that the digitiser is read from, and written to; empty
extern std::int16_t NeroVers, RossoVers, VerdeVers, BluVers, CianoVers, MagentaVers, GialloVers;   // plotter pens

bool ParamGraf();                            // dialog 2013; at start-up loads "PGraf56". False: cancelled
void PoniUnitaDisegno(std::int16_t unita);   // UnitaMCorrente, 0 millimetre to 5 foot; the scale stays
// A settings file of binary numbers in the settings folder. False when it is not there.
bool ApriImpostazioni(const char* nome, bool scrivere);
void ChiudiImpostazioni();

extern double decTessCont;   // decimiUnita of the start settings file, for the free unit

}   // namespace tessaro
