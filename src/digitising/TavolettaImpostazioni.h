// What a person chose for the tablet: the reader, the serial line, the packets, the resolution. Until the settings dialog
// was confirmed once, line and resolution are those of the start settings.
#pragma once

#include <cstdint>

#include "platform/Tablet.h"

namespace tessaro {

enum class LettoreTavoletta : std::int16_t { nessuno = 0, penna = 1, seriale = 2, copione = 3 };

extern std::int16_t lettoreScelto;      // a LettoreTavoletta that reading is switched on with: 1 or 2, 1
extern std::int16_t formatoTavoletta;   // a FormatoPacchetti, 1
extern std::int16_t numPorte;           // serial ports found when the dialog last opened, 0
extern std::int16_t portaScelta;        // which of them is PortaTavIn, 1-based; 0 none
extern std::int16_t Parita, StopBit;    // codes of the line that is open, as parity and bitstop; 0 none is

LineaSeriale LineaTavoletta();   // the line of the settings in force
void ScalaTavoletta();           // corrXt to scalaYt from puntimm

void LeggiParTavoletta();    // the file "Tavoletta" over what the start settings said; silent when there is none
bool ScriviParTavoletta();   // false: a message told why

extern double corrXt, corrYt, scalaXt, scalaYt;   // sheet units per tablet count, raw and corrected

}   // namespace tessaro
