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
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "platform/Events.h"

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

void tratto(Point da, std::int32_t h1, std::int32_t v1, std::int32_t h2, std::int32_t v2) {
    MoveTo(da.h + h1, da.v + v1);
    LineTo(da.h + h2, da.v + v2);
}

// The mark of the point that a click would take, a shape a kind; `p` is its pixel less half the pen.
void marcaAggancio(TipoAggancio tipo, Point p) {
    constexpr std::int32_t r = 6;   // pixels from the middle to the edge
    const Rect attorno = SetRect(p.h - r, p.v - r, p.h + r + 2, p.v + r + 2);
    switch (tipo) {
    case agEstremo: FrameRect(attorno); break;
    case agVertice:
        tratto(p, -r, 0, 0, -r);
        Line(r, r);
        Line(-r, r);
        Line(-r, -r);
        break;
    case agMarker:
        FrameRect(attorno);
        FrameRect(SetRect(p.h - 1, p.v - 1, p.h + 3, p.v + 3));
        break;
    case agCentro: FrameOval(attorno); break;
    case agIncrocio:
        tratto(p, -r, -r, r, r);
        tratto(p, -r, r, r, -r);
        break;
    case agMezzo:
        tratto(p, -r, r, 0, -r);
        Line(r, 2 * r);
        Line(-2 * r, 0);
        break;
    case agPiede:
        tratto(p, -r, -r, -r, r);
        Line(2 * r, 0);
        tratto(p, -r, 0, 0, 0);
        Line(0, r);
        break;
    default: break;
    }
}

void aggancio() {
    Point p;
    if (agganciato.tipo == agNessuno || !PuntoIntero(agganciato.punto.x, agganciato.punto.y, p)) return;
    pennaXor(2);
    marcaAggancio(agganciato.tipo, {p.v - 1, p.h - 1});
}

// A ring at the first point of a polyline that a click there would close; a thick one while the pointer is on it.
void chiusura() {
    const SegnoChiusura s = ChiusuraDelMomento();
    Point p;
    if (!s.c_e || !PuntoIntero(s.x, s.y, p)) return;
    const std::int32_t r = s.sotto ? 8 : 5, penna = s.sotto ? 3 : 1;   // pixels
    pennaXor(static_cast<std::int16_t>(penna));
    FrameOval(SetRect(p.h - r, p.v - r, p.h + r + 1, p.v + r + 1));
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

SegnoChiusura ChiusuraDelMomento() {
    if (Modalita != mDigitazione || !PuoChiudere()) return {};
    const auto& testa = Elem(IndicePolCorrente).poli;
    puntot puntatore;   // wherever a constraint puts the cursor, a click on the point closes
    VidToReal(GetMouse(), puntatore);
    return {true, SulPrimoPunto(puntatore), testa.x, testa.y};
}

void DipingiPuntatore() {
    croceDelMomento();
    figuraInCorso();
    latiTrascinati();
    DisegnaContorno();
    aggancio();
    chiusura();
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
