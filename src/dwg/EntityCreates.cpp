// The elements of the drawing as entities of the database, in real coordinates.
#include <algorithm>
#include <cmath>
#include <span>
#include <string>

#include "dwg/dwgdxf.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

OdDbObjectId ttfStyleIdArial, ttfStyleIdTime, ttfStyleIdCourier, ttfStyleIdVerdana, ttfStyleIdSymbol;

// Kept: black, whatever its name, is index 7, which other programs turn white on a black ground.
void esportaColore(OdDbEntity& e, std::int16_t colore) {
    constexpr std::int16_t inchiostro = 7;
    const bool nota = colore >= 1 && colore <= maxColori;
    const RGBColor rgb = nota ? arrColori[static_cast<std::size_t>(colore - 1)].rgb : RGBColor{};
    if (rgb.red == 0 && rgb.green == 0 && rgb.blue == 0) {
        e.color.setColorIndex(inchiostro);
        return;
    }
    const auto ottoBit = [](std::uint16_t v) { return static_cast<std::uint8_t>(v / 257.0); };
    e.color.setRGB(ottoBit(rgb.red), ottoBit(rgb.green), ottoBit(rgb.blue));
}

// Kept: below 2 gives 5, and 2 to 9 give 9; from there on, the next weight that is no thinner.
void SetSpessore(OdDbEntity& e, double penna) {
    constexpr std::int16_t minimo = 5, massimo = 211;
    static constexpr std::int16_t pesi[] = {9,  13, 15, 18, 20,  25,  30,  35,  40,  50, 53,
                                            60, 70, 80, 90, 100, 106, 120, 140, 158, 200};
    const double t = std::trunc(20.0 * penna);
    e.lineWeight = minimo;
    if (!(t >= 2)) return;
    const auto* const p = std::find_if(std::begin(pesi), std::end(pesi), [t](std::int16_t w) { return t <= w; });
    e.lineWeight = p == std::end(pesi) ? massimo : *p;
}

namespace {

// By the whole of pi, not its 32 bits: the end of an arc of 4 km would stand 0.3 mm off.
constexpr double radianti = 3.14159265358979323846 / 180;

// What the entities of one element have in common.
struct Tratto {
    OdDbObjectId layer;
    std::int16_t colore = 1;
    std::int16_t linea = 1;      // pen pattern
    std::int16_t spessore = 1;   // pen size
};

class Creazione {
public:
    explicit Creazione(OdDbDatabase& d) : db(d), modello(d.spazioModello()) {}

    // False when nothing of the element reaches the database. Moves i over the vertices of a polyline.
    bool elementoAllaBase(std::int32_t& i);

private:
    static OdGePoint3d reale(const double& x, const double& y, const double& z = 0) {
        OdGePoint3d p{0, 0, z};
        DigiToReal(x, y, p.x, p.y);
        return p;
    }
    template <class T>
    T& nuova(const Tratto& t) {
        auto e = std::make_unique<T>();
        e->layer = t.layer;
        esportaColore(*e, t.colore);
        SetSpessore(*e, t.spessore);
        if (t.linea > 1) e->linetype = LineTscad2TypeHandle(db, t.linea);
        return static_cast<T&>(modello.appendOdDbEntity(std::move(e)));
    }
    void ScriviLineaOpenDWG(double x1, double y1, double z1, double x2, double y2, double z2, const Tratto& t) {
        auto& l = nuova<OdDbLine>(t);
        l.startPoint = {x1, y1, z1};
        l.endPoint = {x2, y2, z2};
    }
    bool marker(const elemento& e, OdDbObjectId layer);
    void poligono(std::int32_t& i, OdDbObjectId layer);
    void testo(const elemento& e, OdDbObjectId layer);

    OdDbDatabase& db;
    OdDbBlockTableRecord& modello;
};

// The strokes of a marker, from and to, in half-sizes off its place, Y up.
struct Lineetta {
    std::int8_t x1, y1, x2, y2;
};
constexpr Lineetta asterisco[] = {{-1, 0, 1, 0}, {-1, -1, 1, 1}, {0, -1, 0, 1}, {1, -1, -1, 1}};
constexpr Lineetta ics[] = {{-1, -1, 1, 1}, {1, -1, -1, 1}};
constexpr Lineetta quadrato[] = {{-1, -1, -1, 1}, {-1, 1, 1, 1}, {1, 1, 1, -1}, {1, -1, -1, -1}};
constexpr Lineetta croce[] = {{-1, 0, 1, 0}, {0, -1, 0, 1}};
constexpr std::span<const Lineetta> forme[] = {asterisco, ics, quadrato, croce};

// Kept: a marker becomes the lines that show it, and one of a shape above 5 is lost.
bool Creazione::marker(const elemento& e, OdDbObjectId layer) {
    constexpr std::int16_t formaCerchio = 5;
    const double d = 2.0 * static_cast<double>(RappPunti);
    const OdGePoint3d p = reale(e.mark.x, e.mark.y, e.mark.z);
    const std::int16_t forma = e.mark.forma;
    const Tratto t{layer, e.mark.colore};
    if (forma < 1 || forma > formaCerchio) return false;
    if (forma == formaCerchio) {
        auto& c = nuova<OdDbCircle>(t);
        c.center = p;
        c.radius = d;
        return true;
    }
    for (const Lineetta& l : forme[forma - 1])
        ScriviLineaOpenDWG(p.x + l.x1 * d, p.y + l.y1 * d, p.z, p.x + l.x2 * d, p.y + l.y2 * d, p.z, t);
    return true;
}

// Kept: never closed; a closed figure ends where it began. Unless the person wants it otherwise.
void Creazione::poligono(std::int32_t& i, OdDbObjectId layer) {
    const auto& testa = Elem(i).poli;
    auto& p = nuova<OdDb3dPolyline>({layer, testa.colore, testa.pattern, testa.spessore});
    p.makeOpen();
    const std::int32_t ultimo = std::min(i + std::max<std::int32_t>(testa.numVertici, 0), indElem);
    p.vertici.reserve(static_cast<std::size_t>(ultimo - i) + 1);
    for (bool primo = true; i <= ultimo; ++i, primo = false) {
        if (!primo && Elem(i).tipo != tVertice) break;
        const auto& v = Elem(i).vert;   // a head has its point at the same place
        p.vertici.emplace_back();
        p.vertici.back().punto = reale(v.x, v.y, v.z);
    }
    --i;
    constexpr std::size_t lati = 3;
    const OdGePoint3d a = p.vertici.front().punto, b = p.vertici.back().punto;
    if (scelteEsporta.chiuse == 0 || p.vertici.size() <= lati || a.x != b.x || a.y != b.y || a.z != b.z) return;
    p.vertici.pop_back();
    p.closed = true;
}

// Kept: a text's elevation is lost, and no text refers to one of the styles.
void Creazione::testo(const elemento& e, OdDbObjectId layer) {
    const auto& t = e.test;
    const auto lungo = std::min<std::size_t>(t.testo[0], t.testo.size() - 1);
    auto x = std::make_unique<OdDbText>();
    x->layer = layer;
    esportaColore(*x, t.colore);
    x->position = reale(t.x, t.y);
    x->rotation = (90 - AngToSessad(static_cast<double>(t.angolo), gradCorrente)) * radianti;
    x->height = t.altezza * rappvid * DecPunto * 0.8;
    x->textString = MacToUtf8({reinterpret_cast<const char*>(t.testo.data()) + 1, lungo});
    modello.appendOdDbEntity(std::move(x));
}

bool Creazione::elementoAllaBase(std::int32_t& i) {
    const elemento& e = Elem(i);
    const std::int16_t lucido = e.lucido;
    const OdDbObjectId layer = newLayerId[lucido >= 0 && lucido <= 99 ? static_cast<std::size_t>(lucido) : 0];
    switch (e.tipo) {
    case tSegmento: {
        const auto& s = e.segm;
        const OdGePoint3d da = reale(s.x1, s.y1, s.z1), a = reale(s.x2, s.y2, s.z2);
        ScriviLineaOpenDWG(da.x, da.y, da.z, a.x, a.y, a.z, {layer, s.colore, s.pattern, s.spessore});
        return true;
    }
    case tMarker: return marker(e, layer);
    case tPoligono: poligono(i, layer); return true;
    case tTesto: testo(e, layer); return true;
    case tCerchio: {
        auto& c = nuova<OdDbCircle>({layer, e.cerc.colore, e.cerc.pattern, e.cerc.spessore});
        c.center = reale(e.cerc.cx, e.cerc.cy);
        c.radius = e.cerc.raggio * rappvid;
        return true;
    }
    case tArco: {
        const double inizio = e.arco.angoloInizio, ampiezza = e.arco.ampiezza;
        auto& a = nuova<OdDbArc>({layer, e.arco.colore, e.arco.pattern, e.arco.spessore});
        a.center = reale(e.arco.cx, e.arco.cy);
        a.radius = e.arco.raggio * rappvid;
        // In degrees, whatever the unit in force.
        a.startAngle = (90 - ampiezza - inizio) * radianti;
        a.endAngle = (90 - inizio) * radianti;
        return true;
    }
    default: return false;   // pictures are not exported
    }
}

void stili(OdDbDatabase& db) {
    static const struct {
        OdDbObjectId* id;
        const char *carattere, *file, *nome;
    } tabella[] = {
        {&ttfStyleIdArial, "Arial", "ARIAL.TTF", "ArialStyleFabra"},
        {&ttfStyleIdTime, "Times New Roman", "TIMES.TTF", "TimeStyleFabra"},
        {&ttfStyleIdCourier, "Courier", "Cour.TTF", "CourierStyleFabra"},
        {&ttfStyleIdVerdana, "Verdana", "verdana.TTF", "VerdanaStyleFabra"},
        {&ttfStyleIdSymbol, "Symbol", "SYMBOL.TTF", "SymbolStyleFabra"},
    };
    for (const auto& s : tabella)
        if (s.id->isNull()) *s.id = addStyle(db, s.nome, 0, 1, 0, 0, s.file, s.carattere);
}

}   // namespace

void EntityCreates(OdDbDatabase& db, Scritti& conto) {
    stili(db);
    Creazione c(db);
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const std::uint8_t tipo = Elem(i).tipo;
        if (c.elementoAllaBase(i))
            conto.scritti.aggiungi(tipo);
        else if (tipo == tMarker)
            conto.perduti.aggiungi(cMarkerIgnoti);
        else
            conto.perduti.aggiungi(tipo);
    }
}

void CreaDWG(OdDbDatabase& db, Scritti& conto) {
    ttfStyleIdArial = ttfStyleIdTime = ttfStyleIdCourier = ttfStyleIdVerdana = ttfStyleIdSymbol = {};
    EntityCreates(db, conto);
}

}   // namespace tessaro
