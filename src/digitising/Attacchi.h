// Control points of the sheet: naming them by pointer, selection or typing, checking them, giving two of them real
// coordinates, and keeping the drawing on positive coordinates.
#pragma once

#include <cstdint>

namespace tessaro {

void Attacco(std::int16_t n);   // point 1 to 5 from the typed position, the selection or the cursor
void AssegnaAttacco(std::int16_t n, const double& x, const double& y);   // stores, nothing more
bool AttaccoSelezionato(std::int16_t n);   // Kept: true also when the selected kind stores nothing
void AttaccoDin(std::int16_t n);           // destination point 1 to 5
void IngressoAttacco(std::int16_t n);      // dialog 2024
void DisAttacco1();
void DisAttacco2();
void DisAttacco3();
void DisAttacco4();
void DisAttacco5();
// The mark of point n (1 to 5) at a sheet position, with the pen of the moment.
void DisMarcaAttacco(std::int16_t n, const double& x, const double& y);
void VerificaAttacchi();                            // ErroreAlert 32 coincident, 33 misordered, Alert 147 good
void TrasformaPuntiOrigine();                       // points from the selection at once
void do_Trasforma();                                // menu 5 items 2 and 7, by theItem
void ParAttacco();                                  // dialog 2006
void SpostaXY();                                    // the whole drawing onto positive coordinates, after asking
void AggMinMax(const double& x, const double& y);   // widens Xmin, Ymin, Xmax, Ymax

}   // namespace tessaro
