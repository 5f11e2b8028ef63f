// The reset table's chain and the JSON forms that scripts print.
#include "model/TabellaStato.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "platform/Resources.h"
#include "text/PascalString.h"

namespace tessaro {

constinit TabellaStato* TabellaStato::prima = nullptr;

TabellaStato::TabellaStato(std::span<const VoceStato> r) : righe(r), prossima(prima) { prima = this; }

namespace {

void azzeraVoce(const VoceStato& v) {
    switch (v.tipo) {
    case VoceStato::u8: *static_cast<std::uint8_t*>(v.dove) = static_cast<std::uint8_t>(v.iniziale); break;
    case VoceStato::i16: *static_cast<std::int16_t*>(v.dove) = static_cast<std::int16_t>(v.iniziale); break;
    case VoceStato::i32: *static_cast<std::int32_t*>(v.dove) = static_cast<std::int32_t>(v.iniziale); break;
    case VoceStato::f64: *static_cast<double*>(v.dove) = v.iniziale; break;
    case VoceStato::f32: *static_cast<float*>(v.dove) = static_cast<float>(v.iniziale); break;
    case VoceStato::str255: std::memset(v.dove, 0, sizeof(PStr255)); break;
    case VoceStato::str63: std::memset(v.dove, 0, sizeof(PStr63)); break;
    case VoceStato::speciale:
        if (v.azzera) v.azzera();
        break;
    }
}

}   // namespace

void AzzeraStato() {
    for (const TabellaStato* t = TabellaStato::prima; t; t = t->prossima)
        for (const VoceStato& v : t->righe) azzeraVoce(v);
}

std::string NumeroJson(double v) {
    if (std::isnan(v)) return "\"nan\"";
    if (std::isinf(v)) return v > 0 ? "\"inf\"" : "\"-inf\"";
    char buffer[40];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer, v);
    return std::string(buffer, r.ptr);
}

std::string TestoJson(const std::string& macRoman) {
    static constexpr char cifre[] = "0123456789abcdef";
    std::string out = "\"";
    for (const char c : MacToUtf8(macRoman)) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (u < 32) {
            out += "\\u00";
            out += cifre[u >> 4];
            out += cifre[u & 15];
        } else {
            out += c;
        }
    }
    return out + '"';
}

}   // namespace tessaro
