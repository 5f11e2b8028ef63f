// The head of a piece of the recovery file, shared by its writer and its reader.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/Impronta.h"

namespace tessaro {

// Four characters as they stand in the file, on a little-endian machine.
constexpr std::uint32_t genereDi(const char (&s)[5]) {
    return std::uint32_t(std::uint8_t(s[0])) | std::uint32_t(std::uint8_t(s[1])) << 8
           | std::uint32_t(std::uint8_t(s[2])) << 16 | std::uint32_t(std::uint8_t(s[3])) << 24;
}
inline constexpr std::uint32_t pezzoTesta = genereDi("head"), pezzoImmagine = genereDi("pict"),
                               pezzoEstensione = genereDi("extn"), pezzoBase = genereDi("base"),
                               pezzoPasso = genereDi("step");
inline constexpr std::uint32_t versioneRecupero = 2;

struct TestaPezzo {
    std::uint32_t genere = 0;
    std::uint32_t riservato = 0;
    std::uint64_t byte = 0;       // of the payload
    std::uint64_t impronta = 0;   // of the payload
    std::uint64_t propria = 0;    // of the fields above
};
static_assert(sizeof(TestaPezzo) == 32);

// Of all but its own field.
inline std::uint64_t ImprontaTesta(const TestaPezzo& t) {
    return ImprontaByte(&t, offsetof(TestaPezzo, propria), versioneRecupero);
}
// The head for a payload, with both checksums.
inline TestaPezzo FaiTesta(std::uint32_t genere, const void* corpo, std::size_t byte) {
    TestaPezzo t;
    t.genere = genere;
    t.byte = byte;
    t.impronta = ImprontaByte(corpo, byte, genere);
    t.propria = ImprontaTesta(t);
    return t;
}

}   // namespace tessaro
