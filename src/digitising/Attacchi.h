// Control points of the sheet: naming them by pointer, selection or typing, checking them, giving two of them real
// coordinates, and keeping the drawing on positive coordinates.
#pragma once

#include <array>
#include <cstdint>

#include "model/Registrazione.h"

namespace tessaro {

void Attacco(std::int16_t n);   // point 1 to 5 from the typed position, the selection or the cursor
void AssegnaAttacco(std::int16_t n, const double& x, const double& y);   // stores, nothing more
Coppia LeggiAttacco(std::int16_t n);                                     // point 1 to 5, sheet units
bool AttaccoSelezionato(std::int16_t n);   // Kept: true also when the selected kind stores nothing
void AttaccoDin(std::int16_t n);           // destination point 1 to 5
void DisAttacco1();
void DisAttacco2();
void DisAttacco3();
void DisAttacco4();
void DisAttacco5();
// The mark of point n (1 to 5) at a sheet position, with the pen of the moment.
void DisMarcaAttacco(std::int16_t n, const double& x, const double& y);
// The black dot that goes with mark 5, at the centre that a solver holds.
void DisCentroAttacco(const Coppia& centro);
// What is wrong with points 1 to 4 as an error number: 32 two coincide (closer than 0.001 on both axes), 33 they are not
// in the order lower left, upper left, upper right, lower right; 0 nothing. Coincidence alone, or both.
std::int16_t GuastoCoincidenti(const std::array<Coppia, 4>& punti);
std::int16_t GuastoAttacchi(const std::array<Coppia, 4>& punti);
void MostraVerifica(std::int16_t guasto);           // ErroreAlert of the number, Alert 147 for 0
void VerificaAttacchi();                            // of the source points
void TrasformaPuntiOrigine();                       // points from the selection at once
void do_Trasforma();                                // menu 5 items 2 and 7, by theItem
void ParAttacco();                                  // dialog 2006
void SpostaXY();                                    // the whole drawing onto positive coordinates, after asking
void AggMinMax(const double& x, const double& y);   // widens Xmin, Ymin, Xmax, Ymax
// After a change of source points: the copies of points 1 and 2, the similarity in force and the live transformation.
void AttacchiCambiati();

}   // namespace tessaro
