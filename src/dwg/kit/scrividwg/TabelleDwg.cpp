// The tables: a control object each, and their records.
#include <algorithm>
#include <array>

#include "dwg/kit/scrividwg/StesuraDwg.h"

namespace tessaro {

namespace {

constexpr std::int16_t pianoSpento = 2, pianoGelato = 1, pianoBloccato = 8, pianoStampa = 16;

// A record's name and what follows it: referenced, of no other drawing.
void nome(OggettoDwg& o, const std::string& n) {
    o.TV(n);
    if (o.formato >= FormatoDwg::r2007) {
        o.dati.BS(0);
        return;
    }
    o.dati.B(true);
    o.dati.BS(0);
    o.dati.B(false);
}

// A table: how many records, then a reference to each.
void controllo(StesuraDwg& s, unsigned tipo, OdDbHandle handle, const std::vector<OdDbHandle>& record,
               const std::vector<OdDbHandle>& propri = {}) {
    OggettoDwg o(s.formato, tipo, handle);
    comuneOggetto(o, 0);
    o.dati.BL(static_cast<std::int32_t>(record.size()));
    if (tipo == tipoDimStyleControl && s.formato >= FormatoDwg::r2000) o.dati.RC(0);
    for (const OdDbHandle h : record) o.riferimenti.H(hPossiedeDebole, h);
    for (const OdDbHandle h : propri) o.riferimenti.H(hPossiede, h);
    s.aggiungi(handle, o);
}

template <class T>
std::vector<OdDbHandle> handleDi(const OdDbTabella<T>& t) {
    std::vector<OdDbHandle> h;
    for (const T& r : t.record) h.push_back(r.handle);
    return h;
}

void layer(StesuraDwg& s, const OdDbLayerTableRecord& r) {
    OggettoDwg o(s.formato, tipoLayer, r.handle);
    comuneOggetto(o, s.db.layers.handle);
    nome(o, r.name);
    OdCmColor colore = r.color;
    if (s.formato == FormatoDwg::r14) {
        o.dati.B(r.isFrozen);
        o.dati.B(!r.isOff);
        o.dati.B(false);   // not frozen in new viewports
        o.dati.B(r.isLocked);
        if (r.isOff) colore.indice = static_cast<std::int16_t>(-colore.indice);
    } else {
        o.dati.BS((r.isFrozen ? pianoGelato : 0) | (r.isOff ? pianoSpento : 0) | (r.isLocked ? pianoBloccato : 0)
                  | (r.isPlottable ? pianoStampa : 0)
                  | static_cast<std::int32_t>(NumeroSpessoreDwg(r.lineWeight) << 5));
    }
    o.colore(colore);
    o.riferimenti.H(hPunta, 0);   // of no other drawing
    if (s.formato >= FormatoDwg::r2000) o.riferimenti.H(hPunta, s.db.handlePlotPlaceholder);
    if (s.formato >= FormatoDwg::r2007) o.riferimenti.H(hPunta, 0);   // no material
    const OdDbHandle linea = r.linetype.isNull() ? s.linea("Continuous") : s.db.linetypes[r.linetype].handle;
    o.riferimenti.H(hPunta, linea);
    if (s.formato >= FormatoDwg::r2010) o.riferimenti.H(hPunta, 0);   // no visual style
    s.aggiungi(r.handle, o);
}

void stile(StesuraDwg& s, const OdDbTextStyleTableRecord& r) {
    OggettoDwg o(s.formato, tipoStyle, r.handle);
    comuneOggetto(o, s.db.textStyles.handle);
    nome(o, r.name);
    o.dati.B(r.isShapeFile);
    o.dati.B(r.isVertical);
    o.dati.BD(r.textSize);
    o.dati.BD(r.xScale);
    o.dati.BD(r.obliquingAngle);
    o.dati.RC((r.isBackwards ? 2U : 0U) | (r.isUpsideDown ? 4U : 0U));
    o.dati.BD(r.priorSize);
    o.TV(r.fileName);
    o.TV(r.bigFontFileName);
    o.riferimenti.H(hPunta, 0);
    s.aggiungi(r.handle, o);
}

void linea(StesuraDwg& s, const OdDbLinetypeTableRecord& r) {
    constexpr int areaTesti = 256;   // of dashes with letters, which none of ours has
    OggettoDwg o(s.formato, tipoLtype, r.handle);
    comuneOggetto(o, s.db.linetypes.handle);
    nome(o, r.name);
    o.TV(r.comments);
    o.dati.BD(r.patternLength);
    o.dati.RC('A');
    o.dati.RC(static_cast<unsigned>(r.dashes.size()));
    o.riferimenti.H(hPunta, 0);
    for (const double d : r.dashes) {
        o.dati.BD(d);
        o.dati.BS(0);   // no shape
        o.dati.RD2(0, 0);
        o.dati.BD(1);
        o.dati.BD(0);
        o.dati.BS(0);
        o.riferimenti.H(hPunta, 0);
    }
    if (s.formato <= FormatoDwg::r2004)
        for (int i = 0; i < areaTesti; ++i) o.dati.RC(0);
    s.aggiungi(r.handle, o);
}

void applicazione(StesuraDwg& s, const OdDbRegAppTableRecord& r) {
    OggettoDwg o(s.formato, tipoAppId, r.handle);
    comuneOggetto(o, s.db.regApps.handle);
    nome(o, r.name);
    o.dati.RC(0);
    o.riferimenti.H(hPunta, 0);
    s.aggiungi(r.handle, o);
}

// What the viewport shows and how: place on the screen, axes' sign, grid, snap, coordinate system.
void vistaModi(const StesuraDwg& s, BitDwg& d) {
    d.RD2(0, 0);
    d.RD2(1, 1);
    d.B(false);   // its coordinate system does not follow
    d.BS(1000);   // smoothness of circles
    d.B(true);    // fast zoom
    d.BB(3);      // the axes' sign, at the origin
    d.B(false);   // no grid
    d.RD2(10, 10);
    d.B(false);   // no snap
    d.B(false);
    d.BS(0);
    d.BD(0);
    d.RD2(0, 0);
    d.RD2(10, 10);
    if (s.formato >= FormatoDwg::r2000) {
        d.B(false);
        d.B(true);   // a coordinate system of its own
        d.BD3(OdGePoint3d{});
        d.BD3(OdGePoint3d{1, 0, 0});
        d.BD3(OdGePoint3d{0, 1, 0});
        d.BD(0);
        d.BS(0);
    }
    if (s.formato >= FormatoDwg::r2007) {
        d.BS(0);
        d.BS(5);
    }
}

// The one viewport of the model space, which sees the whole drawing.
void vista(StesuraDwg& s) {
    const OdGePoint3d &a = s.db.header.extMin, &b = s.db.header.extMax;
    const bool vuoto = !(a.x <= b.x && a.y <= b.y);
    const double larga = vuoto ? 420 : b.x - a.x, alta = vuoto ? 297 : b.y - a.y;
    constexpr double aspetto = 1.5, margine = 1.05;
    const double altezza = std::max({alta, larga / aspetto, 1.0}) * margine;
    OggettoDwg o(s.formato, tipoVport, s.db.handleVportActive);
    comuneOggetto(o, s.db.handleVport);
    nome(o, "*Active");
    BitDwg& d = o.dati;
    d.BD(altezza);
    d.BD(altezza * aspetto);
    d.RD2(vuoto ? larga / 2 : (a.x + b.x) / 2, vuoto ? alta / 2 : (a.y + b.y) / 2);
    d.BD3(OdGePoint3d{});
    d.BD3(OdGePoint3d{0, 0, 1});
    d.BD(0);    // twist
    d.BD(50);   // lens
    d.BD(0);    // clipping planes
    d.BD(0);
    d.BB(0);   // view mode, four bits
    d.BB(0);
    if (s.formato >= FormatoDwg::r2000) d.RC(0);   // drawn flat
    if (s.formato >= FormatoDwg::r2007) {
        d.B(true);
        d.RC(1);
        d.BD(0);
        d.BD(0);
        OdCmColor ambiente;
        ambiente.setColorIndex(250);
        o.colore(ambiente);
    }
    vistaModi(s, d);
    o.riferimenti.H(hPunta, 0);
    if (s.formato >= FormatoDwg::r2007) {
        o.riferimenti.H(hPuntaDebole, 0);
        o.riferimenti.H(hPunta, 0);
        o.riferimenti.H(hPossiede, 0);
    }
    if (s.formato >= FormatoDwg::r2000) {
        o.riferimenti.H(hPunta, 0);
        o.riferimenti.H(hPunta, 0);
    }
    s.aggiungi(s.db.handleVportActive, o);
}

void quote14(BitDwg& d, OggettoDwg& o) {
    for (const bool v : {false, false, true, true, false, false, false, false, false, false, false}) d.B(v);
    d.RC(2);   // decimals of alternate units
    d.RC(0);
    d.B(false);
    d.B(false);
    d.RC(1);
    d.RC(0);
    d.RC(3);
    d.B(false);
    for (int i = 0; i < 4; ++i) d.RC(0);
    d.BS(2);   // decimal units
    d.BS(0);
    d.BS(4);
    d.BS(4);
    d.BS(2);
    d.BS(2);
    for (const double v : {1.0, 0.18, 0.0625, 0.38, 0.18, 0.0, 0.0, 0.0, 0.0}) d.BD(v);
    for (const double v : {0.18, 0.09, 0.0, 25.4, 1.0, 0.0, 1.0, 0.09}) d.BD(v);
    for (int i = 0; i < 5; ++i) o.TV("");
}

void quote2000(BitDwg& d, OggettoDwg& o) {
    o.TV("");
    o.TV("");
    for (const double v : {1.0, 0.18, 0.0625, 0.38, 0.18, 0.0, 0.0, 0.0, 0.0}) d.BD(v);
    if (o.formato >= FormatoDwg::r2007) {
        d.BD(1);
        d.BD(0.785398163397448);
        d.BS(0);
        o.colore({});
    }
    for (const bool v : {false, false, true, true, false, false}) d.B(v);
    for (const int v : {0, 0, 0}) d.BS(v);
    if (o.formato >= FormatoDwg::r2007) d.BS(0);
    for (const double v : {0.18, 0.09, 0.0, 25.4, 1.0, 0.0, 1.0, 0.09, 0.0}) d.BD(v);
    d.B(false);
    d.BS(2);
    for (int i = 0; i < 4; ++i) d.B(false);
}

void stileQuote(StesuraDwg& s) {
    OggettoDwg o(s.formato, tipoDimStyle, s.db.handleDimStyleStandard);
    comuneOggetto(o, s.db.handleDimStyles);
    nome(o, "Standard");
    BitDwg& d = o.dati;
    if (s.formato == FormatoDwg::r14)
        quote14(d, o);
    else
        quote2000(d, o);
    OdCmColor blocco;
    blocco.setColorIndex(0);
    for (int i = 0; i < 3; ++i) o.colore(blocco);
    if (s.formato >= FormatoDwg::r2000) {
        for (const int v : {0, 4, 4, 2, 2, 0, 0, 2, 46, 0, 0}) d.BS(v);
        d.B(false);
        d.B(false);
        for (const int v : {1, 0, 0, 0}) d.BS(v);
        d.B(false);
        d.BS(3);
        if (s.formato >= FormatoDwg::r2007) d.B(false);
        if (s.formato >= FormatoDwg::r2010) {
            d.B(false);
            d.BD(100);
            o.TV("");
            d.BD(100);
            o.TV("");
        }
        d.BS(-2);
        d.BS(-2);
    }
    d.B(false);
    o.riferimenti.H(hPunta, 0);
    o.riferimenti.H(hPunta, s.db.textStyles[s.db.header.textStyle].handle);
    const int altri = s.formato == FormatoDwg::r14 ? 0 : s.formato >= FormatoDwg::r2007 ? 7 : 4;
    for (int i = 0; i < altri; ++i) o.riferimenti.H(hPunta, 0);
    s.aggiungi(s.db.handleDimStyleStandard, o);
}

void tabellaLinee(StesuraDwg& s) {
    const OdDbHandle daBlocco = s.linea("ByBlock"), daPiano = s.linea("ByLayer");
    std::vector<OdDbHandle> altre;
    for (const OdDbLinetypeTableRecord& r : s.db.linetypes.record)
        if (r.handle != daBlocco && r.handle != daPiano) altre.push_back(r.handle);
    controllo(s, tipoLtypeControl, s.db.linetypes.handle, altre, {daBlocco, daPiano});
    for (const OdDbLinetypeTableRecord& r : s.db.linetypes.record) linea(s, r);
}

void tabellaBlocchi(StesuraDwg& s) {
    std::vector<OdDbHandle> altri;
    for (std::size_t i = 0; i < s.db.blocks.record.size(); ++i)
        if (i + 1 != s.db.modelSpace.n && i + 1 != s.db.paperSpace.n) altri.push_back(s.db.blocks.record[i].handle);
    controllo(s, tipoBlockControl, s.db.blocks.handle, altri,
              {s.db.blocks[s.db.modelSpace].handle, s.db.blocks[s.db.paperSpace].handle});
}

}   // namespace

unsigned NumeroSpessoreDwg(std::int16_t lineWeight) {
    constexpr std::array<std::int16_t, 24> spessori{0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                                    53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    if (lineWeight == kLnWtByLayer) return 29;
    if (lineWeight == kLnWtByBlock) return 30;
    for (unsigned i = 0; i < spessori.size(); ++i)
        if (spessori[i] == lineWeight) return i;
    return 31;
}

void comuneOggetto(OggettoDwg& o, OdDbHandle proprietario, bool reagisce) {
    if (o.formato == FormatoDwg::r14) o.segnaLunghezza();
    o.dati.BL(reagisce ? 1 : 0);
    if (o.formato >= FormatoDwg::r2004) o.dati.B(true);   // no dictionary of its own
    o.riferimenti.H(hPuntaDebole, proprietario);
    if (reagisce) o.riferimenti.H(hPuntaDebole, proprietario);
    if (o.formato < FormatoDwg::r2004) o.riferimenti.H(hPossiede, 0);
}

void scriviTabelleDwg(StesuraDwg& s) {
    const OdDbDatabase& db = s.db;
    tabellaBlocchi(s);
    controllo(s, tipoLayerControl, db.layers.handle, handleDi(db.layers));
    for (const OdDbLayerTableRecord& r : db.layers.record) layer(s, r);
    controllo(s, tipoStyleControl, db.textStyles.handle, handleDi(db.textStyles));
    for (const OdDbTextStyleTableRecord& r : db.textStyles.record) stile(s, r);
    tabellaLinee(s);
    controllo(s, tipoViewControl, db.handleViews, {});
    controllo(s, tipoUcsControl, db.handleUcs, {});
    controllo(s, tipoVportControl, db.handleVport, {db.handleVportActive});
    vista(s);
    controllo(s, tipoAppIdControl, db.regApps.handle, handleDi(db.regApps));
    for (const OdDbRegAppTableRecord& r : db.regApps.record) applicazione(s, r);
    controllo(s, tipoDimStyleControl, db.handleDimStyles, {db.handleDimStyleStandard});
    stileQuote(s);
    if (s.formato <= FormatoDwg::r2000) controllo(s, tipoVxControl, db.handleVpEntHdr, {});
    scriviDizionariDwg(s);
}

}   // namespace tessaro
