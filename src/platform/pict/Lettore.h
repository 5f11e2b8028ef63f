// A bounded reader of big-endian bytes: past the end it gives zeros and remembers the fault, so parsers test once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/Types.h"

namespace tessaro {

class Lettore {
public:
    explicit Lettore(std::string_view bytes) : dati(bytes) {}

    [[nodiscard]] std::size_t posto() const { return qui; }
    [[nodiscard]] std::size_t resto() const { return dati.size() - qui; }
    [[nodiscard]] bool guasto() const { return oltre; }

    std::uint8_t u8() {
        if (!basta(1)) return 0;
        return static_cast<std::uint8_t>(dati[qui++]);
    }
    std::uint16_t u16() {
        const auto alto = static_cast<std::uint16_t>(u8() << 8);
        return static_cast<std::uint16_t>(alto | u8());
    }
    std::uint32_t u32() {
        const auto alto = static_cast<std::uint32_t>(u16()) << 16;
        return alto | u16();
    }
    std::int8_t i8() { return static_cast<std::int8_t>(u8()); }
    std::int16_t i16() { return static_cast<std::int16_t>(u16()); }
    std::int32_t i32() { return static_cast<std::int32_t>(u32()); }
    double fixed() { return i32() / 65536.0; }

    Point punto() {
        const std::int32_t v = i16();
        return Point{v, i16()};
    }
    Rect rettangolo() {
        const Point a = punto();
        const Point b = punto();
        return Rect{a.v, a.h, b.v, b.h};
    }
    RGBColor colore() {
        const std::uint16_t r = u16();
        const std::uint16_t g = u16();
        return RGBColor{r, g, u16()};
    }
    Pattern retino() {
        Pattern p;
        for (auto& riga : p.pat) riga = u8();
        return p;
    }
    // The next n bytes, or as many as there are with the fault remembered.
    std::string_view prendi(std::size_t n) {
        if (n > resto()) {
            oltre = true;
            n = resto();
        }
        const std::string_view pezzo = dati.substr(qui, n);
        qui += n;
        return pezzo;
    }
    void salta(std::size_t n) { prendi(n); }
    void vai(std::size_t dove) {
        if (dove > dati.size()) oltre = true;
        qui = dove > dati.size() ? dati.size() : dove;
    }

private:
    bool basta(std::size_t n) {
        if (resto() >= n) return true;
        oltre = true;
        qui = dati.size();
        return false;
    }
    std::string_view dati;
    std::size_t qui = 0;
    bool oltre = false;
};

}   // namespace tessaro
