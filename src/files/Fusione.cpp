// Which mapping carries a merged drawing over, by the command that asked for it.
#include "files/Fusione.h"

#include "dialogs/Errori.h"
#include "files/Richieste.h"
#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Registrazione.h"
#include "platform/Events.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "registration/Solutori.h"

namespace tessaro {

namespace {

bool tuttiZero(double a, double b, double c, double d) { return a == 0 && b == 0 && c == 0 && d == 0; }

bool perPuntiReali(std::int16_t item) { return item == rUnisciReali || item == rUnisciDato; }
bool perQuattroPunti(std::int16_t item) {
    return item == rUnisciQuattro || item == rUnisciDatoCmd || item == rUnisciDatoOpz;
}

void costruisciAttacco(const elemento& i1) {
    CalcTransfFogli(TransfAttacco, {i1.att1.x1, i1.att1.y1}, {i1.att1.x2, i1.att1.y2}, {XA1, YA1}, {XA2, YA2});
}

void costruisciReali(const elemento& i1, const elemento& i2) {
    Coppia b1{i2.att.x1, i2.att.y1}, b2{i2.att.x2, i2.att.y2};
    Tracoord(TransfInvert, b1.x, b1.y, b1.x, b1.y);
    Tracoord(TransfInvert, b2.x, b2.y, b2.x, b2.y);
    CalcTransfFogli(TransfAgg, {i1.att1.x1, i1.att1.y1}, {i1.att1.x2, i1.att1.y2}, b1, b2);
}

void costruisciQuattro(const elemento& i1, const elemento& i2) {
    const auto& primo = i1.att1;
    const auto& secondo = i2.att;
    att4Pt.src = {{{primo.x1, primo.y1}, {primo.x2, primo.y2}, {primo.z1, primo.z2}, {secondo.z1, secondo.z2}}};
    for (std::int16_t n = 1; n <= 4; ++n) att4Pt.dst[static_cast<std::size_t>(n - 1)] = LeggiAttacco(n);
    att4Pt.okSrc = att4Pt.okDst = 1;
    ErroreAlert(PrepAtt4pt());
}

void mappa(f64& x, f64& y) {
    double u = x, v = y;
    Traf4Pt(u, v);
    x = u;
    y = v;
}

// By its points alone: radii and angles stay as they are.
void adattaQuattro(elemento& e) {
    if (e.tipo == tPict) {
        TrasformaElemento(e, TransfAgg);   // Kept: a picture's corner goes by the last real similarity
    } else {
        PerPunti(e, mappa);
    }
}

Fusione rifiuta() {
    SysBeep(30);
    return Fusione::nessuna;
}

}   // namespace

Fusione ScegliFusione(std::int16_t item, const elemento& i1, const elemento& i2) {
    const bool conPunti = !tuttiZero(i1.att1.x1, i1.att1.y1, i1.att1.x2, i1.att1.y2) && !tuttiZero(XA1, YA1, XA2, YA2);
    if (item == rUnisciPunti && conPunti) {
        costruisciAttacco(i1);
        return Fusione::attacco;
    }
    if (perPuntiReali(item)) {
        if (!i2.att.coordReali || !Elem(2).att.coordReali) return Fusione::comeSono;
        costruisciReali(i1, i2);
        return Fusione::reali;
    }
    if (perQuattroPunti(item)) {
        if (!i2.att.quattroPunti || !Elem(2).att.quattroPunti) return rifiuta();
        costruisciQuattro(i1, i2);
        return Fusione::quattroPunti;
    }
    return conPunti ? rifiuta() : Fusione::comeSono;
}

void AdattaElemento(Fusione come, elemento& e) {
    if (come == Fusione::attacco) TrasformaElemento(e, TransfAttacco);
    if (come == Fusione::reali) TrasformaElemento(e, TransfAgg);
    if (come == Fusione::quattroPunti) adattaQuattro(e);
}

}   // namespace tessaro
