// The dictionaries of named objects, and the objects that they name: layouts, the multiline style, the plot style.
#include <numbers>

#include "dwg/kit/scrividwg/StesuraDwg.h"

namespace tessaro {

namespace {

// Formats before 2000 know neither layouts nor plot styles.
bool delFormato(const StesuraDwg& s, const std::string& nome) {
    return s.formato >= FormatoDwg::r2000 || (nome != "ACAD_LAYOUT" && nome != "ACAD_PLOTSTYLENAME");
}

void dizionario(StesuraDwg& s, const OdDbDizionario& d, OdDbHandle proprietario) {
    const bool conPredefinito = d.name == "ACAD_PLOTSTYLENAME";
    OggettoDwg o(s.formato, conPredefinito ? tipoDictionaryDefault : tipoDictionary, d.handle);
    comuneOggetto(o, proprietario, proprietario != 0);
    std::vector<std::pair<std::string, OdDbHandle>> voci;
    for (const auto& v : d.voci)
        if (delFormato(s, v.first)) voci.push_back(v);
    o.dati.BL(static_cast<std::int32_t>(voci.size()));
    if (s.formato == FormatoDwg::r14) {
        o.dati.RC(0);
    } else {
        o.dati.BS(1);   // of two equal names the old one stays
        o.dati.RC(0);
    }
    for (const auto& [nome, handle] : voci) {
        o.TV(nome);
        o.riferimenti.H(hPossiedeDebole, handle);
    }
    if (conPredefinito) o.riferimenti.H(hPunta, s.db.handlePlotPlaceholder);
    s.aggiungi(d.handle, o);
}

void stileMultilinea(StesuraDwg& s) {
    constexpr std::int32_t lineaDaPiano = 32767;
    OggettoDwg o(s.formato, tipoMlineStyle, s.db.handleMlineStyleStandard);
    comuneOggetto(o, s.dizionario("ACAD_MLINESTYLE"), true);
    o.TV("Standard");
    o.TV("");
    o.dati.BS(0);
    o.colore({});
    o.dati.BD(std::numbers::pi / 2);
    o.dati.BD(std::numbers::pi / 2);
    o.dati.RC(2);
    for (const double scarto : {0.5, -0.5}) {
        o.dati.BD(scarto);
        o.colore({});
        o.dati.BS(lineaDaPiano);
    }
    s.aggiungi(s.db.handleMlineStyleStandard, o);
}

void stileStampa(StesuraDwg& s) {
    constexpr unsigned fisso = 80;
    OggettoDwg o(s.formato, s.formato == FormatoDwg::r2000 ? unsigned{tipoPlaceholder} : fisso,
                 s.db.handlePlotPlaceholder);
    comuneOggetto(o, s.dizionario("ACAD_PLOTSTYLENAME"), true);
    s.aggiungi(s.db.handlePlotPlaceholder, o);
}

// How a sheet is printed: nothing chosen yet, one to one.
void impostazioniStampa(OggettoDwg& o, bool modello) {
    constexpr std::int32_t stampaModello = 1712, stampaFoglio = 688;   // flags of a layout that was never set up
    BitDwg& d = o.dati;
    o.TV("");
    o.TV("none_device");
    d.BS(modello ? stampaModello : stampaFoglio);
    for (int i = 0; i < 6; ++i) d.BD(0);   // margins, paper
    o.TV("");
    d.BD(0);
    d.BD(0);
    d.BS(0);   // inches
    d.BS(0);
    d.BS(modello ? 0 : 5);
    for (int i = 0; i < 4; ++i) d.BD(0);
    if (o.formato == FormatoDwg::r2000) o.TV("");
    d.BD(1);
    d.BD(1);
    o.TV("");
    d.BS(16);   // one to one
    d.BD(1);
    d.BD(0);
    d.BD(0);
    if (o.formato >= FormatoDwg::r2004) {
        d.BS(0);
        d.BS(2);
        d.BS(300);
    }
}

void layout(StesuraDwg& s, const OdDbLayout& l) {
    constexpr unsigned fisso = 82;
    const bool modello = l.blockTableRecord == s.db.modelSpace;
    OggettoDwg o(s.formato, s.formato == FormatoDwg::r2000 ? unsigned{tipoLayout} : fisso, l.handle);
    comuneOggetto(o, s.dizionario("ACAD_LAYOUT"), true);
    BitDwg& d = o.dati;
    impostazioniStampa(o, modello);
    o.TV(l.name);
    d.BL(l.tabOrder);
    d.BS(1);
    d.BD3(OdGePoint3d{});
    d.RD2(0, 0);
    d.RD2(12, 9);
    d.BD3(OdGePoint3d{});
    d.BD3(OdGePoint3d{1, 0, 0});
    d.BD3(OdGePoint3d{0, 1, 0});
    d.BD(0);
    d.BS(0);
    d.BD3(modello ? s.db.header.extMin : OdGePoint3d{1e20, 1e20, 1e20});
    d.BD3(modello ? s.db.header.extMax : OdGePoint3d{-1e20, -1e20, -1e20});
    if (s.formato >= FormatoDwg::r2004) d.RL(0);                      // viewports
    if (s.formato >= FormatoDwg::r2004) o.riferimenti.H(hPunta, 0);   // plot view
    if (s.formato >= FormatoDwg::r2007) o.riferimenti.H(hPuntaDebole, 0);
    o.riferimenti.H(hPuntaDebole, s.db.blocks[l.blockTableRecord].handle);
    o.riferimenti.H(hPuntaDebole, modello ? s.db.handleVportActive : 0);
    o.riferimenti.H(hPunta, 0);
    o.riferimenti.H(hPunta, 0);
    // One reference more than there are: a reader that looks for one more would call the object cut off.
    o.riferimenti.H(hPunta, 0);
    s.aggiungi(l.handle, o);
}

}   // namespace

void scriviDizionariDwg(StesuraDwg& s) {
    const OdDbHandle radice = s.db.dizionari.empty() ? 0 : s.db.dizionari.front().handle;
    for (const OdDbDizionario& d : s.db.dizionari)
        if (delFormato(s, d.name)) dizionario(s, d, d.handle == radice ? 0 : radice);
    stileMultilinea(s);
    if (s.formato < FormatoDwg::r2000) return;
    stileStampa(s);
    for (const OdDbLayout& l : s.db.layouts.record) layout(s, l);
}

}   // namespace tessaro
