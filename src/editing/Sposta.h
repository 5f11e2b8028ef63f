// Moving things by the deltas XDeltaSpost, YDeltaSpost, ZDeltaSpost, in sheet units (Z in the user's unit).
#pragma once
#include <cstdint>
namespace tessaro {
void SpostaPunto(double& x, double& y, double& z);
void SpostaSelezione();   // the selection and rettSel; arms the undo that moves back
void SpostaTutto();       // every element; no undo, rettSel stays
// By whole pixels of the screen, right and down; nothing without a selection. Arms the undo like any move.
void SpostaDiPixel(std::int32_t dh, std::int32_t dv);
void SpostaMesh();   // the selected mesh, after a copy for its own undo
// Asks for the deltas in real units, starting with the last ones, and moves the selection by them. Dialog 1035.
void Sposta();
}   // namespace tessaro
