// The header variables of a DXF file, and its classes.
#include "dwg/kit/dxfscrivi/GruppiInUscita.h"

namespace tessaro {

namespace {

void nome(GruppiInUscita& s, const char* variabile) { s.g(9, variabile); }

template <class T>
void variabile(GruppiInUscita& s, const char* chiamata, int codice, const T& valore) {
    nome(s, chiamata);
    s.g(codice, valore);
}

void punto(GruppiInUscita& s, const char* chiamata, const OdGePoint3d& p) {
    nome(s, chiamata);
    s.punto(10, p);
}

void punto2(GruppiInUscita& s, const char* chiamata, const OdGePoint3d& p) {
    nome(s, chiamata);
    s.punto2(10, p.x, p.y);
}

}   // namespace

void ScriviIntestazioneDxf(GruppiInUscita& s) {
    const OdDbHeader& h = s.db.header;
    s.g(0, "SECTION");
    s.g(2, "HEADER");
    variabile(s, "$ACADVER", 1, s.v.sigla);
    variabile(s, "$DWGCODEPAGE", 3, "ANSI_1252");   // by which also a file in UTF-8 is known to be no Asian one
    punto(s, "$INSBASE", {});
    punto(s, "$EXTMIN", h.extMin);
    punto(s, "$EXTMAX", h.extMax);
    punto2(s, "$LIMMIN", h.limMin);
    punto2(s, "$LIMMAX", h.limMax);
    variabile(s, "$LTSCALE", 40, h.ltscale);
    nome(s, "$TEXTSTYLE");
    s.testo(7, s.db.textStyles[h.textStyle].name);
    nome(s, "$CLAYER");
    s.testo(8, s.db.layers[h.clayer].name);
    variabile(s, "$CELTYPE", 6, "BYLAYER");
    variabile(s, "$CECOLOR", 62, 256);
    variabile(s, "$TDCREATE", 40, h.tdCreate.giuliana());
    variabile(s, "$TDUPDATE", 40, h.tdUpdate.giuliana());
    if (!s.da(dxfR14)) variabile(s, "$HANDLING", 70, 1);
    nome(s, "$HANDSEED");
    s.handle(5, s.db.handseed);
    if (s.da(dxf2000)) {
        variabile(s, "$MEASUREMENT", 70, static_cast<std::int32_t>(h.measurement));
        variabile(s, "$CELWEIGHT", 370, static_cast<std::int32_t>(kLnWtByLayer));
        variabile(s, "$INSUNITS", 70, static_cast<std::int32_t>(h.insUnits));
    }
    s.g(0, "ENDSEC");
}

void ScriviClassiDxf(GruppiInUscita& s) {
    if (!s.da(dxfR14)) return;
    static constexpr struct {
        const char *dxf, *cpp;
    } classi[] = {{"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
                  {"ACDBPLACEHOLDER", "AcDbPlaceHolder"},
                  {"LAYOUT", "AcDbLayout"}};
    s.g(0, "SECTION");
    s.g(2, "CLASSES");
    if (s.da(dxf2000))
        for (const auto& c : classi) {
            s.g(0, "CLASS");
            s.g(1, c.dxf);
            s.g(2, c.cpp);
            s.g(3, "ObjectDBX Classes");
            s.g(90, 0);
            if (s.da(dxf2004)) s.g(91, 1);
            s.g(280, 0);
            s.g(281, 0);
        }
    s.g(0, "ENDSEC");
}

}   // namespace tessaro
