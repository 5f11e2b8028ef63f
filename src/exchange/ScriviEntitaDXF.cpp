// The elements of the drawing as DXF entities, in real coordinates.
#include <algorithm>
#include <span>
#include <string>

#include "exchange/DXF.h"
#include "exchange/ScriviDXF.h"
#include "exchange/TestoDxf.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::string_view continua = "CONTINUOUS";

// What the entities of one element have in common.
struct Tratto {
    std::string_view layer;
    std::int16_t colore = 1;
    std::string_view linea = continua;
};

void inizioEntita(BufferDXF& b, std::string_view nome, const Tratto& t) {
    b.righe2("  0", nome);
    b.righe2("  8", t.layer);
    b.righe2("  6", t.linea);
    b.intero(" 62", ColorToNum(t.colore));
}

void ScriviLineaDXF(BufferDXF& b, const puntot& da, const puntot& a, const Tratto& t) {
    inizioEntita(b, "LINE", t);
    b.punto('0', da.x, da.y, da.z);
    b.punto('1', a.x, a.y, a.z);
}

void scriviCerchio(BufferDXF& b, std::string_view nome, const puntot& centro, const double& raggio, const Tratto& t) {
    inizioEntita(b, nome, t);
    b.punto('0', centro.x, centro.y, centro.z);
    b.reale(" 40", raggio);
}

puntot reale(const double& x, const double& y, const double& z = 0) {
    puntot p{0, 0, z};
    DigiToReal(x, y, p.x, p.y);
    return p;
}

// The strokes of a marker, from and to, in units of RappPunti off its place, Y up.
struct Lineetta {
    std::int8_t x1, y1, x2, y2;
};
constexpr Lineetta asterisco[] = {{-2, 0, 2, 0}, {-2, -2, 2, 2}, {0, -2, 0, 2}, {2, -2, -2, 2}};
constexpr Lineetta triangolo[] = {{0, 4, 3, -2}, {3, -2, -3, -2}, {-3, -2, 0, 4}};
constexpr Lineetta quadrato[] = {{-2, -2, -2, 2}, {-2, 2, 2, 2}, {2, 2, 2, -2}, {2, -2, -2, -2}};
constexpr Lineetta croce[] = {{-2, 0, 2, 0}, {0, -2, 0, 2}};
constexpr std::span<const Lineetta> forme[] = {asterisco, triangolo, quadrato, croce};
constexpr std::int16_t formaCerchio = 5;

// Kept: a marker becomes the lines that show it, and one of another shape is lost.
bool scriviMarker(BufferDXF& b, const elemento& e, const Tratto& t) {
    const double r = RappPunti;
    const puntot p = reale(e.mark.x, e.mark.y, e.mark.z);
    const std::int16_t forma = e.mark.forma;
    if (forma < 1 || forma > formaCerchio) return false;
    if (forma == formaCerchio) {
        scriviCerchio(b, "CIRCLE", p, 2 * r, t);
        return true;
    }
    for (const Lineetta& l : forme[forma - 1])
        ScriviLineaDXF(b, {p.x + l.x1 * r, p.y + l.y1 * r, p.z}, {p.x + l.x2 * r, p.y + l.y2 * r, p.z}, t);
    return true;
}

void ScriviVertexDXF(BufferDXF& b, std::int32_t i, const Tratto& t) {
    const auto& v = Elem(i).vert;   // a head has its point at the same place
    const puntot p = reale(v.x, v.y, v.z);
    b.righe2("  0", "VERTEX");
    b.righe2("  8", t.layer);
    b.intero(" 62", ColorToNum(t.colore));
    b.punto('0', p.x, p.y, p.z);
    b.righe2(" 42", "0");
    b.righe2(" 70", "     0");
}

// Moves i to the figure's last vertex.
void ScriviPolyDXF(BufferDXF& b, std::int32_t& i, const Tratto& t) {
    inizioEntita(b, "POLYLINE", t);
    b.righe2(" 66", "     1");
    b.righe2(" 70", "     0");
    const std::int32_t ultimo = std::min(i + Elem(i).poli.numVertici, indElem);
    for (ScriviVertexDXF(b, i, t); i < ultimo; ScriviVertexDXF(b, i, t)) ++i;
    b.righe2("  0", "SEQEND");
}

void scriviTesto(BufferDXF& b, const elemento& e, const Tratto& t) {
    const puntot p = reale(e.test.x, e.test.y);
    const auto& testo = e.test.testo;
    const auto lungo = std::min<std::size_t>(testo[0], testo.size() - 1);
    inizioEntita(b, "TEXT", t);
    b.punto('0', p.x, p.y, 0.0);
    b.reale(" 40", 0.8 * e.test.altezza * rappvid * DecPunto);
    b.reale(" 50", 90 - AngToSessad(e.test.angolo, gradCorrente));
    b.righe2("  1", TestoPerDxf({reinterpret_cast<const char*>(testo.data()) + 1, lungo}));
}

// Kept: a radius goes by rappvid also where a registration has another scale.
void scriviArco(BufferDXF& b, const elemento& e, const Tratto& t) {
    const double inizio = e.arco.angoloInizio, ampiezza = e.arco.ampiezza;
    scriviCerchio(b, "ARC", reale(e.arco.cx, e.arco.cy), e.arco.raggio * rappvid, t);
    b.reale(" 50", 90 - ampiezza - inizio);
    b.reale(" 51", 90 - inizio);
}

// False when nothing of the element reaches the file. Moves i over the vertices of a polyline.
bool scriviElemento(BufferDXF& b, std::int32_t& i, std::string_view layer) {
    const elemento& e = Elem(i);
    switch (e.tipo) {
    case tSegmento:
        ScriviLineaDXF(b, reale(e.segm.x1, e.segm.y1, e.segm.z1), reale(e.segm.x2, e.segm.y2, e.segm.z2),
                       {layer, e.segm.colore, LineTscad2DXF(e.segm.pattern)});
        return true;
    case tMarker: return scriviMarker(b, e, {layer, e.mark.colore});
    case tPoligono: ScriviPolyDXF(b, i, {layer, e.poli.colore, LineTscad2DXF(e.poli.pattern)}); return true;
    case tTesto: scriviTesto(b, e, {layer, e.test.colore}); return true;
    case tCerchio:
        scriviCerchio(b, "CIRCLE", reale(e.cerc.cx, e.cerc.cy), e.cerc.raggio * rappvid,
                      {layer, e.cerc.colore, LineTscad2DXF(e.cerc.pattern)});
        return true;
    case tArco: scriviArco(b, e, {layer, e.arco.colore, LineTscad2DXF(e.arco.pattern)}); return true;
    default: return false;
    }
}

}   // namespace

void ScriviEntitiesDXF(ScritturaDXF& s) {
    s.b.righe2("  0", "SECTION");
    s.b.righe2("  2", "ENTITIES");
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const std::uint8_t tipo = Elem(i).tipo;
        const std::int16_t lucido = Elem(i).lucido;
        const std::size_t l = lucido >= 0 && lucido <= 99 ? static_cast<std::size_t>(lucido) : 0;
        if (scriviElemento(s.b, i, Layerdxf[l].intero))
            s.scritti.aggiungi(tipo);
        else if (tipo == tMarker)
            s.perduti.aggiungi(cMarkerIgnoti);
        else
            s.perduti.aggiungi(tipo);
    }
    s.b.righe2("  0", "ENDSEC");
}

}   // namespace tessaro
