// Sets of byte values, also from a small text: members between commas, each a character in apostrophes, a name
// (`space`, `tab`, `cr` ...) or a range with two points, such as "'0'..'9','.',space". The texts are constants of the
// program, so a malformed one ends it with exit(1).
#pragma once

#include <array>
#include <cstdint>

namespace tessaro {

class TCharSet {
    std::array<std::uint32_t, 8> parole{};   // member c: bit c modulo 32 of word c / 32

public:
    TCharSet() = default;
    TCharSet(const char* membri) { ProcessCharString(membri); }   // NOLINT: the form in which sets are written
    TCharSet& operator=(char c);
    TCharSet& operator=(const char* membri);

    void UnSetAll() { parole = {}; }
    [[nodiscard]] bool IN(std::int16_t c) const;   // the low 8 bits of c choose
    void SetChar(char c);                          // c is a member
    void UnSetChar(char c);                        // c is none

    // The character of the next token, and p behind it: 0 to 255, 257 for "..", -257 when there was none.
    static std::int16_t GetCharFromToken(const char** p);
    void processNextMember(const char* membro);   // adds a character or a range; no member adds 255
    void ProcessCharString(const char* membri);   // splits at every comma, a quoted one too: hence the name `comma`

    friend TCharSet operator+(TCharSet a, const TCharSet& b);
    friend TCharSet operator+(TCharSet a, const char* membri);
    friend TCharSet operator+(const char* membri, TCharSet b);
    friend TCharSet operator+(TCharSet a, char c);
};

}   // namespace tessaro
