// Colours, line weights and line types of a file's entities as those of the drawing.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "dwg/DbDumper.h"
#include "exchange/RigheDxf.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/IndiceColori.h"
#include "text/Conversione.h"

namespace tessaro {

RGBColor convertRGBfromIndexAutocad(std::int16_t indice) {
    constexpr std::int16_t inchiostro = 7;
    constexpr int scala = 255;   // Kept: not 257; the comparison of colours allows for it
    if (indice == inchiostro) return {0, 0, 0};
    const TernaColore t = ColoreDiIndice(indice);
    const auto sedici = [](std::uint8_t v) { return static_cast<std::uint16_t>(v * scala); };
    return {sedici(t.r), sedici(t.g), sedici(t.b)};
}

std::int16_t controllaColore(const RGBColor& colore, bool& overflow) {
    const auto vicino = [](std::uint16_t a, std::uint16_t b) {
        const int d = int{a} - int{b};
        return d >= -255 && d < 256;
    };
    for (std::int16_t i = 1; i <= coloriPresenti; ++i) {
        const RGBColor& c = arrColori[static_cast<std::size_t>(i - 1)].rgb;
        if (vicino(c.red, colore.red) && vicino(c.green, colore.green) && vicino(c.blue, colore.blue)) return i;
    }
    if (coloriPresenti >= maxColori) {
        overflow = true;
        return 1;
    }
    ++coloriPresenti;
    Colore& nuovo = arrColori[static_cast<std::size_t>(coloriPresenti - 1)];
    nuovo.rgb = colore;
    PoniNomeColore(nuovo, "Color " + std::to_string(coloriPresenti));
    return coloriPresenti;
}

namespace {

std::int16_t delColore(const OdCmColor& c, bool& overflow) {
    constexpr int scala = 255;
    if (c.metodo != OdCmColor::byColor) return controllaColore(convertRGBfromIndexAutocad(c.indice), overflow);
    const auto sedici = [](std::uint8_t v) { return static_cast<std::uint16_t>(v * scala); };
    return controllaColore({sedici(c.red), sedici(c.green), sedici(c.blue)}, overflow);
}

}   // namespace

// What an insert decides was settled when it was taken apart.
std::int16_t ColoreDXFDWGtoTessaro(const OdDbDatabase& db, const OdDbEntity& e, bool& overflow) {
    std::int16_t c = 1;
    switch (e.color.metodo) {
    case OdCmColor::byBlock: break;
    case OdCmColor::byLayer: {
        const OdDbObjectId id = e.layer.isNull() ? db.layers.getAt("0") : e.layer;
        if (!id.isNull()) c = delColore(db.layers[id].color, overflow);
        break;
    }
    default: c = delColore(e.color, overflow);
    }
    return c < 1 || c > coloriPresenti ? std::int16_t{1} : c;
}

std::int16_t SpessoreBordo(const OdDbDatabase& db, const OdDbEntity& e) {
    constexpr std::int16_t minimo = 1, massimo = 9;
    constexpr double perMillimetro = 100, passo = 0.2;   // millimetres a pixel
    static_cast<void>(db);
    if (e.lineWeight < 0) return minimo;
    return std::clamp(arrotonda16(e.lineWeight / perMillimetro / passo), minimo, massimo);
}

std::int16_t RigaToPatDXFDWG(std::string_view tipoLinea) {
    constexpr std::int16_t continuo = 1;
    static constexpr struct {
        std::string_view nome;
        std::int16_t numero;
    } tipi[] = {
        {"HIDDEN", 4},     {"HIDDEN2", 4},  {"HIDDENX2", 4},     {"NASCOSTA", 4},      {"NASCOSTA2", 4},
        {"NASCOSTAX2", 4}, {"DASHED", 2},   {"DASHED2", 2},      {"DASHEDX2", 2},      {"DASH1", 2},
        {"DASH2", 2},      {"DASH3", 2},    {"TRATTEGGIATA", 2}, {"TRATTEGGIATA2", 2}, {"TRATTEGGIATAX2", 2},
        {"DASHDOT", 1},    {"DASHDOT2", 1}, {"DASHDOTX2", 1},    {"DASHDOT3", 1},      {"DOTTED", 1},
        {"DOT", 1},        {"DOT2", 1},     {"DOTX2", 1},        {"PUNTOLINEA", 1},    {"PUNTO", 1},
        {"PUNTO2", 1},     {"PUNTOX2", 1},  {"TRATTOPUNTO", 1},  {"TRATTOPUNTO2", 1},  {"TRATTOPUNTOX2", 1},
        {"PHANTOM", 3},    {"PHANTOM2", 3}, {"PHANTOMX2", 3},    {"FANTASMA", 3},      {"FANTASMA2", 3},
        {"FANTASMAX2", 3}, {"DIVIDI", 5},   {"DIVIDI2", 5},      {"DIVIDIX2", 5},      {"DIVIDE", 5},
        {"DIVIDE2", 5},    {"DIVIDEX2", 5},
    };
    for (const auto& t : tipi)
        if (StessaParola(tipoLinea, t.nome)) return t.numero;
    return continuo;
}

std::int16_t tipoLineaModelSpace(const OdDbDatabase& db, const OdDbEntity& e) {
    OdDbObjectId id = e.linetype;
    const bool dalLayer = id.isNull() || StessaParola(db.linetypes[id].name, "BYLAYER");
    if (dalLayer && !e.layer.isNull()) id = db.layers[e.layer].linetype;
    return id.isNull() ? RigaToPatDXFDWG({}) : RigaToPatDXFDWG(db.linetypes[id].name);
}

std::int16_t getLayerByName(std::string_view nome) {
    const auto i = std::find(arrayNameLayer.begin(), arrayNameLayer.end(), nome);
    return i == arrayNameLayer.end() ? std::int16_t{0} : i16(i - arrayNameLayer.begin() + 1);
}

}   // namespace tessaro
