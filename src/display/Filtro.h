// Which records can touch what is drawn on: a judgement by boxes, before anything is drawn.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "display/Pixel.h"
#include "display/RiquadroTesto.h"
#include "display/Testi.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

// Where a type keeps the numbers that bound it, as byte offsets into the record.
struct Campi {
    enum Classe : std::uint8_t { mai = 0, riquadro = 1, aParte = 2 };   // aParte: its own routine judges
    std::uint8_t x1, y1, x2, y2, raggio, spessore, classe;
    std::uint64_t mascheraRaggio;   // keeps a radius without its sign, or makes it 0 where the type has none
};

inline constexpr std::uint64_t conRaggio = 0x7FFFFFFFFFFFFFFF, senzaRaggio = 0;

// For every value that a type byte may have.
constexpr Campi campiDi(std::size_t tipo) {
    switch (tipo) {
    case tSegmento: return {28, 36, 52, 60, 28, 76, Campi::riquadro, senzaRaggio};
    case tMarker: return {28, 36, 28, 36, 28, 54, Campi::riquadro, senzaRaggio};
    case tCerchio: return {28, 36, 28, 36, 44, 52, Campi::riquadro, conRaggio};
    case tArco: return {28, 36, 28, 36, 44, 68, Campi::riquadro, conRaggio};
    case tPoligono:
    case tTesto:
    case tPict: return {28, 36, 28, 36, 28, 52, Campi::aParte, senzaRaggio};
    default: return {28, 36, 28, 36, 28, 52, Campi::mai, senzaRaggio};   // vertices come with their head
    }
}
static_assert(offsetof(elemento, arco.raggio) == 44 && offsetof(elemento, arco.spessore) == 68
              && offsetof(elemento, mark.spessore) == 54 && offsetof(elemento, segm.spessore) == 76
              && offsetof(elemento, cerc.spessore) == 52);

inline constexpr auto campi = [] {
    std::array<Campi, 256> t{};
    for (std::size_t i = 0; i < t.size(); ++i) t[i] = campiDi(i);
    return t;
}();

// The field at byte `dove`, which campiDi has named: always inside the record.
template <class T>
inline T leggi(const elemento& e, std::uint8_t dove) {
    T v;
    std::memcpy(&v, reinterpret_cast<const unsigned char*>(&e) + dove, sizeof v);
    return v;
}

// Everything drawn around a record's points without its pen's width: the largest marker.
inline constexpr double bordoPixel = 12;

class Filtro {
    RettD area;                                 // what can be drawn on, sheet units
    double perPixel;                            // sheet units a pixel
    bool tutto;                                 // the preview moves figures anywhere: nothing is passed over
    std::array<std::uint8_t, 101> visibile{};   // by sheet; the last entry stands for numbers that are none

    struct MisuraTesto {
        double corpo, lungo;   // pixels
    };
    static MisuraTesto misura(const elemento& e) {
        const double scala = ScalaTesto / GetPort()->finezza;
        const double corpo = std::fabs(e.test.dimensione * scala) + 2;
        return {corpo,
                std::max(std::fabs(e.test.larghezza * scala), 1.5 * corpo * static_cast<double>(ScrittaDi(e).size()))};
    }

public:
    Filtro() : perPixel(GetPort()->finezza / scalavid), tutto(AnteprimaAttiva()) {
        const Rect r = AreaDisegnabile();
        const auto foglio = [](std::int32_t p, std::int32_t orig) {
            return (static_cast<double>(p) + orig) / scalavid;
        };
        area = {foglio(r.left, OrigX), foglio(r.top, OrigY), foglio(r.right, OrigX), foglio(r.bottom, OrigY)};
        if (EmptyRect(r)) area = {1, 1, -1e300, -1e300};
        for (std::int16_t i = 0; i < 100; ++i) visibile[static_cast<std::size_t>(i)] = LucidoVisibile(i);
    }

    [[nodiscard]] bool anteprima() const { return tutto; }
    // Does the box, with a margin, meet what can be drawn on? Sheet units.
    [[nodiscard]] bool tocca(double x1, double y1, double x2, double y2, double margine) const {
        const bool dentro = (std::max(x1, x2) + margine >= area.left) & (std::min(x1, x2) - margine <= area.right)
                            & (std::max(y1, y2) + margine >= area.top) & (std::min(y1, y2) - margine <= area.bottom);
        return dentro | tutto;
    }
    // What a pen of that many pixels may add around its points, sheet units.
    [[nodiscard]] double margine(std::int16_t spessorePenna) const {
        return (std::max<int>(spessorePenna, 0) + bordoPixel) * perPixel;
    }

    // The quick judgement: no branch hangs on the record's contents.
    [[nodiscard]] bool passa(const elemento& e) const {
        const Campi& c = campi[e.tipo];
        const auto lucido = static_cast<std::uint16_t>(static_cast<std::int16_t>(e.lucido));
        const double raggio = std::bit_cast<double>(leggi<std::uint64_t>(e, c.raggio) & c.mascheraRaggio);
        const double m = margine(leggi<std::int16_t>(e, c.spessore)) + raggio;
        const bool dentro =
            tocca(leggi<double>(e, c.x1), leggi<double>(e, c.y1), leggi<double>(e, c.x2), leggi<double>(e, c.y2), m);
        const bool disegnabile = (c.classe == Campi::aParte) | ((c.classe == Campi::riquadro) & dentro);
        return disegnabile & (visibile[std::min<std::size_t>(lucido, 100)] != 0);
    }

    // Top and bottom of what the record may touch, sheet units. False when it touches nothing that can be drawn on.
    [[nodiscard]] bool righe(std::int32_t i, double& alto, double& basso) const {
        const elemento& e = Elem(i);
        if (!passa(e)) return false;
        const Campi& c = campi[e.tipo];
        double y1 = leggi<double>(e, c.y1), y2 = leggi<double>(e, c.y2), m = 0;
        if (e.tipo == tTesto) {
            y1 = y2 = e.test.y;   // a text keeps its point elsewhere
            m = altezzaTesto(e);
            if (!VisioneGraf.mostraTesti || !passaTesto(e)) return false;
        } else if (e.tipo == tPoligono) {
            m = margine(e.poli.spessore);
            const std::int32_t ultimo = ultimoDi(i);
            if (!passaPoligono(i, ultimo)) return false;
            for (std::int32_t k = i + 1; k <= ultimo; ++k) {
                y1 = std::min<double>(y1, Elem(k).vert.y);
                y2 = std::max<double>(y2, Elem(k).vert.y);
            }
        } else {
            const double raggio = std::bit_cast<double>(leggi<std::uint64_t>(e, c.raggio) & c.mascheraRaggio);
            m = margine(leggi<std::int16_t>(e, c.spessore)) + raggio;
        }
        alto = std::min(y1, y2) - m;
        basso = std::max(y1, y2) + m;
        return true;
    }

    // The last record of a polyline.
    static std::int32_t ultimoDi(std::int32_t testa) {
        return std::min(testa + std::max<std::int32_t>(Elem(testa).poli.numVertici, 0), indElem);
    }
    [[nodiscard]] bool passaPoligono(std::int32_t testa, std::int32_t ultimo) const {
        double sx = Elem(testa).poli.x, sy = Elem(testa).poli.y, dx = sx, dy = sy;
        for (std::int32_t i = testa + 1; i <= ultimo; ++i) {
            const double x = Elem(i).vert.x, y = Elem(i).vert.y;
            sx = std::min(sx, x);
            dx = std::max(dx, x);
            sy = std::min(sy, y);
            dy = std::max(dy, y);
        }
        return tocca(sx, sy, dx, dy, margine(Elem(testa).poli.spessore));
    }
    // Round the anchor, whatever the angle: as far as the string was measured or as its letters may reach, since the
    // smallest size and the fonts of another machine widen it.
    [[nodiscard]] double lontananzaTesto(const elemento& e) const {
        const MisuraTesto t = misura(e);
        return (t.lungo + 2 * t.corpo) * perPixel;
    }
    // The same above and below the anchor, by the line's angle.
    [[nodiscard]] double altezzaTesto(const elemento& e) const {
        const MisuraTesto t = misura(e);
        return (t.lungo * std::fabs(std::sin(GiroTesto(e.test.angolo))) + 2 * t.corpo) * perPixel;
    }
    [[nodiscard]] bool passaTesto(const elemento& e) const {
        const double x = e.test.x, y = e.test.y;
        return tocca(x, y, x, y, lontananzaTesto(e));
    }
    [[nodiscard]] bool passaPict(const elemento& e) const {
        const double x = e.pict.x, y = e.pict.y;
        return tocca(x, y, x + e.pict.larghezza, y + e.pict.altezza, margine(0));
    }
};

}   // namespace tessaro
