// Header, tables and blocks of a DXF file.
#include <algorithm>
#include <cstdlib>

#include "dwg/kit/dxfleggi/LetturaDxfKit.h"

namespace tessaro {

void LeggiIntestazione(LetturaDxfKit& l) {
    OdDbHeader& h = l.db.header;
    std::string variabile;
    const auto valore = [&](int c) {
        if (c == 9) {
            variabile = l.g.testo();
        } else if (variabile == "$ACADVER" && c == 1) {
            l.db.versione = l.g.testo();
        } else if (variabile == "$LTSCALE" && c == 40) {
            h.ltscale = l.g.reale();
        } else if (variabile == "$INSUNITS" && c == 70) {
            h.insUnits = l.i16();
        } else if (variabile == "$MEASUREMENT" && c == 70) {
            h.measurement = l.i16();
        } else if (variabile == "$EXTMIN") {
            return l.coordinata(c, 10, h.extMin);
        } else if (variabile == "$EXTMAX") {
            return l.coordinata(c, 10, h.extMax);
        } else {
            return false;
        }
        return true;
    };
    do l.gruppi(valore);
    while (!l.nome.empty() && !StessaParola(l.nome, "ENDSEC"));
}

namespace {

void unLayer(LetturaDxfKit& l) {
    constexpr int vero = 420, peso = 370, stampato = 290;
    OdDbLayerTableRecord r;
    r.color.setColorIndex(7);
    l.gruppi([&](int c) {
        switch (c) {
        case 2: r.name = l.utf8(l.g.testo()); return true;
        case 6: r.linetype = l.linetype(l.g.testo()); return true;
        case 62: {
            const std::int64_t i = l.g.intero();
            r.isOff = i < 0;
            if (r.color.metodo != OdCmColor::byColor && i != 0 && std::llabs(i) < 256)
                r.color.setColorIndex(static_cast<std::int16_t>(std::llabs(i)));
            return true;
        }
        case 70: {
            const std::int64_t f = l.g.intero();
            r.isFrozen = (f & 1) != 0;
            r.isLocked = (f & 4) != 0;
            return true;
        }
        case vero: {
            const auto v = static_cast<std::uint32_t>(l.g.intero());
            r.color.setRGB(static_cast<std::uint8_t>(v >> 16), static_cast<std::uint8_t>(v >> 8),
                           static_cast<std::uint8_t>(v));
            return true;
        }
        case peso: r.lineWeight = l.i16(); return true;
        case stampato: r.isPlottable = l.g.intero() != 0; return true;
        default: return false;
        }
    });
    l.db.layers[l.db.layers.getOrAdd(r.name)] = r;
}

void unTipoLinea(LetturaDxfKit& l) {
    OdDbLinetypeTableRecord r;
    l.gruppi([&](int c) {
        switch (c) {
        case 2: r.name = l.utf8(l.g.testo()); return true;
        case 3: r.comments = l.utf8(l.g.testo()); return true;
        case 40: r.patternLength = l.g.reale(); return true;
        case 49: r.dashes.push_back(l.g.reale()); return true;
        default: return false;
        }
    });
    l.db.linetypes[l.db.linetypes.getOrAdd(r.name)] = r;
}

void unoStile(LetturaDxfKit& l) {
    OdDbTextStyleTableRecord r;
    l.gruppi([&](int c) {
        switch (c) {
        case 2: r.name = l.utf8(l.g.testo()); return true;
        case 3: r.fileName = l.utf8(l.g.testo()); return true;
        case 4: r.bigFontFileName = l.utf8(l.g.testo()); return true;
        case 40: r.textSize = l.g.reale(); return true;
        case 41: r.xScale = l.g.reale(); return true;
        case 70: r.isShapeFile = (l.g.intero() & 1) != 0; return true;
        case 1000: r.typeface = l.utf8(l.g.testo()); return true;
        default: return false;
        }
    });
    if (!r.isShapeFile) l.db.textStyles[l.db.textStyles.getOrAdd(r.name)] = r;
}

}   // namespace

void LeggiTabelle(LetturaDxfKit& l) {
    static constexpr struct {
        std::string_view nome;
        void (*leggi)(LetturaDxfKit&);
    } record[] = {{"LAYER", unLayer}, {"LTYPE", unTipoLinea}, {"STYLE", unoStile}};
    l.alProssimo();
    while (!l.nome.empty() && !StessaParola(l.nome, "ENDSEC")) {
        const auto* const r = std::find_if(std::begin(record), std::end(record),
                                           [&](const auto& x) { return StessaParola(l.nome, x.nome); });
        if (r != std::end(record))
            r->leggi(l);
        else
            l.alProssimo();
    }
}

void LeggiBlocchi(LetturaDxfKit& l) {
    constexpr std::int64_t anonimo = 1, xref = 4;
    l.alProssimo();
    while (!l.nome.empty() && !StessaParola(l.nome, "ENDSEC")) {
        if (!StessaParola(l.nome, "BLOCK")) {
            l.alProssimo();
            continue;
        }
        OdDbObjectId id;
        OdGePoint3d base;
        std::int64_t flag = 0;
        l.gruppi([&](int c) {
            if (c == 2)
                id = l.blocco(l.g.testo());
            else if (c == 70)
                flag = l.g.intero();
            else
                return l.coordinata(c, 10, base);
            return true;
        });
        if (id.isNull()) id = l.blocco("*");   // without a name nothing refers to it
        l.db.blocks[id].origin = base;
        l.db.blocks[id].isAnonymous = (flag & anonimo) != 0;
        l.db.blocks[id].isXref = (flag & xref) != 0;
        LeggiEntitaDxf(l, id, "ENDBLK");
        if (StessaParola(l.nome, "ENDBLK")) l.alProssimo();
    }
}

}   // namespace tessaro
