// The tables of a DXF file, and its blocks.
#include <algorithm>
#include <cmath>

#include "dwg/kit/dxfscrivi/GruppiInUscita.h"

namespace tessaro {

namespace {

constexpr int fissi = 0;

void inizioTabella(GruppiInUscita& s, const char* nome, OdDbHandle h, std::size_t voci) {
    s.g(0, "TABLE");
    s.g(2, nome);
    if (s.da(dxfR14)) {
        s.handle(5, h);
        s.handle(330, 0);
    }
    s.sottoclasse("AcDbSymbolTable");
    s.g(70, static_cast<std::int32_t>(voci));
}
void fineTabella(GruppiInUscita& s) { s.g(0, "ENDTAB"); }

void inizioRecord(GruppiInUscita& s, const char* tipo, const OdDbRecord& r, OdDbHandle tabella, const char* classe) {
    s.g(0, tipo);
    if (s.da(dxfR14)) {
        s.handle(5, r.handle);
        s.handle(330, tabella);
    }
    s.sottoclasse("AcDbSymbolTableRecord");
    s.sottoclasse(classe);
    s.testo(2, r.name);
}

// The view that shows all of the drawing.
void viste(GruppiInUscita& s) {
    const OdDbHeader& h = s.db.header;
    const bool vuoto = h.extMin.x > h.extMax.x;
    const OdGePoint3d a = vuoto ? h.limMin : h.extMin, b = vuoto ? h.limMax : h.extMax;
    const double largo = std::max(b.x - a.x, 0.0), alto = std::max(b.y - a.y, 0.0);
    const double aspetto = largo > 0 && alto > 0 ? std::clamp(largo / alto, 0.2, 5.0) : 1.0;
    const double altezza = std::max({alto, largo / aspetto, 1e-6}) * 1.05;
    inizioTabella(s, "VPORT", s.db.handleVport, 1);
    OdDbRecord attiva;
    attiva.name = "*Active";
    attiva.handle = s.db.handleVportActive;
    if (!s.da(dxf2000)) attiva.name = "*ACTIVE";
    inizioRecord(s, "VPORT", attiva, s.db.handleVport, "AcDbViewportTableRecord");
    s.g(70, fissi);
    s.punto2(10, 0, 0);
    s.punto2(11, 1, 1);
    s.punto2(12, (a.x + b.x) / 2, (a.y + b.y) / 2);
    s.punto2(13, 0, 0);
    s.punto2(14, 1, 1);
    s.punto2(15, 1, 1);
    s.punto(16, {0, 0, 1});
    s.punto(17, {});
    s.g(40, altezza);
    s.g(41, aspetto);
    s.g(42, 50.0);
    for (const int codice : {43, 44, 50, 51}) s.g(codice, 0.0);
    static constexpr int modi[][2] = {{71, 0}, {72, 1000}, {73, 1}, {74, 3}, {75, 0}, {76, 0}, {77, 0}, {78, 0}};
    for (const auto& m : modi) s.g(m[0], m[1]);
    fineTabella(s);
}

void tipiLinea(GruppiInUscita& s) {
    const auto& t = s.db.linetypes;
    // What R12 has of a fixed meaning stands in no table.
    const auto scritto = [&s](const OdDbLinetypeTableRecord& l) {
        return s.da(dxfR14) || (l.name != "ByBlock" && l.name != "ByLayer");
    };
    const auto n = std::count_if(t.record.begin(), t.record.end(), scritto);
    inizioTabella(s, "LTYPE", t.handle, static_cast<std::size_t>(n));
    for (const OdDbLinetypeTableRecord& l : t.record) {
        if (!scritto(l)) continue;
        inizioRecord(s, "LTYPE", l, t.handle, "AcDbLinetypeTableRecord");
        s.g(70, fissi);
        s.testo(3, l.comments);
        s.g(72, 65);
        s.g(73, static_cast<std::int32_t>(l.dashes.size()));
        s.g(40, l.patternLength);
        for (const double d : l.dashes) {
            s.g(49, d);
            if (s.da(dxfR14)) s.g(74, 0);
        }
    }
    fineTabella(s);
}

std::int32_t indiceLayer(const OdDbLayerTableRecord& l) {
    const std::int32_t i = l.color.indice >= 1 && l.color.indice <= 255 ? l.color.indice : 7;
    return l.isOff ? -i : i;
}

void layers(GruppiInUscita& s) {
    const auto& t = s.db.layers;
    inizioTabella(s, "LAYER", t.handle, t.record.size());
    for (const OdDbLayerTableRecord& l : t.record) {
        inizioRecord(s, "LAYER", l, t.handle, "AcDbLayerTableRecord");
        s.g(70, (l.isFrozen ? 1 : 0) + (l.isLocked ? 4 : 0));
        s.g(62, indiceLayer(l));
        if (s.da(dxf2004) && l.color.metodo == OdCmColor::byColor)
            s.g(420, (l.color.red << 16) + (l.color.green << 8) + l.color.blue);
        s.testo(6, l.linetype.isNull() ? "Continuous" : s.db.linetypes[l.linetype].name);
        if (!s.da(dxf2000)) continue;
        if (!l.isPlottable) s.g(290, 0);
        s.g(370, static_cast<std::int32_t>(l.lineWeight));
        s.handle(390, s.db.handlePlotPlaceholder);
    }
    fineTabella(s);
}

void stili(GruppiInUscita& s) {
    const auto& t = s.db.textStyles;
    inizioTabella(s, "STYLE", t.handle, t.record.size());
    for (const OdDbTextStyleTableRecord& r : t.record) {
        inizioRecord(s, "STYLE", r, t.handle, "AcDbTextStyleTableRecord");
        s.g(70, (r.isVertical ? 4 : 0));
        s.g(40, r.textSize);
        s.g(41, r.xScale);
        s.g(50, r.obliquingAngle);
        s.g(71, (r.isBackwards ? 2 : 0) + (r.isUpsideDown ? 4 : 0));
        // The last height typed: none is no height at all for other programs.
        s.g(42, r.priorSize > 0 ? r.priorSize : 0.2);
        s.testo(3, r.fileName);
        s.testo(4, r.bigFontFileName);
        if (r.typeface.empty() || !s.da(dxf2000)) continue;
        s.g(1001, "ACAD");
        s.testo(1000, r.typeface);
        s.g(1071, 0);
    }
    fineTabella(s);
}

void applicazioni(GruppiInUscita& s) {
    const auto& t = s.db.regApps;
    inizioTabella(s, "APPID", t.handle, t.record.size());
    for (const OdDbRegAppTableRecord& r : t.record) {
        inizioRecord(s, "APPID", r, t.handle, "AcDbRegAppTableRecord");
        s.g(70, fissi);
    }
    fineTabella(s);
}

void stiliQuote(GruppiInUscita& s) {
    inizioTabella(s, "DIMSTYLE", s.db.handleDimStyles, 1);
    if (s.da(dxf2000)) {
        s.g(100, "AcDbDimStyleTable");
        s.g(71, 0);
    }
    s.g(0, "DIMSTYLE");
    if (s.da(dxfR14)) {
        s.handle(105, s.db.handleDimStyleStandard);   // 105 in the place of 5, in this table alone
        s.handle(330, s.db.handleDimStyles);
    }
    s.sottoclasse("AcDbSymbolTableRecord");
    s.sottoclasse("AcDbDimStyleTableRecord");
    s.g(2, s.da(dxfR14) ? "Standard" : "STANDARD");
    s.g(70, fissi);
    fineTabella(s);
}

void recordBlocchi(GruppiInUscita& s) {
    const auto& t = s.db.blocks;
    inizioTabella(s, "BLOCK_RECORD", t.handle, t.record.size());
    for (const OdDbBlockTableRecord& b : t.record) {
        inizioRecord(s, "BLOCK_RECORD", b, t.handle, "AcDbBlockTableRecord");
        if (s.da(dxf2000)) s.handle(340, b.layout.isNull() ? 0 : s.db.layouts[b.layout].handle);
    }
    fineTabella(s);
}

}   // namespace

void ScriviTabelleDxf(GruppiInUscita& s) {
    s.g(0, "SECTION");
    s.g(2, "TABLES");
    viste(s);
    tipiLinea(s);
    layers(s);
    stili(s);
    inizioTabella(s, "VIEW", s.db.handleViews, 0);
    fineTabella(s);
    inizioTabella(s, "UCS", s.db.handleUcs, 0);
    fineTabella(s);
    applicazioni(s);
    stiliQuote(s);
    if (s.da(dxfR14)) recordBlocchi(s);
    s.g(0, "ENDSEC");
}

void ScriviBlocchiDxf(GruppiInUscita& s) {
    s.g(0, "SECTION");
    s.g(2, "BLOCKS");
    for (const OdDbBlockTableRecord& b : s.db.blocks.record) {
        if (!s.da(dxfR14)) break;   // R12 has no blocks for its spaces
        const bool carta = &b == &s.db.blocks[s.db.paperSpace];
        const auto comune = [&] {
            s.g(100, "AcDbEntity");
            if (carta) s.g(67, 1);
            s.g(8, "0");
        };
        s.oggetto("BLOCK", b.handleBlock, b.handle);
        comune();
        s.g(100, "AcDbBlockBegin");
        s.testo(2, b.name);
        s.g(70, fissi);
        s.punto(10, b.origin);
        s.testo(3, b.name);
        s.g(1, "");
        s.oggetto("ENDBLK", b.handleEndBlk, b.handle);
        comune();
        s.g(100, "AcDbBlockEnd");
    }
    s.g(0, "ENDSEC");
}

}   // namespace tessaro
