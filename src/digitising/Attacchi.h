// Control points at the hands of a person: naming source and destination points by pointer, selection or typing, checking
// them, and giving two of them real coordinates.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

void Attacco(std::int16_t n);              // point 1 to 5 from the typed position, the selection or the cursor
bool AttaccoSelezionato(std::int16_t n);   // Kept: true also when the selected kind stores nothing
void AttaccoDin(std::int16_t n);           // destination point 1 to 5
// Destination point 1 to 5 at a sheet position, or what the selection offers for it and those behind it.
void SetAttacco(std::int16_t n, const double& x, const double& y);
void MostraVerifica(std::int16_t guasto);   // ErroreAlert of the number, Alert 147 for 0
void VerificaAttacchi();                    // of the source points
void VerificaDestinazione();                // of the destination points, by coincidence alone
void TrasformaPuntiOrigine();               // points from the selection at once
void TrasformaPuntiDestinazione();          // the same for the destination
void do_Trasforma();                        // menu 5 items 2 and 7, by theItem
void ParAttacco();                          // dialog 2006
// Record 2 with other real coordinates of points 1 and 2, or with coordReali on or off: what hangs on them follows. It must be
// a registration (GuastoRegistrazione).
void PoniReali(const elemento& secondo);

}   // namespace tessaro
