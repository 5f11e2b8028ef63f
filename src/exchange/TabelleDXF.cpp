// Layers, blocks, line types and colours: what names of a DXF file mean to the drawing.
#include <algorithm>
#include <string>
#include <unordered_map>

#include "exchange/DXF.h"
#include "exchange/EntitaDXF.h"
#include "model/Archivio.h"
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

std::int16_t NumToColor(std::int16_t colore) {
    static constexpr std::int16_t colori[] = {1, 2, 7, 3, 5, 4, 6};
    return colore >= 1 && colore <= 6 ? colori[colore] : std::int16_t{1};
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
