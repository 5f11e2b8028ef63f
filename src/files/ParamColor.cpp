// "ParamColor": a count, then 30 bytes a colour.
#include "files/ParamColor.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "files/Impostazioni.h"
#include "platform/Files.h"
#include "text/EndianConvert.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr const char* nomeFile = "ParamColor";
constexpr std::size_t byteNome = 22, byteColore = 30;

Colore daByte(const std::uint8_t* p) {
    Colore c;
    std::copy_n(p, byteNome, c.nome.begin());
    c.nome[0] = std::min(c.nome[0], maxNomeColore);
    // Kept: the components lie in the order of the machine that wrote them, unlike those of a drawing.
    std::memcpy(&c.rgb, p + byteNome, sizeof c.rgb);
    std::memcpy(&c.penna, p + byteNome + sizeof c.rgb, sizeof c.penna);
    c.penna = EndiansShort_BtoN(c.penna);
    return c;
}

void inByte(const Colore& c, std::uint8_t* p) {
    const std::int16_t penna = EndiansShort_NtoB(c.penna);
    std::copy(c.nome.begin(), c.nome.end(), p);
    std::memcpy(p + byteNome, &c.rgb, sizeof c.rgb);   // Kept: as it lies in memory
    std::memcpy(p + byteNome + sizeof c.rgb, &penna, sizeof penna);
}

}   // namespace

bool LeggiParamColor(TavolaColori& tavola) {
    if (!ApriImpostazioni(nomeFile, false)) return false;
    std::int64_t fine = 0;
    GetEOF(RefNum, fine);
    const std::int16_t n = fine >= 2 ? leggii() : std::int16_t{-1};
    const bool intero = n >= 0 && n <= maxColori && fine >= 2 + std::int64_t{byteColore} * n;
    std::vector<std::uint8_t> byte(intero ? byteColore * static_cast<std::size_t>(n) : 0);
    if (!byte.empty()) leggiBlocco(byte.data(), static_cast<std::int32_t>(byte.size()));
    FSClose(RefNum);
    if (!intero || uscita) return false;
    tavola.presenti = n;
    for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i)
        tavola.colori[i] = daByte(byte.data() + i * byteColore);
    return true;
}

void ScriviParamColor(const TavolaColori& tavola) {
    if (!ApriImpostazioni(nomeFile, true)) return;
    const auto n = static_cast<std::size_t>(tavola.presenti);
    std::vector<std::uint8_t> byte(byteColore * n);
    for (std::size_t i = 0; i < n; ++i) inByte(tavola.colori[i], byte.data() + i * byteColore);
    scrivii(tavola.presenti);
    if (!byte.empty()) scriviBlocco(byte.data(), static_cast<std::int32_t>(byte.size()));
    ChiudiImpostazioni();
}

}   // namespace tessaro
