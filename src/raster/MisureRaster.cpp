// Sizes and places of a raster job: from the boxes on the sheet to the rasters that are asked for.
#include "raster/MisureRaster.h"

#include <algorithm>
#include <cmath>

#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Memory.h"
#include "raster/Mappatura.h"
#include "raster/raster.h"
#include "raster/Tela.h"

namespace tessaro {

constinit double coeffRisoluzione = 0, coeffRisoluzioneSrc = 0, rapportoDimensione = 1;
constinit std::int16_t risoluzioneSrc = 0, numQudrilateri = 1;
constinit double x1PictBase = 0, y1PictBase = 0, x2PictBase = 0, y2PictBase = 0;
constinit double x1Pict = 0, y1Pict = 0, x2Pict = 0, y2Pict = 0;
constinit double x1PosPict = 0, y1PosPict = 0, x2PosPict = 0, y2PosPict = 0;
constinit double x1Pict2 = 0, y1Pict2 = 0, x2Pict2 = 0, y2Pict2 = 0;
constinit double x1Trasf = 0, y1Trasf = 0, x2Trasf = 0, y2Trasf = 0, x3Trasf = 0, y3Trasf = 0, x4Trasf = 0, y4Trasf = 0;
constinit std::int32_t larghBitMap = 0, altBitMap = 0;
constinit std::uint32_t mapSizeX = 0, mapSizeY = 0;
constinit Rect rectGW, rectGW2, pictRect, destRect;

std::int64_t Troncato(double v) {
    constexpr double limite = 9e18;
    return std::isnan(v) ? 0 : static_cast<std::int64_t>(std::clamp(v, -limite, limite));
}

std::int32_t Troncato32(double v) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(Troncato(v), -0x7FFFFFF0, 0x7FFFFFF0));
}

namespace {

std::uint32_t latoSorgente(double v) {
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(Troncato(v), 0, 4294967295LL));
}

}   // namespace

void CalcolaMisure(double ratioX, double ratioY) {
    larghBitMap = Troncato32(coeffRisoluzione * (x2Pict2 - x1Pict2) / DecPunto);
    altBitMap = Troncato32(coeffRisoluzione * (y2Pict2 - y1Pict2) / DecPunto);
    rapportoDimensione = std::max(ratioX, ratioY);
    coeffRisoluzioneSrc = densita * coeffRisoluzione * rapportoDimensione;
    risoluzioneSrc =
        static_cast<std::int16_t>(std::clamp<std::int64_t>(Troncato(rapportoDimensione * risoluzione), -32768, 32767));
}

void BaseDi(const elemento& pict) {
    x1PictBase = pict.pict.x;
    y1PictBase = pict.pict.y;
    x2PictBase = pict.pict.x + pict.pict.larghezza;
    y2PictBase = pict.pict.y + pict.pict.altezza;
}

void MisuraRaster(bool alSorgente) {
    const double k = coeffRisoluzioneSrc;
    if (alSorgente) {
        mapSizeX = latoSorgente(k * static_cast<double>(Troncato(x2PictBase - x1PictBase)) / DecPunto);
        mapSizeY = latoSorgente(k * static_cast<double>(Troncato(y2PictBase - y1PictBase)) / DecPunto);
        const auto in = [k](double pos) { return Troncato32(k * pos / DecPunto); };
        pictRect = Rect{in(y1PosPict), in(x1PosPict), in(y2PosPict), in(x2PosPict)};
    } else {
        mapSizeX = latoSorgente(k * (x2Pict - x1Pict) / DecPunto);
        mapSizeY = latoSorgente(k * (y2Pict - y1Pict) / DecPunto);
    }
    rectGW = Rect{0, 0, Troncato32(mapSizeY), Troncato32(mapSizeX)};
    if (!alSorgente) pictRect = rectGW;
    pictRect = SectRect(pictRect, rectGW);   // a polyline beyond the picture finds no pixels there
    rectGW2 = Rect{0, 0, altBitMap, larghBitMap};
    const auto punti = [](std::int32_t pixel) { return Troncato32(pixel / coeffRisoluzione); };
    destRect = Rect{0, 0, punti(altBitMap), punti(larghBitMap)};
}

bool SorgentePossibile() { return !EmptyRect(rectGW) && mapSizeX <= 0x7FFFFFF0U && mapSizeY <= 0x7FFFFFF0U; }

Piano PianoDelLavoro(const Tela& risultato) {
    Piano p;
    p.x1PictBase = x1PictBase;
    p.y1PictBase = y1PictBase;
    p.stepS = DecPunto / coeffRisoluzioneSrc;
    p.x1Pict2 = x1Pict2;
    p.y1Pict2 = y1Pict2;
    p.stepD = coeffRisoluzione / DecPunto;
    p.larghezza = risultato.larghezza;
    p.altezza = risultato.altezza;
    p.passo = risultato.passo();
    return p;
}

std::int64_t MemoriaChiesta() {
    return MemoriaTela(std::max(larghBitMap, 0), std::max(altBitMap, 0), bitColore / 8)
           + MemoriaTela(std::min(mapSizeX, 1U << 20), 64, 8);
}

namespace {
const VoceStato righe[] = {
    voce<rapportoDimensione>("rapportoDimensione"),
    voce<coeffRisoluzione>("coeffRisoluzione"),
    voce<coeffRisoluzioneSrc>("coeffRisoluzioneSrc"),
    voce<risoluzioneSrc>("risoluzioneSrc"),
    voce<larghBitMap>("larghBitMap"),
    voce<altBitMap>("altBitMap"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
