// Entities of one object each, and the loop over all.
#include <algorithm>

#include "dwg/kit/dxfleggi/LetturaDxfKit.h"

namespace tessaro {

namespace {

OdDbEntityPtr linea(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbLine>();
    l.gruppi(*e, [&](int c) { return l.coordinata(c, 10, e->startPoint) || l.coordinata(c, 11, e->endPoint); });
    return e;
}

OdDbEntityPtr punto(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbPoint>();
    l.gruppi(*e, [&](int c) { return l.coordinata(c, 10, e->position); });
    return e;
}

// The elevation of the oldest releases, group 38, for what tells no z.
template <class T>
bool cerchio(LetturaDxfKit& l, T& e, int c) {
    if (c == 40)
        e.radius = l.g.reale();
    else if (c == 38)
        e.center.z = l.g.reale();
    else
        return l.coordinata(c, 10, e.center);
    return true;
}

OdDbEntityPtr unCerchio(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbCircle>();
    l.gruppi(*e, [&](int c) { return cerchio(l, *e, c); });
    return e;
}

OdDbEntityPtr unArco(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbArc>();
    l.gruppi(*e, [&](int c) {
        if (c == 50)
            e->startAngle = l.angolo();
        else if (c == 51)
            e->endAngle = l.angolo();
        else
            return cerchio(l, *e, c);
        return true;
    });
    return e;
}

// A corner that is not told stands on the one before.
template <class T>
OdDbEntityPtr angoli(LetturaDxfKit& l) {
    auto e = std::make_unique<T>();
    std::array<bool, 4> detto{};
    l.gruppi(*e, [&](int c) {
        for (std::size_t i = 0; i < e->corner.size(); ++i)
            if (l.coordinata(c, 10 + static_cast<int>(i), e->corner[i])) return detto[i] = true;
        return false;
    });
    for (std::size_t i = 1; i < e->corner.size(); ++i)
        if (!detto[i]) e->corner[i] = e->corner[i - 1];
    return e;
}

OdDbEntityPtr quota(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbDimension>();
    l.gruppi(*e, [&](int c) {
        switch (c) {
        case 1: e->text = l.utf8(l.g.testo()); return true;
        case 2: e->dimBlock = l.blocco(l.g.testo()); return true;
        default:
            return l.coordinata(c, 10, e->defPoint) || l.coordinata(c, 11, e->textPosition)
                   || l.coordinata(c, 12, e->insertion);
        }
    });
    return e;
}

OdDbEntityPtr altra(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbAltra>();
    e->nome = l.nome;
    l.gruppi(*e, [](int) { return false; });
    return e;
}

struct Entita {
    std::string_view nome;
    OdDbEntityPtr (*leggi)(LetturaDxfKit&);
};
constexpr Entita entita[] = {
    {"LINE", linea},
    {"LWPOLYLINE", LeggiLwpolyline},
    {"POLYLINE", LeggiPolyline},
    {"TEXT", LeggiTesto},
    {"INSERT", LeggiInsert},
    {"CIRCLE", unCerchio},
    {"ARC", unArco},
    {"POINT", punto},
    {"MTEXT", LeggiMText},
    {"SOLID", angoli<OdDbSolid>},
    {"TRACE", angoli<OdDbTrace>},
    {"3DFACE", angoli<OdDbFace>},
    {"DIMENSION", quota},
    {"ATTDEF", LeggiDefinizioneAttributo},
    {"ATTRIB", LeggiAttributo},
    {"ELLIPSE", LeggiEllisse},
    {"SPLINE", LeggiSpline},
    {"3DLINE", linea},
};

}   // namespace

void LeggiEntitaDxf(LetturaDxfKit& l, OdDbObjectId blocco, std::string_view fine) {
    while (!l.nome.empty() && !StessaParola(l.nome, fine)) {
        if (StessaParola(l.nome, "SEQEND") || StessaParola(l.nome, "EOF") || StessaParola(l.nome, "ENDSEC")) {
            if (!StessaParola(l.nome, "SEQEND")) return;
            l.alProssimo();
            continue;
        }
        const auto* const r = std::find_if(std::begin(entita), std::end(entita),
                                           [&](const Entita& x) { return StessaParola(l.nome, x.nome); });
        l.inCarta = false;
        OdDbEntityPtr e = r == std::end(entita) ? altra(l) : r->leggi(l);
        if (l.nome.empty()) {
            // Cut short by the end of the file: what of it came may be half a coordinate.
            return;
        }
        const bool carta = l.inCarta && blocco == l.db.modelSpace;
        l.db.blocks[carta ? l.db.paperSpace : blocco].appendOdDbEntity(std::move(e));
    }
}

}   // namespace tessaro
