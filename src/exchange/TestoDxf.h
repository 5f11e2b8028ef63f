// Text of a DXF file as Mac Roman and back: the character set that the file declares, \U+XXXX, and the signs %%c, %%d,
// %%p and %%nnn.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

class AlfabetoDxf {
public:
    // Looks at the first bytes of a file, without parsing it: UTF-8 behind a byte order mark and from version AC1021
    // on, else what $DWGCODEPAGE names. Without it: UTF-8 as long as all texts are such, else Windows 1252.
    void scegli(std::string_view inizioFile);
    // Mac Roman; characters that it lacks become '?'.
    std::string testo(std::string_view bytes);
    // The same for a name of a layer or block. One that would lose a character keeps its bytes, so that two names never
    // become one.
    std::string nome(std::string_view bytes);
    std::string utf8(std::string_view bytes);   // as they stand: signs and \U+XXXX stay

private:
    enum class Insieme : std::uint8_t { prova, utf8, mac, w1252, w1250, dos437, dos850, unByte, dueByte };
    struct Dichiarato {
        std::string_view nome;
        Insieme insieme;
    };
    static const Dichiarato dichiarati[];

    [[nodiscard]] char32_t carattere(std::uint8_t byte) const;
    [[nodiscard]] std::string daUnByte(std::string_view bytes) const;

    Insieme insieme = Insieme::prova;
};

// UTF-8 with \U+XXXX and the signs replaced, still UTF-8.
std::string ConSegniDxf(std::string_view utf8);
// Mac Roman as ASCII with \U+XXXX, at most 255 characters; what would not fit is a '?'.
std::string TestoPerDxf(std::string_view macRoman);

}   // namespace tessaro
