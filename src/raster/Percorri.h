// The walk of a dense source: every pixel of it is carried to its place in the result, a later one over an earlier one.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "raster/Mappatura.h"
#include "raster/Poligono.h"
#include "raster/Sorgente.h"
#include "raster/Tela.h"

namespace tessaro {

enum class TaglioWalk : std::uint8_t { nessuno, sorgente, destinazione };

// What a cut at the destination says of each pixel of the result: wholly outside, wholly inside, or both by places.
class MascheraTaglio {
public:
    enum Stato : std::uint8_t { fuori = 0, dentro = 1, orlo = 2 };
    // Of the polygon in force over the result of `p`. False when memory lacks.
    [[nodiscard]] bool prepara(const Piano& p);
    [[nodiscard]] std::uint8_t stato(std::uint32_t indice) const { return stati[indice]; }

private:
    void orla(const Piano& p, double x1, double y1, double x2, double y2);
    std::vector<std::uint8_t> stati;
};

struct Percorso {
    Sorgente& sorgente;
    Tela& risultato;
    Piano piano;
    Mappatura mappa;
    Rect pictRect;   // part of the source that is walked, inside it
    TaglioWalk taglio = TaglioWalk::nessuno;
    const MascheraTaglio* maschera = nullptr;   // of a cut at the destination
};
enum class EsitoPercorso : std::uint8_t { fatto, fermato, memoria };
// `passo` hears the fraction done, 0 to 1, between strips; false stops the walk.
EsitoPercorso Percorri(const Percorso& p, const std::function<bool(double)>& passo);

}   // namespace tessaro
