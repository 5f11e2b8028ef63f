// Entities of several objects: polylines and meshes with their vertices, inserts with their attributes; and those with
// lists of points.
#include <algorithm>

#include "dwg/kit/dxfleggi/LetturaDxfKit.h"

namespace tessaro {

OdDbEntityPtr LeggiLwpolyline(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbPolyline>();
    double larghezza = 0;
    l.gruppi(*e, [&](int c) {
        const bool dentro = !e->vertici.empty();
        switch (c) {
        case 10:
            e->vertici.emplace_back();
            e->vertici.back().startWidth = e->vertici.back().endWidth = larghezza;
            e->vertici.back().punto.x = l.g.reale();
            return true;
        case 20:
            if (dentro) e->vertici.back().punto.y = l.g.reale();
            return dentro;
        case 38: e->elevation = l.g.reale(); return true;
        case 40:
            if (dentro) e->vertici.back().startWidth = l.g.reale();
            return dentro;
        case 41:
            if (dentro) e->vertici.back().endWidth = l.g.reale();
            return dentro;
        case 42:
            if (dentro) e->vertici.back().bulge = l.g.reale();
            return dentro;
        case 43: e->startWidth = e->endWidth = larghezza = l.g.reale(); return true;
        case 70: e->closed = (l.g.intero() & 1) != 0; return true;
        default: return false;
        }
    });
    return e;
}

namespace {

enum : std::int64_t {   // group 70 of a polyline and of its vertices
    chiusa = 1,
    treDimensioni = 8,
    rete = 16,
    chiusaN = 32,
    facce = 64,
    verticeFaccia = 128,
    verticePunto = 64,
};

struct Vertici {
    std::vector<OdDbVertice> punti;
    std::vector<std::array<std::int32_t, 4>> facce;
};

void unVertice(LetturaDxfKit& l, OdDbEntity& e, Vertici& v) {
    OdDbVertice p;
    std::array<std::int32_t, 4> faccia{};
    std::int64_t flag = 0;
    l.gruppi(e, [&](int c) {
        switch (c) {
        case 5:
        case 6:
        case 8:
        case 62:
        case 370:
        case 420: l.g.salta(); return true;   // the head's own count for all
        case 38: p.punto.z = l.g.reale(); return true;
        case 40: p.startWidth = l.g.reale(); return true;
        case 41: p.endWidth = l.g.reale(); return true;
        case 42: p.bulge = l.g.reale(); return true;
        case 70: flag = l.g.intero(); return true;
        case 71:
        case 72:
        case 73:
        case 74: faccia[static_cast<std::size_t>(c - 71)] = l.i16(); return true;
        default: return l.coordinata(c, 10, p.punto);
        }
    });
    p.flags = static_cast<std::int16_t>(flag & 0xFF);
    if ((flag & verticeFaccia) != 0 && (flag & verticePunto) == 0)
        v.facce.push_back(faccia);
    else
        v.punti.push_back(p);
}

template <class T>
OdDbEntityPtr conVertici(const T& testa, Vertici& v) {
    auto p = std::make_unique<T>(testa);
    p->vertici = std::move(v.punti);
    return p;
}

void attributiDi(OdDbEntity& a, const OdDbEntity& da) {
    a.handle = da.handle;
    a.layer = da.layer;
    a.linetype = da.linetype;
    a.color = da.color;
    a.lineWeight = da.lineWeight;
    a.visible = da.visible;
}

OdDbEntityPtr unaRete(const OdDbEntity& testa, Vertici& v, std::int64_t flag, std::int32_t m, std::int32_t n) {
    auto r = std::make_unique<OdDbPolygonMesh>();
    attributiDi(*r, testa);
    r->chiusaM = (flag & chiusa) != 0;
    r->chiusaN = (flag & chiusaN) != 0;
    // A net smoothed has its frame's points too, and they come first.
    const auto frame =
        std::stable_partition(v.punti.begin(), v.punti.end(), [](const OdDbVertice& p) { return (p.flags & 16) == 0; });
    if (frame != v.punti.begin()) v.punti.erase(frame, v.punti.end());
    const auto quanti = static_cast<std::int64_t>(v.punti.size());
    if (m < 1 || n < 1 || std::int64_t{m} * n != quanti) {
        m = 1;   // as many as came, in one row
        n = static_cast<std::int32_t>(quanti);
    }
    r->m = m;
    r->n = n;
    for (const OdDbVertice& p : v.punti) r->punti.push_back(p.punto);
    return r;
}

OdDbEntityPtr unaReteFacce(const OdDbEntity& testa, Vertici& v) {
    auto r = std::make_unique<OdDbPolyFaceMesh>();
    attributiDi(*r, testa);
    for (const OdDbVertice& p : v.punti) r->punti.push_back(p.punto);
    r->facce = std::move(v.facce);
    return r;
}

}   // namespace

OdDbEntityPtr LeggiPolyline(LetturaDxfKit& l) {
    OdDb2dPolyline testa;
    std::int64_t flag = 0;
    std::array<std::int32_t, 4> mn{};   // rows and columns as drawn, then of the smoothed surface
    OdGePoint3d base;
    l.gruppi(testa, [&](int c) {
        switch (c) {
        case 38: base.z = l.g.reale(); return true;
        case 40: testa.startWidth = l.g.reale(); return true;
        case 41: testa.endWidth = l.g.reale(); return true;
        case 70: flag = l.g.intero(); return true;
        case 71:
        case 72:
        case 73:
        case 74: mn[static_cast<std::size_t>(c - 71)] = l.i16(); return true;
        default: return l.coordinata(c, 10, base);
        }
    });
    testa.closed = (flag & chiusa) != 0;
    testa.elevation = base.z;
    const bool carta = l.inCarta;
    Vertici v;
    while (StessaParola(l.nome, "VERTEX")) {
        OdDbPoint parte;
        unVertice(l, parte, v);
    }
    if (StessaParola(l.nome, "SEQEND")) l.alProssimo();
    l.inCarta = carta;
    if ((flag & facce) != 0) return unaReteFacce(testa, v);
    if ((flag & rete) != 0) {
        const bool liscia =
            mn[2] > 0 && mn[3] > 0
            && std::any_of(v.punti.begin(), v.punti.end(), [](const OdDbVertice& p) { return (p.flags & 16) != 0; });
        return unaRete(testa, v, flag, liscia ? mn[2] : mn[0], liscia ? mn[3] : mn[1]);
    }
    if ((flag & treDimensioni) == 0) return conVertici(testa, v);
    OdDb3dPolyline tre;
    attributiDi(tre, testa);
    tre.closed = testa.closed;
    return conVertici(tre, v);
}

OdDbEntityPtr LeggiInsert(LetturaDxfKit& l) {
    constexpr std::int32_t copieMassime = 32767;
    OdDbMInsertBlock e;
    const auto copie = [&] {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(l.g.intero(), 1, copieMassime));
    };
    l.gruppi(e, [&](int c) {
        switch (c) {
        case 2: e.blockTableRecord = l.blocco(l.g.testo()); return true;
        case 41: e.scaleX = l.g.reale(); return true;
        case 42: e.scaleY = l.g.reale(); return true;
        case 43: e.scaleZ = l.g.reale(); return true;
        case 44: e.columnSpacing = l.g.reale(); return true;
        case 45: e.rowSpacing = l.g.reale(); return true;
        case 50: e.rotation = l.angolo(); return true;
        case 70: e.columns = copie(); return true;
        case 71: e.rows = copie(); return true;
        default: return l.coordinata(c, 10, e.position);
        }
    });
    const bool carta = l.inCarta;
    while (StessaParola(l.nome, "ATTRIB")) {
        const OdDbEntityPtr a = LeggiAttributo(l);
        e.attributi.push_back(static_cast<const OdDbAttribute&>(*a));
    }
    if (StessaParola(l.nome, "SEQEND")) l.alProssimo();
    l.inCarta = carta;
    if (e.columns > 1 || e.rows > 1) return e.clone();
    auto uno = std::make_unique<OdDbBlockReference>();
    static_cast<OdDbBlockBase&>(*uno) = e;
    uno->classe = OdDbClasse::BlockReference;
    return uno;
}

OdDbEntityPtr LeggiEllisse(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbEllipse>();
    l.gruppi(*e, [&](int c) {
        switch (c) {
        case 40: e->radiusRatio = l.g.reale(); return true;
        case 41: e->startParam = l.g.reale(); return true;
        case 42: e->endParam = l.g.reale(); return true;
        default: return l.coordinata(c, 10, e->center) || l.coordinata(c, 11, e->majorAxis);
        }
    });
    return e;
}

OdDbEntityPtr LeggiSpline(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbSpline>();
    const auto punto = [&](std::vector<OdGePoint3d>& v, int c, int primo) {
        if (c == primo) v.emplace_back();
        return !v.empty() && l.coordinata(c, primo, v.back());
    };
    l.gruppi(*e, [&](int c) {
        switch (c) {
        case 40: e->knots.push_back(l.g.reale()); return true;
        case 41: e->weights.push_back(l.g.reale()); return true;
        case 70: e->closed = (l.g.intero() & 1) != 0; return true;
        case 71: e->degree = l.i16(); return true;
        default: return punto(e->controlPoints, c, 10) || punto(e->fitPoints, c, 11);
        }
    });
    return e;
}

}   // namespace tessaro
