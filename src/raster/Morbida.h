// Smooth resampling: each pixel of the result is asked back through the inverse transformation, and a lens undone on the
// way, and taken once: by bicubic interpolation held to the colours around it, by area where the picture shrinks.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "raster/Indietro.h"
#include "raster/Mappatura.h"
#include "raster/Percorri.h"
#include "raster/Tela.h"

namespace tessaro {

// A picture's own pixels with halved copies of them, 0xFFRRGGBB.
class Campioni {
public:
    // `larghezza`, `altezza`: the size for a picture that has no pixels of its own. False when memory lacks or the picture
    // cannot be decoded.
    [[nodiscard]] bool carica(std::string_view pict, std::int32_t larghezza, std::int32_t altezza);
    // A copy of `massimo` pixels or fewer, or a little more, for the screen. A picture of figures has none.
    [[nodiscard]] bool caricaRidotta(std::string_view pict, std::int64_t massimo);
    [[nodiscard]] bool copie(int livello);   // makes those down to 2^-livello
    struct Livello {
        std::int32_t w = 0, h = 0;
        std::vector<std::uint32_t> pixel;
    };
    [[nodiscard]] const Livello& livello(int k) const { return livelli[static_cast<std::size_t>(k)]; }
    [[nodiscard]] int ultimo() const { return static_cast<int>(livelli.size()) - 1; }

private:
    std::vector<Livello> livelli;
};

// From points of the result, its pixels counted from its corner, to points of the source's pixels.
struct CampoInverso {
    std::array<double, 9> m{1, 0, 0, 0, 1, 0, 0, 0, 1};   // a projective matrix, by rows
    std::function<bool(double x, double y, double& u, double& v)>
        cerca;   // instead of it: solved by search, near (u, v)
    bool conLente = false;
    Bombature lente;
    double larghezza = 0, altezza = 0;   // of the source, for the lens
};
// The inverse of the mapping in force between the places of a job. False when it has none.
bool CampoDellaMappa(const Mappatura& m, const Piano& p, double pixelX, double pixelY, CampoInverso& campo);

struct Ricampionamento {
    const Campioni& sorgente;
    const CampoInverso& campo;
    Tela& risultato;
    const Formato& formato;
    Rect area;                       // of the result
    const Piano* taglio = nullptr;   // cut to the polygon in force, at the destination, in this plane
    // Or at the source: the states of its places in a plane of their own, whose pixels are as wide as the source's; and
    // the sheet units that a source pixel takes.
    const MascheraTaglio* mascheraSorgente = nullptr;
    const Piano* pianoSorgente = nullptr;
    double foglioX = 1, foglioY = 1;
};
// False when `passo` stopped it.
bool Ricampiona(const Ricampionamento& r, const std::function<bool(double)>& passo);
// How many source pixels a pixel of the result covers at most, for the copies that it will want.
double Riduzione(const CampoInverso& campo, const Rect& area);

}   // namespace tessaro
