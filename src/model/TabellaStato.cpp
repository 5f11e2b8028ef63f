// The reset table's chain and the JSON forms that scripts print.
#include "model/TabellaStato.h"

#include <charconv>
#include <cmath>

#include "platform/Resources.h"
#include "text/PascalString.h"

namespace tessaro {

constinit TabellaStato* TabellaStato::prima = nullptr;

TabellaStato::TabellaStato(std::span<const VoceStato> r) : righe(r), prossima(prima) { prima = this; }

void AzzeraStato() {
    for (const TabellaStato* t = TabellaStato::prima; t; t = t->prossima)
        for (const VoceStato& v : t->righe)
            if (v.azzera != nullptr) v.azzera();
}

std::string NumeroJson(double v) {
    if (std::isnan(v)) return "\"nan\"";
    if (std::isinf(v)) return v > 0 ? "\"inf\"" : "\"-inf\"";
    char buffer[40];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer, v);
    return std::string(buffer, r.ptr);
}

std::string PuntoJson(Point p) { return "{\"v\":" + std::to_string(p.v) + ",\"h\":" + std::to_string(p.h) + "}"; }

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
