// Layers, blocks, line types and colours: what names of a DXF file mean to the drawing.
#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <unordered_map>

#include "exchange/DXF.h"
#include "exchange/EntitaDXF.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/IndiceColori.h"
#include "model/NomiLucidi.h"
#include "model/TabellaStato.h"
#include "text/PascalString.h"

namespace tessaro {

std::array<layerdxfT, maxLayerDxf> Layerdxf;
constinit std::int16_t indluc = 0;
std::vector<TBloccoDXF> BlocchiDXF;
constinit std::uint8_t LettiBlocchiDXF = 0;

namespace {

// One byte for all that compare as equal, so that names can be looked up: the lowest of them.
const std::array<char, 256>& piega() {
    static const std::array<char, 256> tabella = [] {
        std::array<char, 256> t;
        for (std::size_t c = 0; c < t.size(); ++c) {
            t[c] = static_cast<char>(c);
            for (std::size_t d = 1; d < c; ++d)
                if (RelString(PStr15(static_cast<char>(c)), PStr15(static_cast<char>(d))) == 0) {
                    t[c] = static_cast<char>(d);
                    break;
                }
        }
        return t;
    }();
    return tabella;
}

std::string chiave(std::string_view nome) {
    std::string s(nome);
    for (char& c : s) c = piega()[static_cast<std::uint8_t>(c)];
    return s;
}

struct Nomi {
    std::unordered_map<std::string, std::int16_t> layer;
    std::unordered_map<std::string, std::vector<std::int32_t>> blocchi;
    bool layerPronti = false;
    std::array<std::int16_t, maxLayerDxf> lucidi{};   // of the drawing, by layer, from 1; 0 not yet looked for
    std::array<std::int16_t, 256> colori{};           // of the drawing, by the index; 0 not yet looked for
};
Nomi nomi;

}   // namespace

void InizioTabelleDXF() {
    indluc = 0;
    LettiBlocchiDXF = 0;
    BlocchiDXF.clear();
    nomi = Nomi{};
}

void NuoviLayerDXF() {
    nomi.layer.clear();
    nomi.lucidi.fill(0);
    nomi.layerPronti = false;
}

std::int16_t CercaLayer(const PStr15& nome) {
    if (!nomi.layerPronti) {
        for (std::int16_t i = 0; i < indluc; ++i)
            nomi.layer.emplace(chiave(Layerdxf[static_cast<std::size_t>(i)].nome.view()), i);
        nomi.layerPronti = true;
    }
    const auto i = nomi.layer.find(chiave(nome.view()));
    return i == nomi.layer.end() ? std::int16_t{0} : i->second;
}

// Layers that are numbers have no name: theirs is their place in the table.
std::int16_t LucidoDelLayerDXF(std::int16_t layer) {
    const std::int16_t posto = std::clamp<std::int16_t>(layer, 0, quantiLucidi - 1);
    if (layer < 0 || layer >= indluc) return posto;
    std::int16_t& noto = nomi.lucidi[static_cast<std::size_t>(layer)];
    if (noto == 0) {
        const std::string& nome = Layerdxf[static_cast<std::size_t>(layer)].intero;
        const bool numero = nome.find_first_not_of("0123456789") == std::string::npos;
        noto = static_cast<std::int16_t>((numero ? posto : AccogliLucido(nome, posto)) + 1);
    }
    return static_cast<std::int16_t>(noto - 1);
}

void ConosciBloccoDXF(std::int32_t numero) {
    const TBloccoDXF& b = BlocchiDXF[static_cast<std::size_t>(numero - 1)];
    if (b.ultimo >= b.primo) nomi.blocchi[chiave(b.nome.view())].push_back(numero);
}

const std::vector<std::int32_t>& BlocchiDiNomeDXF(std::string_view nome) {
    static const std::vector<std::int32_t> nessuno;
    const auto i = nomi.blocchi.find(chiave(nome));
    return i == nomi.blocchi.end() ? nessuno : i->second;
}

void RimuoviBlocchiDXF() {
    if (!BlocchiDXF.empty()) {
        const std::int32_t primo = BlocchiDXF.front().primo + 1;
        const std::int32_t dopo = std::min(BlocchiDXF.back().ultimo + 2, indElem + 1);
        if (dopo > primo) {
            CopiaRecord(primo, dopo, indElem - dopo + 1);
            indElem -= dopo - primo;
        }
    }
    BlocchiDXF.clear();
    nomi.blocchi.clear();
    LettiBlocchiDXF = 0;
}

std::int16_t RigaToPat(std::string_view tipoLinea) {
    static constexpr struct {
        std::string_view nome;
        std::int16_t pattern;
    } tipi[] = {{"CONTINUOUS", 1}, {"CONTINUO", 1}, {"", 1},        {"HIDDEN", 23}, {"DASHED", 4}, {"DASH1", 4},
                {"DASH2", 4},      {"DASH3", 4},    {"DASHDOT", 3}, {"DOTTED", 3},  {"PHANTOM", 2}};
    for (const auto& t : tipi)
        if (StessaParola(tipoLinea, t.nome)) return t.pattern;
    return 5;
}

namespace {

// The drawing's colour that lies nearest to one of the index; the first of several. 7 is the ink of any ground: black.
std::int16_t coloreVicino(std::int16_t indice) {
    constexpr std::int16_t inchiostro = 7;
    const TernaColore voluto = indice == inchiostro ? TernaColore{} : ColoreDiIndice(indice);
    const auto scarto = [](std::uint16_t a, std::uint8_t b) { return static_cast<std::int32_t>(a >> 8) - b; };
    std::int16_t vicino = 1;
    std::int32_t minimo = std::numeric_limits<std::int32_t>::max();
    for (std::int16_t n = 1; n <= coloriPresenti && n <= maxColori; ++n) {
        const RGBColor& c = arrColori[static_cast<std::size_t>(n - 1)].rgb;
        const std::int32_t r = scarto(c.red, voluto.r), g = scarto(c.green, voluto.g), b = scarto(c.blue, voluto.b);
        const std::int32_t distanza = r * r + g * g + b * b;
        if (distanza >= minimo) continue;
        minimo = distanza;
        vicino = n;
    }
    return vicino;
}

}   // namespace

std::int16_t NumToColor(std::int16_t colore) {
    if (colore < 1 || colore > 255) return 1;
    std::int16_t& noto = nomi.colori[static_cast<std::size_t>(colore)];
    if (noto == 0) noto = coloreVicino(colore);
    return noto;
}

std::int16_t ColorToNum(std::int16_t colore) {
    if (colore < 1 || colore > maxColori) return IndiceVicino(0, 0, 0);
    const RGBColor& c = arrColori[static_cast<std::size_t>(colore - 1)].rgb;
    const auto byte = [](std::uint16_t v) { return static_cast<std::uint8_t>(v >> 8); };
    return IndiceVicino(byte(c.red), byte(c.green), byte(c.blue));
}

const char* LineTscad2DXF(std::int16_t pattern) {
    switch (pattern) {
    case 1: return "CONTINUOUS";
    case 3: return "DASHDOT";
    case 4: return "DASHED";
    case 23: return "HIDDEN";
    default: return "PHANTOM";
    }
}

namespace {
const VoceStato righe[] = {
    {"indluc", InizioTabelleDXF, [] { return NumeroJson(indluc); }},
    voce<LettiBlocchiDXF>("LettiBlocchiDXF"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
