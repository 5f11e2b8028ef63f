// Circles and arcs from three points, and what is drawn of a circle.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

// The circle through three points, sheet units. Of points without one (see CurvaVera) the numbers mean nothing.
void CerchioTre(const puntot& p1, const puntot& p2, const puntot& p3, puntot& centro, double& raggio);
// Do three points have a circle? False when they lie on one line or two of them in one place.
bool CurvaVera(const puntot& p1, const puntot& p2, const puntot& p3);
void ArcoTre(const puntot& p1, const puntot& p2, const puntot& p3, puntot& centro, double& raggio, std::int16_t& inizio,
             std::int16_t& ampiezza);
void CalcAngolo(const puntot& p1, const puntot& p2, const puntot& p3, const puntot& centro, const double& raggio,
                std::int16_t& inizio, std::int16_t& ampiezza);
void grafcerchio2(const puntot& centro, const double& raggio);

}   // namespace tessaro
