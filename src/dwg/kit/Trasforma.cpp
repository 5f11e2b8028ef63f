// Each entity class under a matrix.
#include <algorithm>
#include <cmath>

#include "dwg/kit/Archi.h"
#include "dwg/kit/Esplodi.h"

namespace tessaro {

namespace {

// The plane of a normal before and after a matrix: where its axes go.
struct Piano {
    Piano(const OdGeVector3d& n, const OdGeMatrix3d& m) : prima(OdGeMatrix3d::planeToWorld(n)), mondo(m * prima) {
        u = mondo * OdGeVector3d{1, 0, 0};
        v = mondo * OdGeVector3d{0, 1, 0};
        normale = Versore(Vettoriale(u, v));
        dopo = OdGeMatrix3d::worldToPlane(normale);
    }
    OdGePoint3d punto(const OdGePoint3d& p) const { return dopo * (mondo * p); }
    // The direction of an angle of the old plane, in the new one.
    [[nodiscard]] double angolo(double a) const {
        const OdGeVector3d d = dopo * (u * std::cos(a) + v * std::sin(a));
        return std::atan2(d.y, d.x);
    }
    // Circles stay circles.
    [[nodiscard]] bool conforme() const {
        constexpr double quasi = 1e-9;
        const double lu = Lunghezza(u), lv = Lunghezza(v), l = std::max(lu, lv);
        return std::fabs(lu - lv) <= quasi * l && std::fabs(Scalare(u, v)) <= quasi * l * l;
    }
    [[nodiscard]] double scala() const { return Lunghezza(u); }

    OdGeMatrix3d prima, mondo, dopo;
    OdGeVector3d u, v, normale;
};

void attributi(OdDbEntity& a, const OdDbEntity& da) {
    a.visible = da.visible;
    a.lineWeight = da.lineWeight;
    a.layer = da.layer;
    a.linetype = da.linetype;
    a.color = da.color;
}

// The circle of a plane that was stretched or slanted, from parameter a to b: its axes are those of the ellipse that
// the two images of the plane's axes are conjugate radii of.
OdDbEntityPtr ellisse(const OdDbEntity& e, const Piano& p, const OdGePoint3d& centro, double r, double a, double b) {
    const double giro = std::atan2(2 * Scalare(p.u, p.v), Scalare(p.u, p.u) - Scalare(p.v, p.v)) / 2;
    const OdGeVector3d asse = (p.u * std::cos(giro) + p.v * std::sin(giro)) * r;
    const OdGeVector3d altro = (p.v * std::cos(giro) + p.u * -std::sin(giro)) * r;
    auto x = std::make_unique<OdDbEllipse>();
    attributi(*x, e);
    x->center = p.mondo * centro;
    x->majorAxis = asse;
    x->normal = p.normale;
    const double lungo = Lunghezza(asse);
    x->radiusRatio = lungo > 0 ? Lunghezza(altro) / lungo : 1;
    x->startParam = a - giro;
    x->endParam = b - giro;
    return x;
}

OdDbEntityPtr cerchio(const OdDbCircle& c, const OdGeMatrix3d& m) {
    constexpr double giro = 2 * 3.14159265358979323846;
    const Piano p(c.normal, m);
    if (!p.conforme()) return ellisse(c, p, c.center, c.radius, 0, giro);
    auto x = std::make_unique<OdDbCircle>(c);
    x->center = p.punto(c.center);
    x->radius = c.radius * p.scala();
    x->normal = p.normale;
    return x;
}

OdDbEntityPtr arco(const OdDbArc& a, const OdGeMatrix3d& m) {
    const Piano p(a.normal, m);
    if (!p.conforme()) return ellisse(a, p, a.center, a.radius, a.startAngle, a.endAngle);
    auto x = std::make_unique<OdDbArc>(a);
    x->center = p.punto(a.center);
    x->radius = a.radius * p.scala();
    x->startAngle = p.angolo(a.startAngle);
    x->endAngle = p.angolo(a.endAngle);
    x->normal = p.normale;
    return x;
}

OdDbEntityPtr testo(const OdDbTextBase& t, const OdGeMatrix3d& m) {
    const Piano p(t.normal, m);
    OdDbEntityPtr x = t.clone();
    auto& y = static_cast<OdDbTextBase&>(*x);
    y.position = p.punto(t.position);
    y.alignmentPoint = p.punto(t.alignmentPoint);
    y.rotation = p.angolo(t.rotation);
    y.normal = p.normale;
    // As high as its letters stand over their line.
    const OdGeVector3d su = p.dopo * (p.v * std::cos(t.rotation) + p.u * -std::sin(t.rotation));
    y.height = t.height * std::fabs(su.y * std::cos(y.rotation) - su.x * std::sin(y.rotation));
    return x;
}

OdDbEntityPtr piana(const OdDbPolylineBase& q, const OdGeMatrix3d& m) {
    const Piano p(q.normal, m);
    OdDbEntityPtr x = q.clone();
    auto& y = static_cast<OdDbPolylineBase&>(*x);
    if (!p.conforme()) y.vertici = ArchiInPunti(q, PuntiPerGiro::fissi);
    for (OdDbVertice& v : y.vertici) {
        const OdGePoint3d w = p.punto({v.punto.x, v.punto.y, q.elevation});
        v.punto = {w.x, w.y, 0};
        v.startWidth *= p.scala();
        v.endWidth *= p.scala();
        y.elevation = w.z;
    }
    y.normal = p.normale;
    return x;
}

template <class T>
OdDbEntityPtr angoli(const T& s, const OdGeMatrix3d& m) {
    const Piano p(s.normal, m);
    auto x = std::make_unique<T>(s);
    for (OdGePoint3d& c : x->corner) c = p.punto(c);
    x->normal = p.normale;
    return x;
}

OdDbEntityPtr inserto(const OdDbBlockBase& b, const OdGeMatrix3d& m) {
    OdDbEntityPtr x = b.clone();
    auto& y = static_cast<OdDbBlockBase&>(*x);
    y.conMatrice = true;
    y.matrice = b.conMatrice ? m * b.matrice : m;
    for (OdDbAttribute& a : y.attributi) {
        const OdDbEntityPtr t = testo(a, m);
        a = static_cast<const OdDbAttribute&>(*t);
    }
    return x;
}

void punti(std::vector<OdGePoint3d>& v, const OdGeMatrix3d& m) {
    for (OdGePoint3d& p : v) p = m * p;
}

}   // namespace

OdDbEntityPtr getTransformedCopy(const OdDbEntity& e, const OdGeMatrix3d& m) {
    switch (e.classe) {
    case OdDbClasse::Circle: return cerchio(static_cast<const OdDbCircle&>(e), m);
    case OdDbClasse::Arc: return arco(static_cast<const OdDbArc&>(e), m);
    case OdDbClasse::Text:
    case OdDbClasse::Attribute:
    case OdDbClasse::AttributeDefinition: return testo(static_cast<const OdDbTextBase&>(e), m);
    case OdDbClasse::Polyline:
    case OdDbClasse::Polyline2d: return piana(static_cast<const OdDbPolylineBase&>(e), m);
    case OdDbClasse::Solid: return angoli(static_cast<const OdDbSolid&>(e), m);
    case OdDbClasse::Trace: return angoli(static_cast<const OdDbTrace&>(e), m);
    case OdDbClasse::BlockReference:
    case OdDbClasse::MInsertBlock: return inserto(static_cast<const OdDbBlockBase&>(e), m);
    default: break;
    }
    OdDbEntityPtr x = e.clone();
    if (auto* l = odCast<OdDbLine>(*x)) {
        l->startPoint = m * l->startPoint;
        l->endPoint = m * l->endPoint;
    } else if (auto* p = odCast<OdDbPoint>(*x)) {
        p->position = m * p->position;
    } else if (auto* q = odCast<OdDb3dPolyline>(*x)) {
        for (OdDbVertice& v : q->vertici) v.punto = m * v.punto;
    } else if (auto* f = odCast<OdDbFace>(*x)) {
        for (OdGePoint3d& c : f->corner) c = m * c;
    } else if (auto* t = odCast<OdDbMText>(*x)) {
        const OdGeVector3d d = m * Versore(t->direction);
        const OdGeVector3d su = m * Versore(Vettoriale(t->normal, Versore(t->direction)));
        t->location = m * t->location;
        t->textHeight *= Lunghezza(su);
        t->width *= Lunghezza(d);
        t->direction = d;
        t->normal = Versore(Vettoriale(d, su));
    } else if (auto* l2 = odCast<OdDbEllipse>(*x)) {
        // Its conjugate radii go over as vectors; from them the axes, as for a circle.
        Piano piano(OdGeVector3d::asseZ(), m);
        piano.u = m * l2->majorAxis;
        piano.v = m * (Versore(Vettoriale(l2->normal, l2->majorAxis)) * (Lunghezza(l2->majorAxis) * l2->radiusRatio));
        piano.normale = Versore(Vettoriale(piano.u, piano.v));
        return ellisse(*l2, piano, l2->center, 1, l2->startParam, l2->endParam);
    } else if (auto* s = odCast<OdDbSpline>(*x)) {
        punti(s->controlPoints, m);
        punti(s->fitPoints, m);
    } else if (auto* r = odCast<OdDbPolygonMesh>(*x)) {
        punti(r->punti, m);
    } else if (auto* r2 = odCast<OdDbPolyFaceMesh>(*x)) {
        punti(r2->punti, m);
    } else if (auto* d = odCast<OdDbDimension>(*x)) {
        d->conMatrice = true;
        d->matrice = m * d->matrice;
    }
    return x;
}

}   // namespace tessaro
