// The byte order of element records: which fields of which type stand on disk with their high byte first. Each type has
// its own unrolled routine, made from its row of the table.
#include <bit>
#include <cstring>
#include <utility>

#include "files/Nativo.h"

namespace tessaro {

namespace {

// Offsets of the fields that are turned, 0 where a row has fewer. Offsets 0 and 4 are turned in every record.
struct CampiTipo {
    std::array<std::uint8_t, 6> f64{};
    std::array<std::uint8_t, 1> f32{};
    std::array<std::uint8_t, 8> f16{};
};

constexpr std::size_t tipiNoti = 14;
constexpr std::array<CampiTipo, tipiNoti> suDisco{{
    /* tAttacco1  */ {{28, 36, 44, 52, 60, 68}, {}, {8, 24, 26, 76, 78}},
    /* tSegmento  */ {{28, 36, 44, 52, 60, 68}, {}, {8, 24, 26, 76, 78, 80, 82}},
    /* tMarker    */ {{28, 36, 44}, {}, {8, 24, 26, 52, 54, 56, 58, 60}},
    /* 3          */ {},
    /* tAttacco2  */ {{28, 36, 44, 52, 60, 68}, {}, {8, 24, 26, 78}},
    /* tVecchio5  */ {{28, 36, 44, 52}, {}, {8, 24, 26}},
    /* tElastico  */ {},
    /* tPoligono  */ {{28, 36, 44, 52, 60}, {}, {8, 24, 26, 70, 72, 74, 76, 78}},
    /* tVertice   */ {{28, 36, 44}, {52}, {8, 24, 26}},
    /* tTesto     */ {{12, 20}, {}, {8, 10, 72, 74, 76, 78}},
    /* tPict      */ {{28, 36, 48, 56}, {}, {8, 24, 26}},
    /* tCerchio   */ {{28, 36, 44}, {}, {8, 24, 26, 52, 54, 56, 58}},
    /* tArco      */ {{28, 36, 44, 52, 60}, {}, {8, 24, 26, 68, 70, 72, 74}},
    /* tVecchio13 */ {{28, 36, 44, 52, 60, 68}, {76}, {8, 24, 26}},
}};

constexpr std::uint64_t rovescia(std::uint64_t v) { return __builtin_bswap64(v); }
constexpr std::uint32_t rovescia(std::uint32_t v) { return __builtin_bswap32(v); }
constexpr std::uint16_t rovescia(std::uint16_t v) { return __builtin_bswap16(v); }

template <class T>
void gira(unsigned char* campo) {
    T v;
    std::memcpy(&v, campo, sizeof v);
    v = rovescia(v);
    std::memcpy(campo, &v, sizeof v);
}

template <class T, const auto& offset>
void giraCampi(unsigned char* record) {
    [&]<std::size_t... i>(std::index_sequence<i...>) { ((offset[i] != 0 ? gira<T>(record + offset[i]) : void()), ...); }
    (std::make_index_sequence<offset.size()>{});
}

using Girata = void (*)(unsigned char* record);

template <std::size_t tipo>
void giraTipo(unsigned char* record) {
    static constexpr auto& c = suDisco[tipo];
    static constexpr auto f64 = c.f64;
    static constexpr auto f32 = c.f32;
    static constexpr auto f16 = c.f16;
    giraCampi<std::uint64_t, f64>(record);
    giraCampi<std::uint32_t, f32>(record);
    giraCampi<std::uint16_t, f16>(record);
}

constexpr auto girate = []<std::size_t... i>(std::index_sequence<i...>) {
    return std::array<Girata, tipiNoti>{giraTipo<i>...};
}
(std::make_index_sequence<tipiNoti>{});

void giraComuni(unsigned char* record) {
    gira<std::uint16_t>(record);
    gira<std::uint16_t>(record + 4);
}

unsigned char* byteDi(elemento& e) { return reinterpret_cast<unsigned char*>(&e); }

}   // namespace

void TrasformaElemNtoB(elemento& e) {
    if constexpr (std::endian::native == std::endian::big) return;
    giraComuni(byteDi(e));
    // Kept: a legacy record goes out with only its common fields turned, though it comes in with all of them.
    if (e.tipo < tipiNoti && e.tipo != tVecchio13) girate[e.tipo](byteDi(e));
}

void TrasformaElemBtoN(elemento& e) {
    if constexpr (std::endian::native != std::endian::big) {
        giraComuni(byteDi(e));
        if (e.tipo < tipiNoti) girate[e.tipo](byteDi(e));
    }
    if (e.tipo == tPict) e.pict.maniglia = 0;
}

}   // namespace tessaro
