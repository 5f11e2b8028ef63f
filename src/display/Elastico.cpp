// What follows the pointer, in xor: the cross, the rubber band of the figure in progress, the sides that a dragged vertex
// pulls, the outline of a move, the rubber rectangle.
#include "display/Elastico.h"

#include <string>

#include "display/Contorno.h"
#include "display/Disegno.h"
#include "display/Pixel.h"
#include "display/Sovrapposto.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"

namespace tessaro {

constinit puntot CentroCorrente{};
constinit double RaggioCorrente = 0;
constinit std::int16_t AngInizio = 0, AmpiezzaAngCorrente = 0;

namespace {

void pennaXor(std::int16_t larghezza) {
    PenNormal();
    PenSize(larghezza, larghezza);
    PenMode(patXor);
    ForeColor(blackColor);
}

// A cross of `lato` pixels from tip to tip about a sheet position.
void croce(double x, double y, std::int32_t lato, std::int16_t larghezza) {
    Point p;
    if (!PuntoIntero(x, y, p)) return;
    pennaXor(larghezza);
    const std::int32_t centro = larghezza / 2, braccio = lato / 2;
    const std::int32_t h = p.h - centro, v = p.v - centro;
    MoveTo(h - braccio, v);
    LineTo(h + braccio, v);
    MoveTo(h, v - braccio);
    LineTo(h, v + braccio);
}

// The small cross between the two clicks of a move, else the large one.
void croceDelMomento() {
    if (Modalita == mSpostamento && Sposta2ndClick) {
        Dis_Cursor2(xcurs, ycurs);
    } else {
        dis_cursor(xcurs, ycurs);
    }
}

// The segment, circle or arc of the figure in progress.
void figuraInCorso() {
    if (Azione == sFermo) return;
    const bool curva = Azione != sPercorso && (operazCorrente == opCerchio || operazCorrente == opArco);
    const std::int16_t spessPrima = spess;
    spess = static_cast<std::int16_t>(spessore / 2);
    pennaXor(spessore);
    PenPat(PatAttuale);
    if (!curva || (Azione == sPrimoPunto && CurvePerPunti)) {
        fai(tSegmento, Xini, Yini, Xfine, Yfine, 0);
    } else if (Azione == sTerzoPunto && operazCorrente == opArco) {
        fai(tArco, CentroCorrente.x, CentroCorrente.y, RaggioCorrente, AngInizio, AmpiezzaAngCorrente);
    } else {
        fai(tCerchio, CentroCorrente.x, CentroCorrente.y, RaggioCorrente, 0, 0);
    }
    spess = spessPrima;
}

void latiTrascinati() {
    pennaXor(1);
    for (std::int32_t i = 0; i < latiElastici.quanti; ++i) {
        const puntot& p = latiElastici.fissi[static_cast<std::size_t>(i)];
        fai(tElastico, p.x, p.y, xcurs, ycurs, 0);
    }
}

void rettangolo() {
    pennaXor(1);
    PenPat(qdGray);
    FrameRect(rettangoloElastico);
}

}   // namespace

void dis_cursor(const double& x, const double& y) { croce(x, y, 8, 1); }
void Dis_Cursor2(const double& x, const double& y) { croce(x, y, 4, 1); }
void Dis_CursSel(const double& x, const double& y) { croce(x, y, 8, 2); }

void DipingiPuntatore() {
    croceDelMomento();
    figuraInCorso();
    latiTrascinati();
    DisegnaContorno();
    rettangolo();
}

namespace {

std::string centroJson() {
    return "{\"x\":" + NumeroJson(CentroCorrente.x) + ",\"y\":" + NumeroJson(CentroCorrente.y) + "}";
}

const VoceStato righe[] = {
    {"CentroCorrente", [] { CentroCorrente = {}; }, centroJson},
    voce<RaggioCorrente>("RaggioCorrente"),
    voce<AngInizio>("AngInizio"),
    voce<AmpiezzaAngCorrente>("AmpiezzaAngCorrente"),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
