// Mending of damaged polylines and texts.
#include "files/Risanamento.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "files/Migrazione.h"
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

constexpr std::int16_t entro(std::int16_t v, std::int16_t min, std::int16_t max, std::int16_t altrimenti) {
    return v < min || v > max ? altrimenti : v;
}

// Legacy types are nobody's business and stay as they are.
bool tipoNoto(std::uint8_t tipo) {
    switch (tipo) {
    case tSegmento:
    case tMarker:
    case tVecchio5:
    case tPoligono:
    case tVertice:
    case tTesto:
    case tPict:
    case tCerchio:
    case tArco:
    case tVecchio13: return true;
    default: return false;
    }
}

template <class... T>
bool finiti(const T&... v) {
    return (std::isfinite(static_cast<double>(v)) && ...);
}

bool puntiFiniti(const elemento& e) {
    switch (e.tipo) {
    case tSegmento: return finiti(e.segm.x1, e.segm.y1, e.segm.z1, e.segm.x2, e.segm.y2, e.segm.z2);
    case tMarker: return finiti(e.mark.x, e.mark.y, e.mark.z);
    case tPoligono: return finiti(e.poli.x, e.poli.y, e.poli.z);
    case tVertice: return finiti(e.vert.x, e.vert.y, e.vert.z);
    case tTesto: return finiti(e.test.x, e.test.y);
    case tPict: return finiti(e.pict.x, e.pict.y, e.pict.larghezza, e.pict.altezza);
    case tCerchio: return finiti(e.cerc.cx, e.cerc.cy, e.cerc.raggio);
    case tArco: return finiti(e.arco.cx, e.arco.cy, e.arco.raggio, e.arco.angoloInizio, e.arco.ampiezza);
    default: return true;
    }
}

template <class Campo>
bool poni(Campo& campo, std::int16_t v) {
    if (campo == v) return false;
    campo = v;
    return true;
}

// True when something had to be put right.
bool risanaTesta(elemento& e) {
    constexpr std::int16_t ultimoLucido = 99, ultimaLinea = 9, ultimaClasse = 255;
    constexpr std::uint8_t maxAref = 13;
    bool mutato = poni(e.lucido, entro(e.lucido, 0, ultimoLucido, 0));
    if (e.tipo == tTesto) return mutato;
    auto& t = e.testa;
    mutato = poni(t.linea, entro(t.linea, 1, ultimaLinea, 1)) || mutato;
    mutato = poni(t.categoria, entro(t.categoria, 1, ultimaClasse, 1)) || mutato;
    mutato = poni(t.insieme, entro(t.insieme, 1, ultimaClasse, 1)) || mutato;
    Aref aref = t.aref;
    if (aref[0] <= maxAref || aref == ArefVecchio) return mutato;   // the old forms' own is no damage
    t.aref = Aref{};
    return true;
}

}   // namespace

bool Risanamento::accetta(elemento& e, bool testaAnche) {
    const bool orfano = e.tipo == tVertice && testaFuori;
    if (e.tipo != tVertice) testaFuori = false;
    if (orfano || !tipoNoto(e.tipo) || !puntiFiniti(e)) {
        testaFuori = testaFuori || e.tipo == tPoligono;
        ++fuori;
        return false;
    }
    e.selezionato = 0;
    if (testaAnche && risanaTesta(e)) ++quanti;
    if (e.tipo == tPoligono && !finiti(e.poli.passoTratt, e.poli.angoloTratt)) {
        e.poli.passoTratt = e.poli.angoloTratt = 0;
        e.poli.tratteggio = 0;
        ++quanti;
    }
    return true;
}

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
