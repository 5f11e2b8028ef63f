// Ending the figure in progress. Its vertices are stored behind the last record of all, so nothing else may be stored
// between them: who would do that comes through CominciaAggiunta first.
#include "model/Figura.h"

#include <cmath>
#include <limits>

#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Strumento.h"
#include "model/Vista.h"

namespace tessaro {

void (*figuraFinita)() = nullptr;
constinit std::int32_t figureConcluse = 0;

bool FiguraInCorso() { return ContinuaPoligono || Azione == sPrimoPunto || Azione == sTerzoPunto; }

void FineFigura() {
    if (!FiguraInCorso()) return;
    ++figureConcluse;
    if (ContinuaPoligono && inizioAggiunta < indElem) PoniAnnulla(aAggiunta);
    ContinuaPoligono = 0;
    if (Azione == sPrimoPunto || Azione == sTerzoPunto) Azione = sFermo;
    if (figuraFinita) figuraFinita();
}

void CominciaAggiunta() {
    FineFigura();
    PoniAnnulla(aNiente);
    inizioAggiunta = indElem;
}

bool VerticeSegue() {
    const std::int32_t testa = IndicePolCorrente;
    if (!ContinuaPoligono || testa < 3 || testa > indElem || Elem(testa).tipo != tPoligono) return false;
    const std::int16_t vertici = Elem(testa).poli.numVertici;
    return testa + vertici == indElem && vertici < std::numeric_limits<std::int16_t>::max();
}

bool PuoChiudere() {
    constexpr std::int16_t latiMinimi = 2;   // with fewer the closing side would lie on the only one
    if (operazCorrente != opPolilinea || Azione != sPrimoPunto || !ContinuaPoligono) return false;
    const std::int32_t testa = IndicePolCorrente;
    if (testa < 3 || testa > indElem || Elem(testa).tipo != tPoligono) return false;
    return UltimoRecord(testa) == indElem && Elem(testa).poli.numVertici >= latiMinimi;
}

bool SulPrimoPunto(const puntot& p) {
    if (!PuoChiudere()) return false;
    const auto& testa = Elem(IndicePolCorrente).poli;
    return std::fabs(p.x - testa.x) < diffCerca && std::fabs(p.y - testa.y) < diffCerca;
}

}   // namespace tessaro
