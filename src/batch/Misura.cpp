// The command `measure`: length and area of every element, and their sums.
#include <algorithm>
#include <array>
#include <cmath>

#include "batch/Comandi.h"
#include "batch/Misure.h"
#include "batch/Motore.h"
#include "batch/Rigo.h"
#include "model/Archivio.h"
#include "model/PuntiElemento.h"

namespace tessaro {

namespace {

struct Nome {
    std::uint8_t tipo;
    std::string_view nome;
};
constexpr Nome nomi[] = {{tSegmento, "segment"}, {tPoligono, "polyline"}, {tCerchio, "circle"}, {tArco, "arc"}};

struct Somma {
    std::int64_t elementi = 0;
    double lunghezza = 0, area = 0;
};

void riga(const Chiamata& c, std::int32_t n, std::string_view nome, Somma& somma) {
    const MisureElemento m = MisuraElemento(n);
    ++somma.elementi;
    somma.lunghezza += m.lunghezza;
    if (std::isfinite(m.area)) somma.area += m.area;
    if (c.ha("total")) return;
    Rigo r(c);
    r.intero("record", n).testo("kind", nome).intero("layer", Elem(n).lucido).intero("points", m.punti);
    r.vero("closed", m.chiuso).numero("length" + Unita(), m.lunghezza);
    if (std::isfinite(m.area)) r.numero("area" + Unita(2), m.area);
    r.stampaRiga();
}

}   // namespace

Esito ComandoMisura(const Chiamata& c) {
    double lucido = -1;
    if (!Numero(c, "layer", 0, 99, lucido) || !ScegliMisure(c)) return Esito::uso;
    if (const Esito e = ApriIngresso(c, c.file[0], false); e != Esito::fatto) return e;
    Somma somma;
    for (std::int32_t n = 3; n <= indElem; n = UltimoRecord(n) + 1) {
        const auto* nome =
            std::find_if(std::begin(nomi), std::end(nomi), [n](const Nome& x) { return x.tipo == Elem(n).tipo; });
        if (nome == std::end(nomi) || (lucido >= 0 && Elem(n).lucido != lucido)) continue;
        riga(c, n, nome->nome, somma);
    }
    Rigo r(c);
    r.testo("kind", "total").intero("elements", somma.elementi).numero("length" + Unita(), somma.lunghezza);
    r.numero("area" + Unita(2), somma.area).stampaRiga();
    return Esito::fatto;
}

}   // namespace tessaro
