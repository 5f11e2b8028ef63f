// The colour table's defaults and its menu.
#include "model/Colori.h"

#include <algorithm>
#include <string_view>

#include "model/Attributi.h"
#include "model/TabellaStato.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

constinit std::array<Colore, maxColori> arrColori{};
constinit std::int16_t coloriPresenti = 7;

namespace {

constexpr std::int16_t menuNomi = 23, menuColori = 104, listaTesti = 129, primoNome = 13;
constexpr RGBColor fissi[] = {
    {0, 0, 0},
    {65535, 7033, 4531},
    {5528, 49151, 8083},
    {4729, 5167, 65535},
    {2618, 65535, 64907},
    {65535, 4114, 44860},
    {64034, 65535, 5125},
};

void poniNome(Colore& c, std::string_view nome) {
    const std::size_t n = std::min<std::size_t>(nome.size(), 20);
    c.nome[0] = static_cast<std::uint8_t>(n);
    std::copy_n(nome.begin(), n, c.nome.begin() + 1);
}

std::string nomeDi(const Colore& c) {
    const std::size_t n = std::min<std::size_t>(c.nome[0], c.nome.size() - 1);
    return std::string(reinterpret_cast<const char*>(c.nome.data()) + 1, n);
}

void rifai(std::int16_t menu) {
    for (std::int16_t n = CountMenuItems(menu); n > 0; --n) DeleteMenuItem(menu, n);
    for (std::int16_t i = 0; i < coloriPresenti && i < maxColori; ++i) {
        AppendMenu(menu, nomeDi(arrColori[static_cast<std::size_t>(i)]));
        CheckMenuItem(menu, static_cast<std::int16_t>(i + 1), i + 1 == colorCorrente);
    }
}

}   // namespace

void ColoriPredefiniti() {
    coloriPresenti = 7;
    const std::string nero = GetIndString(listaTesti, primoNome);
    for (std::size_t i = 0; i < arrColori.size(); ++i) {
        arrColori[i] = Colore{};
        const bool fisso = i < std::size(fissi);
        poniNome(arrColori[i],
                 fisso ? GetIndString(listaTesti, static_cast<std::int16_t>(primoNome + static_cast<int>(i))) : nero);
        if (!fisso) continue;
        arrColori[i].rgb = fissi[i];
        arrColori[i].penna = static_cast<std::int16_t>(i + 1);
    }
}

void RifaiMenuColori() {
    rifai(menuNomi);
    rifai(menuColori);
}

namespace {
const VoceStato righe[] = {
    {"coloriPresenti", VoceStato::speciale, nullptr, 0, ColoriPredefiniti, [] { return NumeroJson(coloriPresenti); }},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
