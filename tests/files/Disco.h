// Bytes of native files put together by hand, big-endian, apart from the program's own writer.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "files/Nativo.h"
#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "platform/Files.h"
#include "support/Foglio.h"
#include "text/FileDati.h"

namespace prova {

// A string of bytes that numbers are appended to, or set into at an offset.
struct Byte : std::string {
    Byte() = default;
    explicit Byte(std::size_t zeri) : std::string(zeri, '\0') {}
    Byte& numero(std::uint64_t v, std::size_t n, std::size_t dove = npos) {
        if (dove == npos) {
            dove = size();
            resize(dove + n);
        }
        for (std::size_t i = 0; i < n; ++i) at(dove + i) = static_cast<char>(v >> (8 * (n - 1 - i)) & 0xFF);
        return *this;
    }
    Byte& u8(unsigned v, std::size_t dove = npos) { return numero(v, 1, dove); }
    Byte& i16(int v, std::size_t dove = npos) { return numero(static_cast<std::uint64_t>(v), 2, dove); }
    Byte& i32(std::int64_t v, std::size_t dove = npos) { return numero(static_cast<std::uint64_t>(v), 4, dove); }
    Byte& f64(double v, std::size_t dove = npos) { return numero(std::bit_cast<std::uint64_t>(v), 8, dove); }
    // 80 bits: sign and exponent, then the mantissa with its whole bit.
    Byte& f80(double v, std::size_t dove = npos) {
        const auto b = std::bit_cast<std::uint64_t>(v);
        const std::uint64_t esponente = b >> 52 & 0x7FF;
        const std::uint64_t segno = b >> 63 << 15;
        if (dove == npos) {
            dove = size();
            resize(dove + 10);
        }
        if (esponente == 0) return numero(segno, 2, dove).numero(0, 8, dove + 2);
        const std::uint64_t mantissa = std::uint64_t{1} << 63 | (b & 0xFFFFFFFFFFFFF) << 11;
        return numero(segno | (esponente - 1023 + 16383), 2, dove).numero(mantissa, 8, dove + 2);
    }
    Byte& byte(std::string_view s, std::size_t dove = npos) {
        if (dove == npos)
            append(s);
        else
            replace(dove, s.size(), s);
        return *this;
    }
};

// One record of 84 bytes: the common head, line, category and set for all but texts.
inline Byte record(unsigned tipo, int lucido = 0) {
    Byte r(84);
    r.i16(lucido, 0).u8(tipo, 6);
    if (tipo != tTesto) r.i16(1, 8).i16(1, 24).i16(1, 26);
    return r;
}

inline Byte attacco1(std::int64_t conto, int versione = 12) {
    Byte r = record(tAttacco1);
    if (versione >= 8) return r.i32(conto, 76), r;
    return r.i16(static_cast<int>(conto), 76), r;
}
inline Byte attacco2(bool reali = false) {
    Byte r = record(tAttacco2);
    r.f64(1, 52).f64(1, 60).f64(1, 68).u8(reali, 76);
    return r;
}
inline Byte rSegmento(double x1, double y1, double x2, double y2) {
    Byte r = record(tSegmento);
    r.f64(x1, 28).f64(y1, 36).f64(x2, 52).f64(y2, 60).i16(1, 76).i16(1, 78).i16(1, 80);
    return r;
}
inline Byte rTesta(double x, double y, int vertici) {
    Byte r = record(tPoligono);
    r.f64(x, 28).f64(y, 36).i16(vertici, 70).i16(1, 72).i16(1, 74).i16(1, 76);
    return r;
}
inline Byte rVertice(double x, double y, std::int64_t distanza) {
    Byte r = record(tVertice);
    r.f64(x, 28).f64(y, 36).i32(distanza, 52);
    return r;
}
inline Byte rPict(std::int64_t lunghezza, std::string_view dati) {
    Byte r = record(tPict);
    r.f64(10, 28).f64(20, 36).f64(300, 48).f64(200, 56).i32(lunghezza).byte(dati);
    return r;
}

inline Byte intestazione(int versione) {
    Byte b;
    b.i16(versione);
    if (versione >= 5) b.f64(0).f64(0).u8(0);
    if (versione == 4) b.f80(0).f80(0).u8(0);
    return b;
}

// The blocks behind the elements, as far as the version has them.
struct Blocchi {
    int lucido = 3;
    std::vector<std::pair<std::string, std::array<int, 4>>> colori{{"Nero", {0, 0, 0, 1}},
                                                                   {"Ruggine", {40000, 2, 1, 9}}};
    double decimi = 100, scala = 500, riservato = 7.5, largo = 84.1, alto = 59.4;
    bool modificato = true;
    int nx = 2, ny = 3;

    [[nodiscard]] Byte perVersione(int v) const {
        Byte b;
        if (v > 2) {
            b.i16(lucido);
            for (int i = 0; i < 6; ++i) b.u8(i == 2 || i == 5);   // hatches shown; others locked
            b.append(100, '\1');
        }
        if (v > 4) {
            b.i16(static_cast<int>(colori.size()));
            for (const auto& [nome, c] : colori) {
                Byte r(30);
                r.u8(static_cast<unsigned>(nome.size()), 0).byte(nome, 1);
                for (std::size_t i = 0; i < 4; ++i) r.i16(c[i], 22 + 2 * i);
                b.byte(r);
            }
        }
        if (v > 8) b.u8(1).f64(decimi).f64(scala).f64(riservato).f64(largo).i16(8410).f64(alto).i16(5940);
        if (v > 10) {
            Byte a(627);
            a.u8(1, 8).u8(1, 201).u8(modificato, 202).i16(28, 625);
            for (std::size_t i = 0; i < 5; ++i)
                a.f64(1000.0 + static_cast<double>(i), 121 + 16 * i).f64(77, 129 + 16 * i);
            b.byte(a);
        }
        if (v > 11)
            for (const double base : {100.0, 900.0}) {
                b.i16(nx).i16(ny);
                for (int i = 0; i < nx * ny; ++i) b.f64(base + i).f64(-base - i);
            }
        return b;
    }
};

// A whole file: elements are records with whatever stands behind them; `conto` counts the reserved two.
inline Byte disegno(int versione, const std::vector<Byte>& elementi, const Blocchi& blocchi = {}) {
    Byte b = intestazione(versione);
    b.byte(attacco1(static_cast<std::int64_t>(elementi.size()) + 2, versione)).byte(attacco2());
    for (const Byte& e : elementi) b.byte(e);
    return b.byte(blocchi.perVersione(versione)), b;
}

// A folder of the test's own.
class Cartella {
    std::filesystem::path dove;

public:
    Cartella() {
        std::string modello = (std::filesystem::temp_directory_path() / "tessaro-prova-XXXXXX").string();
        dove = mkdtemp(modello.data());
    }
    ~Cartella() {
        std::error_code e;
        std::filesystem::permissions(dove, std::filesystem::perms::owner_all, e);
        std::filesystem::remove_all(dove, e);
    }
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;
    [[nodiscard]] std::string operator/(std::string_view nome) const { return (dove / nome).string(); }
    [[nodiscard]] std::size_t quanti() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(dove), {}));
    }
};

inline std::string contenuto(const std::string& percorso) {
    std::ostringstream s;
    s << std::ifstream(percorso, std::ios::binary).rdbuf();
    return s.str();
}
inline void metti(const std::string& percorso, std::string_view byte) {
    std::ofstream(percorso, std::ios::binary) << byte;
}

// The bytes read as the file in use, into what is open (a store of `capienza` records when it is empty).
inline void leggiByte(std::string_view byte, std::int16_t item = 2) {
    const Cartella c;
    metti(c / "d.ts3d", byte);
    noWindow = 0;
    uscita = 0;
    theItem = item;
    ASSERT_EQ(FSpOpenDF(FSMakeFSSpec(c / "d.ts3d"), fsRdPerm, RefNum), noErr);
    leggidati();
    EXPECT_EQ(FSClose(RefNum), noErr);
}

inline std::string scriviByte(std::int16_t item = 5) {
    const Cartella c;
    theItem = item;
    uscita = 0;
    EXPECT_EQ(FSpOpenReplacing(FSMakeFSSpec(c / "d.ts3d"), creatoreTSC3, tipoTS3D, RefNum), noErr);
    Scrividati();
    EXPECT_EQ(FSClose(RefNum), noErr);
    return contenuto(c / "d.ts3d");
}

}   // namespace prova
