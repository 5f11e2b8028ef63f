// Seven running sums side by side, each turned and multiplied by an odd number: the multiplications do not wait for each
// other, and the turn carries what a product leaves in the highest bit (the sign of a coordinate) back to where it counts.
#include "model/Impronta.h"

#include <array>
#include <bit>
#include <cstring>

namespace tessaro {

namespace {

static_assert(std::endian::native == std::endian::little, "the masks below place byte 2 of a record by it");

constexpr std::uint64_t moltiplica = 0x9E3779B97F4A7C15;   // 2^64 over the golden ratio, odd
constexpr std::size_t parola = 8, corsie = 7;
constexpr std::size_t paroleDiDue = 2 * sizeof(elemento) / parola;   // two records are whole words
static_assert(paroleDiDue * parola == 2 * sizeof(elemento) && paroleDiDue % corsie == 0);
constexpr std::size_t secondo = sizeof(elemento) / parola;   // the word in which the second record begins, 4 bytes in
constexpr std::uint64_t senzaFlagPrimo = ~(std::uint64_t{0xFF} << 16), senzaFlagSecondo = ~(std::uint64_t{0xFF} << 48);
static_assert(offsetof(elemento, selezionato) == 2);

using Somme = std::array<std::uint64_t, corsie>;
constexpr Somme inizio{1, 2, 3, 4, 5, 6, 7};

std::uint64_t passo(std::uint64_t somma, std::uint64_t w) { return std::rotl((somma ^ w) * moltiplica, 31); }

std::uint64_t raccogli(const Somme& s, std::uint64_t quanti) {
    std::uint64_t h = passo(moltiplica, quanti);
    for (const std::uint64_t x : s) h = passo(h, x);
    h ^= h >> 29;
    h *= moltiplica;
    return h ^ h >> 32;
}

void dueRecord(Somme& s, const unsigned char* p) {
    std::array<std::uint64_t, paroleDiDue> w;
    std::memcpy(w.data(), p, sizeof w);
    w[0] &= senzaFlagPrimo;
    w[secondo] &= senzaFlagSecondo;
    for (std::size_t giro = 0; giro < paroleDiDue; giro += corsie)
        for (std::size_t i = 0; i < corsie; ++i) s[i] = passo(s[i], w[giro + i]);
}

}   // namespace

std::uint64_t ImprontaRecord(const elemento* primo, std::int32_t quanti) {
    Somme s = inizio;
    const auto* p = reinterpret_cast<const unsigned char*>(primo);
    for (std::int32_t i = 0; i + 1 < quanti; i += 2, p += 2 * sizeof(elemento)) dueRecord(s, p);
    if (quanti % 2 != 0) {
        std::array<unsigned char, 2 * sizeof(elemento)> coppia{};
        std::memcpy(coppia.data(), p, sizeof(elemento));
        dueRecord(s, coppia.data());
    }
    return raccogli(s, static_cast<std::uint64_t>(quanti));
}

std::uint64_t ImprontaByte(const void* dati, std::size_t byte, std::uint64_t seme) {
    Somme s = inizio;
    s[0] ^= seme;
    const auto* p = static_cast<const unsigned char*>(dati);
    std::size_t i = 0;
    std::uint64_t w = 0;
    for (std::size_t corsia = 0; i + parola <= byte; i += parola, corsia = corsia + 1 == corsie ? 0 : corsia + 1) {
        std::memcpy(&w, p + i, parola);
        s[corsia] = passo(s[corsia], w);
    }
    w = 0;
    if (i < byte) std::memcpy(&w, p + i, byte - i);
    s[0] = passo(s[0], w);
    return raccogli(s, byte);
}

bool StessoRecord(const elemento& a, const elemento& b) {
    constexpr std::size_t dietro = offsetof(elemento, selezionato) + 1;
    return std::memcmp(&a, &b, dietro - 1) == 0
           && std::memcmp(reinterpret_cast<const unsigned char*>(&a) + dietro,
                          reinterpret_cast<const unsigned char*>(&b) + dietro, sizeof(elemento) - dietro)
                  == 0;
}

}   // namespace tessaro
