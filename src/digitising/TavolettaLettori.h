// Where the tablet's samples come from: the desktop's pen, a serial digitiser or a script; switched on and off, one live
// at a time.
#pragma once

#include <cstdint>

#include "digitising/TavolettaImpostazioni.h"

namespace tessaro {

extern std::int16_t lettoreVivo;   // the LettoreTavoletta that is read, 0 while reading is off; TabAbilit says the same

bool AccendiTavoletta(LettoreTavoletta quale);   // false: a message told why; reading is off
void SpegniTavoletta();                          // nothing when reading is off
void CambiaLettura();                            // the Tools menu's switch, with the reader of the settings
void ParTavoletta();                             // its settings, dialog 9101

// The loop's idle step: what the serial line has brought, and whether it was cut. Not under a dialog or a drag. True when
// it brought a sample.
bool LeggiTavoletta();
// One sample in counts.
void CampioneTavoletta(std::int32_t xt, std::int32_t yt, std::int16_t bottone);
// One sample of a pen, in pixels of the window's content and parts of them: the pen points at the picture itself, and the
// counts, with their fraction, are those that lead to just this place.
void PennaTavoletta(double h, double v, std::int16_t bottone);
// Does a pen digitise there? In the drawing area of the digitising mode; everywhere else it is a mouse.
bool PennaDigita(double h, double v);

}   // namespace tessaro
