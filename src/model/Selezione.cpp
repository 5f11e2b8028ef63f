// The selection's summary and its box.
#include "model/Selezione.h"

#include <cmath>

#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/PuntiElemento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
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

void allargaElemento(std::int32_t n) {
    if (Elem(n).tipo == tTesto) {
        AggRetSelTesto(Elem(n));
    } else {
        PerEstremi(n, AggRettSel);
    }
}

// What is flagged: records, things, and the last of these.
struct Censo {
    std::int32_t record = 0, cose = 0, ultima = 0;
};

// A vertex stays flagged only under a flagged head; `nessuna` takes every flag away.
Censo conta(bool nessuna) {
    Censo c;
    for (std::int32_t n = 3; n <= indElem;) {
        const std::int32_t fine = UltimoRecord(n);
        if (nessuna || OggettoDi(Elem(n).tipo) < 0) Elem(n).selezionato = 0;
        const bool presa = Elem(n).selezionato != 0;
        if (presa) {
            ++c.record;
            ++c.cose;
            c.ultima = n;
        }
        for (std::int32_t i = n + 1; i <= fine; ++i) {
            if (!Elem(i).selezionato) continue;
            if (presa) {
                ++c.record;
            } else {
                Elem(i).selezionato = 0;
            }
        }
        n = fine + 1;
    }
    return c;
}

}   // namespace

std::int32_t OggettoDi(std::uint8_t tipo) {
    switch (tipo) {
    case tSegmento: return oSegmento;
    case tMarker: return oMarker;
    case tPoligono: return oPoligono;
    case tTesto: return oTesto;
    case tPict: return oPict;
    case tCerchio: return oCerchio;
    case tArco: return oArco;
    default: return -1;
    }
}

void RifaiRettSel() {
    AzzeraRettSel();
    for (std::int32_t i = 3; i <= indElem; ++i)
        if (Elem(i).selezionato && LucidoVisibile(Elem(i).lucido)) allargaElemento(i);
}

void RistabilisciSelezione() {
    const bool mesh = Puntosel.attiva && Puntosel.oggetto >= oMeshOrigine;
    const Censo c = conta(mesh);
    if (mesh) {
        Puntosel.multipla = 0;
        return;
    }
    Puntosel.numSel = c.record;
    Puntosel.multipla = c.record > 1;
    Puntosel.attiva = c.record > 0;
    if (c.cose == 1) {   // Kept: of several, oggetto and indice name the one clicked last, even when that took it off
        Puntosel.indice = c.ultima;
        Puntosel.oggetto = OggettoDi(Elem(c.ultima).tipo);
    }
    RifaiRettSel();
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
    {"Puntosel", [] { Puntosel = {}; }, puntoselJson},
    {"rettSel", AzzeraRettSel, rettSelJson},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
