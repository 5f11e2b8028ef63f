// Segments, polylines, circles and arcs from clicks or typed points, and the rubber band between them.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

extern puntot PuntoCurva1, PuntoCurva2, PuntoCurva3;   // points of a curve, sheet units
extern double AngInizCorrente;                         // start angle, radians

void InitSegm();                       // first point
void FineSegm();                       // second point, by tabButton
void FineArcoRaggio();                 // third point of a circle or arc
void PuntoDiLinea();                   // the next point of a segment, polyline or measured path
void PuntoDiCurva();                   // of a circle or arc
void FaiElemento(std::int16_t tipo);   // moves the rubber: 11 circle, 12 arc, else segment
void MuoviElastico();                  // the same for the figure in progress; nothing without one
// The circle through three points, sheet units. Of points without one (see CurvaVera) the numbers mean nothing.
void CerchioTre(const puntot& p1, const puntot& p2, const puntot& p3, puntot& centro, double& raggio);
// Do three points have a circle? False when they lie on one line or two of them in one place.
bool CurvaVera(const puntot& p1, const puntot& p2, const puntot& p3);
void ArcoTre(const puntot& p1, const puntot& p2, const puntot& p3, puntot& centro, double& raggio, std::int16_t& inizio,
             std::int16_t& ampiezza);
void CalcAngolo(const puntot& p1, const puntot& p2, const puntot& p3, const puntot& centro, const double& raggio,
                std::int16_t& inizio, std::int16_t& ampiezza);
void grafcerchio2(const puntot& centro, const double& raggio);

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
