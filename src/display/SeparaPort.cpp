// The bottlenecks that store elements, and what the port's state means in the drawing's own numbers.
#include "display/SeparaPort.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Unita.h"
#include "platform/Fonts.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int32_t patternDiSistema = 38;

// The nearest of the drawing's colours.
std::int16_t numeroColore(const RGBColor& c) {
    const auto scarto = [&](const RGBColor& d) {
        const double r = double(c.red) - d.red, g = double(c.green) - d.green, b = double(c.blue) - d.blue;
        return r * r + g * g + b * b;
    };
    std::int16_t meglio = 1;
    for (std::int16_t i = 2; i <= coloriPresenti; ++i)
        if (scarto(arrColori[static_cast<std::size_t>(i - 1)].rgb)
            < scarto(arrColori[static_cast<std::size_t>(meglio - 1)].rgb))
            meglio = i;
    return meglio;
}

// The system's pattern with these bits; of those that are none, the solid one.
std::int16_t numeroPattern(const Pattern& p) {
    for (std::int32_t i = 1; i <= patternDiSistema; ++i)
        if (GetIndPattern(i) == p) return static_cast<std::int16_t>(i);
    return 1;
}

bool biancaDelTutto(const RGBColor& c) { return c.red == 65535 && c.green == 65535 && c.blue == 65535; }

}   // namespace

SeparaPort::SeparaPort(const Rect& frame, const ScalaSepara& come) : scala(come) {
    portRect = frame;
    clip = Region::of(frame);
}

bool SeparaPort::posto() {
    if (indElem < maxElementi) return true;
    senzaPosto = true;
    return false;
}

std::int16_t SeparaPort::grossezza() const {
    constexpr double massima = 9;   // of the thickness menu
    const double n = std::max(pen.pnSize.h, pen.pnSize.v) / scala.passo;
    return arrotonda16(std::clamp(n, 1.0, massima));
}

void SeparaPort::stdLine(Point from, Point to) {
    if (from == to || !posto()) return;
    const puntot a = foglio(from), b = foglio(to);
    Memorizza(tSegmento, a.x, a.y, 0, b.x, b.y, 0, grossezza(), numeroColore(foreground), numeroPattern(pen.pnPat),
              PStr255(""));
}

// A head counts its vertices in 16 bits: a longer figure goes on in a new one, from where the old one ends.
void SeparaPort::figura(const std::vector<Point>& punti, GrafVerb verb, const Pattern& area) {
    constexpr std::size_t perFigura = std::numeric_limits<std::int16_t>::max();
    const bool piena = verb != GrafVerb::frame;
    const Pattern& dentro = verb == GrafVerb::fill ? area : pen.pnPat;
    const double patternArea = piena ? numeroPattern(dentro) : 0;
    const std::int16_t bordo = piena ? std::int16_t{1} : numeroPattern(pen.pnPat);
    for (std::size_t da = 0; da + 1 < punti.size(); da += perFigura) {
        if (!posto()) return;
        const puntot testa = foglio(punti[da]);
        Memorizza(tPoligono, testa.x, testa.y, 0, 0, 0, patternArea, grossezza(), numeroColore(foreground), bordo,
                  PStr255(""));
        const std::size_t oltre = std::min(punti.size(), da + perFigura + 1);
        for (std::size_t i = da + 1; i < oltre && posto(); ++i) {
            const puntot v = foglio(punti[i]);
            Memorizza(tVertice, v.x + scala.x, v.y + scala.y, 0, 0, 0, 0, 0, 0, 0, PStr255(""));
        }
    }
}

// What only wipes the ground draws nothing.
void SeparaPort::stdRect(GrafVerb verb, const Rect& r, const Pattern& fillPattern) {
    if (EmptyRect(r) || verb == GrafVerb::erase || verb == GrafVerb::invert) return;
    const bool cornice = verb == GrafVerb::frame;
    const std::int32_t destra = cornice ? std::max(r.left, r.right - pen.pnSize.h) : r.right;
    const std::int32_t fondo = cornice ? std::max(r.top, r.bottom - pen.pnSize.v) : r.bottom;
    figura({{r.top, r.left}, {r.top, destra}, {fondo, destra}, {fondo, r.left}, {r.top, r.left}}, verb, fillPattern);
}

void SeparaPort::stdPoly(GrafVerb verb, const Polygon& p, const Pattern& fillPattern) {
    if (verb == GrafVerb::erase || verb == GrafVerb::invert) return;
    std::vector<Point> punti;
    for (const Point& q : p.punti)
        if (punti.empty() || punti.back() != q) punti.push_back(q);
    if (punti.size() < 2) return;
    if (verb != GrafVerb::frame && punti.front() != punti.back()) punti.push_back(punti.front());
    figura(punti, verb, fillPattern);
}

// Texts hold 40 characters: a longer one goes on in the next, at its own place.
void SeparaPort::stdText(std::string_view macRoman) {
    constexpr std::size_t massimo = 40;
    constexpr double orizzontale = 100;   // the stored angle of level text
    const double gradi = rotazione;
    const double coseno = std::cos(gradi / 180 * DuePig / 2), seno = std::sin(gradi / 180 * DuePig / 2);
    const std::int16_t fontPrima = gFontID, corpoPrima = gFontSize;
    const auto stilePrima = gTxStyle;
    gFontID = text.txFont;
    gTxStyle.face = text.txFace;
    gFontSize = std::max<std::int16_t>(1, arrotonda16(text.txSize * scala.perY / DecPunto));
    const double angolo = rotazione == 0 ? orizzontale : SessadToAng(gradi + 90, gradCorrente);
    while (!macRoman.empty()) {
        const std::string_view pezzo = macRoman.substr(0, massimo);
        macRoman.remove_prefix(pezzo.size());
        const bool visibile = pezzo.find_first_not_of(' ') != std::string_view::npos && !biancaDelTutto(foreground);
        if (visibile && posto()) {
            const puntot a = foglio(pen.pnLoc);
            Memorizza(tTesto, a.x, a.y, 0, 0, 0, 0, 0, numeroColore(foreground), arrotonda16(angolo), PStr255(pezzo));
        }
        const double avanti = TextWidth(text.txFont, text.txSize, text.txFace, pezzo);
        pen.pnLoc.h += arrotonda32(avanti * coseno);
        pen.pnLoc.v += arrotonda32(avanti * seno);
    }
    gFontID = fontPrima;
    gTxStyle = stilePrima;
    gFontSize = corpoPrima;
}

void SeparaPort::stdComment(std::int16_t kind, std::string_view data) {
    constexpr std::int16_t giraTesto = 150, fineGiro = 151;
    if (kind == fineGiro) rotazione = 0;
    if (kind != giraTesto || data.size() < 4) return;
    rotazione = static_cast<std::int16_t>(static_cast<std::uint8_t>(data[2]) << 8 | static_cast<std::uint8_t>(data[3]));
}

}   // namespace tessaro
