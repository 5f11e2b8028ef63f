// The curve of the figure in progress, as its rubber band shows it: the construction tools write it. And the crosses.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

extern puntot CentroCorrente;                         // sheet units
extern double RaggioCorrente;                         // sheet units
extern std::int16_t AngInizio, AmpiezzaAngCorrente;   // start and sweep, whole degrees
// Crosses about a sheet position, in xor on the current port.
void dis_cursor(const double& x, const double& y);    // 8 pixels, pen 1
void Dis_Cursor2(const double& x, const double& y);   // 4 pixels
void Dis_CursSel(const double& x, const double& y);   // 8 pixels, pen 2

// The first point of the polyline in progress, where a click would close it.
struct SegnoChiusura {
    bool c_e = false;
    bool sotto = false;    // the pointer is on it
    double x = 0, y = 0;   // sheet units
    friend bool operator==(const SegnoChiusura&, const SegnoChiusura&) = default;
};
SegnoChiusura ChiusuraDelMomento();

}   // namespace tessaro
