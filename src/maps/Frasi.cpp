// The sentences of list 9350.
#include "maps/Frasi.h"

#include <utility>

#include "platform/Resources.h"

namespace tessaro {

std::string Frase(FraseMappe f, std::string_view p0, std::string_view p1, std::string_view p2) {
    constexpr std::int16_t lista = 9350;
    const std::string s = GetIndString(lista, static_cast<std::int16_t>(f));
    const std::string_view valori[] = {p0, p1, p2};
    std::string r;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const bool segno = s[i] == '^' && i + 1 < s.size() && s[i + 1] >= '0' && s[i + 1] <= '2';
        if (segno)
            r += valori[s[++i] - '0'];
        else
            r += s[i];
    }
    return r;
}

}   // namespace tessaro
