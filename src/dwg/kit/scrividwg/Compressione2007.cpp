// A copy tells how many literal bytes follow it, up to 7; a longer run has a code of its own. Copies are told in four forms,
// by length and distance.
#include "dwg/kit/scrividwg/Compressione2007.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace tessaro {

namespace {

constexpr std::size_t copiaMinima = 4, copiaMassima = 0xFFFF, distanzaMassima = 0xFFFF, letteraliCorti = 7;

// Literals go out in pieces of 32 bytes, each in words of 16, 8, 4, 2 and 1 byte from the last to the first: what a word
// holds, and where each length begins its words, was laid down for speed and has no rule. A row a length: pairs of the size
// of a word and its place; sizes of 2, 3 and 16 are turned round, the last by its halves.
struct Parola2007 {
    std::uint8_t byte, dove;
};
constexpr std::array<std::array<Parola2007, 5>, 32> parole{{
    {{}},
    {{{1, 0}}},
    {{{2, 0}}},
    {{{3, 0}}},
    {{{4, 0}}},
    {{{1, 4}, {4, 0}}},
    {{{1, 5}, {4, 1}, {1, 0}}},
    {{{2, 5}, {4, 1}, {1, 0}}},
    {{{8, 0}}},
    {{{1, 8}, {8, 0}}},
    {{{1, 9}, {8, 1}, {1, 0}}},
    {{{2, 9}, {8, 1}, {1, 0}}},
    {{{4, 8}, {8, 0}}},
    {{{1, 12}, {4, 8}, {8, 0}}},
    {{{1, 13}, {4, 9}, {8, 1}, {1, 0}}},
    {{{2, 13}, {4, 9}, {8, 1}, {1, 0}}},
    {{{16, 0}}},
    {{{8, 9}, {1, 8}, {8, 0}}},
    {{{1, 17}, {16, 1}, {1, 0}}},
    {{{3, 16}, {16, 0}}},
    {{{4, 16}, {16, 0}}},
    {{{1, 20}, {4, 16}, {16, 0}}},
    {{{2, 20}, {4, 16}, {16, 0}}},
    {{{3, 20}, {4, 16}, {16, 0}}},
    {{{8, 16}, {16, 0}}},
    {{{8, 17}, {1, 16}, {16, 0}}},
    {{{1, 25}, {8, 17}, {1, 16}, {16, 0}}},
    {{{2, 25}, {8, 17}, {1, 16}, {16, 0}}},
    {{{4, 24}, {8, 16}, {16, 0}}},
    {{{1, 28}, {4, 24}, {8, 16}, {16, 0}}},
    {{{2, 28}, {4, 24}, {8, 16}, {16, 0}}},
    {{{1, 30}, {4, 26}, {8, 18}, {16, 2}, {2, 0}}},
}};

// Puts one piece's bytes where a reader's words will look for them.
void pezzo(std::string& s, std::string_view lettere) {
    constexpr std::array<Parola2007, 5> intero{{{16, 16}, {16, 0}}};
    const std::size_t inizio = s.size();
    s.resize(inizio + lettere.size());
    std::size_t i = 0;
    const auto metti = [&](std::size_t dove) { s[inizio + dove] = lettere[i++]; };
    for (const Parola2007& p : lettere.size() == 32 ? intero : parole[lettere.size()]) {
        const std::size_t n = p.byte;
        for (std::size_t k = 0; k < n; ++k) metti(p.dove + (n == 16 ? (k + 8) % 16 : n == 2 || n == 3 ? n - 1 - k : k));
    }
}

struct Passo {
    std::size_t letterali = 0, copia = 0, distanza = 0;   // first the literals, then the copy
};

class Uscita2007 {
public:
    explicit Uscita2007(std::string_view d) : dati(d) {}

    std::string scrivi(const std::vector<Passo>& passi) {
        for (std::size_t i = 0; i < passi.size(); ++i) {
            const Passo& p = passi[i];
            letterali(p.letterali, i == 0);
            if (p.copia == 0) break;
            const std::size_t poi = i + 1 < passi.size() ? passi[i + 1].letterali : 0;
            copia(p, poi <= letteraliCorti ? poi : 0, p.letterali == 0 && i > 0);
            posto += p.copia;
        }
        return std::move(s);
    }

private:
    void byte(std::size_t v) { s.push_back(static_cast<char>(v & 0xFF)); }

    // Short runs behind a copy were told by it.
    void letterali(std::size_t n, bool primi) {
        constexpr std::size_t base = 8, pieno = 15;
        if (n > letteraliCorti) {
            byte(std::min(n - base, pieno));
            if (n - base >= pieno) lungo(n - base - pieno);
        } else if (primi) {
            for (const std::size_t v : {std::size_t{0x20}, std::size_t{0}, std::size_t{0}, n}) byte(v);
        }
        for (; n > 0;) {
            const std::size_t k = std::min<std::size_t>(n, 32);
            pezzo(s, dati.substr(posto, k));
            posto += k;
            n -= k;
        }
    }
    // A byte, and words as long as the one before is full.
    void lungo(std::size_t resto) {
        constexpr std::size_t byteMassimo = 0xFF, parolaMassima = 0xFFFF;
        byte(std::min(resto, byteMassimo));
        if (resto < byteMassimo) return;
        resto -= byteMassimo;
        for (;;) {
            const std::size_t v = std::min(resto, parolaMassima);
            byte(v);
            byte(v >> 8);
            if (v < parolaMassima) return;
            resto -= v;
        }
    }
    // dopoCopia: no literals stand between this copy and the one before, where the codes of literals are taken.
    void copia(const Passo& p, std::size_t poi, bool dopoCopia) {
        const std::size_t d = p.distanza - 1, n = p.copia;
        if (n <= 14 && d < 0x200) {
            byte(n << 4 | (d & 15));
            byte((d >> 1 & 0xF8) | poi);
        } else if (n <= 18 && d < 0x2000) {
            byte(0x10 | (n - 3));
            byte(d);
            byte(d >> 8 << 3 | poi);
        } else if (n >= 19 && n <= 50 && d < 0x1000) {
            byte((dopoCopia ? 0xF0U : 0U) | ((n - 19) & 15));
            byte(d);
            byte((n - 19 >= 16 ? 0x80U : 0U) | d >> 8 << 3 | poi);
        } else if (n < 256) {
            byte(0x20 | (n & 7));
            byte(d + 1);
            byte((d + 1) >> 8);
            byte((n & 0xF8) | poi);
        } else {
            const std::size_t oltre = n - 256;
            byte(0x28 | (oltre & 7));
            byte(d);
            byte(d >> 8);
            byte(oltre >> 3);
            byte((oltre >> 11 << 3) | poi);
        }
    }

    std::string_view dati;
    std::size_t posto = 0;
    std::string s;
};

}   // namespace

std::string ComprimiDwg2007(std::string_view dati) {
    constexpr std::size_t chiavi = 1U << 13, tentativi = 16;
    std::vector<std::int32_t> testa(chiavi, -1), prima(dati.size(), -1);
    const auto chiave = [&dati](std::size_t i) {
        const auto b = [&](std::size_t k) { return std::uint32_t{static_cast<unsigned char>(dati[i + k])}; };
        return ((b(0) | b(1) << 8 | b(2) << 16 | b(3) << 24) * 2654435761U) >> (32 - 13);
    };
    const auto ricorda = [&](std::size_t i) {
        if (i + copiaMinima > dati.size()) return;
        std::int32_t& t = testa[chiave(i)];
        prima[i] = t;
        t = static_cast<std::int32_t>(i);
    };
    std::vector<Passo> passi;
    std::size_t daScrivere = 0;
    for (std::size_t i = 0; i < dati.size();) {
        Passo p;
        if (i + copiaMinima <= dati.size()) {
            std::int32_t c = testa[chiave(i)];
            for (std::size_t k = 0; k < tentativi && c >= 0; ++k, c = prima[static_cast<std::size_t>(c)]) {
                const auto da = static_cast<std::size_t>(c);
                if (i - da > distanzaMassima) break;
                std::size_t n = 0;
                while (i + n < dati.size() && n < copiaMassima && dati[da + n] == dati[i + n]) ++n;
                if (n > p.copia) p = {0, n, i - da};
            }
        }
        if (p.copia < copiaMinima || i == 0) {
            ricorda(i++);
            continue;
        }
        p.letterali = i - daScrivere;
        passi.push_back(p);
        for (std::size_t k = 0; k < p.copia; ++k) ricorda(i++);
        daScrivere = i;
    }
    if (daScrivere < dati.size()) passi.push_back({dati.size() - daScrivere, 0, 0});
    return Uscita2007(dati).scrivi(passi);
}

}   // namespace tessaro
