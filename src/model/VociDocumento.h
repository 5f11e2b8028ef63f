// What a drawing is beside its records: the rows of the reset table that a journal's step, and the recovery file, keep and
// put back byte for byte. Files that own such globals register them here as they register their rows of the reset table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace tessaro {

struct VoceDocumento {
    enum Genere : std::uint8_t {
        documento,   // stored with the drawing: a change of it is a step
        derivata,    // worked out from the drawing: kept with a step, makes none
        figura,      // where the figure in progress stands: a change of it is a step while there is one
        elastico,    // its rubber band: kept with a figure's step, makes none
        strumento,   // the tool that draws it: put back only where a figure is in progress
    };
    const char* nome;   // unique, at most 31 characters: the recovery file finds a row by it
    Genere genere;
    void* dove;
    std::uint32_t byte;
};

// The row of one global, which has to outlive it.
template <class T>
VoceDocumento VoceDi(const char* nome, VoceDocumento::Genere genere, T& dato) {
    static_assert(std::is_trivially_copyable_v<T>);
    return {nome, genere, &dato, static_cast<std::uint32_t>(sizeof dato)};
}

// The rows of one file. Files register with a static object of this kind.
struct VociDocumento {
    std::span<const VoceDocumento> righe;
    VociDocumento* prossima;
    explicit VociDocumento(std::span<const VoceDocumento> r);
    static VociDocumento* prima;
};

}   // namespace tessaro
