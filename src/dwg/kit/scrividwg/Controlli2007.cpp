// Parity and checks.
#include "dwg/kit/scrividwg/Controlli2007.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tessaro {

namespace {

constexpr std::size_t blocco = 255;

// The field of 256 elements of a polynomial, by powers of x.
struct Campo {
    std::array<std::uint8_t, 510> potenza{};
    std::array<std::uint8_t, 256> esponente{};

    explicit Campo(unsigned polinomio) {
        unsigned x = 1;
        for (std::size_t i = 0; i < blocco; ++i) {
            potenza[i] = potenza[i + blocco] = static_cast<std::uint8_t>(x);
            esponente[x] = static_cast<std::uint8_t>(i);
            x <<= 1;
            if (x > 0xFF) x ^= polinomio;
        }
    }
    [[nodiscard]] std::uint8_t per(std::uint8_t a, std::uint8_t b) const {
        return a == 0 || b == 0 ? std::uint8_t{0} : potenza[std::size_t{esponente[a]} + esponente[b]];
    }
};

// A code of n parity bytes: its generator has the roots x^-1 to x^-n. The first byte of a block stands at the highest power.
class Codice {
public:
    Codice(unsigned polinomio, std::size_t n) : campo(polinomio), generatore(n + 1, 0) {
        generatore[0] = 1;
        for (std::size_t i = 1; i <= n; ++i) {
            const std::uint8_t radice = campo.potenza[blocco - i];
            for (std::size_t k = i; k > 0; --k)
                generatore[k] = static_cast<std::uint8_t>(generatore[k] ^ campo.per(generatore[k - 1], radice));
        }
    }
    [[nodiscard]] std::string parita(std::string_view dati) const {
        std::vector<std::uint8_t> r(generatore.size() - 1, 0);
        for (const char c : dati) {
            const auto guida = static_cast<std::uint8_t>(static_cast<unsigned char>(c) ^ r.front());
            std::rotate(r.begin(), r.begin() + 1, r.end());
            r.back() = 0;
            for (std::size_t k = 0; k < r.size(); ++k)
                r[k] = static_cast<std::uint8_t>(r[k] ^ campo.per(generatore[k + 1], guida));
        }
        return {r.begin(), r.end()};
    }

private:
    Campo campo;
    std::vector<std::uint8_t> generatore;
};

// Both checks take bytes by groups of eight, each in this order; what is left over keeps its pairs but their first two.
std::string inOrdine(std::string_view dati) {
    constexpr std::array<std::uint8_t, 8> otto{6, 7, 4, 5, 2, 3, 0, 1};
    std::string s;
    s.reserve(dati.size());
    std::size_t i = 0;
    for (; i + otto.size() <= dati.size(); i += otto.size())
        for (const std::uint8_t k : otto) s.push_back(dati[i + k]);
    const std::string_view resto = dati.substr(i);
    if (resto.size() < 4) return s += resto;
    for (const std::size_t k : {2U, 3U, 0U, 1U}) s.push_back(resto[k]);
    return s += resto.substr(4);
}

// The format's stream of numbers, which everything in it begins with.
std::uint64_t prossimo(std::uint64_t v) { return v * 0x343FD + 0x269EC3; }

constexpr std::array<std::uint64_t, 256> tavola = [] {
    constexpr std::uint64_t polinomio = 0x95AC9329AC4BC9B5;   // reflected 0xAD93D23594C935A9
    std::array<std::uint64_t, 256> t{};
    for (std::size_t i = 0; i < t.size(); ++i) {
        t[i] = i;
        for (int k = 0; k < 8; ++k) t[i] = (t[i] & 1) != 0 ? t[i] >> 1 ^ polinomio : t[i] >> 1;
    }
    return t;
}();

}   // namespace

std::string ConParita2007(std::string_view dati, Parita2007 p) {
    static const Codice sistema(0x169, 16), pagine(0x11D, 4);
    const Codice& codice = p == Parita2007::pagineSistema ? sistema : pagine;
    const std::size_t utili = blocco - static_cast<std::size_t>(p), quanti = (dati.size() + utili - 1) / utili;
    std::string s(quanti * blocco, '\0');
    for (std::size_t b = 0; b < quanti; ++b) {
        std::string parte(dati.substr(b * utili, utili));
        parte.resize(utili, '\0');
        parte += codice.parita(parte);
        for (std::size_t i = 0; i < blocco; ++i) s[i * quanti + b] = parte[i];
    }
    return s;
}

std::uint64_t Crc2007(std::string_view dati) {
    const std::uint64_t seme = prossimo(dati.size());
    std::uint64_t crc = ~(seme | prossimo(seme) << 32);
    for (const char c : inOrdine(dati)) crc = tavola[(crc ^ static_cast<unsigned char>(c)) & 0xFF] ^ crc >> 8;
    return crc;
}

std::uint32_t Somma2007(std::string_view dati) {
    constexpr std::uint32_t modulo = 0xFFF1;
    const auto seme = static_cast<std::uint32_t>(prossimo(dati.size()));
    std::uint32_t a = (seme & 0xFFFF) % modulo, b = (seme >> 16) % modulo;
    for (const char c : inOrdine(dati)) {
        a = (a + static_cast<unsigned char>(c)) % modulo;
        b = (b + a) % modulo;
    }
    return b << 16 | a;
}

}   // namespace tessaro
