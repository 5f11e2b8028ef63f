// One-line makers of drawings for tests. Each gives the number of the record it stored (of a polyline the head).
#pragma once

#include <initializer_list>

#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Penna.h"

namespace prova {

using namespace tessaro;

// A store of `capacity` records with an empty drawing in it.
inline void fogliovuoto(std::int32_t capacity = 2000) {
    ASSERT_TRUE(AllocaElementi(capacity));
    AzzeraArchivio();
}

inline std::int32_t segmento(double x1, double y1, double x2, double y2, double z1 = 0, double z2 = 0) {
    Memorizza(tSegmento, x1, y1, z1, x2, y2, z2, spessore, colorCorrente, NumPat, "");
    return indElem;
}

inline std::int32_t marker(double x, double y, double z = 0, double forma = 1) {
    Memorizza(tMarker, x, y, z, forma, 0, 0, spessore, colorCorrente, NumPat, "");
    return indElem;
}

inline std::int32_t cerchio(double cx, double cy, double r) {
    Memorizza(tCerchio, cx, cy, r, 0, 0, NumAreaPat, spessore, colorCorrente, NumPat, "");
    return indElem;
}

inline std::int32_t arco(double cx, double cy, double r, double inizio, double ampiezza) {
    Memorizza(tArco, cx, cy, r, inizio, ampiezza, NumAreaPat, spessore, colorCorrente, NumPat, "");
    return indElem;
}

inline std::int32_t polilinea(std::initializer_list<std::pair<double, double>> punti) {
    std::int32_t testa = 0;
    for (const auto& [x, y] : punti) {
        Memorizza(testa ? tVertice : tPoligono, x, y, 0, 0, 0, NumAreaPat, spessore, colorCorrente, NumPat, "");
        if (!testa) testa = indElem;
    }
    return testa;
}

inline std::int32_t testo(double x, double y, const char* scritta, std::int16_t angolo = 100) {
    Memorizza(tTesto, x, y, 0, 0, 0, 0, 0, colorCorrente, angolo, scritta);
    return indElem;
}

inline std::int32_t immagine(double x, double y, double larghezza, double altezza, std::string dati) {
    Memorizza(tPict, x, y, 0, larghezza, altezza, 0, 0, 1, 1, "");
    Elem(indElem).pict.maniglia = NewPict(std::move(dati));
    return indElem;
}

}   // namespace prova
