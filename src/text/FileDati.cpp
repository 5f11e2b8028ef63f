// Binary primitives over the one open file. Each is silent once `uscita` is set; every error of the file calls goes
// through IOERR2, which sets it.
#include "text/FileDati.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "platform/Windows.h"
#include "text/EndianConvert.h"

namespace tessaro {

constinit std::int16_t RefNum = 0;
constinit std::uint8_t EndFile = 0;
constinit std::int16_t numriga = 0;
constinit std::uint8_t rigapari = 1;
constinit std::uint8_t LF = 10;
constinit std::uint8_t uscita = 0;
void (*mostraErroreFile)(std::int16_t) = nullptr;

void IOERR2(OSErr e) {
    if (e > -1 || e < -523) return;
    if (mostraErroreFile) mostraErroreFile(e);
    SetCursor(arrowCursor);
    uscita = 1;
}

namespace {

template <class T>
T leggi() {
    T v{};
    leggiBlocco(&v, sizeof v);
    return uscita != 0 ? T{} : v;
}

}   // namespace

void leggiBlocco(void* data, std::int32_t count) {
    if (uscita != 0 || count <= 0) return;
    IOERR2(FSRead(RefNum, count, data));
}

void scriviBlocco(const void* data, std::int32_t count) {
    if (uscita != 0 || count <= 0) return;
    IOERR2(FSWrite(RefNum, count, data));
}

std::uint8_t leggib() { return leggi<std::uint8_t>(); }
std::int16_t leggii() { return EndiansShort_BtoN(leggi<std::int16_t>()); }
std::int32_t leggiLong() { return EndiansLong_BtoN(leggi<std::int32_t>()); }
double leggir() { return EndiansDouble_BtoN(leggi<double>()); }
std::array<std::uint8_t, 10> leggiExtended() { return leggi<std::array<std::uint8_t, 10>>(); }

// Sign and 15-bit exponent (bias 16383), then a mantissa of 64 bits whose first is the whole part; nothing is implied, so
// a number that is not normalised means what its bits say. Exponent 0 counts as 1. The mantissa fits a long double of 64
// bits, and the caller's narrowing is then the only rounding.
long double x80told(const std::array<std::uint8_t, 10>& x) {
    constexpr int nonNumero = 0x7FFF, scarto = 16383 + 63;
    const int esponente = (x[0] & 0x7F) << 8 | x[1];
    std::uint64_t mantissa = 0;
    for (std::size_t i = 2; i < x.size(); ++i) mantissa = mantissa << 8 | x[i];
    long double v = 0;
    if (esponente == nonNumero)   // the whole bit does not count
        v = (mantissa << 1) == 0 ? HUGE_VALL : std::numeric_limits<long double>::quiet_NaN();
    else
        v = std::ldexp(static_cast<long double>(mantissa), std::max(esponente, 1) - scarto);
    return (x[0] & 0x80) != 0 ? -v : v;
}

void scrivib(std::uint8_t v) { scriviBlocco(&v, 1); }
void ScriviChar(std::uint8_t& v) { scriviBlocco(&v, 1); }
void scrivii(std::int16_t v) {
    const std::int16_t disco = EndiansShort_NtoB(v);
    scriviBlocco(&disco, sizeof disco);
}
void scriviLong(std::int32_t v) {
    const std::int32_t disco = EndiansLong_NtoB(v);
    scriviBlocco(&disco, sizeof disco);
}
void scrivir(const double& v) {
    const double disco = EndiansDouble_NtoB(v);
    scriviBlocco(&disco, sizeof disco);
}

void scriviS(const PStr255& s) { scriviBlocco(s.bytes(), s[0] + 1); }
void scriviSlong(const PStr255& s) {
    scrivii(s[0]);
    scriviBlocco(s.bytes() + 1, s[0]);
}

void writeDisco(const PStr255& s) { scriviBlocco(s.bytes() + 1, s[0]); }
void writelnDisco(const PStr255& s) {
    writeDisco(s);
    scrivib(13);
}

}   // namespace tessaro
