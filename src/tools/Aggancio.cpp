// Points that attract the cursor, kind by kind.
#include "tools/Aggancio.h"

#include <array>
#include <cmath>

#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/Vista.h"

namespace tessaro {

namespace {

bool acceso(TipoAggancio t) { return (agganciAttivi & BitAggancio(t)) != 0; }

class Ricerca {
    puntot riferimento;
    double portata = distanzaAggancio / scalavid;   // sheet units

    // --- ends, vertices and markers: the earliest record wins

    static TipoAggancio tipoDi(const elemento& e) {
        switch (e.tipo) {
        case tSegmento: return agEstremo;
        case tMarker: return agMarker;
        case tPoligono:
        case tVertice: return agVertice;
        default: return agNessuno;
        }
    }
    // The first point of a record that attracts; all such kinds hold it at the same place.
    bool primoPunto(std::int32_t n, Aggancio& a) const {
        const elemento& e = Elem(n);
        const TipoAggancio t = tipoDi(e);
        if (t == agNessuno || !acceso(t)) return false;
        a = {t, {e.mark.x, e.mark.y, e.mark.z}};
        return vicino(a.punto);
    }
    bool antico(std::int32_t n, Aggancio& a) const {
        // Kept: a vertex offers the record behind it, whatever figure that begins, before itself.
        if (Elem(n).tipo == tVertice && n < indElem && primoPunto(n + 1, a)) return true;
        if (primoPunto(n, a)) return true;
        if (Elem(n).tipo != tSegmento || !acceso(agEstremo)) return false;
        const auto& s = Elem(n).segm;
        a = {agEstremo, {s.x2, s.y2, s.z2}};
        return vicino(a.punto);
    }

    // --- the other kinds: the nearest wins

    struct Lato {
        puntot a, b;
    };
    static constexpr std::size_t latiMassimi = 64;   // within reach at once; in a thicker bundle nobody aims
    std::array<Lato, latiMassimi> lati{};
    std::size_t quanti = 0;
    Aggancio migliore;
    double distanza = 0;

    void offri(TipoAggancio t, const puntot& p) {
        if (!vicino(p)) return;
        const double d = std::hypot(p.x - riferimento.x, p.y - riferimento.y);
        if (migliore.tipo != agNessuno && d >= distanza) return;
        migliore = {t, p};
        distanza = d;
    }
    static puntot lungo(const Lato& l, double t) {
        return {l.a.x + t * (l.b.x - l.a.x), l.a.y + t * (l.b.y - l.a.y), l.a.z + t * (l.b.z - l.a.z)};
    }
    // Does the side pass through the square of reach? By its box first, then by the square's corners on its two sides.
    [[nodiscard]] bool inPortata(const Lato& l) const {
        const auto fuori = [this](double p, double q, double c) {
            return std::min(p, q) > c + portata || std::max(p, q) < c - portata;
        };
        if (fuori(l.a.x, l.b.x, riferimento.x) || fuori(l.a.y, l.b.y, riferimento.y)) return false;
        const double dx = l.b.x - l.a.x, dy = l.b.y - l.a.y;
        const double scarto = dx * (riferimento.y - l.a.y) - dy * (riferimento.x - l.a.x);
        return std::fabs(scarto) <= portata * (std::fabs(dx) + std::fabs(dy));
    }
    void lato(const Lato& l) {
        if (!inPortata(l)) return;
        if (acceso(agMezzo)) offri(agMezzo, lungo(l, 0.5));
        if (quanti < lati.size()) lati[quanti++] = l;
    }
    void moderno(std::int32_t n) {
        const elemento& e = Elem(n);
        if (!LucidoVisibile(e.lucido)) return;
        switch (e.tipo) {
        case tSegmento: lato({{e.segm.x1, e.segm.y1, e.segm.z1}, {e.segm.x2, e.segm.y2, e.segm.z2}}); break;
        case tVertice: {
            const auto& p = Elem(n - 1).vert;   // head or vertex: both hold their point at the same place
            lato({{p.x, p.y, p.z}, {e.vert.x, e.vert.y, e.vert.z}});
            break;
        }
        case tCerchio:
            if (acceso(agCentro)) offri(agCentro, {e.cerc.cx, e.cerc.cy, ZetaCorrente});
            break;
        case tArco:
            if (acceso(agCentro)) offri(agCentro, {e.arco.cx, e.arco.cy, ZetaCorrente});
            break;
        default: break;
        }
    }
    // Where two sides cross, their common ends apart: those are ends. Z is the first side's.
    void incroci() {
        for (std::size_t i = 0; i < quanti; ++i)
            for (std::size_t j = i + 1; j < quanti; ++j) {
                const Lato &p = lati[i], &q = lati[j];
                const double px = p.b.x - p.a.x, py = p.b.y - p.a.y, qx = q.b.x - q.a.x, qy = q.b.y - q.a.y;
                const double det = px * qy - py * qx;
                if (det == 0) continue;
                const double dx = q.a.x - p.a.x, dy = q.a.y - p.a.y;
                const double t = (dx * qy - dy * qx) / det, s = (dx * py - dy * px) / det;
                if (t >= 0 && t <= 1 && s >= 0 && s <= 1) offri(agIncrocio, lungo(p, t));
            }
    }
    void piedi() {
        for (std::size_t i = 0; i < quanti; ++i) {
            const Lato& l = lati[i];
            const double dx = l.b.x - l.a.x, dy = l.b.y - l.a.y, lungo2 = dx * dx + dy * dy;
            if (!(lungo2 > 0)) continue;
            const double t = ((Xini - l.a.x) * dx + (Yini - l.a.y) * dy) / lungo2;
            if (t >= 0 && t <= 1) offri(agPiede, lungo(l, t));
        }
    }

    [[nodiscard]] bool vicino(const puntot& p) const {
        return std::fabs(p.x - riferimento.x) < portata && std::fabs(p.y - riferimento.y) < portata;
    }

public:
    Ricerca(double x, double y)
        : riferimento(griglia.attiva ? puntot{griglia.grezzoX, griglia.grezzoY, 0} : puntot{x, y, 0}) {}

    Aggancio esegui() {
        Aggancio a;
        for (std::int32_t n = 2; n <= indElem; ++n)
            if (antico(n, a)) return a;
        constexpr std::uint8_t moderni =
            BitAggancio(agCentro) | BitAggancio(agIncrocio) | BitAggancio(agMezzo) | BitAggancio(agPiede);
        if (!(agganciAttivi & moderni)) return {};
        for (std::int32_t n = 3; n <= indElem; ++n) moderno(n);
        if (acceso(agIncrocio)) incroci();
        if (migliore.tipo == agNessuno && acceso(agPiede) && (Azione == sPrimoPunto || Azione == sPercorso)) piedi();
        return migliore;
    }
};

}   // namespace

Aggancio CercaAggancio(double x, double y) {
    if (!statoCursore.attaccoPunto || !ArrElementi || !std::isfinite(x) || !std::isfinite(y)) return {};
    return Ricerca(x, y).esegui();
}

void AggiornaAggancio(bool fuori) {
    const bool attacca = Modalita == mDigitazione || Modalita == mSpostamento || Modalita == mAttacco;
    agganciato = {};
    if (fuori || noWindow || !attacca) return;
    const bool elastico = Modalita == mDigitazione && (Azione == sPrimoPunto || Azione == sPercorso);
    agganciato = elastico ? CercaAggancio(Xfine, Yfine) : CercaAggancio(xcurs, ycurs);
}

}   // namespace tessaro
