// The elements as commands: markers, polylines, texts, and segments chained into lines.
#include <algorithm>
#include <array>
#include <cmath>

#include "exchange/MiniCad.h"
#include "exchange/Operazione.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

puntot reale(double x, double y, double z) {
    puntot p{0, 0, z};
    DigiToReal(x, y, p.x, p.y);
    return p;
}

void iniziaPoly(tipo_D d) { writelnDisco(d == tre_D ? "Poly3D(" : "Poly("); }

// A point of the running line without its line end: the next record decides how it goes on.
void puntoSospeso(const puntot& p, tipo_D d) {
    const auto misura = [](double v) { return FormatReal(v, 1, 4) + stUniM; };
    writeDisco(misura(p.x) + "," + misura(p.y));
    if (d == tre_D) writeDisco("," + misura(p.z));
}

PStr255 scritta(const elemento& e) {
    const auto& t = e.test.testo;
    const std::size_t lungo = std::min<std::size_t>(t[0], t.size() - 1);
    return PStr255(std::string_view(reinterpret_cast<const char*>(t.data()) + 1, lungo));
}

}   // namespace

void TScriviObjectMiniCad::colore(std::int16_t c) {
    if (c != colorePrec) MCPenFore(c);
    colorePrec = c;
}

void TScriviObjectMiniCad::penna(std::int16_t c, std::int16_t pattern, std::int16_t size) {
    colore(c);
    if (pattern != patternPrec) MCPenPat(pattern);
    patternPrec = pattern;
    if (size != sizePrec) MCPenSize(size);
    sizePrec = size;
}

void TScriviObjectMiniCad::chiudiLinea() {
    if (!lineaAperta) return;
    writelnDisco("");
    writelnDisco(");");
    lineaAperta = false;
}

void TScriviObjectMiniCad::ScriviLineaMiniCad(const elemento& e, tipo_D d) {
    const puntot inizioSegm = reale(e.segm.x1, e.segm.y1, e.segm.z1);
    const puntot fineSegm = reale(e.segm.x2, e.segm.y2, e.segm.z2);
    const bool attaccato =
        inizioSegm.x == fineLinea.x && inizioSegm.y == fineLinea.y && (d == due_D || inizioSegm.z == fineLinea.z);
    const bool stessaPenna =
        e.segm.colore == colorePrec && e.segm.pattern == patternPrec && e.segm.spessore == sizePrec;
    if (lineaAperta && attaccato && stessaPenna) {
        writelnDisco(",");
    } else {
        chiudiLinea();
        penna(e.segm.colore, e.segm.pattern, e.segm.spessore);
        iniziaPoly(d);
        MCPolyTo(inizioSegm.x, inizioSegm.y, inizioSegm.z, d);
    }
    puntoSospeso(fineSegm, d);
    fineLinea = fineSegm;
    lineaAperta = true;
}

void TScriviObjectMiniCad::MCFaiPoly(std::int32_t& i, tipo_D d) {
    const elemento& testa = Elem(i);
    const std::int32_t ultimo = std::min(indElem, i + std::max<std::int32_t>(testa.poli.numVertici, 0));
    penna(testa.poli.colore, testa.poli.pattern, testa.poli.spessore);
    iniziaPoly(d);
    for (; i <= ultimo; ++i) {
        const elemento& e = Elem(i);
        const puntot p = reale(e.vert.x, e.vert.y, e.vert.z);   // a head holds its point where a vertex does
        (i < ultimo ? MCPolyTo : MCFinePoly)(p.x, p.y, p.z, d);
    }
    i = ultimo;
}

// The script places texts by their top.
void TScriviObjectMiniCad::MCFaiT(std::int32_t i) {
    const elemento& e = Elem(i);
    puntot p = reale(e.test.x, e.test.y, 0);
    p.y += e.test.altezza * rappvid * DecPunto;
    colore(e.test.colore);
    MCTextFace(e.test.stile);
    MCTextFont(e.test.font);
    MCTextSize(e.test.dimensione);
    MCTextOrigin(p.x, p.y);
    MCDrawString(scritta(e));
}

template <std::size_t N>
void TScriviObjectMiniCad::figura(const double (&punti)[N][2], tipo_D d) {
    const double r = RappPunti;
    iniziaPoly(d);
    for (std::size_t i = 0; i < N; ++i)
        (i + 1 < N ? MCPolyTo : MCFinePoly)(corrente.x + punti[i][0] * r, corrente.y + punti[i][1] * r, corrente.z, d);
}

void TScriviObjectMiniCad::AsteriscoMiniCad(tipo_D d) {
    static constexpr double tratti[4][2][2] = {
        {{-2, 0}, {2, 0}}, {{-2, -2}, {2, 2}}, {{0, -2}, {0, 2}}, {{2, -2}, {-2, 2}}};
    for (const auto& t : tratti) figura(t, d);
}

void TScriviObjectMiniCad::TriangoloMiniCad(tipo_D d) {
    static constexpr double punti[4][2] = {{0, 4}, {3, -2}, {-3, -2}, {0, 4}};
    figura(punti, d);
}

void TScriviObjectMiniCad::quadrato(const char* comando, tipo_D d) {
    const double r = 2.0 * RappPunti;
    writelnDisco(comando);
    MCPolyTo(corrente.x - r, corrente.y + r, corrente.z, d);
    MCFinePoly(corrente.x + r, corrente.y - r, corrente.z, d);
}

void TScriviObjectMiniCad::quadratoMiniCad(tipo_D d) {
    static constexpr double punti[5][2] = {{-2, -2}, {-2, 2}, {2, 2}, {2, -2}, {-2, -2}};
    if (d == due_D)
        quadrato("Rect(", d);
    else
        figura(punti, d);
}

void TScriviObjectMiniCad::croceMiniCad(tipo_D d) {
    static constexpr double tratti[2][2][2] = {{{-2, 0}, {2, 0}}, {{0, -2}, {0, 2}}};
    for (const auto& t : tratti) figura(t, d);
}

void TScriviObjectMiniCad::cerchiettoMiniCad(tipo_D d) {
    if (d == due_D) {
        quadrato("Oval(", d);
        return;
    }
    constexpr std::size_t lati = 16;
    double punti[lati + 1][2];
    for (std::size_t i = 0; i <= lati; ++i) {
        const double a = 2 * 3.14159265358979323846 * static_cast<double>(i % lati) / lati;
        punti[i][0] = 2 * std::cos(a);
        punti[i][1] = 2 * std::sin(a);
    }
    figura(punti, d);
}

// False for a shape without lines: only its pen is written.
bool TScriviObjectMiniCad::ScriviMarkerMiniCad(const elemento& e, tipo_D d) {
    penna(e.mark.colore, e.mark.pattern, e.mark.spessore);
    switch (e.mark.forma) {
    case 1: AsteriscoMiniCad(d); return true;
    case 2: TriangoloMiniCad(d); return true;
    case 3: quadratoMiniCad(d); return true;
    case 4: croceMiniCad(d); return true;
    case 5: cerchiettoMiniCad(d); return true;
    default: return false;
    }
}

// False when the script has nothing for the element.
bool TScriviObjectMiniCad::elementoVisibile(std::int32_t& i, tipo_D d) {
    const elemento& e = Elem(i);
    if (e.tipo != tSegmento) chiudiLinea();
    switch (e.tipo) {
    case tMarker: corrente = reale(e.mark.x, e.mark.y, e.mark.z); return ScriviMarkerMiniCad(e, d);
    case tPoligono: MCFaiPoly(i, d); return true;
    case tTesto: MCFaiT(i); return true;
    case tSegmento: ScriviLineaMiniCad(e, d); return true;
    default: return false;
    }
}

void TScriviObjectMiniCad::Scrivi(tipo_D d) {
    ScritturaLunga lunga;
    for (std::int32_t i = 3; i <= indElem && !uscita; ++i) {
        lunga.passo(i);
        const std::uint8_t tipo = Elem(i).tipo;
        if (!LucidoVisibile(Elem(i).lucido)) {
            if (tipo != tVertice) conti.perduti.aggiungi(cCoperti);
            continue;
        }
        if (tipo == tTesto && !VisioneGraf.mostraTesti) {
            chiudiLinea();
            conti.perduti.aggiungi(cCoperti);
        } else if (elementoVisibile(i, d)) {
            conti.scritti.aggiungi(tipo);
        } else if (tipo == tMarker) {
            conti.perduti.aggiungi(cMarkerIgnoti);
        } else {
            conti.perduti.aggiungi(tipo);
        }
    }
    chiudiLinea();
}

}   // namespace tessaro
