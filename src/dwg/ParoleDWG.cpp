// The sentences of list 9153.
#include "dwg/ParoleDWG.h"

#include "platform/Resources.h"

namespace tessaro {

std::string Parola(ParolaDWG p, std::string_view p0, std::string_view p1) {
    constexpr std::int16_t lista = 9153;
    std::string s = GetIndString(lista, static_cast<std::int16_t>(p));
    const auto poni = [&s](std::string_view segno, std::string_view valore) {
        if (const auto dove = s.find(segno); dove != std::string::npos) s.replace(dove, segno.size(), valore);
    };
    poni("^0", p0);
    poni("^1", p1);
    return s;
}

}   // namespace tessaro
