// What an exchange brought over and what it lost, counted while it runs and told at its end.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "model/Elemento.h"

namespace tessaro {

// Words of the reports, list 9151. Counted things come in pairs, one and many, in the order of this table.
enum class TestoDxf : std::int16_t {
    nulla = 1,
    tralasciati,   // ^0 what
    altri,         // ^0 how many other kinds
    colori,        // ^0 colour numbers out of bounds
    senzaPosto,    // ^0 elements
    fermata,       // at line ^0
    interrotta,    // by a fault, at line ^0
    nonNelFormato,
    migliaia,   // separator of thousands
    invitoLettura,
    avanzaLettura,
    primoConteggio = 20,
};
enum Conteggio : std::size_t {
    cSegmenti,
    cMarker,
    cPoligoni,
    cTesti,
    cImmagini,
    cCerchi,
    cArchi,
    cMarkerIgnoti,
    nConteggi
};

std::string TestoDi(TestoDxf t, std::string_view p0 = {});
std::string ConMigliaia(std::int64_t n);

class ElementiContati {
public:
    void aggiungi(std::uint8_t tipo);   // a Tipoelem; vertices belong to their polylines
    void aggiungi(Conteggio c) { ++quanti[c]; }
    [[nodiscard]] std::string testo() const;   // "1,204 segments, 12 circles"
    [[nodiscard]] bool vuoti() const;

private:
    std::array<std::int64_t, nConteggi> quanti{};
};

class ResocontoDXF {
public:
    void tralascia(std::string_view entita);
    void coloreFuori() { ++colori; }
    void senzaPosto() { ++perduti; }
    // Counts the records from `primo` on and shows alert 9110. righe: where a reading that did not end stopped, else 0.
    void mostra(std::int32_t primo, std::int64_t righe, bool fermata) const;

private:
    [[nodiscard]] std::string testoTralasciati() const;

    std::map<std::string, std::int64_t, std::less<>> tralasciati;
    std::int64_t oltre = 0;   // entities of further names
    std::int64_t colori = 0;
    std::int64_t perduti = 0;
};

}   // namespace tessaro
