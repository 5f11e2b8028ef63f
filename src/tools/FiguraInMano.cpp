// Ending, closing and throwing away the figure in progress.
#include "tools/FiguraInMano.h"

#include "display/Ridisegno.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "tools/Costruzione.h"

namespace tessaro {

namespace {

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
