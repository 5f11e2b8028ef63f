// The element record: 84 bytes, packed, the same in memory and (but for byte order) in the native file. Fields are
// byte arrays that convert on use, so every offset is exact and no reference into a field can be taken.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace tessaro {

template <class T>
class posto {
    std::array<unsigned char, sizeof(T)> byte;

public:
    posto() = default;
    operator T() const {   // NOLINT: a field reads as its value
        T v;
        std::memcpy(&v, byte.data(), sizeof v);
        return v;
    }
    posto& operator=(T v) {
        std::memcpy(byte.data(), &v, sizeof v);
        return *this;
    }
    posto& operator+=(T v) { return *this = static_cast<T>(static_cast<T>(*this) + v); }
    posto& operator-=(T v) { return *this = static_cast<T>(static_cast<T>(*this) - v); }
};

using f64 = posto<double>;
using f16 = posto<std::int16_t>;
using f32 = posto<std::int32_t>;
using f8 = std::uint8_t;

// Tag of at most 13 Mac Roman bytes, length first.
using Aref = std::array<std::uint8_t, 14>;

enum Tipoelem : std::uint8_t {
    tAttacco1 = 0,   // record 1: sheet positions of control points 1 to 3
    tSegmento = 1,
    tMarker = 2,
    tAttacco2 = 4,   // record 2: real positions of points 1 and 2, point 4, flags
    tVecchio5 = 5,   // legacy, only turned in byte order
    tElastico = 6,   // not stored: fai draws it as a segment
    tPoligono = 7,   // head: first vertex and the attributes of the figure
    tVertice = 8,
    tTesto = 9,
    tPict = 10,
    tCerchio = 11,
    tArco = 12,
    tVecchio13 = 13,   // legacy
};

// Coordinates are sheet coordinates: tenths of a millimetre of paper, Y down. Z is in the user's unit, never projected.
struct elemento {
    f16 lucido;       // sheet, 0..99
    f8 selezionato;   // nonzero while in the multiple selection
    f8 riservato3;
    f16 riservato4;
    f8 tipo;   // Tipoelem
    f8 riservato7;

    struct Testa {   // offset 8..27, every type but tTesto
        f16 linea;   // line type, 1
        Aref aref;
        f16 categoria;
        f16 insieme;
    };
    struct Attacco {   // records 1 and 2; also what a segment's ends look like
        Testa t;
        f64 x1, y1, z1, x2, y2, z2;
        f8 coordReali;     // record 2: real coordinates come from TransfCoord
        f8 quattroPunti;   // record 2: control points 3 and 4 have been given
        f16 riservato78;
        f16 riservato80, riservato82;
    };
    struct Attacco1 {   // record 1 at rest
        Testa t;
        f64 x1, y1, z1, x2, y2, z2;
        f32 conto;   // 1 when reset; in a file the element count
        f16 riservato80, riservato82;
    };
    struct Segmento {
        Testa t;
        f64 x1, y1, z1, x2, y2, z2;
        f16 spessore, pattern, colore, riservato82;
    };
    struct Marker {
        Testa t;
        f64 x, y, z;
        f16 forma, spessore, pattern, colore, riservato60;
    };
    struct Poligono {
        Testa t;
        f64 x, y, z;
        f64 passoTratt;    // hatch spacing, x100 gives sheet units
        f64 angoloTratt;   // radians
        f8 tratteggio, incrociato;
        f16 numVertici;   // tVertice records that follow directly
        f16 spessore, pattern, colore, patternArea;
    };
    struct Vertice {
        Testa t;
        f64 x, y, z;
        f32 distanzaTesta;   // own number minus the head's
    };
    struct Testo {       // from offset 8: a text has no Testa
        f16 larghezza;   // pixels of the string when stored
        f16 altezza;     // copy of dimensione
        f64 x, y;
        std::array<std::uint8_t, 41> testo;   // length first, at most 40
        f8 riservato69, stile, riservato71;
        f16 font, dimensione, colore, angolo;
    };
    struct Pict {
        Testa t;
        f64 x, y;       // top left
        f32 maniglia;   // number in the picture store; meaningless on disk
        f64 larghezza, altezza;
    };
    struct Cerchio {
        Testa t;
        f64 cx, cy, raggio;
        f16 spessore, pattern, colore, patternArea;
    };
    struct Arco {
        Testa t;
        f64 cx, cy, raggio;
        f64 angoloInizio;   // degrees, clockwise from straight up
        f64 ampiezza;       // degrees
        f16 spessore, pattern, colore, patternArea;
    };
    union {
        Testa testa;
        Attacco att;
        Attacco1 att1;
        Segmento segm;
        Marker mark;
        Poligono poli;
        Vertice vert;
        Testo test;
        Pict pict;
        Cerchio cerc;
        Arco arco;
    };
};

static_assert(sizeof(elemento) == 84 && alignof(elemento) == 1);
static_assert(std::is_trivially_copyable_v<elemento> && std::is_trivially_default_constructible_v<elemento>);
static_assert(offsetof(elemento, tipo) == 6 && offsetof(elemento, testa) == 8);
static_assert(offsetof(elemento, segm.t.aref) == 10 && offsetof(elemento, segm.t.categoria) == 24);
static_assert(offsetof(elemento, segm.x1) == 28 && offsetof(elemento, segm.x2) == 52
              && offsetof(elemento, segm.colore) == 80);
static_assert(offsetof(elemento, att.coordReali) == 76 && offsetof(elemento, att.quattroPunti) == 77);
static_assert(offsetof(elemento, att1.conto) == 76);
static_assert(offsetof(elemento, mark.forma) == 52 && offsetof(elemento, mark.colore) == 58);
static_assert(offsetof(elemento, poli.tratteggio) == 68 && offsetof(elemento, poli.numVertici) == 70);
static_assert(offsetof(elemento, poli.patternArea) == 78 && offsetof(elemento, vert.distanzaTesta) == 52);
static_assert(offsetof(elemento, test.testo) == 28 && offsetof(elemento, test.stile) == 70
              && offsetof(elemento, test.angolo) == 78);
static_assert(offsetof(elemento, pict.maniglia) == 44 && offsetof(elemento, pict.larghezza) == 48);
static_assert(offsetof(elemento, cerc.raggio) == 44 && offsetof(elemento, cerc.patternArea) == 58);
static_assert(offsetof(elemento, arco.ampiezza) == 60 && offsetof(elemento, arco.patternArea) == 74);

// A point of the geometry routines, in sheet coordinates unless a routine says otherwise.
struct puntot {
    double x = 0, y = 0, z = 0;
};

}   // namespace tessaro
