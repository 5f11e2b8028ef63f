// Transformed copies of the selection, added behind the drawing: what is really drawn of the live transformation.
#include <algorithm>
#include <cmath>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "digitising/RegistrazioneValida.h"
#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Figura.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "registration/attaccoDinamico.h"
#include "text/Conversione.h"

namespace tessaro {

// --- which layer

namespace {

bool qualcosaSelezionato() {
    if (!Puntosel.attiva) return false;
    return Puntosel.multipla || (Puntosel.oggetto < oMeshOrigine && Puntosel.indice >= 3 && Puntosel.indice <= indElem);
}

// What is copied, in words.
PStr255 nomeSelezione() {
    constexpr std::int16_t lista = 129, piuElementi = 32;
    struct Nome {
        std::uint8_t tipo;
        std::int16_t stringa;
    };
    constexpr Nome nomi[] = {{tSegmento, 29}, {tMarker, 31},  {tPoligono, 30},
                             {tTesto, 33},    {tCerchio, 46}, {tArco, 47}};
    std::int16_t stringa = Puntosel.multipla ? piuElementi : std::int16_t{0};
    for (const Nome& n : nomi)
        if (!Puntosel.multipla && Elem(Puntosel.indice).tipo == n.tipo) stringa = n.stringa;
    return stringa ? PStr255(std::string_view(GetIndString(lista, stringa))) : PStr255("");
}

}   // namespace

std::int16_t ActiveAttach::PoniLucido() {
    constexpr std::int16_t dialogo = 138, ok = 1, annulla = 2, campo = 4, mostra = 5;
    constexpr std::int16_t nessuno = -1, massimo = 99;
    if (!qualcosaSelezionato()) {
        SysBeep(30);
        return nessuno;
    }
    ParamText(nomeSelezione().view(), "", "", "");
    const DialogoAperto aperto(dialogo);
    const auto display = [] {
        const PStr255 s = Puntosel.multipla ? PStr255("") : NumToString(Elem(Puntosel.indice).lucido);
        SetDialogItemText(theDialog, campo, s.view());
    };
    display();
    SelectDialogItemText(theDialog, campo, 0, 100);
    std::int16_t layer = nessuno;
    esito = 1;
    do {
        ModalDialog(MyMovableFilter, itemCorrente);
        if (itemCorrente == mostra) {
            esito = 1;
            display();
        }
    } while (itemCorrente != annulla && !(itemCorrente == ok && LeggiCampo(campo, std::int16_t{0}, massimo, layer)));
    return itemCorrente == ok && qualcosaSelezionato() ? layer : nessuno;
}

// --- the copies

namespace {

constexpr std::int32_t due = 0;   // the two-point mode

Coppia mappato(double x, double y) {
    attaccoAttivo.Traf4Pt(x, y);
    return {x, y};
}

void mappa(f64& x, f64& y) {
    const Coppia p = mappato(x, y);
    x = p.x;
    y = p.y;
}

// Centre and a point of the rim, both mapped, give centre and radius.
void mappaCerchio(f64& cx, f64& cy, f64& raggio) {
    const Coppia c = mappato(cx, cy), bordo = mappato(cx + raggio, cy);
    cx = c.x;
    cy = c.y;
    raggio = Distanza(c.x, c.y, bordo.x, bordo.y);
}

// An angle of a text, the system in force: whole, from 0 to less than a turn, so that copies of copies stay readable.
std::int16_t angoloDiTesto(double v) {
    const double intero = std::round(v);
    double giro = RadToAng(DuePig, gradCorrente);
    if (giro > 100) giro = std::round(giro);   // gons and degrees: without what the 32-bit pi adds
    if (!std::isfinite(intero) || !(giro > 0)) return 0;
    return arrotonda16(intero - giro * std::floor(intero / giro));
}

void scala(f16& v, double fattore) { v = arrotonda16(v * fattore); }

}   // namespace

void ActiveAttach::trasformaTesto(elemento& e) {
    auto& t = e.test;
    const Coppia prima{t.x, t.y};
    mappa(t.x, t.y);
    double angolo = 0, fattore = 0;
    if (tipo == due) {
        angolo = t.angolo + RadToAng(rotazione, gradCorrente);
        fattore = transf.ingr;
    } else {
        // A point along the text, one height away, tells direction and size.
        const auto L = static_cast<float>(DecPunto * t.altezza);
        Coppia lungo;
        PolarCart(prima.x, prima.y, AngToRad(t.angolo, gradCorrente), L, lungo.x, lungo.y, orientCorrente);
        lungo = mappato(lungo.x, lungo.y);
        double distanza = 0;
        CartPolar(t.x, t.y, lungo.x, lungo.y, distanza, angolo, orientCorrente);
        angolo = Pig - angolo;
        if (angolo < 0) angolo += DuePig;
        angolo = RadToAng(angolo, gradCorrente);
        fattore = distanza / L;
    }
    t.angolo = angoloDiTesto(angolo);
    scala(t.altezza, fattore);
    scala(t.larghezza, fattore);
    scala(t.dimensione, fattore);
}

void ActiveAttach::TrasformaCopia(elemento& e) {
    switch (e.tipo) {
    case tPict: break;   // its corner stays
    case tTesto: trasformaTesto(e); break;
    case tCerchio: mappaCerchio(e.cerc.cx, e.cerc.cy, e.cerc.raggio); break;
    case tArco:
        mappaCerchio(e.arco.cx, e.arco.cy, e.arco.raggio);
        if (tipo == due) {
            const double girato = e.arco.angoloInizio + RadToAng(rotazione, gradSessadecimali);
            e.arco.angoloInizio = girato - 360 * std::floor(girato / 360);
        }
        break;
    default: PerPunti(e, mappa); break;
    }
}

namespace {

// Record n and the vertices behind it that are its own, of the first `ultimo` records.
std::int32_t recordDi(std::int32_t n, std::int32_t ultimo) {
    if (Elem(n).tipo != tPoligono) return 1;
    return 1 + std::clamp<std::int32_t>(Elem(n).poli.numVertici, 0, ultimo - n);
}

// Behind the drawing, all of it or nothing. Kept: the vertices of a polyline keep the layer they had.
void copia(std::int32_t n, std::int32_t ultimo, std::int16_t layer) {
    const std::int32_t quanti = recordDi(n, ultimo);
    if (quanti > maxElementi - indElem) return;
    const std::int32_t primo = indElem + 1;
    CopiaRecord(primo, n, quanti);
    indElem += quanti;
    elemento& testa = Elem(primo);
    testa.lucido = layer;
    for (std::int32_t i = primo; i <= indElem; ++i) {
        Elem(i).selezionato = 0;
        attaccoAttivo.TrasformaCopia(Elem(i));
    }
    if (testa.tipo == tPict) testa.pict.maniglia = NewPict(PictBytes(testa.pict.maniglia));   // one owner a number
}

}   // namespace

void ActiveAttach::AggiungiElemento(std::int16_t layer) { copia(Puntosel.indice, indElem, layer); }

void ActiveAttach::AggiungiMultipla(std::int16_t layer) {
    if (std::int64_t{Puntosel.numSel} + indElem >= maxElementi) return;
    const std::int32_t ultimo = indElem;
    for (std::int32_t n = 3; n <= ultimo; ++n)
        if (Elem(n).selezionato && Elem(n).tipo != tVertice) copia(n, ultimo, layer);   // a vertex goes with its head
}

namespace {

void rifiuta(const std::string& guasto) {
    constexpr std::int16_t avviso = 9150;
    StopAlertParam(avviso, guasto);
}

// Did every copied point land somewhere?
bool copieFinite() {
    bool finite = true;
    const auto guarda = [&finite](f64& x, f64& y) { finite = finite && std::isfinite(x) && std::isfinite(y); };
    for (std::int32_t n = inizioAggiunta + 1; n <= indElem; ++n) {
        PerPunti(Elem(n), guarda);
        if (Elem(n).tipo == tCerchio) finite = finite && std::isfinite(Elem(n).cerc.raggio);
        if (Elem(n).tipo == tArco) finite = finite && std::isfinite(Elem(n).arco.raggio);
    }
    return finite;
}

void togliCopie() {
    for (std::int32_t n = inizioAggiunta + 1; n <= indElem; ++n)
        if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
    indElem = inizioAggiunta;
}

}   // namespace

void ActiveAttach::Aggiungi() {
    const std::int16_t layer = PoniLucido();
    if (layer < 0) return;
    if (const std::string guasto = GuastoTrasformazione(); !guasto.empty()) return rifiuta(guasto);
    ErroreAlert(PreparaAttacco());   // afresh: points may have moved since
    CominciaAggiunta();
    if (Puntosel.multipla) {
        AggiungiMultipla(layer);
    } else {
        AggiungiElemento(layer);
    }
    if (!copieFinite()) {
        togliCopie();
        constexpr std::int16_t lista = 9150, senzaPosto = 1;
        return rifiuta(GetIndString(lista, senzaPosto));
    }
    if (indElem <= inizioAggiunta) return;
    PoniAnnulla(aAggiunta);
    InvalWind();
}

}   // namespace tessaro
