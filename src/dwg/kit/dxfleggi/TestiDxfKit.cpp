// Texts, attributes, multi-line texts.
#include <cmath>

#include "dwg/kit/dxfleggi/LetturaDxfKit.h"

namespace tessaro {

namespace {

bool gruppoTesto(LetturaDxfKit& l, OdDbTextBase& t, int c) {
    switch (c) {
    case 1: t.textString = l.utf8(l.g.testo()); return true;
    case 7: t.textStyle = l.db.textStyles.getOrAdd(l.utf8(l.g.testo())); return true;
    case 38: t.position.z = l.g.reale(); return true;
    case 40: t.height = l.g.reale(); return true;
    case 41: t.widthFactor = l.g.reale(); return true;
    case 50: t.rotation = l.angolo(); return true;
    case 51: t.oblique = l.angolo(); return true;
    case 71: t.textGenerationFlags = l.i16(); return true;
    case 72: t.horizontalMode = l.i16(); return true;
    default: return l.coordinata(c, 10, t.position) || l.coordinata(c, 11, t.alignmentPoint);
    }
}

}   // namespace

OdDbEntityPtr LeggiTesto(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbText>();
    l.gruppi(*e, [&](int c) {
        if (c != 73) return gruppoTesto(l, *e, c);
        e->verticalMode = l.i16();
        return true;
    });
    return e;
}

OdDbEntityPtr LeggiAttributo(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbAttribute>();
    l.gruppi(*e, [&](int c) {
        switch (c) {
        case 2: e->tag = l.utf8(l.g.testo()); return true;
        case 70: e->flags = l.i16(); return true;
        case 74: e->verticalMode = l.i16(); return true;
        default: return gruppoTesto(l, *e, c);
        }
    });
    return e;
}

OdDbEntityPtr LeggiDefinizioneAttributo(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbAttributeDefinition>();
    l.gruppi(*e, [&](int c) {
        switch (c) {
        case 2: e->tag = l.utf8(l.g.testo()); return true;
        case 3: e->prompt = l.utf8(l.g.testo()); return true;
        case 70: e->flags = l.i16(); return true;
        case 74: e->verticalMode = l.i16(); return true;
        default: return gruppoTesto(l, *e, c);
        }
    });
    return e;
}

OdDbEntityPtr LeggiMText(LetturaDxfKit& l) {
    auto e = std::make_unique<OdDbMText>();
    std::string pezzi;   // of group 3, before the last of group 1
    l.gruppi(*e, [&](int c) {
        switch (c) {
        case 1: e->contents = l.g.testo(); return true;
        case 3: pezzi += l.g.testo(); return true;
        case 7: e->textStyle = l.db.textStyles.getOrAdd(l.utf8(l.g.testo())); return true;
        case 40: e->textHeight = l.g.reale(); return true;
        case 41: e->width = l.g.reale(); return true;
        case 44: e->lineSpacing = l.g.reale(); return true;
        case 50: {
            const double a = l.angolo();   // whichever of angle and direction comes last counts
            e->direction = {std::cos(a), std::sin(a), 0};
            return true;
        }
        case 71: e->attachment = l.i16(); return true;
        default: return l.coordinata(c, 10, e->location) || l.coordinata(c, 11, e->direction);
        }
    });
    e->contents = l.utf8(pezzi + e->contents);   // a character may lie across two pieces
    return e;
}

}   // namespace tessaro
