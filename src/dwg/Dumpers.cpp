// What each class of entities becomes.
#include <algorithm>
#include <cmath>

#include "dwg/DbDumper.h"
#include "dwg/kit/Archi.h"
#include "dwg/kit/Esplodi.h"
#include "dwg/kit/Frammenti.h"
#include "dwg/ParoleDWG.h"

namespace tessaro {

void DbDumper::faiTestoPiano(const OdDbTextBase& t, const std::string& utf8, double giu) {
    const OdGeMatrix3d m = OdGeMatrix3d::planeToWorld(t.normal);
    const OdGeVector3d d = m * OdGeVector3d{std::cos(t.rotation), std::sin(t.rotation), 0};
    const OdGeVector3d su = m * OdGeVector3d{-std::sin(t.rotation), std::cos(t.rotation), 0};
    faiTesto(t, m * t.position + su * -giu, d, t.height, t.textStyle, {}, utf8);
}

struct Dumpers {
    using Dump = void (*)(DbDumper& d, const OdDbEntity& e);
    static std::array<Dump, static_cast<std::size_t>(OdDbClasse::nClassi)> registrati;
    static void addXs();
    static void delXs() { registrati.fill(nullptr); }

    static std::vector<OdGePoint3d> nelMondo(const OdDbPolylineBase& p, const std::vector<OdDbVertice>& vertici,
                                             bool archi) {
        constexpr std::int16_t telaio = 16;   // of a spline's frame: not drawn
        const bool piana = p.classe != OdDbClasse::Polyline3d;
        const OdGeMatrix3d m = piana ? OdGeMatrix3d::planeToWorld(p.normal) : OdGeMatrix3d();
        std::vector<OdGePoint3d> r;
        r.reserve(vertici.size() + 1);
        const bool conCurva =
            std::any_of(vertici.begin(), vertici.end(), [](const OdDbVertice& v) { return (v.flags & telaio) == 0; });
        for (const OdDbVertice& v : vertici) {
            if ((v.suddiviso && !archi) || (conCurva && (v.flags & telaio) != 0)) continue;
            r.push_back(piana ? m * OdGePoint3d{v.punto.x, v.punto.y, p.elevation} : v.punto);
        }
        return r;
    }

    // Kept: bulges are read and not followed, so that arcs arrive as straight sides; unless the person wants them.
    static void polilinea(DbDumper& d, const OdDbEntity& e) {
        const auto& p = static_cast<const OdDbPolylineBase&>(e);
        const bool archi = scelteImporta.archi != 0 && e.classe != OdDbClasse::Polyline3d;
        if (archi)
            d.faiPolilinea(e, nelMondo(p, ArchiInPunti(p, {scelteImporta.tolleranza}), true), p.closed);
        else
            d.faiPolilinea(e, nelMondo(p, p.vertici, false), p.closed);
    }

    static void curva(DbDumper& d, const OdDbEntity& e, const std::vector<OdGePoint3d>& punti, const char* nome,
                      const char* stampa) {
        if (scelteImporta.curve != 0 && punti.size() > 1)
            d.faiPolilinea(e, punti, false);
        else
            d.perde(nome, stampa);
    }

    static void linea(DbDumper& d, const OdDbEntity& e) {
        const auto& l = static_cast<const OdDbLine&>(e);
        d.faiLine(e, l.startPoint, l.endPoint);
    }
    static void punto(DbDumper& d, const OdDbEntity& e);
    static void cerchio(DbDumper& d, const OdDbEntity& e) { d.creaCerchio2D(static_cast<const OdDbCircle&>(e)); }
    static void arco(DbDumper& d, const OdDbEntity& e) {
        const auto& a = static_cast<const OdDbArc&>(e);
        d.creaArco2D(a, NormaleZ(a.normal) && a.thickness == 0);
    }
    static void ellisse(DbDumper& d, const OdDbEntity& e) {
        const std::vector<OdGePoint3d> p =
            scelteImporta.curve != 0 ? EllisseInPunti(static_cast<const OdDbEllipse&>(e), {scelteImporta.tolleranza})
                                     : std::vector<OdGePoint3d>();
        curva(d, e, p, "ELLIPSE", "ELLIPSE");
    }
    static void spline(DbDumper& d, const OdDbEntity& e) {
        const std::vector<OdGePoint3d> p =
            scelteImporta.curve != 0 ? SplineInPunti(static_cast<const OdDbSpline&>(e), {scelteImporta.tolleranza})
                                     : std::vector<OdGePoint3d>();
        curva(d, e, p, "SPLINE", nullptr);
    }
    static void testo(DbDumper& d, const OdDbEntity& e) {
        const auto& t = static_cast<const OdDbText&>(e);
        d.faiTestoPiano(t, t.textString);
    }
    // The value, and a line below it the tag, marked.
    template <class T>
    static void attributo(DbDumper& d, const OdDbEntity& e) {
        constexpr double interlinea = 5.0 / 3;
        const auto& a = static_cast<const T&>(e);
        d.faiTestoPiano(a, a.textString);
        if (!a.tag.empty()) d.faiTestoPiano(a, "####" + a.tag, a.textString.empty() ? 0 : interlinea * a.height);
    }
    static void mtext(DbDumper& d, const OdDbEntity& e) {
        const auto& t = static_cast<const OdDbMText&>(e);
        for (const OdDbMTextFragment& f : explodeFragments(t)) {
            if (f.color.metodo == OdCmColor::byBlock) {
                d.faiTesto(e, f.location, f.direction, f.capsHeight, t.textStyle, f.fontFile, f.text);
                continue;
            }
            OdDbText proprio;   // of another colour than the entity
            proprio.layer = e.layer;
            proprio.color = f.color;
            d.faiTesto(proprio, f.location, f.direction, f.capsHeight, t.textStyle, f.fontFile, f.text);
        }
    }
    // The third and fourth corners cross over; in a triangle they are one.
    template <class T>
    static void solido(DbDumper& d, const OdDbEntity& e) {
        const auto& s = static_cast<const T&>(e);
        const OdGeMatrix3d m = OdGeMatrix3d::planeToWorld(s.normal);
        const auto stesso = [](const OdGePoint3d& a, const OdGePoint3d& b) {
            return a.x == b.x && a.y == b.y && a.z == b.z;
        };
        std::vector<OdGePoint3d> p{m * s.getPointAt(0), m * s.getPointAt(1)};
        if (!stesso(s.getPointAt(2), s.getPointAt(3))) p.push_back(m * s.getPointAt(3));
        p.push_back(m * s.getPointAt(2));
        d.faiPolilinea(e, p, true);
    }
    static void faccia(DbDumper& d, const OdDbEntity& e) {
        const auto& f = static_cast<const OdDbFace&>(e);
        if (scelteImporta.curve == 0) return d.perde("3DFACE", "3DFACE");
        d.faiPolilinea(e, {f.corner.begin(), f.corner.end()}, true);
    }
    // Its rows, and its columns across them.
    static void rete(DbDumper& d, const OdDbEntity& e) {
        const auto& r = static_cast<const OdDbPolygonMesh&>(e);
        const auto punto = [&](std::int32_t i, std::int32_t j) {
            return r.punti[static_cast<std::size_t>(i) * static_cast<std::size_t>(r.n) + static_cast<std::size_t>(j)];
        };
        std::vector<OdGePoint3d> p;
        for (std::int32_t i = 0; i < r.m && r.n > 1; ++i) {
            p.clear();
            for (std::int32_t j = 0; j < r.n; ++j) p.push_back(punto(i, j));
            d.faiPolilinea(e, p, r.chiusaN);
        }
        for (std::int32_t j = 0; j < r.n && r.m > 1; ++j) {
            p.clear();
            for (std::int32_t i = 0; i < r.m; ++i) p.push_back(punto(i, j));
            d.faiPolilinea(e, p, r.chiusaM);
        }
    }
    static void facce(DbDumper& d, const OdDbEntity& e) {
        const auto& r = static_cast<const OdDbPolyFaceMesh&>(e);
        if (scelteImporta.curve == 0) return d.perde("POLYFACE", "FACEMESH");
        for (const auto& f : r.facce) {
            std::vector<OdGePoint3d> p;
            for (const std::int32_t n : f) {
                const auto i = static_cast<std::size_t>(std::abs(n));
                if (i >= 1 && i <= r.punti.size()) p.push_back(r.punti[i - 1]);
            }
            d.faiPolilinea(e, p, p.size() > 2);
        }
    }
    // Its picture: lines, arrows and texts.
    static void quota(DbDumper& d, const OdDbEntity& e) {
        const std::vector<OdDbEntityPtr> parti = EsplodiQuota(d.db, static_cast<const OdDbDimension&>(e));
        if (parti.empty()) d.perde("DIMENSION", nullptr);
        for (const OdDbEntityPtr& p : parti) d.dumpEntity(*p);
    }
    // Taken apart before; what still comes here has no parts.
    static void inserto(DbDumper&, const OdDbEntity&) {}
    static void altra(DbDumper& d, const OdDbEntity& e) {
        d.perde(static_cast<const OdDbAltra&>(e).nome.c_str(), nullptr);
    }
};

std::array<Dumpers::Dump, static_cast<std::size_t>(OdDbClasse::nClassi)> Dumpers::registrati{};

// Kept: points lie on a sheet and in a pattern of their own.
void Dumpers::punto(DbDumper& d, const OdDbEntity& e) { d.faiPunto(static_cast<const OdDbPoint&>(e)); }

void Dumpers::addXs() {
    static constexpr struct {
        OdDbClasse classe;
        Dump dump;
    } tutti[] = {
        {OdDbClasse::Line, linea},
        {OdDbClasse::Point, punto},
        {OdDbClasse::Circle, cerchio},
        {OdDbClasse::Arc, arco},
        {OdDbClasse::Ellipse, ellisse},
        {OdDbClasse::Spline, spline},
        {OdDbClasse::Text, testo},
        {OdDbClasse::AttributeDefinition, attributo<OdDbAttributeDefinition>},
        {OdDbClasse::Attribute, attributo<OdDbAttribute>},
        {OdDbClasse::MText, mtext},
        {OdDbClasse::Solid, solido<OdDbSolid>},
        {OdDbClasse::Trace, solido<OdDbTrace>},
        {OdDbClasse::Face, faccia},
        {OdDbClasse::Polyline, polilinea},
        {OdDbClasse::Polyline2d, polilinea},
        {OdDbClasse::Polyline3d, polilinea},
        {OdDbClasse::PolygonMesh, rete},
        {OdDbClasse::PolyFaceMesh, facce},
        {OdDbClasse::BlockReference, inserto},
        {OdDbClasse::MInsertBlock, inserto},
        {OdDbClasse::Dimension, quota},
        {OdDbClasse::Altra, altra},
    };
    for (const auto& t : tutti) registrati[static_cast<std::size_t>(t.classe)] = t.dump;
}

void DbDumper::dumpEntity(const OdDbEntity& e) {
    if (const Dumpers::Dump voce = Dumpers::registrati[static_cast<std::size_t>(e.classe)]) voce(*this, e);
}

void ExProtocolExtension::initialize() { Dumpers::addXs(); }
void ExProtocolExtension::uninitialize() { Dumpers::delXs(); }

}   // namespace tessaro
