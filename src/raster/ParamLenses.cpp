// "ParamLenses": a count, then 70 bytes a lens: six doubles, the first of the highest byte, and the name.
#include "raster/ParamLenses.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "files/Impostazioni.h"
#include "platform/Files.h"
#include "text/EndianConvert.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr const char* nomeFile = "ParamLenses";
constexpr std::int64_t byteLente = 70;

// A file may hold anything: what is no percentage of a lens is none.
double percento() {
    const double v = leggir();
    return std::fabs(v) <= maxBombatura ? v : 0;
}

}   // namespace

bool LeggiParamLenses(TavolaLenti& tavola) {
    if (!ApriImpostazioni(nomeFile, false)) return false;
    std::int64_t fine = 0;
    GetEOF(RefNum, fine);
    const std::int16_t n = fine >= 2 ? leggii() : std::int16_t{-1};
    const bool intero = n >= 1 && n <= maxLenti && fine >= 2 + byteLente * n;
    TavolaLenti letta = tavola;
    for (std::size_t i = 0; intero && i < static_cast<std::size_t>(n); ++i) {
        LenteOttica& l = letta.lenti[i];
        l.valori.sinistra = percento();
        l.valori.destra = percento();
        l.valori.alto = percento();
        l.valori.basso = percento();
        for (double& r : l.riservati) r = leggir();
        leggiBlocco(l.nome.data(), static_cast<std::int32_t>(l.nome.size()));
        l.nome[0] = std::min(l.nome[0], static_cast<std::uint8_t>(maxNomeLente));
    }
    FSClose(RefNum);
    if (!intero || uscita) return false;
    letta.presenti = n;
    tavola = letta;
    return true;
}

void ScriviParamLenses(const TavolaLenti& tavola) {
    if (!ApriImpostazioni(nomeFile, true)) return;
    scrivii(tavola.presenti);
    for (std::size_t i = 0; i < static_cast<std::size_t>(tavola.presenti); ++i) {
        const LenteOttica& l = tavola.lenti[i];
        for (const double v :
             {l.valori.sinistra, l.valori.destra, l.valori.alto, l.valori.basso, l.riservati[0], l.riservati[1]})
            scrivir(v);
        scriviBlocco(l.nome.data(), static_cast<std::int32_t>(l.nome.size()));
    }
    ChiudiImpostazioni();
}

}   // namespace tessaro
