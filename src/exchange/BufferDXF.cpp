// Numbers and lines into the buffer, and the buffer into the file.
#include "exchange/BufferDXF.h"

#include <charconv>
#include <cmath>

#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr char fineRiga = 13;

}   // namespace

void BufferDXF::riga(std::string_view s) {
    righe += s;
    righe += fineRiga;
    if (righe.size() >= capienza) svuota();
}

// What FormatReal gives, without its string in between for all ordinary numbers.
void BufferDXF::riga(const double& v, std::int16_t decimali) {
    constexpr double ordinario = 1e15;
    if (!(std::fabs(v) < ordinario)) {
        riga(FormatReal(v, 1, decimali).view());
        return;
    }
    char testo[64];
    const auto r = std::to_chars(testo, testo + sizeof testo, v, std::chars_format::fixed, decimali);
    riga(std::string_view(testo, static_cast<std::size_t>(r.ptr - testo)));
}

void BufferDXF::intero(std::string_view codice, std::int32_t n, std::int16_t larghezza) {
    righe2(codice, FormatInt(n, larghezza).view());
}

void BufferDXF::punto(char indice, const double& x, const double& y, const double& z) {
    char codice[] = {' ', '1', indice};
    const std::string_view c(codice, sizeof codice);
    reale(c, x);
    codice[1] = '2';
    reale(c, y);
    codice[1] = '3';
    reale(c, z);
}

void BufferDXF::svuota() {
    scriviBlocco(righe.data(), static_cast<std::int32_t>(righe.size()));
    righe.clear();
}

}   // namespace tessaro
