// Deleting the selection and changing its place in the drawing order, by runs of records: the rest closes up. For a new
// place what is taken out is first copied behind the live end, and the copies come to stand behind the rest.
#include "editing/Cancella.h"

#include <algorithm>
#include <vector>

#include "display/Ridisegno.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Strumento.h"
#include "platform/Events.h"
#include "tools/Costruzione.h"

namespace tessaro {

namespace {

// Neighbouring records that share their fate, from `da` to `a`.
struct Tratto {
    std::int32_t da, a;
    [[nodiscard]] std::int32_t quanti() const { return a - da + 1; }
};
using Tratti = std::vector<Tratto>;

// The runs of selected things. A polyline goes whole, and the vertices of one that is not selected stay with their head
// even when they are flagged one by one.
Tratti trattiSelezionati() {
    if (!Puntosel.multipla) {   // the summary names the one thing, whatever the records' bytes say
        const std::int32_t n = Puntosel.indice;
        if (Puntosel.oggetto >= oMeshOrigine || n < 3 || n > indElem) return {};
        return {{n, UltimoRecord(n)}};
    }
    Tratti tratti;
    for (std::int32_t n = 3; n <= indElem;) {
        const std::int32_t ultimo = UltimoRecord(n);
        if (Elem(n).selezionato) {
            if (!tratti.empty() && tratti.back().a == n - 1) {
                tratti.back().a = ultimo;
            } else {
                tratti.push_back({n, ultimo});
            }
        }
        n = ultimo + 1;
    }
    return tratti;
}

std::int32_t somma(const Tratti& tratti) {
    std::int32_t n = 0;
    for (const Tratto& t : tratti) n += t.quanti();
    return n;
}

// How many of the run's records fit behind the end beside the `gia` parked ones. A polyline needs a record to spare.
std::int32_t quantiEntrano(const Tratto& t, std::int32_t gia) {
    const std::int32_t liberi = maxElementi - indElem - gia;
    if (t.quanti() < liberi) return t.quanti();
    std::int32_t entrano = 0;
    for (std::int32_t n = t.da; n <= t.a;) {
        const std::int32_t fine = UltimoRecord(n) - t.da + 1;
        if (Elem(n).tipo == tPoligono ? fine >= liberi : fine > liberi) break;
        entrano = fine;
        n = t.da + fine;
    }
    return entrano;
}

// Copies the runs behind the live end until the room ends; gives the number of records copied.
std::int32_t parcheggia(const Tratti& tratti) {
    std::int32_t copiati = 0;
    for (const Tratto& t : tratti) {
        const std::int32_t n = quantiEntrano(t, copiati);
        CopiaRecord(indElem + 1 + copiati, t.da, n);
        copiati += n;
        if (n < t.quanti()) break;
    }
    return copiati;
}

// Closes the gaps that the runs leave.
void chiudi(const Tratti& tratti) {
    std::int32_t scritto = tratti.front().da;
    for (std::size_t i = 0; i < tratti.size(); ++i) {
        const std::int32_t da = tratti[i].a + 1, a = i + 1 < tratti.size() ? tratti[i + 1].da - 1 : indElem;
        CopiaRecord(scritto, da, a - da + 1);
        scritto += a - da + 1;
    }
}

// Takes the runs out of the array: the rest comes first, behind it, when all could be kept, the runs in their order.
// False when the room did not suffice; indElem is left alone.
bool separa(const Tratti& tratti) {
    const std::int32_t tolti = somma(tratti);
    if (!Puntosel.multipla && tolti == 1) {   // turned round in place, even in a full store
        const elemento tolto = Elem(tratti.front().da);
        chiudi(tratti);
        Elem(indElem) = tolto;
        return true;
    }
    const bool tutti = parcheggia(tratti) == tolti;
    chiudi(tratti);
    if (tutti) CopiaRecord(indElem - tolti + 1, indElem + 1, tolti);
    return tutti;
}

// Is there room behind the end for all of them? One record alone is turned round in place.
bool sposteranno(const Tratti& tratti) {
    if (!Puntosel.multipla && somma(tratti) == 1) return true;
    std::int32_t gia = 0;
    for (const Tratto& t : tratti) {
        if (quantiEntrano(t, gia) < t.quanti()) return false;
        gia += t.quanti();
    }
    return true;
}

void rilasciaImmagini(const Tratti& tratti) {
    for (const Tratto& t : tratti)
        for (std::int32_t i = t.da; i <= t.a; ++i)
            if (Elem(i).tipo == tPict) KillPicture(Elem(i).pict.maniglia);
}

}   // namespace

void CancellaSelezione() {
    if (Puntosel.attiva) FineFigura();
    PoniAnnulla(aNiente);
    if (!Puntosel.attiva) return;
    const Tratti tratti = trattiSelezionati();
    if (!tratti.empty()) {
        rilasciaImmagini(tratti);
        chiudi(tratti);
        indElem -= somma(tratti);
        PoniAnnulla(aCancella);
    }
    selezionePrec = 0;
    AzzeraPuntosel();
    AzzeraRettSel();
    InvalFinestra();
}

void AvantiEIndietroSelezione(bool avanti) {
    if (Puntosel.attiva) FineFigura();
    PoniAnnulla(aNiente);   // first: records that an undo would bring back lie where the copies go
    if (!Puntosel.attiva) return;
    const Tratti tratti = trattiSelezionati();
    const std::int32_t tolti = somma(tratti);
    if (!sposteranno(tratti)) {
        SysBeep(30);
        return;
    }
    const bool inFondo = !tratti.empty() && separa(tratti);
    if (inFondo && !avanti) std::rotate(&Elem(3), &Elem(indElem - tolti + 1), &Elem(indElem) + 1);
    for (std::int32_t i = 3; i <= indElem; ++i) Elem(i).selezionato = 0;
    selezionePrec = 0;
    AzzeraPuntosel();
    AzzeraRettSel();
    InvalFinestra();
}

}   // namespace tessaro
