// Counting and measuring the elements of a drawing.
#include "batch/Misure.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

#include "batch/Rigo.h"
#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Registrazione.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

constexpr std::array<std::uint8_t, 7> tipi{tSegmento, tMarker, tPoligono, tTesto, tPict, tCerchio, tArco};
constexpr double nessuna = std::numeric_limits<double>::quiet_NaN();

// Tenths of a millimetre to each unit; the last is the settings' own.
struct UnitaMisura {
    std::string_view nome;
    double decimi;
};
constexpr UnitaMisura unita[] = {{"mm", 10},       {"cm", 100},       {"m", 10000},
                                 {"km", 10000000}, {"in", 254.00508}, {"ft", 3048.06096}};

Coppia reale(double x, double y) {
    Coppia p;
    DigiToReal(x, y, p.x, p.y);
    return p;
}

// Coordinates of national grids have seven digits before the point: areas are summed from the first vertex.
MisureElemento poligono(std::int32_t n) {
    MisureElemento m{0, nessuna};
    const std::int32_t ultimo = UltimoRecord(n);
    const Coppia origine = reale(Elem(n).poli.x, Elem(n).poli.y);
    Coppia prima = origine;
    double doppia = 0;
    for (std::int32_t i = n + 1; i <= ultimo; ++i) {
        const Coppia p = reale(Elem(i).vert.x, Elem(i).vert.y);
        m.lunghezza += std::hypot(p.x - prima.x, p.y - prima.y);
        doppia += (prima.x - origine.x) * (p.y - origine.y) - (p.x - origine.x) * (prima.y - origine.y);
        prima = p;
    }
    m.punti = ultimo - n + 1;
    m.chiuso = m.punti > 3 && Elem(ultimo).vert.x == Elem(n).poli.x && Elem(ultimo).vert.y == Elem(n).poli.y;
    if (m.chiuso) m.area = std::fabs(doppia) / 2;
    return m;
}

}   // namespace

std::int64_t Conteggi::tutti() const { return std::accumulate(quanti.begin(), quanti.end(), std::int64_t{0}); }

Conteggi ContaElementi() {
    Conteggi c;
    for (std::int32_t n = 3; n <= indElem; ++n) {
        const auto* const t = std::find(tipi.begin(), tipi.end(), Elem(n).tipo);
        if (t != tipi.end()) ++c.quanti[static_cast<std::size_t>(t - tipi.begin())];
    }
    return c;
}

bool ScegliMisure(const Chiamata& c) {
    std::vector<std::string_view> nomi;
    for (const UnitaMisura& u : unita) nomi.push_back(u.nome);
    constexpr std::size_t libera = std::size(unita);
    std::size_t quale = libera;
    if (!Parola(c, "unit", nomi, quale) || !Numero(c, "scale", 0.1, 1e6, Scaladis)) return false;
    if (quale < libera) {
        UnitaMCorrente = static_cast<std::int16_t>(quale);
        decimiUnita = unita[quale].decimi;
    }
    CalcolaRapporti();
    return true;
}

double RealiPerUnita() {
    const Coppia a = reale(0, 0), b = reale(1, 0);
    return std::hypot(b.x - a.x, b.y - a.y);
}

MisureElemento MisuraElemento(std::int32_t n) {
    const elemento& e = Elem(n);
    const double k = RealiPerUnita();
    switch (e.tipo) {
    case tSegmento: {
        const Coppia a = reale(e.segm.x1, e.segm.y1), b = reale(e.segm.x2, e.segm.y2);
        return {std::hypot(b.x - a.x, b.y - a.y), nessuna, 2};
    }
    case tPoligono: return poligono(n);
    case tCerchio: {
        const double r = e.cerc.raggio * k;
        return {2 * std::numbers::pi * r, std::numbers::pi * r * r, 1, true};
    }
    case tArco: return {std::fabs(e.arco.ampiezza) / 180 * std::numbers::pi * e.arco.raggio * k, nessuna, 2};
    default: return {nessuna, nessuna, 1};
    }
}

}   // namespace tessaro
