// Which polyline lies under the pointer, and its points as the calculator's path.
#include "editing/SceltaPercorso.h"

#include <algorithm>

#include "display/Sovrapposto.h"
#include "editing/Scelta.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Percorso.h"
#include "model/Selezione.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

// The head of the topmost polyline with a side at p; 0 for none. Locked sheets can be measured, hidden ones cannot.
std::int32_t testaColpita(const puntot& p) {
    for (std::int32_t i = indElem; i > 3; --i) {
        const elemento& e = Elem(i);
        if (e.tipo != tVertice || !LucidoVisibile(e.lucido)) continue;
        const elemento& prima = Elem(i - 1);
        if (!Sellinea(p, prima.vert.x, prima.vert.y, e.vert.x, e.vert.y)) continue;
        const std::int32_t testa = i - e.vert.distanzaTesta;
        if (testa >= 3 && testa < i && Elem(testa).tipo == tPoligono) return testa;
    }
    return 0;
}

// Head and vertices hold their point at the same place.
void prendiPunti(std::int32_t testa) {
    const std::int32_t lati = std::clamp<std::int32_t>(Elem(testa).poli.numVertici, 0, indElem - testa);
    const std::int32_t punti = std::min<std::int32_t>(lati + 1, maxPuntiPercorso);
    for (std::int32_t i = 0; i < punti; ++i) {
        const elemento& e = Elem(testa + i);
        double x = 0, y = 0;
        DigiToReal(e.vert.x, e.vert.y, x, y);
        if (i == 0) {
            InizioPercorso(x, y, e.vert.z);
        } else {
            AggiungiAlPercorso(x, y, e.vert.z);
        }
    }
}

}   // namespace

void ScegliPercorso(const puntot& point) {
    if (Puntosel.attiva) DisegnaSelezione();
    TogliSelezione();
    const std::int32_t testa = testaColpita(point);
    if (testa == 0) return;
    Elem(testa).selezionato = 1;
    Puntosel.attiva = 1;
    Puntosel.oggetto = oPoligono;
    Puntosel.indice = testa;
    Puntosel.multipla = 0;
    Puntosel.numSel = 1;
    RifaiRettSel();
    prendiPunti(testa);
    DisegnaSelezione();
    Calcolo();
}

}   // namespace tessaro
