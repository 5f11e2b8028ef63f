// Which layer a file's layer becomes.
#include "maps/NomiLucidi.h"

#include <algorithm>

#include "model/Archivio.h"
#include "model/NomiLucidi.h"

namespace tessaro {

LucidiPerNome::LucidiPerNome() : presi(quantiLucidi, false) {
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const std::int16_t l = Elem(i).lucido;
        if (l >= 0 && l < quantiLucidi) presi[static_cast<std::size_t>(l)] = true;
    }
    for (std::int16_t l = 0; l < quantiLucidi; ++l)
        if (!NomeLucido(l).empty()) presi[static_cast<std::size_t>(l)] = true;
}

std::int16_t LucidiPerNome::lucido(const std::string& macRoman, std::int16_t voluto) {
    const auto noto = std::find_if(noti.begin(), noti.end(), [&macRoman](const Nome& n) { return n.nome == macRoman; });
    if (noto != noti.end()) return noto->lucido;
    constexpr std::size_t nomiTenuti = 5000;   // a hostile file may hold a million names
    std::int16_t l = LucidoDiNome(macRoman);
    if (l < 0) {
        const bool libero = voluto >= 0 && voluto < quantiLucidi && !presi[static_cast<std::size_t>(voluto)];
        const auto primo = libero ? presi.begin() + voluto : std::find(presi.begin(), presi.end(), false);
        l = VisioneGraf.lucidoCorrente;
        if (primo != presi.end()) {
            l = static_cast<std::int16_t>(primo - presi.begin());
            *primo = true;
            PoniNomeLucido(l, macRoman);
        } else {
            ++senzaPosto;
        }
    }
    if (noti.size() < nomiTenuti) noti.push_back({macRoman, l});
    return l;
}

}   // namespace tessaro
