// The selection's summary and its box.
#include "model/Selezione.h"

#include <cmath>

#include "model/Archivio.h"
#include "model/Attributi.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "text/Conversione.h"

namespace tessaro {

constinit PuntoselT Puntosel{};
constinit RettSel rettSel{};

void AzzeraRettSel() { rettSel = RettSel{}; }

void AzzeraPuntosel() {
    Puntosel.attiva = 0;
    Puntosel.multipla = 0;
    Puntosel.numSel = 0;
}

bool UnSoloElemento() {
    return Puntosel.attiva && !Puntosel.multipla && Puntosel.oggetto < oMeshOrigine && Puntosel.indice >= 3
           && Puntosel.indice <= indElem;
}

void AggRettSel(const double& x, const double& y) {
    if (x < rettSel.xmin) {
        rettSel.xmin = x;
    } else if (x > rettSel.xmax) {
        rettSel.xmax = x;
    }
    if (y < rettSel.ymin) {
        rettSel.ymin = y;
    } else if (y > rettSel.ymax) {
        rettSel.ymax = y;
    }
}

void AggRetSelTesto(const elemento& e) {
    const double x = e.test.x, y = e.test.y;
    const double punto = ScalaTesto / scalavid;   // sheet units per point of the record
    const double alto = 0.7 * e.test.altezza * punto, basso = 0.3 * e.test.altezza * punto;
    const double lungo = e.test.larghezza * punto;
    switch (e.test.angolo) {
    case 100:
        AggRettSel(x, y - alto);
        AggRettSel(x + lungo, y + basso);
        return;
    case 200:
        AggRettSel(x - basso, y);
        AggRettSel(x + alto, y + lungo);
        return;
    case 300:
    case -100:
        AggRettSel(x - lungo, y - basso);
        AggRettSel(x, y + alto);
        return;
    case 0:
        AggRettSel(x - alto, y - lungo);
        AggRettSel(x + basso, y);
        return;
    default: break;
    }
    // A free angle: the four corners turned about the anchor; Y runs down, so a positive turn goes clockwise.
    const double t = AngToRad(e.test.angolo, gradCorrente) - static_cast<double>(PigMezzi);
    const double s = std::sin(t), c = std::cos(t);
    const double dx[] = {0, lungo, lungo, 0}, dy[] = {-alto, -alto, basso, basso};
    for (int i = 0; i < 4; ++i) AggRettSel(x + dx[i] * c - dy[i] * s, y + dx[i] * s + dy[i] * c);
}

namespace {
std::string puntoselJson() {
    return "{\"attiva\":" + NumeroJson(Puntosel.attiva) + ",\"multipla\":" + NumeroJson(Puntosel.multipla)
           + ",\"numSel\":" + NumeroJson(Puntosel.numSel) + ",\"oggetto\":" + NumeroJson(Puntosel.oggetto)
           + ",\"indice\":" + NumeroJson(Puntosel.indice) + "}";
}
std::string rettSelJson() {
    return "[" + NumeroJson(rettSel.xmin) + "," + NumeroJson(rettSel.ymin) + "," + NumeroJson(rettSel.xmax) + ","
           + NumeroJson(rettSel.ymax) + "]";
}
const VoceStato righe[] = {
    {"Puntosel", VoceStato::speciale, nullptr, 0, [] { Puntosel = {}; }, puntoselJson},
    {"rettSel", VoceStato::speciale, nullptr, 0, AzzeraRettSel, rettSelJson},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
