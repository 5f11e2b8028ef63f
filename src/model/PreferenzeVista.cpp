// The preferences of view and snapping, with their start values.
#include "model/PreferenzeVista.h"

#include <string>

#include "model/TabellaStato.h"

namespace tessaro {

constinit std::uint8_t rotellaIngrandisce = 0;
constinit std::int16_t distanzaAggancio = 10;
constinit std::uint8_t agganciAttivi = BitAggancio(agEstremo) | BitAggancio(agVertice) | BitAggancio(agMarker);
constinit std::uint8_t lineeMorbide = 0;
constinit RGBColor coloreEvidenza{0x1C1C, 0x71F1, 0xD8D8};

namespace {

std::string coloreJson() {
    return "[" + std::to_string(coloreEvidenza.red) + "," + std::to_string(coloreEvidenza.green) + ","
           + std::to_string(coloreEvidenza.blue) + "]";
}

const VoceStato righe[] = {
    voce<rotellaIngrandisce>("rotellaIngrandisce"),
    voce<distanzaAggancio>("distanzaAggancio"),
    voce<agganciAttivi>("agganciAttivi"),
    voce<lineeMorbide>("lineeMorbide"),
    voce<coloreEvidenza>("coloreEvidenza", coloreJson),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
