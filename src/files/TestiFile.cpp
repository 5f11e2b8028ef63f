// String list 9120 with its parameters.
#include "files/TestiFile.h"

#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int16_t listaFile = 9120;

void metti(std::string& s, std::string_view segno, std::string_view parametro) {
    if (const auto dove = s.find(segno); dove != std::string::npos) s.replace(dove, segno.size(), parametro);
}

}   // namespace

std::string TestoDi(TestoFile t, std::string_view p0, std::string_view p1) {
    std::string s = GetIndString(listaFile, static_cast<std::int16_t>(t));
    metti(s, "^0", p0);
    metti(s, "^1", p1);
    return s;
}

}   // namespace tessaro
