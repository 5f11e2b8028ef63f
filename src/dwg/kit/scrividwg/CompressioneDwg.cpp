// A greedy search by a table of three-byte beginnings.
#include "dwg/kit/scrividwg/CompressioneDwg.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tessaro {

namespace {

constexpr std::size_t finestra = 0x4000;   // how far back the middle form of a copy reaches
constexpr std::size_t vicino = 0x400;      // how far back the short form does
constexpr std::size_t copiaBreve = 14, copiaMedia = 33, copiaMinima = 3;
constexpr std::size_t letteraliMinimi = 4;   // a run of its own; fewer go into the copy before them

class Compressore {
public:
    explicit Compressore(std::string_view d) : dati(d) { primo.fill(nessuno); }

    std::string tutto() {
        std::size_t i = 0, inizioLetterali = 0;
        while (i < dati.size()) {
            const auto [distanza, lunghezza] = migliore(i);
            // The stream begins with a run of its own.
            const bool troppoPresto = uscita.empty() && i < letteraliMinimi;
            if (lunghezza < copiaMinima || troppoPresto) {
                annota(i++);
                continue;
            }
            letterali(inizioLetterali, i);
            copia(distanza, lunghezza);
            for (std::size_t k = 0; k < lunghezza; ++k) annota(i + k);
            i += lunghezza;
            inizioLetterali = i;
        }
        letterali(inizioLetterali, dati.size());
        uscita += "\x11";
        uscita.append(2, '\0');
        return uscita;
    }

private:
    static constexpr std::size_t nessuno = static_cast<std::size_t>(-1);
    std::string_view dati;
    std::string uscita;
    std::array<std::size_t, 4096> primo{};
    std::size_t ultimoCodice = nessuno;   // byte of the last copy whose low bits count up to three literals

    [[nodiscard]] std::size_t chiave(std::size_t i) const {
        const auto b = [this, i](std::size_t k) { return static_cast<unsigned char>(dati[i + k]); };
        return (static_cast<std::size_t>(b(0)) << 4 ^ static_cast<std::size_t>(b(1)) << 2 ^ b(2)) & (primo.size() - 1);
    }
    void annota(std::size_t i) {
        if (i + copiaMinima <= dati.size()) primo[chiave(i)] = i;
    }
    [[nodiscard]] std::pair<std::size_t, std::size_t> migliore(std::size_t i) const {
        if (i + copiaMinima > dati.size()) return {0, 0};
        const std::size_t da = primo[chiave(i)];
        if (da == nessuno || i - da > finestra) return {0, 0};
        std::size_t n = 0;
        while (i + n < dati.size() && dati[da + n] == dati[i + n]) ++n;
        return {i - da, n};
    }
    void byte(std::size_t v) { uscita.push_back(static_cast<char>(v)); }
    // A length above what its byte holds: zero bytes of 255 each, then the rest, which is not 0.
    void lungo(std::size_t v) {
        for (; v > 0xFF; v -= 0xFF) byte(0);
        byte(v);
    }
    void letterali(std::size_t da, std::size_t fino) {
        const std::size_t n = fino - da;
        if (n == 0) return;
        if (n < letteraliMinimi && ultimoCodice != nessuno) {
            uscita[ultimoCodice] = static_cast<char>(static_cast<unsigned char>(uscita[ultimoCodice]) | n);
        } else if (n <= 0x0F + 3) {
            byte(n - 3);
        } else {
            byte(0);
            lungo(n - 0x0F - 3);
        }
        uscita.append(dati.substr(da, n));
    }
    void copia(std::size_t distanza, std::size_t lunghezza) {
        const std::size_t indietro = distanza - 1;
        if (distanza <= vicino && lunghezza <= copiaBreve) {
            ultimoCodice = uscita.size();
            byte((lunghezza + 1) << 4 | (indietro & 3) << 2);
            byte(indietro >> 2);
            return;
        }
        if (lunghezza <= copiaMedia) {
            byte(0x1E + lunghezza);
        } else {
            byte(0x20);
            lungo(lunghezza - copiaMedia);
        }
        ultimoCodice = uscita.size();
        byte((indietro & 0x3F) << 2);
        byte(indietro >> 6);
    }
};

}   // namespace

std::string ComprimiDwg(std::string_view dati) { return Compressore(dati).tutto(); }

std::uint32_t SommaDwg(std::string_view dati, std::uint32_t seme) {
    constexpr std::size_t giro = 0x15B0;   // bytes before the sums could overflow
    constexpr std::uint32_t primo = 0xFFF1;
    std::uint32_t a = seme & 0xFFFF, b = seme >> 16;
    for (std::size_t i = 0; i < dati.size();) {
        const std::size_t fine = std::min(i + giro, dati.size());
        for (; i < fine; ++i) {
            a += static_cast<unsigned char>(dati[i]);
            b += a;
        }
        a %= primo;
        b %= primo;
    }
    return b << 16 | (a & 0xFFFF);
}

}   // namespace tessaro
