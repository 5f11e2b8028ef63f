// Which layer a file's layer becomes.
#include "maps/NomiLucidi.h"

#include <algorithm>

#include "model/Archivio.h"
#include "model/Lucidi.h"

namespace tessaro {

std::string NomeDelLucido(std::int16_t) { return {}; }

LucidiPerNome::LucidiPerNome() : presi(100, false) {
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const std::int16_t l = Elem(i).lucido;
        if (l >= 0 && l <= 99) presi[static_cast<std::size_t>(l)] = true;
    }
    for (std::int16_t l = 0; l < 100; ++l) {
        const std::string nome = NomeDelLucido(l);
        if (nome.empty()) continue;
        presi[static_cast<std::size_t>(l)] = true;
        noti.push_back({nome, l});
    }
}

std::int16_t LucidiPerNome::lucido(const std::string& macRoman) {
    const auto noto = std::find_if(noti.begin(), noti.end(), [&macRoman](const Nome& n) { return n.nome == macRoman; });
    if (noto != noti.end()) return noto->lucido;
    constexpr std::size_t nomiTenuti = 5000;   // a hostile file may hold a million names
    const auto libero = std::find(presi.begin(), presi.end(), false);
    std::int16_t l = VisioneGraf.lucidoCorrente;
    if (libero != presi.end()) {
        l = static_cast<std::int16_t>(libero - presi.begin());
        *libero = true;
    } else {
        ++senzaPosto;
    }
    if (noti.size() < nomiTenuti) noti.push_back({macRoman, l});
    return l;
}

}   // namespace tessaro
