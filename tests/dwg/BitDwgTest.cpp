// How DWG files are packed: bit codes, compression, parity and checks.
#include "dwg/Dwg.h"
#include "dwg/kit/scrividwg/Compressione2007.h"
#include "dwg/kit/scrividwg/CompressioneDwg.h"
#include "dwg/kit/scrividwg/Controlli2007.h"
#include "dwg/kit/scrividwg/OggettoDwg.h"

#include <functional>
#include <random>

using namespace prova;

namespace {

std::string bitDi(const BitDwg& b) {
    std::string s;
    for (std::size_t i = 0; i < b.quantiBit(); ++i) s += (b.dati()[i / 8] >> (7 - i % 8) & 1) != 0 ? '1' : '0';
    return s;
}

TEST(BitDwg, eachCodeHasItsShortForms) {
    const struct {
        std::function<void(BitDwg&)> scrivi;
        const char* bit;
    } casi[] = {
        {[](BitDwg& b) { b.BS(0); }, "10"},
        {[](BitDwg& b) { b.BS(256); }, "11"},
        {[](BitDwg& b) { b.BS(15); }, "0100001111"},
        {[](BitDwg& b) { b.BS(257); }, "000000000100000001"},
        {[](BitDwg& b) { b.BS(-1); }, "001111111111111111"},
        {[](BitDwg& b) { b.BL(0); }, "10"},
        {[](BitDwg& b) { b.BL(255); }, "0111111111"},
        {[](BitDwg& b) { b.BL(256); }, "0000000000000000010000000000000000"},
        {[](BitDwg& b) { b.BD(0); }, "10"},
        {[](BitDwg& b) { b.BD(1); }, "01"},
        {[](BitDwg& b) { b.DD(3.5, 3.5); }, "00"},
        {[](BitDwg& b) { b.H(hPunta, 0); }, "01010000"},
        {[](BitDwg& b) { b.H(hPossiede, 0x1FF); }, "001100100000000111111111"},
        {[](BitDwg& b) { b.OT(0x1F4); }, "0100000100"},
    };
    for (const auto& c : casi) {
        BitDwg b;
        c.scrivi(b);
        EXPECT_EQ(bitDi(b), c.bit);
    }
    BitDwg negativo;
    negativo.BD(-0.0);
    EXPECT_EQ(negativo.quantiBit(), 66U) << "a zero that has a sign keeps it";
}

TEST(BitDwg, aLengthIsPutInOverItsPlaceAcrossBytes) {
    BitDwg b;
    b.BB(1);
    b.RL(0);
    b.BB(3);
    b.poniRL(2, 0x12345678);
    BitDwg atteso;
    atteso.BB(1);
    atteso.RL(0x12345678);
    atteso.BB(3);
    EXPECT_EQ(bitDi(b), bitDi(atteso));
}

// The unpacking as the format's description tells it.
std::string decomprimi(const std::string& s) {
    std::string d;
    std::size_t i = 0;
    const auto prossimo = [&] { return static_cast<std::size_t>(static_cast<unsigned char>(s.at(i++))); };
    const auto lungo = [&] {
        std::size_t n = 0, b = 0;
        while ((b = prossimo()) == 0) n += 0xFF;
        return n + b;
    };
    const auto letterali = [&](std::size_t n) {
        d += s.substr(i, n);
        i += n;
    };
    const auto serie = [&] {
        const std::size_t b = prossimo();
        if ((b & 0xF0) != 0) {
            --i;
            return;
        }
        letterali(b == 0 ? 0x0F + lungo() + 3 : b + 3);
    };
    serie();
    for (std::size_t op = prossimo(); op != 0x11; op = prossimo()) {
        std::size_t n = 0, distanza = 0, poi = 0;
        if (op >= 0x40) {
            n = (op >> 4) - 1;
            distanza = (prossimo() << 2 | (op >> 2 & 3)) + 1;
            poi = op & 3;
        } else {
            n = op == 0x20 ? lungo() + 0x21 : op - 0x1E;
            const std::size_t b = prossimo();
            distanza = (b >> 2 | prossimo() << 6) + 1;
            poi = b & 3;
        }
        EXPECT_LE(distanza, d.size());
        for (std::size_t k = 0; k < n; ++k) d += d[d.size() - distanza];
        if (poi != 0)
            letterali(poi);
        else
            serie();
    }
    return d;
}

// The unpacking of 2007, as the format's description tells it.
std::string decomprimi2007(const std::string& s) {
    std::string d;
    std::size_t i = 0;
    const auto prossimo = [&] { return static_cast<std::size_t>(static_cast<unsigned char>(s.at(i++))); };
    // Words of a literal run, from the end to the front of each length.
    const auto letterali = [&](std::size_t n) {
        static constexpr const char* parole[32] = {"",
                                                   "1:0",
                                                   "2:0",
                                                   "3:0",
                                                   "4:0",
                                                   "1:4 4:0",
                                                   "1:5 4:1 1:0",
                                                   "2:5 4:1 1:0",
                                                   "8:0",
                                                   "1:8 8:0",
                                                   "1:9 8:1 1:0",
                                                   "2:9 8:1 1:0",
                                                   "4:8 8:0",
                                                   "1:12 4:8 8:0",
                                                   "1:13 4:9 8:1 1:0",
                                                   "2:13 4:9 8:1 1:0",
                                                   "g:0",
                                                   "8:9 1:8 8:0",
                                                   "1:17 g:1 1:0",
                                                   "3:16 g:0",
                                                   "4:16 g:0",
                                                   "1:20 4:16 g:0",
                                                   "2:20 4:16 g:0",
                                                   "3:20 4:16 g:0",
                                                   "8:16 g:0",
                                                   "8:17 1:16 g:0",
                                                   "1:25 8:17 1:16 g:0",
                                                   "2:25 8:17 1:16 g:0",
                                                   "4:24 8:16 g:0",
                                                   "1:28 4:24 8:16 g:0",
                                                   "2:28 4:24 8:16 g:0",
                                                   "1:30 4:26 8:18 g:2 2:0"};
        while (n > 0) {
            const std::size_t k = std::min<std::size_t>(n, 32);
            std::istringstream righe(k == 32 ? "g:16 g:0" : parole[k]);
            for (std::string p; righe >> p;) {
                const std::size_t dove = i + std::stoul(p.substr(2));
                std::string w = s.substr(dove, p[0] == 'g' ? 16 : static_cast<std::size_t>(p[0] - '0'));
                if (p[0] == 'g') std::rotate(w.begin(), w.begin() + 8, w.end());
                if (p[0] == '2' || p[0] == '3') std::reverse(w.begin(), w.end());
                d += w;
            }
            i += k;
            n -= k;
        }
    };
    const auto lungo = [&](std::size_t op) {
        std::size_t n = op + 8, k = 0;
        if (op != 15) return n;
        n += k = prossimo();
        if (k == 0xFF) do {
                k = prossimo();
                k |= prossimo() << 8;
                n += k;
            } while (k == 0xFFFF);
        return n;
    };
    std::size_t op = prossimo(), n = 0, distanza = 0;
    if (op == 0x20) {
        i += 2;
        letterali(prossimo() & 7);
    } else {
        letterali(lungo(op));
    }
    while (i < s.size()) {
        op = prossimo();
        for (bool primo = true;; primo = false) {
            if (!primo && op >> 4 == 15) op &= 15;
            const std::size_t genere = op >> 4;
            if (genere == 0) {
                distanza = prossimo();
                const std::size_t b = prossimo();
                n = (op & 15) + 0x13 + (b >> 3 & 0x10);
                distanza += ((b & 0x78) << 5) + 1;
                op = b;
            } else if (genere == 1) {
                n = (op & 15) + 3;
                distanza = prossimo();
                op = prossimo();
                distanza += ((op & 0xF8) << 5) + 1;
            } else if (genere == 2) {
                distanza = prossimo();
                distanza |= prossimo() << 8;
                n = op & 7;
                if ((op & 8) == 0) {
                    op = prossimo();
                    n += op & 0xF8;
                } else {
                    ++distanza;
                    n += prossimo() << 3;
                    op = prossimo();
                    n += ((op & 0xF8) << 8) + 0x100;
                }
            } else {
                n = genere;
                distanza = op & 15;
                op = prossimo();
                distanza += ((op & 0xF8) << 1) + 1;
            }
            EXPECT_LE(distanza, d.size());
            for (std::size_t k = 0; k < n; ++k) d += d[d.size() - distanza];
            if ((op & 7) != 0) {
                letterali(op & 7);
                break;
            }
            if (i >= s.size()) break;
            op = prossimo();
            if (op >> 4 == 0) {
                letterali(lungo(op));
                break;
            }
        }
    }
    return d;
}

TEST(CompressioneDwg, everyPageUnpacksToItself) {
    std::mt19937 caso(20);
    for (int giro = 0; giro < 300; ++giro) {
        std::string dati;
        const std::size_t quanti = 4 + caso() % 0x7400;
        const std::size_t lettere = 1 + caso() % (giro % 3 == 0 ? 256 : 4);
        while (dati.size() < quanti) {
            if (giro % 2 == 0 && dati.size() > 50 && caso() % 4 == 0)
                dati += dati.substr(caso() % (dati.size() - 40), 3 + caso() % 400);
            dati += static_cast<char>(caso() % lettere);
        }
        dati.resize(quanti);
        ASSERT_EQ(decomprimi(ComprimiDwg(dati)), dati) << giro;
        ASSERT_EQ(decomprimi2007(ComprimiDwg2007(dati)), dati) << giro;
    }
}

// The bytes of a file that was not written here; empty when there are none.
std::string fileDelMondo(const char* nome) {
    const char* cartella = std::getenv("TESSARO_DATA");
    if (cartella == nullptr) {
        std::printf("no real files here: TESSARO_DATA is not set\n");
        return {};
    }
    std::ifstream f(std::string(cartella) + "/dwg/" + nome, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

TEST(Dwg2007, parityAndChecksAreThoseOfOtherProgramsFiles) {
    const std::string s = fileDelMondo("ldwg_example_2007.dwg");
    if (s.empty()) return;
    // Blocks of one page, taken apart, then put together again.
    const auto dati = [&s](std::size_t dove, std::size_t blocchi, std::size_t utili) {
        std::string d;
        for (std::size_t b = 0; b < blocchi; ++b)
            for (std::size_t i = 0; i < utili; ++i) d += s[dove + b + i * blocchi];
        return d;
    };
    constexpr std::size_t mappa = 0x480, maniglie = 0x6B440;
    const std::string diSistema = dati(mappa, 4, 239), diDati = dati(maniglie, 7, 251);
    EXPECT_EQ(ConParita2007(diSistema, Parita2007::pagineSistema), s.substr(mappa, std::size_t{4} * 255));
    EXPECT_EQ(ConParita2007(diDati, Parita2007::pagineDati), s.substr(maniglie, std::size_t{7} * 255));
    // What the map of sections tells of that page: 0x5F3 bytes packed, 0x6CB unpacked, and both checks.
    const std::string imballati = diDati.substr(0, 0x5F3), sciolti = decomprimi2007(imballati);
    EXPECT_EQ(sciolti.size(), 0x6CBU);
    EXPECT_EQ(Crc2007(imballati), 0x2BCF7AACF4E8B605U);
    EXPECT_EQ(Somma2007(sciolti), 0x1BFBB1A1U);
}

}   // namespace
