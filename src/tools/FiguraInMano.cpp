// Ending, closing and throwing away the figure in progress.
#include "tools/FiguraInMano.h"

#include <cmath>

#include "display/Ridisegno.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "tools/Costruzione.h"

namespace tessaro {

namespace {

constexpr std::int16_t latiMinimi = 2;   // with fewer the closing side would lie on the only one

bool giaChiusa() {
    const auto &testa = Elem(IndicePolCorrente).poli, &ultimo = Elem(indElem).poli;
    return ultimo.x == testa.x && ultimo.y == testa.y && ultimo.z == testa.z;
}

}   // namespace

void TerminaFigura() {
    if (Azione == sTerzoPunto) return FineFigura();
    if (Azione != sPrimoPunto && Azione != sPercorso) return;
    tabButton = bNessuno;
    FineSegm();
}

bool PuoChiudere() {
    if (operazCorrente != opPolilinea || Azione != sPrimoPunto || !ContinuaPoligono) return false;
    const std::int32_t testa = IndicePolCorrente;
    if (testa < 3 || testa > indElem || Elem(testa).tipo != tPoligono) return false;
    return UltimoRecord(testa) == indElem && Elem(testa).poli.numVertici >= latiMinimi;
}

void ChiudiPolilinea() {
    if (!PuoChiudere()) return;
    if (giaChiusa()) return TerminaFigura();
    const auto& testa = Elem(IndicePolCorrente).poli;
    const double quota = zcurs;   // of the points that follow
    XDigit = testa.x;
    YDigit = testa.y;
    ZDigit = testa.z;
    IntroDigitale = 1;
    tabButton = bTermina;
    FineSegm();
    zcurs = quota;
    tabButton = bNessuno;
    InvalWind();
}

bool SulPrimoPunto(const puntot& p) {
    if (!PuoChiudere()) return false;
    const auto& testa = Elem(IndicePolCorrente).poli;
    return std::fabs(p.x - testa.x) < diffCerca && std::fabs(p.y - testa.y) < diffCerca;
}

void AbbandonaFigura() {
    if (!FiguraInCorso()) return;
    const bool conLati = ContinuaPoligono != 0;
    const std::int32_t testa = IndicePolCorrente;
    FineFigura();
    const bool sua =
        conLati && testa >= 3 && testa <= indElem && Elem(testa).tipo == tPoligono && UltimoRecord(testa) == indElem;
    if (!sua) return;
    indElem = testa - 1;
    IndicePolCorrente = 0;
    PoniAnnulla(aCancella);
    RistabilisciSelezione();
    InvalFinestra();
}

}   // namespace tessaro
