// Curves as points on them: arcs of polylines, ellipses, splines.
#pragma once

#include <vector>

#include "dwg/kit/OdDbEntita.h"

namespace tessaro {

// How finely: within a sagitta, in drawing units, or (0) by a fixed count that suits a figure still to be stretched.
struct PuntiPerGiro {
    double saetta = 0;
    static const PuntiPerGiro fissi;
    // Parts into which an arc of a radius and an angle (radians) is split, 1 to 1000.
    [[nodiscard]] int parti(double raggio, double angolo) const;
};

// The vertices of a polyline with points on its arcs between them, marked `suddiviso`, and no bulge any more. A closed
// one's last side is among them, without the first vertex again.
std::vector<OdDbVertice> ArchiInPunti(const OdDbPolylineBase& p, PuntiPerGiro quanti);
// In world coordinates.
std::vector<OdGePoint3d> EllisseInPunti(const OdDbEllipse& e, PuntiPerGiro quanti);
// A B-spline, rational where it has weights, by its control points; a curve through the fit points where it has none.
// Empty when it makes no curve.
std::vector<OdGePoint3d> SplineInPunti(const OdDbSpline& s, PuntiPerGiro quanti);

}   // namespace tessaro
