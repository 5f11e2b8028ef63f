// Circle and arc in progress, by centre or by three points, as settings say.
#include "tools/CurvaInCorso.h"

#include <cmath>
#include <string>

#include "display/Elastico.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/VociDocumento.h"
#include "text/Conversione.h"
#include "tools/Curve.h"

namespace tessaro {

constinit puntot PuntoCurva1{}, PuntoCurva2{}, PuntoCurva3{};
constinit double AngInizCorrente = 0;

namespace {

std::int16_t gradi(double radianti) { return arrotonda16(RadToAng(radianti, gradSessadecimali)); }

// Direction and distance of a point from the centre: clockwise from straight up, as arcs are drawn.
double direzioneDalCentro(const puntot& p, double& distanza) {
    double angolo = 0;
    CartPolar(CentroCorrente.x, -CentroCorrente.y, p.x, -p.y, distanza, angolo, orientAzimut);
    return angolo;
}

// Sweep of an arc by centre from its start to p, whole degrees; the radius is the second point's.
void ampiezzaFino(const puntot& p) {
    double distanza = 0;
    AmpiezzaAngCorrente = gradi(direzioneDalCentro(p, distanza) - AngInizCorrente);
    if (AmpiezzaAngCorrente < 0) AmpiezzaAngCorrente = i16(AmpiezzaAngCorrente + 360);
}

void curvaPerPunti() {
    if (operazCorrente == opArco) {
        ArcoTre(PuntoCurva1, PuntoCurva2, PuntoCurva3, CentroCorrente, RaggioCorrente, AngInizio, AmpiezzaAngCorrente);
    } else {
        CerchioTre(PuntoCurva1, PuntoCurva2, PuntoCurva3, CentroCorrente, RaggioCorrente);
    }
}

}   // namespace

bool StrumentoCurva() { return operazCorrente == opCerchio || operazCorrente == opArco; }
bool CerchioPerCentro() { return operazCorrente == opCerchio && !CurvePerPunti; }

void CurvaAlSecondoPunto() {
    if (!StrumentoCurva()) return;
    if (CurvePerPunti) {
        PuntoCurva1 = {Xini, Yini, 0};
        PuntoCurva2 = PuntoCurva3 = {Xfine, Yfine, 0};
        curvaPerPunti();
        return;
    }
    CentroCorrente = {Xini, Yini, 0};
    PuntoCurva2 = {Xfine, Yfine, 0};
    AngInizCorrente = direzioneDalCentro(PuntoCurva2, RaggioCorrente);
    AngInizio = gradi(AngInizCorrente);
    AmpiezzaAngCorrente = 0;
}

void CurvaAlTerzoPunto() {
    if (CurvePerPunti) {
        curvaPerPunti();
        return;
    }
    ampiezzaFino(PuntoCurva3);
    AngInizio = gradi(AngInizCorrente);
}

void CurvaFinoA(const puntot& p, std::int16_t tipo) {
    if (tipo == tCerchio && CurvePerPunti) {
        PuntoCurva3 = p;
        CerchioTre(PuntoCurva1, PuntoCurva2, PuntoCurva3, CentroCorrente, RaggioCorrente);
    } else if (tipo == tCerchio) {
        RaggioCorrente = Distanza(CentroCorrente.x, CentroCorrente.y, p.x, p.y);
    } else if (tipo == tArco && CurvePerPunti) {
        PuntoCurva3 = p;
        ArcoTre(PuntoCurva1, PuntoCurva2, PuntoCurva3, CentroCorrente, RaggioCorrente, AngInizio, AmpiezzaAngCorrente);
    } else if (tipo == tArco) {
        ampiezzaFino(p);
    }
}

bool CurvaFattibile() {
    if (CurvePerPunti) return CurvaVera(PuntoCurva1, PuntoCurva2, PuntoCurva3);
    return RaggioCorrente > 0 && std::isfinite(RaggioCorrente);
}

namespace {

std::string puntoJson(const puntot& p) { return "{\"x\":" + NumeroJson(p.x) + ",\"y\":" + NumeroJson(p.y) + "}"; }

template <puntot& p>
void azzera() {
    p = {};
}
template <const puntot& p>
std::string json() {
    return puntoJson(p);
}

const VoceStato righe[] = {
    {"PuntoCurva1", azzera<PuntoCurva1>, json<PuntoCurva1>},
    {"PuntoCurva2", azzera<PuntoCurva2>, json<PuntoCurva2>},
    {"PuntoCurva3", azzera<PuntoCurva3>, json<PuntoCurva3>},
    voce<AngInizCorrente>("AngInizCorrente"),
};
const TabellaStato tabella(righe);

const VoceDocumento delGiornale[] = {
    VoceDi("PuntoCurva1", VoceDocumento::elastico, PuntoCurva1),
    VoceDi("PuntoCurva2", VoceDocumento::elastico, PuntoCurva2),
    VoceDi("PuntoCurva3", VoceDocumento::elastico, PuntoCurva3),
    VoceDi("CentroCorrente", VoceDocumento::elastico, CentroCorrente),
    VoceDi("RaggioCorrente", VoceDocumento::elastico, RaggioCorrente),
    VoceDi("AngInizCorrente", VoceDocumento::elastico, AngInizCorrente),
    VoceDi("AngInizio", VoceDocumento::elastico, AngInizio),
    VoceDi("AmpiezzaAngCorrente", VoceDocumento::elastico, AmpiezzaAngCorrente),
};
const VociDocumento tabellaGiornale(delGiornale);

}   // namespace

}   // namespace tessaro
