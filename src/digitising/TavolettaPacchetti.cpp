// Packets out of a digitiser's bytes.
#include "digitising/TavolettaPacchetti.h"

#include <algorithm>
#include <charconv>

namespace tessaro {

namespace {

constexpr std::size_t minCifre = 4, maxCifre = 6;
constexpr std::size_t byteBinari = 6;
constexpr std::uint8_t primoByte = 0x80, fuoriPortata = 0x40, bitIgnoti = 0x3C;
constexpr std::uint32_t pausaTraPressioni = 20;   // ticks: the slowest stream sends many samples in this time

bool cifra(char c) { return c >= '0' && c <= '9'; }

std::string_view senzaBianchi(std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

bool leggiConteggio(std::string_view s, std::int32_t& v) {
    if (s.size() < minCifre || s.size() > maxCifre || !std::all_of(s.begin(), s.end(), cifra)) return false;
    return std::from_chars(s.data(), s.data() + s.size(), v).ec == std::errc{};
}

// The field behind the coordinates: empty where the digitiser sends none.
bool leggiBottone(std::string_view s, std::int16_t& b) {
    s = senzaBianchi(s);
    b = 0;
    if (s.empty()) return true;
    if (s.size() != 1 || s[0] < '0' || s[0] > '?') return false;
    b = static_cast<std::int16_t>(s[0] - '0');
    return true;
}

// Fields of different length are the sign of a line that lost characters.
bool leggiCoppia(std::string_view x, std::string_view y, std::string_view bottone, Campione& c) {
    Campione letto;
    if (x.size() != y.size() || !leggiConteggio(x, letto.x) || !leggiConteggio(y, letto.y)
        || !leggiBottone(bottone, letto.bottone))
        return false;
    c = letto;
    return true;
}

}   // namespace

bool LeggiVirgole(std::string_view riga, Campione& c) {
    const std::size_t prima = riga.find(',');
    if (prima == std::string_view::npos) return false;
    const std::size_t seconda = riga.find(',', prima + 1);
    if (seconda == std::string_view::npos || senzaBianchi(riga.substr(seconda + 1)).empty()) return false;
    return leggiCoppia(senzaBianchi(riga.substr(0, prima)), riga.substr(prima + 1, seconda - prima - 1),
                       riga.substr(seconda + 1), c);
}

bool LeggiLarghezzaFissa(std::string_view riga, Campione& c) {
    riga = senzaBianchi(riga);
    const std::size_t bianco = riga.find(' ');
    // With a blank behind X the widths are plain to see; else all digits but an odd last one are the two coordinates.
    if (bianco <= maxCifre) {
        const std::string_view resto = riga.substr(bianco + 1);
        return leggiCoppia(riga.substr(0, bianco), resto.substr(0, bianco),
                           resto.substr(std::min(bianco, resto.size())), c);
    }
    const std::size_t unite = bianco == std::string_view::npos ? riga.size() & ~std::size_t{1} : bianco;
    if (unite % 2 != 0) return false;
    return leggiCoppia(riga.substr(0, unite / 2), riga.substr(unite / 2, unite / 2), riga.substr(unite), c);
}

void DecodificaTavoletta::azzera() {
    quanti = 0;
    traboccato = false;
}

bool DecodificaTavoletta::prendi(std::uint8_t byte, Campione& c) {
    return formato == FormatoPacchetti::binario ? prendiBinario(byte, c) : prendiTesto(byte, c);
}

bool DecodificaTavoletta::prendiTesto(std::uint8_t byte, Campione& c) {
    byte &= 0x7F;   // a digitiser that sends a parity bit in the place of the eighth
    if (byte != '\r' && byte != '\n') {
        if (quanti == raccolti.size()) traboccato = true;
        if (!traboccato) raccolti[quanti++] = byte;
        return false;
    }
    const std::string_view riga(reinterpret_cast<const char*>(raccolti.data()), quanti);
    const bool intera =
        !traboccato && (formato == FormatoPacchetti::virgole ? LeggiVirgole(riga, c) : LeggiLarghezzaFissa(riga, c));
    azzera();
    return intera;
}

bool DecodificaTavoletta::prendiBinario(std::uint8_t byte, Campione& c) {
    if (byte & primoByte) {
        raccolti[0] = byte;   // also amid a packet, which was cut
        quanti = 1;
        return false;
    }
    if (quanti == 0) return false;   // no packet has begun
    raccolti[quanti++] = byte;
    if (quanti < byteBinari) return false;
    quanti = 0;
    const auto& p = raccolti;
    if (p[3] & (fuoriPortata | bitIgnoti)) return false;
    c.x = (p[0] & 3) << 14 | p[1] << 7 | p[2];
    c.y = (p[3] & 3) << 14 | p[4] << 7 | p[5];
    c.bottone = static_cast<std::int16_t>(p[0] >> 2 & 0x1F);
    return true;
}

std::int16_t PressioneTasti::premuto(std::int16_t bottone, std::uint32_t ticks) {
    const bool ancora = bottone == tenuto && ticks - ultimo < pausaTraPressioni;
    tenuto = bottone;
    ultimo = ticks;
    return ancora ? std::int16_t{0} : bottone;
}

}   // namespace tessaro
