// The element store: one block of 84-byte records addressed by 1-based number, the picture store beside it, and
// Memorizza, the one door through which a new element enters.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/Elemento.h"
#include "platform/Types.h"
#include "text/PascalString.h"

namespace tessaro {

extern elemento* ArrElementi;            // the block; record n is ArrElementi[n - 1]. Written by AllocaElementi only
extern std::int32_t maxElementi;         // highest usable number; from the settings file, at most 1500000
extern std::int32_t indElem;             // last used number; 2 in an empty drawing
extern std::int32_t IndicePolCorrente;   // head that the next tVertice belongs to

// The one accessor: record number n, 1 to maxElementi. Numbers, not references, are kept across an edit.
inline elemento& Elem(std::int32_t n) { return ArrElementi[n - 1]; }

// Takes maxElementi records of zeroed memory (untouched records cost nothing). False when the machine refuses.
[[nodiscard]] bool AllocaElementi(std::int32_t capacity);
void AzzeraArchivio();   // an empty drawing: indElem 2, records 1 and 2 reset

// Stores a new element at indElem + 1 with the current sheet and classes; a full store beeps and drops it.
// What a..f, s, p mean depends on the type:
//   tSegmento x1 y1 z1 x2 y2 z2, s pen width, p pattern      tMarker x y z forma, s, p
//   tPoligono x y z - - patternArea, s, p                    tVertice x y z
//   tTesto x y, p angle, testo                               tPict x y - width height
//   tCerchio cx cy r - - patternArea, s, p                   tArco cx cy r start sweep patternArea, s, p
// A tPict's caller sets `maniglia` afterwards. Leaves annullamento at 0.
void Memorizza(Tipoelem tipo, const double& a, const double& b, const double& c, const double& d, const double& e,
               const double& f, std::int16_t s, std::int16_t colore, std::int16_t p, const PStr255& testo);

// While one lives, Memorizza only notes the last side; its length and direction are worked out at the end. For imports,
// which store sides by the million.
class LatoRimandato {
public:
    LatoRimandato();
    ~LatoRimandato();
    LatoRimandato(const LatoRimandato&) = delete;
    LatoRimandato& operator=(const LatoRimandato&) = delete;
};

// Copies `count` whole records from `from` to `to`; ranges may overlap.
void CopiaRecord(std::int32_t to, std::int32_t from, std::int32_t count);

// --- pictures: byte strings of PICT data (16-bit size, frame, opcodes) owned by a store and named by number; 0 is none
using PicHandle = std::int32_t;
PicHandle NewPict(std::string bytes);
const std::string& PictBytes(PicHandle h);   // empty for 0 or a number given up
// Gives it up; 0 and unknown numbers are ignored. While the journal can bring it back its data stay.
void KillPicture(PicHandle h);
extern bool (*pictTrattenuta)(PicHandle h);   // set by the journal: does it name this picture?
std::int64_t PictMemory();                    // bytes held by all of them
// Told when a picture is given up or the store is emptied, so that decoded copies can go too. One listener.
extern void (*pictDimenticata)(PicHandle h);

// --- rounding of doubles to whole numbers: half away from zero; NaN gives 0, what does not fit the nearest bound
std::int16_t arrotonda16(double v);
std::int32_t arrotonda32(double v);
// Narrowing that wraps, where the wrap is the told behaviour.
constexpr std::int16_t i16(std::int64_t v) { return static_cast<std::int16_t>(static_cast<std::uint16_t>(v & 0xFFFF)); }

}   // namespace tessaro
