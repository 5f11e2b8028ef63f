// Which similarity carries a merged drawing over, by the command that asked for it.
#include "files/Fusione.h"

#include "digitising/Coordinate.h"
#include "model/Archivio.h"
#include "model/Registrazione.h"
#include "platform/Events.h"

namespace tessaro {

namespace {

bool tuttiZero(double a, double b, double c, double d) { return a == 0 && b == 0 && c == 0 && d == 0; }

bool perPuntiReali(std::int16_t item) { return item == 53 || item == 32; }
bool perQuattroPunti(std::int16_t item) { return item == 52 || item == 33 || item == 34; }

void costruisciAttacco(const elemento& i1) {
    CalcTransfFogli(TransfAttacco, {i1.att1.x1, i1.att1.y1}, {i1.att1.x2, i1.att1.y2}, {XA1, YA1}, {XA2, YA2});
}

void costruisciReali(const elemento& i1, const elemento& i2) {
    Coppia b1{i2.att.x1, i2.att.y1}, b2{i2.att.x2, i2.att.y2};
    Tracoord(TransfInvert, b1.x, b1.y, b1.x, b1.y);
    Tracoord(TransfInvert, b2.x, b2.y, b2.x, b2.y);
    CalcTransfFogli(TransfAgg, {i1.att1.x1, i1.att1.y1}, {i1.att1.x2, i1.att1.y2}, b1, b2);
}

Fusione rifiuta() {
    SysBeep(30);
    return Fusione::nessuna;
}

}   // namespace

Fusione ScegliFusione(std::int16_t item, const elemento& i1, const elemento& i2) {
    const bool conPunti = !tuttiZero(i1.att1.x1, i1.att1.y1, i1.att1.x2, i1.att1.y2) && !tuttiZero(XA1, YA1, XA2, YA2);
    if (item == 51 && conPunti) {
        costruisciAttacco(i1);
        return Fusione::attacco;
    }
    if (perPuntiReali(item)) {
        if (!i2.att.coordReali || !Elem(2).att.coordReali) return Fusione::comeSono;
        costruisciReali(i1, i2);
        return Fusione::reali;
    }
    if (perQuattroPunti(item)) return rifiuta();   // the four-point solver does not stand yet
    return conPunti ? rifiuta() : Fusione::comeSono;
}

void AdattaElemento(Fusione come, elemento& e) {
    if (come == Fusione::attacco) TrasformaElemento(e, TransfAttacco);
    if (come == Fusione::reali) TrasformaElemento(e, TransfAgg);
}

}   // namespace tessaro
