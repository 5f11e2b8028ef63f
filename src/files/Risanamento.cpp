// Mending of damaged polylines and texts.
#include "files/Risanamento.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "model/Archivio.h"

namespace tessaro {

namespace {

constexpr std::uint8_t maxTesto = 40;
constexpr std::int32_t maxVertici = std::numeric_limits<std::int16_t>::max();

// What a vertex does not use: a routine that takes the record for a head finds no vertices there.
void azzeraCoda(elemento& e) {
    constexpr std::size_t da = 56;
    std::memset(reinterpret_cast<unsigned char*>(&e) + da, 0, sizeof e - da);
}

}   // namespace

void Risanamento::vertice(std::int32_t n, elemento& e) {
    const std::int64_t suaTesta = std::int64_t{n} - e.vert.distanzaTesta;
    if (testa != 0) ++visti;
    if (testa != 0 && suaTesta == testa) return;
    // An older head is good too: the figure's end was taken off, not its beginning.
    if (suaTesta >= primo && suaTesta < n && Elem(static_cast<std::int32_t>(suaTesta)).tipo == tPoligono) return;
    if (testa == 0 && suaTesta == n && e.poli.numVertici == 0) return;   // mended before
    ++quanti;
    e.vert.distanzaTesta = testa != 0 ? n - testa : 0;
    if (testa == 0) azzeraCoda(e);
}

void Risanamento::altro(std::int32_t n, elemento& e) {
    chiudi();
    if (e.tipo == tPoligono) {
        testa = n;
        visti = 0;
    } else if (e.tipo == tTesto && e.test.testo[0] > maxTesto) {
        e.test.testo[0] = maxTesto;
        ++quanti;
    }
}

void Risanamento::chiudi() {
    if (testa == 0) return;
    auto& poli = Elem(testa).poli;
    const std::int32_t detti = poli.numVertici;
    if (detti < 0 || detti > visti) {
        poli.numVertici = static_cast<std::int16_t>(std::min(visti, maxVertici));
        ++quanti;
    }
    testa = 0;
}

}   // namespace tessaro
