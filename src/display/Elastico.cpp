// The pen that tools expect, the cross and the rubber band that follow the pointer (all xor), and the pen widths that a
// picture carries to a printer.
#include "display/Elastico.h"

#include <array>
#include <string>

#include "display/Disegno.h"
#include "display/Pixel.h"
#include "model/Archivio.h"
#include "model/TabellaStato.h"

namespace tessaro {

constinit puntot CentroCorrente{};
constinit double RaggioCorrente = 0;
constinit std::int16_t AngInizio = 0, AmpiezzaAngCorrente = 0;

namespace {

void pennaXor(std::int16_t larghezza) {
    PenNormal();
    PenSize(larghezza, larghezza);
    PenMode(patXor);
    ForeColor(blackColor);
}

// A cross of `lato` pixels from tip to tip about a sheet position.
void croce(double x, double y, std::int32_t lato, std::int16_t larghezza) {
    Point p;
    if (!PuntoIntero(x, y, p)) return;
    const Stato stato;
    pennaXor(larghezza);
    const std::int32_t centro = larghezza / 2, braccio = lato / 2;
    const std::int32_t h = p.h - centro, v = p.v - centro;
    MoveTo(h - braccio, v);
    LineTo(h + braccio, v);
    MoveTo(h, v - braccio);
    LineTo(h, v + braccio);
}

// The printer comment's two numbers, high byte first as pictures have them.
void larghezzaLinea(std::int16_t numeratore, std::int16_t denominatore) {
    const auto n = static_cast<std::uint16_t>(numeratore), d = static_cast<std::uint16_t>(denominatore);
    const std::array<char, 4> byte{static_cast<char>(n >> 8), static_cast<char>(n & 255), static_cast<char>(d >> 8),
                                   static_cast<char>(d & 255)};
    PicComment(182, {byte.data(), byte.size()});
}

}   // namespace

void PennaAttuale() {
    PenPat(PatAttuale);
    PenMode(ModoAttuale);
    ColoreDaTabella(colorAttuale);
    PenSize(spessore, spessore);
}

void dis_cursor(const double& x, const double& y) { croce(x, y, 8, 1); }
void Dis_Cursor2(const double& x, const double& y) { croce(x, y, 4, 1); }
void Dis_CursSel(const double& x, const double& y) { croce(x, y, 8, 2); }

void Croce() {
    if (Modalita == 2 && Sposta2ndClick) {
        Dis_Cursor2(xcurs, ycurs);
    } else {
        dis_cursor(xcurs, ycurs);
    }
}

void Elastico() {
    if (Azione == 0) return;
    const bool curva = Azione != 5 && (operazCorrente == 5 || operazCorrente == 6);
    const Stato stato;
    const std::int16_t spessPrima = spess;
    spess = static_cast<std::int16_t>(spessore / 2);
    pennaXor(spessore);
    PenPat(PatAttuale);
    if (!curva || (Azione == 1 && CurvePerPunti)) {
        fai(tSegmento, Xini, Yini, Xfine, Yfine, 0);
    } else if (Azione == 8 && operazCorrente == 6) {
        fai(tArco, CentroCorrente.x, CentroCorrente.y, RaggioCorrente, AngInizio, AmpiezzaAngCorrente);
    } else {
        fai(tCerchio, CentroCorrente.x, CentroCorrente.y, RaggioCorrente, 0, 0);
    }
    spess = spessPrima;
}

void SospendiAz() {
    if (noWindow) return;
    Croce();
    Elastico();
}

void CommBegin() {
    if (!DisegnaPict) return;
    PicComment(130, {});
    PicComment(140, {});
    larghezzaLinea(12, 10);
}

void CommEnd() {
    if (!DisegnaPict) return;
    PicComment(141, {});
    PicComment(131, {});
}

// Kept: the width sent follows SpessorePenna alone, whatever the size of the pen on the screen.
void PenSizeLaser(std::int16_t size) {
    (void)size;
    if (DisegnaPict) larghezzaLinea(arrotonda16(28.35 * SpessorePenna), 100);
}

namespace {

std::string centroJson() {
    return "{\"x\":" + NumeroJson(CentroCorrente.x) + ",\"y\":" + NumeroJson(CentroCorrente.y) + "}";
}

const VoceStato righe[] = {
    {"CentroCorrente", VoceStato::speciale, nullptr, 0, [] { CentroCorrente = {}; }, centroJson},
    {"RaggioCorrente", VoceStato::f64, &RaggioCorrente},
    {"AngInizio", VoceStato::i16, &AngInizio},
    {"AmpiezzaAngCorrente", VoceStato::i16, &AmpiezzaAngCorrente},
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
