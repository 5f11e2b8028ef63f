// The reset table: every named global with its type and start value. Each file that owns globals lists them in its own
// rows; the start-up, the tests and the scripts' `state` and `expect` all read the same rows.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tessaro {

struct VoceStato {
    enum Tipo : std::uint8_t { u8, i16, i32, f64, f32, str255, str63, speciale };
    const char* nome;
    Tipo tipo;
    void* dove = nullptr;              // the global
    double iniziale = 0;               // its start value (numbers); strings start empty
    void (*azzera)() = nullptr;        // speciale: sets it
    std::string (*json)() = nullptr;   // speciale: prints it as JSON; null keeps it out of `state`
};

// Rows of one file's globals, in the order of start-up. Files register with a static object of this kind.
struct TabellaStato {
    std::span<const VoceStato> righe;
    TabellaStato* prossima;
    explicit TabellaStato(std::span<const VoceStato> r);
    static TabellaStato* prima;
};

void AzzeraStato();                                   // every row to its start value
std::string NumeroJson(double v);                     // reads back to the same double; "nan", "inf", "-inf" as strings
std::string TestoJson(const std::string& macRoman);   // quoted, as UTF-8

}   // namespace tessaro
