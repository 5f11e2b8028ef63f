// The view filter's defaults.
#include "model/Lucidi.h"

#include "model/TabellaStato.h"

namespace tessaro {

constinit VisioneGrafT VisioneGraf{};

void AzzeraVisioneGraf() {
    VisioneGraf = VisioneGrafT{};
    VisioneGraf.visibile.fill(1);
}

namespace {
std::string visioneJson() {
    const auto& v = VisioneGraf;
    std::string s =
        "{\"lucidoCorrente\":" + NumeroJson(v.lucidoCorrente) + ",\"grigiaAltri\":" + NumeroJson(v.grigiaAltri)
        + ",\"soloCorrente\":" + NumeroJson(v.soloCorrente) + ",\"mostraTratteggi\":" + NumeroJson(v.mostraTratteggi)
        + ",\"mostraTesti\":" + NumeroJson(v.mostraTesti) + ",\"mostraAref\":" + NumeroJson(v.mostraAref)
        + ",\"bloccaAltri\":" + NumeroJson(v.bloccaAltri) + ",\"visibile\":[";
    for (std::size_t i = 0; i < v.visibile.size(); ++i) s += (i ? "," : "") + NumeroJson(v.visibile[i]);
    return s + "]}";
}
const VoceStato righe[] = {{"VisioneGraf", AzzeraVisioneGraf, visioneJson}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
