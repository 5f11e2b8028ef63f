// When the overlays are drawn: whenever the state that they show is another than the one they were drawn from.
#include "display/Sovrapposto.h"

#include <cstring>
#include <optional>

#include "display/Disegno.h"
#include "display/Elastico.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/PreferenzeVista.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "platform/Windows.h"

namespace tessaro {

Rect rettangoloElastico;
LatiElastici latiElastici;

namespace {

struct Veduta {
    double scala = scalavid;
    std::int32_t h = OrigX, v = OrigY;
    Rect area = myViewRect;
    friend bool operator==(const Veduta&, const Veduta&) = default;
};

struct Coordinate2 {
    double x = 0, y = 0;
    friend bool operator==(const Coordinate2&, const Coordinate2&) = default;
};

Coordinate2 di(const puntot& p) { return {p.x, p.y}; }

// All that the pointer's overlay is drawn from, but the outline of a move: that goes with the selection.
struct StatoPuntatore {
    Veduta veduta;
    Coordinate2 cursore{xcurs, ycurs}, inizio{Xini, Yini}, fine{Xfine, Yfine}, spostamento{XSpost1, YSpost1};
    Coordinate2 centro = di(CentroCorrente);
    std::array<Coordinate2, 4> fissi{di(latiElastici.fissi[0]), di(latiElastici.fissi[1]), di(latiElastici.fissi[2]),
                                     di(latiElastici.fissi[3])};
    double raggio = RaggioCorrente;
    std::int16_t angolo = AngInizio, ampiezza = AmpiezzaAngCorrente, penna = spessore;
    Pattern pattern = PatAttuale;
    decltype(Modalita) modo = Modalita;
    decltype(operazCorrente) strumento = operazCorrente;
    decltype(Azione) stadio = Azione;
    std::uint8_t perPunti = CurvePerPunti, secondo = Sposta2ndClick;
    TipoAggancio tipoAggancio = agganciato.tipo;
    Coordinate2 aggancio = di(agganciato.punto);
    SegnoChiusura chiusura = ChiusuraDelMomento();
    std::int32_t lati = latiElastici.quanti;
    Rect rettangolo = rettangoloElastico;
    friend bool operator==(const StatoPuntatore&, const StatoPuntatore&) = default;
};

// The same for the highlight. Of several things selected the records are not looked at: who changes them says so.
struct StatoEvidenza {
    Veduta veduta;
    std::uint8_t attiva = Puntosel.attiva, multipla = Puntosel.multipla, secondo = Sposta2ndClick;
    std::int32_t oggetto = Puntosel.oggetto, indice = Puntosel.indice, quanti = Puntosel.numSel, ultimo = indElem;
    decltype(Modalita) modo = Modalita;
    Coordinate2 da{XSpost1, YSpost1}, a{XSpost2, YSpost2}, min{rettSel.xmin, rettSel.ymin},
        max{rettSel.xmax, rettSel.ymax};
    RGBColor colore = coloreEvidenza;
    std::array<unsigned char, sizeof(elemento)> record = recordScelto();
    friend bool operator==(const StatoEvidenza&, const StatoEvidenza&) = default;

private:
    static std::array<unsigned char, sizeof(elemento)> recordScelto() {
        std::array<unsigned char, sizeof(elemento)> byte{};
        if (ArrElementi && Puntosel.attiva && Puntosel.indice >= 3 && Puntosel.indice <= indElem)
            std::memcpy(byte.data(), &Elem(Puntosel.indice), byte.size());
        return byte;
    }
};

// What the overlays show now; none: they are stale.
std::optional<StatoPuntatore> puntatore;
std::optional<StatoEvidenza> evidenza;

void nellaVista(void (*dipingi)()) {
    Region area = GetClip();
    area.intersect(myViewRect);
    SetClip(area);
    dipingi();
}

void evidenzaNellaVista() { nellaVista(DipingiEvidenza); }
void coloreNellaVista() { nellaVista(DipingiColore); }
void puntatoreNellaVista() { nellaVista(DipingiPuntatore); }

}   // namespace

void Croce() { puntatore.reset(); }
void Elastico() { puntatore.reset(); }
void SospendiAz() { puntatore.reset(); }
void DisegnaSelezione() { VeliStantii(); }   // the outline of a move is the selection's
void DisegnaRettSel() { evidenza.reset(); }

void VeliStantii() {
    puntatore.reset();
    evidenza.reset();
}

void AggiornaVeli() {
    if (noWindow || !theWindow || DisegnaPict) return;
    if (StatoEvidenza ora; !(evidenza == ora)) {
        RedrawOverlay(theWindow, Velo::evidenza, evidenzaNellaVista);
        RedrawOverlay(theWindow, Velo::colore, coloreNellaVista);
        evidenza = ora;
    }
    if (StatoPuntatore ora; !(puntatore == ora)) {
        RedrawOverlay(theWindow, Velo::puntatore, puntatoreNellaVista);
        puntatore = ora;
    }
}

void ScorriVeli(std::int32_t dh, std::int32_t dv) {
    if (noWindow || !theWindow) return;
    StatoEvidenza ora;
    const Veduta veduta = ora.veduta;
    ora.veduta.h += dh;
    ora.veduta.v += dv;
    if (!(evidenza == ora)) return VeliStantii();   // it does not show what stood there before
    ora.veduta = veduta;
    ScrollOverlay(theWindow, Velo::evidenza, myViewRect, dh, dv, evidenzaNellaVista);
    ScrollOverlay(theWindow, Velo::colore, myViewRect, dh, dv, coloreNellaVista);
    evidenza = ora;
}

namespace {

const VoceStato righe[] = {
    {"rettangoloElastico", [] { rettangoloElastico = {}; }},
    {"latiElastici", [] { latiElastici = {}; }},
    {"veli", VeliStantii},
};
const TabellaStato tabella(righe);

[[maybe_unused]] const bool agganciati = [] {
    aggiornaVeli = AggiornaVeli;
    return true;
}();

}   // namespace

}   // namespace tessaro
