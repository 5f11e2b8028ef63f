// The index of colours: nine of a name, 24 hues in five shades, full and half strong, and six greys.
#include "model/IndiceColori.h"

#include <cstddef>

namespace tessaro {

namespace {

constexpr std::size_t primaTinta = 10, dopoTinte = 250;

constexpr std::array<TernaColore, 256> calcola() {
    std::array<TernaColore, 256> t{};
    constexpr TernaColore nomi[primaTinta] = {{0, 0, 0},       {255, 0, 0},    {255, 255, 0}, {0, 255, 0},
                                              {0, 255, 255},   {0, 0, 255},    {255, 0, 255}, {255, 255, 255},
                                              {128, 128, 128}, {192, 192, 192}};
    for (std::size_t i = 0; i < primaTinta; ++i) t[i] = nomi[i];
    // In hundredths: how bright the shades are.
    constexpr int luci[] = {100, 65, 50, 30, 15};
    // A hue every 15 degrees, from red over green and blue: what each third has at a step of it, in quarters.
    constexpr auto quarti = [](int passo) {
        const int p = (passo % 24 + 24) % 24;
        return p <= 4 || p >= 20 ? 4 : p < 8 ? 8 - p : p <= 16 ? 0 : p - 16;
    };
    for (std::size_t i = primaTinta; i < dopoTinte; ++i) {
        const int passo = static_cast<int>(i / 10) - 1, riga = static_cast<int>(i % 10);
        const int luce = luci[riga / 2];
        const bool mezza = riga % 2 != 0;
        const auto parte = [&](int q) {
            const int ottavi = mezza ? 4 + q : 2 * q;   // of 8
            return static_cast<std::uint8_t>(255 * luce * ottavi / 800);
        };
        t[i] = {parte(quarti(passo)), parte(quarti(passo - 8)), parte(quarti(passo - 16))};
    }
    constexpr std::uint8_t grigi[] = {51, 91, 132, 173, 214, 255};
    for (std::size_t i = dopoTinte; i < t.size(); ++i)
        t[i] = {grigi[i - dopoTinte], grigi[i - dopoTinte], grigi[i - dopoTinte]};
    return t;
}

constexpr std::array<TernaColore, 256> indice = calcola();
static_assert(indice[20].g == 63 && indice[21].g == 159 && indice[22].r == 165 && indice[23].g == 103);

}   // namespace

TernaColore ColoreDiIndice(std::int16_t n) {
    return n < 0 || n > 255 ? TernaColore{} : indice[static_cast<std::size_t>(n)];
}

std::int16_t IndiceVicino(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    constexpr std::int16_t inchiostro = 7;
    if (r == 0 && g == 0 && b == 0) return inchiostro;
    std::int16_t migliore = inchiostro;
    int minima = 4 * 255 * 255;
    for (std::size_t i = 1; i < indice.size(); ++i) {
        const int dr = indice[i].r - r, dg = indice[i].g - g, db = indice[i].b - b;
        const int d = dr * dr + dg * dg + db * db;
        if (d >= minima) continue;
        minima = d;
        migliore = static_cast<std::int16_t>(i);
    }
    return migliore;
}

}   // namespace tessaro
