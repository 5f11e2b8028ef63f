// Reading control points off the selection.
#include "digitising/PuntiSelezione.h"

#include <algorithm>

#include "model/Archivio.h"
#include "model/Selezione.h"
#include "platform/Events.h"

namespace tessaro {

namespace {

constexpr std::int16_t ultimoQuadrilatero = 4;   // point 5 is the centre

bool haPunti(std::int32_t n) {
    if (n < 3 || n > indElem) return false;
    const auto tipo = Elem(n).tipo;
    return tipo == tSegmento || tipo == tMarker || tipo == tPoligono || tipo == tVertice;
}

bool unoSolo() { return Puntosel.attiva && !Puntosel.multipla && haPunti(Puntosel.indice); }

// All kinds with points hold the first at the same place.
Coppia primoPunto(std::int32_t n) { return {Elem(n).mark.x, Elem(n).mark.y}; }

std::int32_t testaDi(std::int32_t n) {
    if (Elem(n).tipo != tVertice) return n;
    const std::int64_t testa = std::int64_t{n} - Elem(n).vert.distanzaTesta;
    return testa >= 3 && testa < n && Elem(static_cast<std::int32_t>(testa)).tipo == tPoligono
               ? static_cast<std::int32_t>(testa)
               : n;
}

void aggiungi(PuntiSelezione& s, Coppia p) { s.punti[static_cast<std::size_t>(s.numero++)] = p; }

void segmento(PuntiSelezione& s, std::int32_t n, bool ancheFine) {
    aggiungi(s, primoPunto(n));
    if (ancheFine && Elem(n).tipo == tSegmento) aggiungi(s, {Elem(n).segm.x2, Elem(n).segm.y2});
}

void polilinea(PuntiSelezione& s, std::int32_t n, std::int32_t quanti) {
    const std::int32_t testa = testaDi(n);
    aggiungi(s, primoPunto(testa));
    if (Elem(testa).tipo != tPoligono) return;
    const std::int32_t ultimo = std::min(testa + Elem(testa).poli.numVertici, indElem);
    for (std::int32_t i = testa + 1; i <= ultimo && s.numero < quanti; ++i) aggiungi(s, primoPunto(i));
}

}   // namespace

PuntiSelezione PuntiPerAttacco(std::int16_t n) {
    PuntiSelezione s;
    if (!unoSolo()) return s;
    s.presi = true;
    switch (Puntosel.oggetto) {
    case oMarker: aggiungi(s, primoPunto(Puntosel.indice)); break;
    case oSegmento:
        segmento(s, Puntosel.indice, n <= ultimoQuadrilatero);
        s.figura = true;
        break;
    case oPoligono:
        polilinea(s, Puntosel.indice, ultimoQuadrilatero - n + 1);
        s.figura = true;
        break;
    default: break;   // Kept: nothing is stored, and the cursor's position stays out of the point too
    }
    return s;
}

PuntiSelezione PuntiPerTutti() {
    PuntiSelezione s;
    if (!Puntosel.attiva) return s;
    const bool figura = Puntosel.oggetto == oSegmento || Puntosel.oggetto == oPoligono;
    if (Puntosel.multipla || !figura || !haPunti(Puntosel.indice)) {
        SysBeep(30);
        return s;
    }
    s.presi = s.figura = true;
    if (Puntosel.oggetto == oSegmento) {
        segmento(s, Puntosel.indice, true);
    } else {
        polilinea(s, Puntosel.indice, ultimoQuadrilatero);
    }
    return s;
}

}   // namespace tessaro
