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
enum class TestoScambio : std::int16_t {
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
    avanzaLettura,   // of the three kinds of files
    avanzaPunti,
    avanzaMappa,
    nonNegliElenchi,   // what point lists do not hold
    nonNegliScript,
    pieno,
    nonNelKit,   // what files of a drawing database do not hold
    cambiati,    // ^0 what came in otherwise than it was
    avanzaScrittura,
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
    cIsole,   // rings of islands
    cRigheGuaste,
    cCoperti,   // elements that are not shown
    // what came in, but changed
    cLatiRaddrizzati,      // sides that were arcs
    cInserimentiGirati,    // a block's copies that stand upright
    cInserimentiInSerie,   // of rows and columns only the first copy
    cBlocchiSpecchiati,
    cTestiTagliati,       // at 40 characters
    cCodiciTesto,         // texts with codes among their characters
    cLayerRiuniti,        // on the current one
    cPoligoniChiusi,      // closed by a vertex on their first
    cAttributiTagliati,   // tags, at 13 characters
    cColoriVicini,        // elements in the nearest of the 255 colours
    nConteggi
};

std::string TestoDi(TestoScambio t, std::string_view p0 = {});
std::string ConMigliaia(std::int64_t n);   // digits in groups of three, by the language's mark

class ElementiContati {
public:
    void aggiungi(std::uint8_t tipo);   // a Tipoelem; vertices belong to their polylines
    void aggiungi(Conteggio c, std::int64_t n = 1) { quanti[c] += n; }
    void contaRecord(std::int32_t primo);      // those of the drawing from `primo` on
    [[nodiscard]] std::string testo() const;   // "1,204 segments, 12 circles"
    [[nodiscard]] bool vuoti() const;          // nothing was counted

private:
    std::array<std::int64_t, nConteggi> quanti{};
};

class Resoconto {
public:
    void tralascia(std::string_view entita);   // one entity of a kind that has no place here
    void coloreFuori() { ++colori; }
    void senzaPosto() { ++perduti; }
    void pieno() { archivioPieno = true; }   // the rest of the file was not looked at
    void nota(const std::string& macRoman) { noteProprie += noteProprie.empty() ? macRoman : ' ' + macRoman; }
    ElementiContati parti;      // left out, beside the entities of a name
    ElementiContati cambiati;   // came in, but not as they were
    // Shows alert 9110. righe: where a reading that did not end stopped, else 0; fermata: the person stopped it.
    void mostra(const ElementiContati& entrati, std::int64_t righe, bool fermata) const;

private:
    [[nodiscard]] std::string testoTralasciati() const;

    std::map<std::string, std::int64_t, std::less<>> tralasciati;
    std::int64_t oltre = 0;   // entities of further names
    std::int64_t colori = 0;
    std::int64_t perduti = 0;
    bool archivioPieno = false;
    std::string noteProprie;   // sentences of a reader's own
};

// What an export wrote, what it left out, and what stands in the file otherwise than in the drawing.
struct Scritti {
    ElementiContati scritti, perduti, cambiati;
};
// Alert 9111. `formato` says what no file of the kind holds.
void MostraScritti(const Scritti& s, TestoScambio formato);

}   // namespace tessaro
