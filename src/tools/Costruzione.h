// Segments, polylines, circles and arcs from clicks or typed points, and the rubber band between them.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

void InitSegm();                       // first point
void FineSegm();                       // second point, by tabButton
void FineArcoRaggio();                 // third point of a circle or arc
void PuntoDiLinea();                   // the next point of a segment, polyline or measured path
void PuntoDiCurva();                   // of a circle or arc
void FaiElemento(std::int16_t tipo);   // moves the rubber: 11 circle, 12 arc, else segment
void MuoviElastico();                  // the same for the figure in progress; nothing without one

// What the calculator does with a path that is measured, not stored (Azione 5): points in real coordinates. It sets
// them when it opens; while they are null a path goes nowhere.
struct PercorsoMisurato {
    void (*inizia)(const puntot& reale) = nullptr;     // a new path with this first point
    void (*aggiungi)(const puntot& reale) = nullptr;   // one more point; past its limit it stays silent
    void (*misura)() = nullptr;                        // the path is complete
    void (*indietro)() = nullptr;                      // one point back; with a single one it stays
};
extern PercorsoMisurato percorsoMisurato;

}   // namespace tessaro
