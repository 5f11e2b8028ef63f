// The objects of a DXF file that are no entities: dictionaries, layouts, the plain multi-line style.
#include "dwg/kit/dxfscrivi/GruppiInUscita.h"

namespace tessaro {

namespace {

void dizionario(GruppiInUscita& s, const OdDbDizionario& d, OdDbHandle proprietario) {
    const bool conPredefinito = d.name == "ACAD_PLOTSTYLENAME";
    s.oggetto(conPredefinito ? "ACDBDICTIONARYWDFLT" : "DICTIONARY", d.handle, proprietario);
    s.g(100, "AcDbDictionary");
    if (s.da(dxf2000)) s.g(281, 1);
    for (const auto& [nome, h] : d.voci) {
        s.testo(3, nome);
        s.handle(350, h);
    }
    if (!conPredefinito) return;
    s.g(100, "AcDbDictionaryWithDefault");
    s.handle(340, s.db.handlePlotPlaceholder);
}

struct Gruppo {
    int codice;
    double valore;
};
// What a layout says of its printed page: nothing yet, on a sheet of its own size.
constexpr Gruppo pagina[] = {{40, 7.5}, {41, 20}, {42, 7.5}, {43, 20}, {44, 0},  {45, 0},  {46, 0},
                             {47, 0},   {48, 0},  {49, 0},   {140, 0}, {141, 0}, {142, 1}, {143, 1}};

void layout(GruppiInUscita& s, const OdDbLayout& l, OdDbHandle proprietario) {
    constexpr std::int32_t modello = 1024, iniziale = 688, tuttoIlDisegno = 5, millimetri = 1, scalaUno = 16;
    const bool delModello = l.blockTableRecord == s.db.modelSpace;
    s.oggetto("LAYOUT", l.handle, proprietario);
    s.g(100, "AcDbPlotSettings");
    s.g(1, "");
    s.g(2, "none_device");
    s.g(4, "");
    s.g(6, "");
    for (const Gruppo& p : pagina) s.g(p.codice, p.valore);
    s.g(70, delModello ? modello + iniziale : iniziale);
    s.g(72, millimetri);
    s.g(73, 0);
    s.g(74, tuttoIlDisegno);
    s.g(7, "");
    s.g(75, scalaUno);
    s.g(147, 1.0);
    s.punto2(148, 0, 0);
    s.g(100, "AcDbLayout");
    s.testo(1, l.name);
    s.g(70, 1);
    s.g(71, l.tabOrder);
    s.punto2(10, s.db.header.limMin.x, s.db.header.limMin.y);
    s.punto2(11, s.db.header.limMax.x, s.db.header.limMax.y);
    s.punto(12, {});
    s.punto(14, delModello ? s.db.header.extMin : OdGePoint3d{1e20, 1e20, 1e20});
    s.punto(15, delModello ? s.db.header.extMax : OdGePoint3d{-1e20, -1e20, -1e20});
    s.g(146, 0.0);
    s.punto(13, {});
    s.punto(16, {1, 0, 0});
    s.punto(17, {0, 1, 0});
    s.g(76, 0);
    s.handle(330, s.db.blocks[l.blockTableRecord].handle);
}

void stileMultilinea(GruppiInUscita& s, OdDbHandle proprietario) {
    constexpr double rettoInGradi = 90;
    s.oggetto("MLINESTYLE", s.db.handleMlineStyleStandard, proprietario);
    s.g(100, "AcDbMlineStyle");
    s.g(2, "STANDARD");
    s.g(70, 0);
    s.g(3, "");
    s.g(62, 256);
    s.g(51, rettoInGradi);
    s.g(52, rettoInGradi);
    s.g(71, 2);
    for (const double scarto : {0.5, -0.5}) {
        s.g(49, scarto);
        s.g(62, 256);
        s.g(6, "BYLAYER");
    }
}

// Layouts and plot styles came with 2000.
bool scritto(const GruppiInUscita& s, const OdDbDizionario& d) {
    return s.da(dxf2000) || (d.name != "ACAD_LAYOUT" && d.name != "ACAD_PLOTSTYLENAME");
}

}   // namespace

void ScriviOggettiDxf(GruppiInUscita& s) {
    if (!s.da(dxfR14)) return;
    s.g(0, "SECTION");
    s.g(2, "OBJECTS");
    const std::vector<OdDbDizionario>& d = s.db.dizionari;
    OdDbDizionario radice = d.front();
    radice.voci.clear();
    for (std::size_t i = 1; i < d.size(); ++i)
        if (scritto(s, d[i])) radice.voci.emplace_back(d[i].name, d[i].handle);
    dizionario(s, radice, 0);
    for (std::size_t i = 1; i < d.size(); ++i) {
        if (!scritto(s, d[i])) continue;
        dizionario(s, d[i], radice.handle);
        if (d[i].name == "ACAD_LAYOUT")
            for (const OdDbLayout& l : s.db.layouts.record) layout(s, l, d[i].handle);
        if (d[i].name == "ACAD_MLINESTYLE") stileMultilinea(s, d[i].handle);
        if (d[i].name == "ACAD_PLOTSTYLENAME") s.oggetto("ACDBPLACEHOLDER", s.db.handlePlotPlaceholder, d[i].handle);
    }
    s.g(0, "ENDSEC");
}

}   // namespace tessaro
