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

namespace {

// What Memorizza was called with: a to f as the type takes them, and the pen.
struct Dati {
    double a, b, c, d, e, f;
    std::int16_t spessore, colore, pattern;
};

template <class Figura>
void penna(Figura& r, const Dati& v) {
    r.spessore = v.spessore;
    r.pattern = v.pattern;
    r.colore = v.colore;
}

void riempi(elemento::Segmento& r, const Dati& v) {
    r.t.aref = ArefSegmDef;
    r.x1 = v.a;
    r.y1 = v.b;
    r.z1 = v.c;
    r.x2 = v.d;
    r.y2 = v.e;
    r.z2 = v.f;
    penna(r, v);
    ricordaLato({v.d - v.a, v.e - v.b, v.a, v.b, v.d, v.e});
}

void riempi(elemento::Marker& r, const Dati& v) {
    r.t.aref = ArefMarkerDef;
    r.x = v.a;
    r.y = v.b;
    r.z = v.c;
    r.forma = arrotonda16(v.d);
    penna(r, v);
}

void riempi(elemento::Poligono& r, const Dati& v) {
    r.t.aref = ArefPolyDef;
    r.x = v.a;
    r.y = v.b;
    r.z = v.c;
    r.passoTratt = 0;
    r.angoloTratt = 0;
    r.tratteggio = 0;
    r.incrociato = 0;
    r.numVertici = 0;
    penna(r, v);
    r.patternArea = arrotonda16(v.f);
    IndicePolCorrente = indElem;
}

void riempi(elemento::Pict& r, const Dati& v) {
    r.x = v.a;
    r.y = v.b;
    r.larghezza = v.d;
    r.altezza = v.e;
}

void riempi(elemento::Cerchio& r, const Dati& v) {
    r.t.aref = ArefCerchiDef;
    r.cx = v.a;
    r.cy = v.b;
    r.raggio = v.c;
    penna(r, v);
    r.patternArea = arrotonda16(v.f);
}

void riempi(elemento::Arco& r, const Dati& v) {
    r.t.aref = ArefArchiDef;
    r.cx = v.a;
    r.cy = v.b;
    r.raggio = v.c;
    r.angoloInizio = v.d;
    r.ampiezza = v.e;
    penna(r, v);
    r.patternArea = arrotonda16(v.f);
}

void riempiVertice(elemento& r, const Dati& v) {
    r.vert.t.aref = ArefPolyDef;
    r.vert.x = v.a;
    r.vert.y = v.b;
    r.vert.z = v.c;
    vertice(r);
}

void riempiTesto(elemento& r, const Dati& v, const PStr255& scritta) {
    r.test.x = v.a;
    r.test.y = v.b;
    r.test.angolo = v.pattern;
    r.test.colore = v.colore;
    testo(r, scritta);
}

// What every record has; a text has no room for line, set and category.
void testata(elemento& r, Tipoelem tipo) {
    r.tipo = tipo;
    r.lucido = VisioneGraf.lucidoCorrente;
    r.selezionato = 0;
    r.riservato3 = 0;
    r.riservato4 = 0;
    if (tipo == tTesto) return;
    r.testa.linea = LineaCorrente;
    r.testa.insieme = InsiemeCorrente;
    r.testa.categoria = CategoriaCorrente;
}

}   // namespace

void Memorizza(Tipoelem tipo, const double& a, const double& b, const double& c, const double& d, const double& e,
               const double& f, std::int16_t s, std::int16_t colore, std::int16_t p, const PStr255& scritta) {
    if (indElem >= maxElementi) {
        SysBeep(30);
        return;
    }
    ++indElem;
    elemento& r = Elem(indElem);
    const Dati v{a, b, c, d, e, f, s, colore, p};
    testata(r, tipo);
    switch (tipo) {
    case tSegmento: riempi(r.segm, v); break;
    case tMarker: riempi(r.mark, v); break;
    case tPoligono: riempi(r.poli, v); break;
    case tVertice: riempiVertice(r, v); break;
    case tTesto: riempiTesto(r, v, scritta); break;
    case tPict: riempi(r.pict, v); break;
    case tCerchio: riempi(r.cerc, v); break;
    case tArco: riempi(r.arco, v); break;
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
