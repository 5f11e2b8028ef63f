// The comparison of two databases.
#include "dwg/Confronto.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "dwg/kit/dxfscrivi/GruppiInUscita.h"
#include "dwg/ParoleDWG.h"
#include "exchange/Resoconto.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr double dueGiri = 2 * 3.14159265358979323846;

bool vicini(double a, double b) {
    constexpr double tolleranza = 1e-9;
    return std::fabs(a - b) <= tolleranza * std::max({1.0, std::fabs(a), std::fabs(b)});
}
bool vicini(const OdGePoint3d& a, const OdGePoint3d& b) {
    return vicini(a.x, b.x) && vicini(a.y, b.y) && vicini(a.z, b.z);
}
// Angles that point the same way.
bool stessaDirezione(double a, double b) {
    const double d = std::fabs(std::remainder(a - b, dueGiri));
    return vicini(d, 0);
}

using Fuori = std::optional<ParolaDWG>;

Fuori geometria(const OdDbEntity& a, const OdDbEntity& b) {
    const auto dice = [](bool uguali, ParolaDWG p = ParolaDWG::geometria) { return uguali ? Fuori{} : Fuori{p}; };
    if (const auto* l = odCast<OdDbLine>(a)) {
        const auto& m = static_cast<const OdDbLine&>(b);
        return dice(vicini(l->startPoint, m.startPoint) && vicini(l->endPoint, m.endPoint));
    }
    if (const auto* c = odCast<OdDbCircle>(a)) {
        const auto& d = static_cast<const OdDbCircle&>(b);
        return dice(vicini(c->center, d.center) && vicini(c->radius, d.radius));
    }
    if (const auto* c = odCast<OdDbArc>(a)) {
        const auto& d = static_cast<const OdDbArc&>(b);
        return dice(vicini(c->center, d.center) && vicini(c->radius, d.radius)
                    && stessaDirezione(c->startAngle, d.startAngle) && stessaDirezione(c->endAngle, d.endAngle));
    }
    if (const auto* t = odCast<OdDbText>(a)) {
        const auto& u = static_cast<const OdDbText&>(b);
        if (t->textString != u.textString) return ParolaDWG::scritta;
        return dice(vicini(t->position, u.position) && vicini(t->height, u.height)
                    && stessaDirezione(t->rotation, u.rotation));
    }
    if (const auto* p = odCast<OdDb3dPolyline>(a)) {
        const auto& q = static_cast<const OdDb3dPolyline&>(b);
        return dice(p->closed == q.closed
                    && std::equal(p->vertici.begin(), p->vertici.end(), q.vertici.begin(), q.vertici.end(),
                                  [](const OdDbVertice& v, const OdDbVertice& w) { return vicini(v.punto, w.punto); }));
    }
    return {};
}

template <class T>
std::string nomeDi(const OdDbTabella<T>& t, OdDbObjectId id, const char* senza) {
    return OdDbTabella<T>::maiuscolo(id.isNull() ? std::string(senza) : t[id].name);
}

Fuori diversa(const OdDbDatabase& x, const OdDbEntity& a, const OdDbDatabase& y, const OdDbEntity& b,
              std::int16_t versione) {
    if (a.classe != b.classe) return ParolaDWG::classe;
    if (nomeDi(x.layers, a.layer, "0") != nomeDi(y.layers, b.layer, "0")) return ParolaDWG::strato;
    if (nomeDi(x.linetypes, a.linetype, "ByLayer") != nomeDi(y.linetypes, b.linetype, "ByLayer"))
        return ParolaDWG::linea;
    if (a.color.indice != b.color.indice) return ParolaDWG::colore;
    const auto& c = a.color;
    const bool vero = c.metodo == OdCmColor::byColor && versione >= dxf2004;
    if (vero && (c.red != b.color.red || c.green != b.color.green || c.blue != b.color.blue)) return ParolaDWG::colore;
    if (versione >= dxf2000 && a.lineWeight != b.lineWeight) return ParolaDWG::spessore;
    return geometria(a, b);
}

}   // namespace

Differenze ConfrontaDatabase(const OdDbDatabase& inteso, const OdDbDatabase& riletto, std::int16_t versione) {
    const auto& a = inteso.spazioModello().entita;
    const auto& b = riletto.spazioModello().entita;
    Differenze d;
    const auto segna = [&d](const std::string& macRoman, std::int64_t n = 1) {
        if (d.quante == 0) d.prima = MacToUtf8(macRoman);
        d.quante += n;
    };
    if (a.size() != b.size()) {
        const auto numero = [](std::size_t n) { return ConMigliaia(static_cast<std::int64_t>(n)); };
        segna(Parola(ParolaDWG::diverse, numero(a.size()), numero(b.size())),
              static_cast<std::int64_t>(std::max(a.size(), b.size()) - std::min(a.size(), b.size())));
    }
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (const Fuori f = diversa(inteso, *a[i], riletto, *b[i], versione))
            segna(Parola(ParolaDWG::entita, ConMigliaia(static_cast<std::int64_t>(i) + 1), Parola(*f)));
    return d;
}

}   // namespace tessaro
