// What the elements of the selection have that can be read and typed, field by field, whatever their kinds: attributes,
// texts, places, measures. Several elements show what they share; a typed value goes to all of them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

// Places are real coordinates and lengths real lengths, as the read-out shows them; angles are in the unit that is shown
// and typed. X to Z are a segment's first end, a marker, a text's or a picture's corner, a centre, or the vertex that is
// looked at; X2 to Z2 a segment's second end.
enum class Campo : std::uint8_t {
    lucido,        // sheet, 0 to 99
    colore,        // number in the colour table
    spessore,      // pen width, pixels
    retino,        // pen pattern
    retinoArea,    // area pattern, 0 is no fill
    forma,         // of a marker, 1 to 5
    testo,         // at most 40 characters
    corpo,         // of a text, points
    angoloTesto,   // whole degrees or gons
    aref,          // tag, at most 13 characters
    categoria,
    insieme,
    x,
    y,
    z,
    x2,
    y2,
    z2,
    lunghezza,   // of a segment, of all sides of a polyline, of a curve
    azimut,      // from a segment's first end to its second, between real coordinates, 0 north and clockwise
    area,        // of the polyline closed by a straight side, of a circle
    raggio,
    inizio,     // of an arc, clockwise from straight up
    ampiezza,   // of an arc
    larghezza,
    altezza,   // of a picture
};
inline constexpr std::size_t numCampi = static_cast<std::size_t>(Campo::altezza) + 1;

enum class Presenza : std::uint8_t {
    manca,     // not every selected element has it
    uguale,    // one value
    diversi,   // several
    somma,     // of several elements: the sum, which cannot be typed
};

struct ValoreCampo {
    Presenza presenza = Presenza::manca;
    bool fisso = false;   // shown, and not to be typed
    double numero = 0;    // of a text: nothing
    std::string testo;    // Mac Roman
};

struct CampiSelezione {
    std::array<ValoreCampo, numCampi> campi;
    std::array<std::int32_t, 7> quanti{};   // elements by ObjetT, vertices not counted
    std::int32_t elementi = 0;              // the same, all of them
    std::int32_t vertici = 0;               // points of the one polyline that is selected, head included; else 0
    [[nodiscard]] const ValoreCampo& operator[](Campo c) const { return campi[static_cast<std::size_t>(c)]; }
};
// One pass over the selection. `vertice` of the one polyline is looked at, from 0; a larger number means its last.
CampiSelezione LeggiCampi(std::int32_t vertice);

bool CampoDiTesto(Campo c);   // its value is characters, not a number
// The bounds of a typed number, for the message that refuses it.
struct LimitiCampo {
    double min, max;
    bool intero;
};
LimitiCampo LimitiDi(Campo c);

// A typed value for every selected element; false when it cannot be taken, and then nothing has changed. A figure in
// progress ends before a place or a measure changes. The view is asked for a repaint.
bool PoniCampo(Campo c, double numero, std::int32_t vertice);
bool PoniCampo(Campo c, std::string_view macRoman);

}   // namespace tessaro
