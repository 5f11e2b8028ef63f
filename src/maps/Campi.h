// The attributes that elements have in the maps of other programs: their names, ten characters at most as Shapefile
// wants, and what they say.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "maps/Gdal.h"
#include "model/Elemento.h"

namespace tessaro {

enum class Campo : std::uint8_t {
    genere,       // kind: segment, polyline, marker, text, circle, arc
    lucido,       // layer: 0 to 99
    nomeLucido,   // layer_name
    aref,         // tag
    testo,        // text
    colore,       // colour: #RRGGBB
    quota,        // elevation of the first point, the user's unit
    spessore,     // width: pen size, pixels
    pattern,      // pattern of the pen
    area,         // fill: pattern of the area, 0 is none
    categoria,    // category
    insieme,      // set_no
    forma,        // marker: shape 1 to 6
    raggio,       // radius, real units
    angolo,       // angle of a text: degrees from east, counter-clockwise, in real coordinates
    altezza,      // height of a text's capitals, real units
    corpo,        // size of a text, points
    nCampi
};
inline constexpr std::size_t nCampi = static_cast<std::size_t>(Campo::nCampi);

struct DescriviCampo {
    const char* nome;
    int tipo;    // gdal::campo...
    int lungo;   // characters, or 0
};
extern const std::array<DescriviCampo, nCampi> descriviCampi;

inline constexpr std::string_view genereSegmento = "segment", generePolilinea = "polyline", genereMarker = "marker",
                                  genereTesto = "text", genereCerchio = "circle", genereArco = "arc";

// What one element says of itself. Texts are UTF-8; a value that it does not have stays out (empty, nullo, nessuno).
struct Attributi {
    static constexpr double nessuno = -1e300;
    static constexpr int nullo = -1;
    std::string genere, nomeLucido, aref, testo, colore;
    int lucido = nullo, spessore = nullo, pattern = nullo, area = nullo, categoria = nullo, insieme = nullo,
        forma = nullo, corpo = nullo;
    double quota = nessuno, raggio = nessuno, angolo = nessuno, altezza = nessuno;
};

// The attributes of element n, 3 to indElem, that is no vertex and no picture.
Attributi AttributiDi(std::int32_t n);
bool CreaCampi(const Gdal& g, gdal::Oggetto layer);   // all of them, in order
void ScriviCampi(const Gdal& g, gdal::Oggetto feature, const Attributi& a);

// Which of a layer's fields are ours, by name in any case; some names that other programs use count too.
class CampiLetti {
public:
    CampiLetti(const Gdal& gdal, gdal::Oggetto layer);
    [[nodiscard]] bool ha(gdal::Oggetto feature, Campo c) const;
    [[nodiscard]] std::string testo(gdal::Oggetto feature,
                                    Campo c) const;   // UTF-8, cut at 255 bytes; empty without one
    [[nodiscard]] double numero(gdal::Oggetto feature, Campo c, double senza) const;   // a finite one, else `senza`
    [[nodiscard]] int intero(gdal::Oggetto feature, Campo c, int senza, int min, int max) const;
    // Fields that are nobody's: `conta` adds one to each that the feature fills.
    struct Altro {
        std::string nome;
        int dove = 0;
        std::int64_t valori = 0;
    };
    void conta(gdal::Oggetto feature);
    [[nodiscard]] const std::vector<Altro>& altri() const { return perduti; }

private:
    const Gdal& g;
    std::array<int, nCampi> posto{};   // -1: not there
    std::vector<Altro> perduti;
};

}   // namespace tessaro
