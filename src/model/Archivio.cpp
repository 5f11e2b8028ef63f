// The element block, the one door for new elements, and the rounding that both share.
#include "model/Archivio.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

#include "model/Annulla.h"
#include "model/Carattere.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Registrazione.h"
#include "model/Scritta.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vincoli.h"
#include "platform/Events.h"
#include "text/Conversione.h"

namespace tessaro {

constinit elemento* ArrElementi = nullptr;
constinit std::int32_t maxElementi = 0;
constinit std::int32_t indElem = 1;
constinit std::int32_t IndicePolCorrente = 0;

bool AllocaElementi(std::int32_t capacity) {
    // calloc takes untouched pages of zeros from the system: a large capacity costs nothing until it is used.
    auto* block = static_cast<elemento*>(std::calloc(static_cast<std::size_t>(capacity), sizeof(elemento)));
    if (!block) return false;
    std::free(ArrElementi);
    ArrElementi = block;
    maxElementi = capacity;
    return true;
}

void AzzeraArchivio() {
    indElem = 2;
    IndicePolCorrente = 0;
    if (!ArrElementi) return;
    Elem(1) = elemento{};
    Elem(1).tipo = tAttacco1;
    Elem(1).att1.conto = 1;
    Elem(2) = elemento{};
    Elem(2).tipo = tAttacco2;
    Elem(2).att.x2 = 1.0;
    Elem(2).att.y2 = 1.0;
    Elem(2).att.z2 = 1.0;
}

void CopiaRecord(std::int32_t to, std::int32_t from, std::int32_t count) {
    if (count > 0) std::memmove(&Elem(to), &Elem(from), static_cast<std::size_t>(count) * sizeof(elemento));
}

std::int32_t arrotonda32(double v) {
    if (std::isnan(v)) return 0;
    const double r = std::round(v);
    if (r >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
        return std::numeric_limits<std::int32_t>::max();
    if (r <= static_cast<double>(std::numeric_limits<std::int32_t>::min()))
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(r);
}

std::int16_t arrotonda16(double v) {
    const std::int32_t r = arrotonda32(v);
    if (r > 32767) return 32767;
    if (r < -32768) return -32768;
    return static_cast<std::int16_t>(r);
}

namespace {

struct Lato {
    double dx, dy, x1, y1, x2, y2;
};

// The direction of the last side, for the parallel and perpendicular constraints and the polar entry.
void misuraLato(const Lato& l) {
    if (l.dx != 0) {
        const double m = l.dy / l.dx;
        statoCursore.pendenza = m;
        statoCursore.pendenza2 = m * m;
        statoCursore.kPendenza = 1 / (m * m + 1);
        statoCursore.verticale = 0;
    } else {
        statoCursore.verticale = 1;
    }
    CartPolar(l.x1, l.y1, l.x2, l.y2, distprecedente, angoloprecedente, orientCorrente);
}

constinit bool rimandato = false;
constinit std::optional<Lato> ultimoLato, ultimoObliquo;   // an upright side leaves the slope of the one before it

void ricordaLato(const Lato& l) {
    if (!rimandato) {
        misuraLato(l);
        return;
    }
    ultimoLato = l;
    if (l.dx != 0) ultimoObliquo = l;
}

// The record before a vertex is its head or a vertex: both hold their point at the same place.
void vertice(elemento& e) {
    e.vert.distanzaTesta = indElem - IndicePolCorrente;
    // Without a head of its own (a full store dropped it) nothing is counted on somebody else's record.
    if (IndicePolCorrente >= 3 && Elem(IndicePolCorrente).tipo == tPoligono) {
        auto& testa = Elem(IndicePolCorrente).poli;
        testa.numVertici = i16(testa.numVertici + 1);
    }
    const elemento& prima = Elem(indElem - 1);
    const double px = prima.vert.x, py = prima.vert.y, x = e.vert.x, y = e.vert.y;
    // Kept: both differences run from this vertex to the one before; the slope is the same, the sense is told so.
    ricordaLato({px - x, py - y, px, py, x, y});
}

}   // namespace

void PoniScritta(elemento& e, const PStr255& s) {
    auto& t = e.test.testo;
    const auto lungo = std::min<std::size_t>(s.bytes()[0], t.size() - 1);
    t.fill(0);
    t[0] = static_cast<std::uint8_t>(lungo);
    std::copy_n(s.bytes() + 1, lungo, t.begin() + 1);
}

namespace {

void testo(elemento& e, const PStr255& s) {
    constexpr int capienza = 40;
    if (s.Lengthp() > capienza) {
        // Kept: forty bytes are copied, length included, so the fortieth character stays what the slot held.
        std::memcpy(e.test.testo.data(), s.bytes(), capienza);
        e.test.testo[0] = capienza;
    } else {
        PoniScritta(e, s);
    }
    e.test.stile = static_cast<std::uint8_t>(gTxStyle.face);
    e.test.font = gFontID;
    e.test.dimensione = gFontSize;
    SaveRecord stato;
    SaveStato(stato);
    TextFace(e.test.stile);
    TextFont(gFontID);
    TextMode(srcOr);
    TextSize(gFontSize);
    const std::string_view mostrato(reinterpret_cast<const char*>(e.test.testo.data()) + 1, e.test.testo[0]);
    e.test.larghezza = arrotonda16(StringWidth(mostrato));
    RestoreStato(stato);
    e.test.altezza = gFontSize;
}

}   // namespace

LatoRimandato::LatoRimandato() {
    rimandato = true;
    ultimoLato.reset();
    ultimoObliquo.reset();
}

LatoRimandato::~LatoRimandato() {
    rimandato = false;
    if (ultimoObliquo) misuraLato(*ultimoObliquo);
    if (ultimoLato) misuraLato(*ultimoLato);
}

void Memorizza(Tipoelem tipo, const double& a, const double& b, const double& c, const double& d, const double& e,
               const double& f, std::int16_t s, std::int16_t colore, std::int16_t p, const PStr255& scritta) {
    if (indElem >= maxElementi) {
        SysBeep(30);
        return;
    }
    ++indElem;
    elemento& r = Elem(indElem);
    r.tipo = tipo;
    r.lucido = VisioneGraf.lucidoCorrente;
    r.selezionato = 0;
    r.riservato3 = 0;
    r.riservato4 = 0;
    if (tipo != tTesto) {
        r.testa.linea = LineaCorrente;
        r.testa.insieme = InsiemeCorrente;
        r.testa.categoria = CategoriaCorrente;
    }
    switch (tipo) {
    case tSegmento:
        r.segm.t.aref = ArefSegmDef;
        r.segm.x1 = a;
        r.segm.y1 = b;
        r.segm.z1 = c;
        r.segm.x2 = d;
        r.segm.y2 = e;
        r.segm.z2 = f;
        r.segm.spessore = s;
        r.segm.pattern = p;
        r.segm.colore = colore;
        ricordaLato({d - a, e - b, a, b, d, e});
        break;
    case tMarker:
        r.mark.t.aref = ArefMarkerDef;
        r.mark.x = a;
        r.mark.y = b;
        r.mark.z = c;
        r.mark.forma = arrotonda16(d);
        r.mark.spessore = s;
        r.mark.pattern = p;
        r.mark.colore = colore;
        break;
    case tPoligono:
        r.poli.t.aref = ArefPolyDef;
        r.poli.x = a;
        r.poli.y = b;
        r.poli.z = c;
        r.poli.passoTratt = 0;
        r.poli.angoloTratt = 0;
        r.poli.tratteggio = 0;
        r.poli.incrociato = 0;
        r.poli.numVertici = 0;
        r.poli.spessore = s;
        r.poli.pattern = p;
        r.poli.colore = colore;
        r.poli.patternArea = arrotonda16(f);
        IndicePolCorrente = indElem;
        break;
    case tVertice:
        r.vert.t.aref = ArefPolyDef;
        r.vert.x = a;
        r.vert.y = b;
        r.vert.z = c;
        vertice(r);
        break;
    case tTesto:
        r.test.x = a;
        r.test.y = b;
        r.test.angolo = p;
        r.test.colore = colore;
        testo(r, scritta);
        break;
    case tPict:
        r.pict.x = a;
        r.pict.y = b;
        r.pict.larghezza = d;
        r.pict.altezza = e;
        break;
    case tCerchio:
        r.cerc.t.aref = ArefCerchiDef;
        r.cerc.cx = a;
        r.cerc.cy = b;
        r.cerc.raggio = c;
        r.cerc.spessore = s;
        r.cerc.pattern = p;
        r.cerc.colore = colore;
        r.cerc.patternArea = arrotonda16(f);
        break;
    case tArco:
        r.arco.t.aref = ArefArchiDef;
        r.arco.cx = a;
        r.arco.cy = b;
        r.arco.raggio = c;
        r.arco.angoloInizio = d;
        r.arco.ampiezza = e;
        r.arco.spessore = s;
        r.arco.pattern = p;
        r.arco.colore = colore;
        r.arco.patternArea = arrotonda16(f);
        break;
    default: break;
    }
    annullamento = aNiente;
}

namespace {
const VoceStato righe[] = {
    {"maxElementi", nullptr, [] { return NumeroJson(maxElementi); }},
    {"indElem", AzzeraArchivio, [] { return NumeroJson(indElem); }},
    voce<IndicePolCorrente>("IndicePolCorrente"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
