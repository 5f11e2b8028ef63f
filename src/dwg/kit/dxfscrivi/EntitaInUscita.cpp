// The entities of a block as a DXF file tells them.
#include "dwg/kit/dxfscrivi/GruppiInUscita.h"

namespace tessaro {

namespace {

constexpr double gradi(double radianti) { return radianti * (180 / 3.14159265358979323846); }

// Layer, line type, colour and line weight, as far as they are not those of the layer.
void attributi(GruppiInUscita& s, const OdDbEntity& e) {
    s.sottoclasse("AcDbEntity");
    s.testo(8, e.layer.isNull() ? "0" : s.db.layers[e.layer].name);
    if (!e.linetype.isNull()) s.testo(6, s.db.linetypes[e.linetype].name);
    if (e.color.metodo != OdCmColor::byLayer) s.g(62, static_cast<std::int32_t>(e.color.indice));
    if (s.da(dxf2000) && e.lineWeight != kLnWtByLayer) s.g(370, static_cast<std::int32_t>(e.lineWeight));
    if (s.da(dxf2004) && e.color.metodo == OdCmColor::byColor)
        s.g(420, (e.color.red << 16) + (e.color.green << 8) + e.color.blue);
}

void inizio(GruppiInUscita& s, const char* nome, const OdDbEntity& e, const OdDbBlockTableRecord& blocco) {
    s.oggetto(nome, e.handle, blocco.handle);
    attributi(s, e);
}

void normale(GruppiInUscita& s, const OdGeVector3d& n) {
    if (!NormaleZ(n)) s.punto(210, {n.x, n.y, n.z});
}

void spessore(GruppiInUscita& s, double t) {
    if (t != 0) s.g(39, t);
}

void linea(GruppiInUscita& s, const OdDbEntity& e, const OdDbBlockTableRecord& b) {
    const auto& l = static_cast<const OdDbLine&>(e);
    inizio(s, "LINE", e, b);
    s.sottoclasse("AcDbLine");
    spessore(s, l.thickness);
    s.punto(10, l.startPoint);
    s.punto(11, l.endPoint);
    normale(s, l.normal);
}

void punto(GruppiInUscita& s, const OdDbEntity& e, const OdDbBlockTableRecord& b) {
    inizio(s, "POINT", e, b);
    s.sottoclasse("AcDbPoint");
    s.punto(10, static_cast<const OdDbPoint&>(e).position);
}

template <class T>
void corpoCerchio(GruppiInUscita& s, const T& c) {
    s.sottoclasse("AcDbCircle");
    spessore(s, c.thickness);
    s.punto(10, c.center);
    s.g(40, c.radius);
    normale(s, c.normal);
}

void cerchio(GruppiInUscita& s, const OdDbEntity& e, const OdDbBlockTableRecord& b) {
    inizio(s, "CIRCLE", e, b);
    corpoCerchio(s, static_cast<const OdDbCircle&>(e));
}

void arco(GruppiInUscita& s, const OdDbEntity& e, const OdDbBlockTableRecord& b) {
    const auto& a = static_cast<const OdDbArc&>(e);
    inizio(s, "ARC", e, b);
    corpoCerchio(s, a);
    s.sottoclasse("AcDbArc");
    s.g(50, gradi(a.startAngle));
    s.g(51, gradi(a.endAngle));
}

void testo(GruppiInUscita& s, const OdDbEntity& e, const OdDbBlockTableRecord& b) {
    const auto& t = static_cast<const OdDbText&>(e);
    inizio(s, "TEXT", e, b);
    s.sottoclasse("AcDbText");
    spessore(s, t.thickness);
    s.punto(10, t.position);
    s.g(40, t.height);
    s.testo(1, t.textString);
    if (t.rotation != 0) s.g(50, gradi(t.rotation));
    if (t.widthFactor != 1) s.g(41, t.widthFactor);
    if (t.oblique != 0) s.g(51, gradi(t.oblique));
    if (!t.textStyle.isNull()) s.testo(7, s.db.textStyles[t.textStyle].name);
    const bool allineato = t.horizontalMode != 0 || t.verticalMode != 0;
    if (t.horizontalMode != 0) s.g(72, static_cast<std::int32_t>(t.horizontalMode));
    if (allineato) s.punto(11, t.alignmentPoint);
    normale(s, t.normal);
    s.sottoclasse("AcDbText");
    if (t.verticalMode != 0) s.g(73, static_cast<std::int32_t>(t.verticalMode));
}

void polilinea3d(GruppiInUscita& s, const OdDbEntity& e, const OdDbBlockTableRecord& b) {
    constexpr std::int32_t treDimensioni = 8, chiusa = 1, verticeTre = 32;
    const auto& p = static_cast<const OdDb3dPolyline&>(e);
    inizio(s, "POLYLINE", e, b);
    s.sottoclasse("AcDb3dPolyline");
    s.g(66, 1);
    s.punto(10, {});
    s.g(70, treDimensioni + (p.closed ? chiusa : 0));
    OdDbHandle h = e.handle;
    for (const OdDbVertice& v : p.vertici) {
        s.oggetto("VERTEX", ++h, e.handle);
        attributi(s, e);
        s.sottoclasse("AcDbVertex");
        s.sottoclasse("AcDb3dPolylineVertex");
        s.punto(10, v.punto);
        s.g(70, verticeTre);
    }
    s.oggetto("SEQEND", p.handleSeqend, e.handle);
    attributi(s, e);
}

struct Scrittura {
    OdDbClasse classe;
    void (*scrivi)(GruppiInUscita& s, const OdDbEntity& e, const OdDbBlockTableRecord& b);
};
constexpr Scrittura scritture[] = {
    {OdDbClasse::Line, linea}, {OdDbClasse::Point, punto}, {OdDbClasse::Circle, cerchio},
    {OdDbClasse::Arc, arco},   {OdDbClasse::Text, testo},  {OdDbClasse::Polyline3d, polilinea3d},
};

}   // namespace

OdError ScriviEntitaDxf(GruppiInUscita& s, const OdDbBlockTableRecord& blocco, OdDbHostAppProgressMeter& meter) {
    s.g(0, "SECTION");
    s.g(2, "ENTITIES");
    for (const OdDbEntityPtr& e : blocco.entita) {
        if (e->erased) continue;
        bool scritta = false;
        for (const Scrittura& w : scritture) {
            if (w.classe != e->classe) continue;
            w.scrivi(s, *e, blocco);
            scritta = true;
            break;
        }
        if (!scritta) return {eUnsupportedVersion, static_cast<std::int64_t>(e->classe), "DXF"};
        if (!meter.meterProgress()) return {eUserBreak, 0, {}};
    }
    s.g(0, "ENDSEC");
    return {};
}

}   // namespace tessaro
