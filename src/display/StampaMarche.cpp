// What is printed round the drawing: crop marks, which sheet it is, and a ruler to measure the print by.
#include <algorithm>
#include <cmath>
#include <string>

#include "display/StampaPiastrelle.h"
#include "model/Documento.h"
#include "platform/Fonts.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int32_t k = finezzaPagina;
constexpr std::int16_t listaStampa = 9146, parolaFoglio = 12, parolaRidotto = 13, parolaRighello = 14;
constexpr std::int32_t corpo = 8;      // points
constexpr std::int32_t crocino = 14;   // points: length of a crop mark
constexpr double unitaMm = 72 / 25.4 * k;

void linea(std::int32_t h1, std::int32_t v1, std::int32_t h2, std::int32_t v2) {
    MoveTo(h1, v1);
    LineTo(h2, v2);
}

void pennaSottile() {
    PenNormal();
    PenSize(k / 4, k / 4);   // a quarter of a point, once the comment counts a pixel as a point
    PicComment(setLineWidth, std::string_view("\0\1\0\1", 4));
    ForeColor(blackColor);
}

// At the corners of the part that stays when the page is cut, outside of it, from the rim's edge.
void crocini(const Piastrelle& p) {
    const std::int32_t b = p.bordo * k, lungo = std::min(crocino * k, b);
    const std::int32_t fine = b - std::min(k, b / 4);   // a little short of the drawing
    for (const std::int32_t h : {0, p.passoH, p.larga}) {
        linea(b + h * k, fine - lungo, b + h * k, fine);
        linea(b + h * k, 2 * b + p.alta * k - fine, b + h * k, 2 * b + p.alta * k - fine + lungo);
    }
    for (const std::int32_t v : {0, p.passoV, p.alta}) {
        linea(fine - lungo, b + v * k, fine, b + v * k);
        linea(2 * b + p.larga * k - fine, b + v * k, 2 * b + p.larga * k - fine + lungo, b + v * k);
    }
}

std::string conNumeri(std::string modello, std::initializer_list<std::string> valori) {
    std::size_t n = 0;
    for (const std::string& v : valori) {
        const std::string segno = "^" + std::to_string(n++);
        if (const std::size_t dove = modello.find(segno); dove != std::string::npos) modello.replace(dove, 2, v);
    }
    return modello;
}

void scrivi(std::int32_t h, std::int32_t v, const std::string& s) {
    TextFont(3);
    TextFace(0);
    TextMode(srcOr);
    TextSize(corpo * k);
    MoveTo(h, v);
    DrawString(s);
}

void numero(const Piastrelle& p, std::int32_t n, std::int32_t v) {
    const auto cifra = [](std::int32_t i) { return std::to_string(i); };
    std::string s = std::string(NomeLavoro.view()) + " - "
                    + conNumeri(GetIndString(listaStampa, parolaFoglio),
                                {cifra(n), cifra(p.pagine()), cifra(p.riga(n) + 1), cifra(p.colonna(n) + 1)});
    if (p.scala < 1)
        s += conNumeri(GetIndString(listaStampa, parolaRidotto),
                       {std::to_string(static_cast<int>(std::lround(p.scala * 1000)) / 10)});
    scrivi((p.bordo + crocino) * k, v, s);
}

// Ten centimetres, or as many whole ones as the page has room for, at the right below the drawing.
void righello(const Piastrelle& p, std::int32_t v) {
    const double larga = p.larga * k * 0.6;
    const int cm = std::clamp(static_cast<int>(larga / (10 * unitaMm)), 1, 10);
    const auto a = [&](double mm) {
        return static_cast<std::int32_t>(std::lround((p.bordo + p.larga - crocino) * k - (cm * 10 - mm) * unitaMm));
    };
    linea(a(0), v, a(cm * 10), v);
    for (int mm = 0; mm <= cm * 10; ++mm) {
        const double alto = mm % 10 == 0 ? 2.0 : mm % 5 == 0 ? 1.4 : 0.8;
        linea(a(mm), v, a(mm), v - static_cast<std::int32_t>(std::lround(alto * unitaMm)));
    }
    const std::string s = conNumeri(GetIndString(listaStampa, parolaRighello), {std::to_string(cm * 10)});
    TextFont(3);
    TextSize(corpo * k);
    scrivi(a(0) - TextWidth(3, corpo * k, 0, s) - 4 * k, v, s);
}

}   // namespace

void DisMarchePagina(const Piastrelle& p, std::int32_t n, const Rect& pagina, const ScelteStampa& scelte) {
    if (p.bordo <= 0) return;
    pennaSottile();
    if (scelte.crocini) crocini(p);
    const std::int32_t v = (pagina.bottom - pagina.top - p.bordo / 3) * k;
    if (scelte.numeri) numero(p, n, v);
    if (scelte.righello) righello(p, v);
}

}   // namespace tessaro
