// How a drawing's sheet falls into pages, and what the person may have added to them. All lengths are whole points.
#pragma once

#include <cstdint>

#include "platform/Printing.h"
#include "platform/Types.h"

namespace tessaro {

// Choices beside the toolkit's own, all off at first; kept until the program ends.
struct ScelteStampa {
    std::uint8_t crocini = 0;       // crop marks where the pages are to be cut
    std::uint8_t sovrapposte = 0;   // neighbours share a strip
    std::uint8_t numeri = 0;        // which sheet it is, below the drawing
    std::uint8_t righello = 0;      // 100 mm to measure the print by
    std::uint8_t saltaVuote = 0;    // pages on which nothing is drawn are left out; the numbers stay
    std::uint8_t unaPagina = 0;     // the whole sheet reduced to one page
    std::uint8_t compresse = 0;     // pictures of many colours as JPEG; else every pixel stays as it is
    double strisciaMm = 10;         // width of the shared strip, 1 to 100
};
extern ScelteStampa scelteStampa;

struct Piastrelle {
    std::int32_t righe = 1, colonne = 1;
    std::int32_t bordo = 0;                // white rim inside the page rectangle, for marks, number and ruler
    std::int32_t larga = 1, alta = 1;      // of the part of a page that shows the drawing
    std::int32_t passoH = 1, passoV = 1;   // from a page to the next: the whole part, or less where strips are shared
    double scala = 1;                      // 1: true size
    [[nodiscard]] std::int32_t pagine() const { return righe * colonne; }
    // The place on the sheet of page n, from 1, in points at this scale; rows first.
    [[nodiscard]] std::int32_t riga(std::int32_t n) const { return (n - 1) / colonne; }
    [[nodiscard]] std::int32_t colonna(std::int32_t n) const { return (n - 1) % colonne; }
};

// A sheet that fits exactly gets one more row and column: sides are divided whole, and 1 added.
Piastrelle PiastrelleDi(const Rect& pagina, const ScelteStampa& scelte);

// Nothing of a visible record lies on page n.
bool PiastrellaVuota(const Piastrelle& p, std::int32_t n);

// Marks, number and ruler in the rim of page n of the current port, a page's.
void DisMarchePagina(const Piastrelle& p, std::int32_t n, const Rect& pagina, const ScelteStampa& scelte);

// Dialog 9145: the pages on the sheet, and the choices. True when the person asked for the print dialog.
bool AnteprimaStampa();

}   // namespace tessaro
