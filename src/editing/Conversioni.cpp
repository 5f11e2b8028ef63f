// Polylines along circles and arcs, and segments along polylines. The undo takes a whole batch away.
#include "editing/Conversioni.h"

#include "dialogs/Parametri.h"
#include "display/Ridisegno.h"
#include "editing/Cancella.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "text/Conversione.h"

namespace tessaro {

constinit std::int16_t NumLatiPoligono = 24;

namespace {

struct Cerchio {
    double cx, cy, raggio, inizio, passo;   // radians
    std::int16_t spessore, colore, pattern;
};

Cerchio curvaDi(const elemento& e) {
    if (e.tipo == tCerchio) {
        const auto& c = e.cerc;
        return {c.cx,       c.cy,     c.raggio, 0, DuePig / static_cast<double>(NumLatiPoligono),
                c.spessore, c.colore, c.pattern};
    }
    const auto& a = e.arco;
    const double inizio = AngToRad(a.angoloInizio, gradSessadecimali);
    const double fine = AngToRad(a.angoloInizio + a.ampiezza, gradSessadecimali);
    return {a.cx, a.cy, a.raggio, inizio, (fine - inizio) / NumLatiPoligono, a.spessore, a.colore, a.pattern};
}

// Converts what is selected and fits; gives the number of things converted.
template <class Adatto>
std::int32_t converti(Adatto adatto, void (*conversione)(std::int32_t)) {
    if (!Puntosel.attiva) return 0;
    if (!Puntosel.multipla) {
        const std::int32_t n = Puntosel.indice;
        if (Puntosel.oggetto >= oMeshOrigine || n < 3 || n > indElem || !adatto(Elem(n).tipo)) return 0;
        conversione(n - 1);
        return 1;
    }
    std::int32_t quanti = 0;
    for (std::int32_t n = 2, fine = indElem; n <= fine; ++n) {   // what is added is not visited
        if (!Elem(n).selezionato || !adatto(Elem(n).tipo)) continue;
        conversione(n - 1);
        ++quanti;
    }
    return quanti;
}

// The frame of both commands: `quanti` makes the new elements and tells how many things it took.
template <class Quanti>
void aggiungi(Quanti quanti) {
    CominciaAggiunta();
    SetCursor(ClockCursor);
    if (quanti() == 0) {   // Kept: a question that was cancelled converts nothing either
        SysBeep(30);
    } else {
        InvalWind();
    }
    if (indElem > inizioAggiunta) PoniAnnulla(aAggiunta);
    SetCursor(arrowCursor);
}

}   // namespace

bool NumeroLatiPol() {
    constexpr std::int16_t dialogo = 136, ok = 1, annulla = 2, ripristina = 5, campo = 4, minimo = 3, massimo = 100;
    const DialogoAperto aperto(dialogo);
    const auto mostra = [] {
        SetDialogItemText(theDialog, campo, NumToString(NumLatiPoligono).view());
        SelectDialogItemText(theDialog, campo, 0, 100);
    };
    mostra();
    std::int16_t lati = NumLatiPoligono;
    const auto accettato = [&] { return Noitem == ok && LeggiCampoIntero(campo, minimo, massimo, lati); };
    do {
        ModalDialog(MyMovableFilter, Noitem);
        if (Noitem == ripristina) mostra();
    } while (Noitem != annulla && !accettato());
    if (Noitem != ok) return false;
    NumLatiPoligono = lati;
    return true;
}

void TrasformaPoligono(std::int32_t zeroBasedIndex) {
    const Cerchio c = curvaDi(Elem(zeroBasedIndex + 1));
    const auto punto = [&](Tipoelem tipo, std::int32_t passi) {
        double x = 0, y = 0;
        PolarCart(c.cx, c.cy, c.inizio + passi * c.passo, c.raggio, x, y, orientCorrente);
        Memorizza(tipo, x, y, zcurs, 0, 0, 0, c.spessore, c.colore, c.pattern, "");
    };
    punto(tPoligono, 0);
    // Kept: the first vertex lies on the head, so the first side has no length.
    for (std::int32_t i = 1; i <= NumLatiPoligono + 1; ++i) punto(tVertice, i - 1);
}

void ConvertiInSegmenti(std::int32_t zeroBasedIndex) {
    const std::int32_t testa = zeroBasedIndex + 1, ultimo = UltimoRecord(testa);
    const auto& p = Elem(testa).poli;
    for (std::int32_t i = testa; i < ultimo; ++i) {
        const auto &a = Elem(i).poli, &b = Elem(i + 1).poli;
        Memorizza(tSegmento, a.x, a.y, a.z, b.x, b.y, b.z, p.spessore, p.colore, p.pattern, "");
    }
}

void TrasformaPoligSel() {
    aggiungi([] {
        if (!Puntosel.attiva || !NumeroLatiPol()) return 0;
        return converti([](std::uint8_t tipo) { return tipo == tCerchio || tipo == tArco; }, TrasformaPoligono);
    });
}

void TrasformaSegmentiSel() {
    aggiungi([] { return converti([](std::uint8_t tipo) { return tipo == tPoligono; }, ConvertiInSegmenti); });
}

namespace {
const VoceStato righe[] = {voce<NumLatiPoligono>("NumLatiPoligono")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
