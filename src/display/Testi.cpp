// Text records. A port turns no text by itself: on a raster the glyphs' coverage is turned; elsewhere a text goes out
// twice, as comments with a horizontal string for a printer that turns it, and as a turned bitmap for everybody else.
#include "display/Testi.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "bitmap/BitMap.h"
#include "display/Pixel.h"
#include "display/RiquadroTesto.h"
#include "display/TestoGirato.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Unita.h"
#include "registration/attaccoDinamico.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t orizzontale = 100;
constexpr std::int16_t corpoMinimo = 2;

struct Testo {
    const elemento& e;
    Point dove;   // pixels
    std::int16_t corpo;
    std::int16_t angolo;
    double gradi;   // clockwise from the horizontal, sexagesimal

    [[nodiscard]] std::string_view scritta() const { return ScrittaDi(e); }
    void poniStato() const {
        TextFace(e.test.stile);
        TextFont(e.test.font);
        TextMode(srcOr);
        TextSize(corpo);
    }
};

double gradiDi(std::int16_t angolo) {
    switch (angolo) {
    case 200: return 90;
    case 300:
    case -100: return 180;
    case 0: return -90;
    case orizzontale: return 0;
    default: return AngToSessad(angolo, gradCorrente) - 90;
    }
}

VersoTesto versoDi(double gradi) {
    constexpr double grado = 3.14159265358979323846 / 180;
    return {std::cos(gradi * grado), std::sin(gradi * grado)};
}

// --- everywhere but on a raster

void grande(std::string& s, std::int32_t v, int bytes) {
    for (int i = bytes - 1; i >= 0; --i) s.push_back(static_cast<char>(v >> (8 * i)));
}

// The string lies under an empty clip: only a printer that knows the comments shows it, turned.
void perStampante(const Testo& t) {
    const Point penna = GetPen();
    const std::int16_t giro = arrotonda16(t.gradi);
    std::string rotazione;
    grande(rotazione, 0, 2);
    grande(rotazione, giro, 2);
    grande(rotazione, 0, 2);
    grande(rotazione, static_cast<std::int32_t>(std::llround(std::clamp(t.gradi, -32767.0, 32767.0) * 65536)), 4);
    PicComment(textBegin, rotazione);
    MoveTo(t.dove.h, t.dove.v);
    PicComment(textCenter, std::string(8, '\0'));
    const Region clip = GetClip();
    ClipRect(Rect{});
    t.poniStato();
    DrawString(t.scritta());
    SetClip(clip);
    PicComment(textEnd, {});
    MoveTo(penna.h, penna.v);
}

// The string's image turned, with its top left counted from the anchor.
BitMapPtr immagineGirata(const Testo& t, Point& da) {
    const auto& r = t.e.test;
    FontInfo info;
    std::int16_t w = 0;
    std::array<unsigned char, 41> s = r.testo;
    s[0] = static_cast<unsigned char>(t.scritta().size());
    const BitMapPtr b(StringToBitMap(r.font, t.corpo, r.stile, s.data(), info, w));
    if (b == nullptr) return nullptr;
    switch (t.angolo) {
    case 200: da = Point{0, -info.descent}; return BitMapPtr(RotateRight(b.get()));
    case 300:
    case -100: {
        da = Point{-info.descent, -w};
        const BitMapPtr meta(RotateRight(b.get()));
        return BitMapPtr(RotateRight(meta.get()));
    }
    case 0: da = Point{-w, -info.ascent}; return BitMapPtr(RotateLeft(b.get()));
    default: break;
    }
    // The turn without holes: a text that is shown is read.
    const auto gradi = static_cast<Fixed>(std::llround(std::clamp(t.gradi, -32767.0, 32767.0) * 65536));
    BitMapPtr g(RotateBitMapPiena(b.get(), 0, static_cast<std::int16_t>(info.ascent), gradi, &da));
    da.v -= info.ascent;   // the turn was about the beginning of the base line
    return g;
}

void comeBitmap(const Testo& t) {
    PicComment(bitmapBegin, {});
    Point da;
    // A page has turned the letters themselves.
    if (GetPort()->giraTesti) return PicComment(bitmapEnd, {});
    if (const BitMapPtr b = immagineGirata(t, da)) PlotBitMap(b.get(), t.dove.h + da.h, t.dove.v + da.v, srcOr);
    PicComment(bitmapEnd, {});
}

void girato(const Testo& t) {
    if (auto* const raster = dynamic_cast<RasterPort*>(GetPort())) {
        t.poniStato();
        DisegnaGirato(*raster, t.scritta(), t.dove, versoDi(t.gradi));
        return;
    }
    perStampante(t);
    comeBitmap(t);
}

// --- the veil of other sheets

// The outline in pixels from the anchor. Kept: upright and upside down, the width has no factor.
RettD riquadroVelo(std::int16_t angolo, double w, double fattore, double a) {
    switch (angolo) {
    case orizzontale: return {0, -0.7 * a, w, 0.3 * a};
    case 200: return {-0.3 * a, 0, 0.7 * a, w * fattore};
    case 0: return {-0.7 * a, -w * fattore, 0.3 * a, 0};
    case 300:
    case -100: return {-w, -0.3 * a, 0, 0.7 * a};
    default: return {0, -0.7 * a, w * fattore, 0.3 * a};   // before its turn
    }
}

void vela(const Testo& t, const RettD& r) {
    PenMode(notPatBic);
    PenPat(PatternVista(qdLtGray));
    const auto intero = [](double p, std::int32_t da) { return PixelTenuto(p) + da; };
    if (!TestoLibero(t.angolo)) {
        PaintRect(Rect{intero(r.top, t.dove.v), intero(r.left, t.dove.h), intero(r.bottom, t.dove.v),
                       intero(r.right, t.dove.h)});
    } else {
        const VersoTesto v = versoDi(t.gradi);
        Polygon p;
        for (const PuntoD& q :
             {PuntoD{r.left, r.bottom}, {r.right, r.bottom}, {r.right, r.top}, {r.left, r.top}, {r.left, r.bottom}})
            p.punti.push_back(Point{intero(q.h * v.seno + q.v * v.coseno, t.dove.v),
                                    intero(q.h * v.coseno - q.v * v.seno, t.dove.h)});
        PaintPoly(p);
    }
    PenMode(patCopy);
}

// --- the preview

struct Copia {
    double x, y, fattore;
    std::int16_t angolo;
};

// Angles lose their fraction, as those of the copies that are added do.
std::int16_t intero(double angolo) { return arrotonda16(std::trunc(angolo)); }

Copia trasformata(const elemento& e) {
    Copia c{e.test.x, e.test.y, 1, e.test.angolo};
    const double x = c.x, y = c.y;
    attaccoAttivo.Traf4Pt(c.x, c.y);
    constexpr std::int32_t rigida = 0;
    if (TipoMappa() == rigida) {
        c.angolo = intero(e.test.angolo + RadToAng(attaccoAttivo.rotazione, gradCorrente));
        c.fattore = attaccoAttivo.transf.ingr;
        return c;
    }
    // Where the far end of the base line goes.
    const double lungo = DecPunto * e.test.larghezza;
    double fx = 0, fy = 0, dist = 0, ang = 0;
    PolarCart(x, y, AngToRad(e.test.angolo, gradCorrente), lungo, fx, fy, orientCorrente);
    attaccoAttivo.Traf4Pt(fx, fy);
    CartPolar(c.x, c.y, fx, fy, dist, ang, orientCorrente);
    ang = static_cast<double>(Pig) - ang;
    if (ang < 0) ang += static_cast<double>(DuePig);
    c.angolo = intero(RadToAng(ang, gradCorrente));
    if (lungo > 0) c.fattore = dist / lungo;
    return c;
}

}   // namespace

std::string_view ScrittaDi(const elemento& e) {
    const std::size_t n = std::min<std::size_t>(e.test.testo[0], e.test.testo.size() - 1);
    return {reinterpret_cast<const char*>(e.test.testo.data()) + 1, n};
}

void DisegnaTesto(const double& x, const double& y, const double& fattore, std::int16_t angolo, std::int16_t altezza,
                  const elemento* record) {
    Point dove;
    if (!PuntoIntero(x, y, dove)) return;
    const std::int16_t corpo = std::max(arrotonda16(record->test.dimensione * ScalaTesto * fattore), corpoMinimo);
    const Testo t{*record, dove, corpo, angolo, gradiDi(angolo)};
    ColoreDaTabella(record->test.colore);
    if (angolo == orizzontale) {
        t.poniStato();
        MoveTo(dove.h, dove.v);
        DrawString(t.scritta());
    } else {
        girato(t);
    }
    if (!LucidoGrigio(record->lucido)) return;
    vela(t, riquadroVelo(angolo, record->test.larghezza * ScalaTesto, fattore, altezza * ScalaTesto * fattore));
}

void FaiT(std::int32_t index) {
    const elemento& e = Elem(index);
    DisegnaTesto(e.test.x, e.test.y, 1.0, e.test.angolo, e.test.altezza, &e);
    if (!AnteprimaAttiva()) return;
    const Copia c = trasformata(e);
    DisegnaTesto(c.x, c.y, c.fattore, c.angolo, e.test.altezza, &e);
}

}   // namespace tessaro
