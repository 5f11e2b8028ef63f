// The reset table: every named global with its start value. Each file that owns globals lists them in its own rows; the
// start-up, the tests and the scripts' `state` and `expect` all read the same rows.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <type_traits>

#include "platform/Types.h"
#include "text/PascalString.h"

namespace tessaro {

struct VoceStato {
    const char* nome;
    void (*azzera)();                  // sets the start value; null leaves the global alone
    std::string (*json)() = nullptr;   // prints it as JSON; null keeps it out of `state`
};

std::string NumeroJson(double v);                     // reads back to the same double; "nan", "inf", "-inf" as strings
std::string TestoJson(const std::string& macRoman);   // quoted, as UTF-8
std::string PuntoJson(Point p);                       // {"v":,"h":}

// The value that a global's definition gives it, taken before anything runs: nothing states it a second time.
template <auto& v>
inline const auto inizioDi = v;

// The row of a global whose start value stands in its definition. Numbers, strings and points print themselves; other
// kinds stay out of `state`, or have a `json` of their own.
template <auto& v>
VoceStato voce(const char* nome, std::string (*json)() = nullptr) {
    using T = std::remove_reference_t<decltype(v)>;
    VoceStato riga{nome, [] { v = inizioDi<v>; }, json};
    if (json != nullptr) return riga;
    if constexpr (std::is_integral_v<T>) {
        riga.json = [] { return std::to_string(v); };
    } else if constexpr (std::is_floating_point_v<T>) {
        riga.json = [] { return NumeroJson(static_cast<double>(v)); };
    } else if constexpr (std::is_base_of_v<PString, T>) {
        riga.json = [] { return TestoJson(v.str()); };
    } else if constexpr (std::is_same_v<T, Point>) {
        riga.json = [] { return PuntoJson(v); };
    }
    return riga;
}

// Rows of one file's globals, in the order of start-up. Files register with a static object of this kind.
struct TabellaStato {
    std::span<const VoceStato> righe;
    TabellaStato* prossima;
    explicit TabellaStato(std::span<const VoceStato> r);
    static TabellaStato* prima;
};

void AzzeraStato();   // every row to its start value

}   // namespace tessaro
