// The colour table's defaults and its menu.
#include "model/Colori.h"

#include <algorithm>
#include <string_view>

#include "model/Penna.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

constinit std::array<Colore, maxColori> arrColori{};
constinit std::int16_t coloriPresenti = 7;

namespace {

constexpr std::int16_t listaTesti = 129, primoNome = 13;
constexpr RGBColor fissi[] = {
    {0, 0, 0},
    {65535, 7033, 4531},
    {5528, 49151, 8083},
    {4729, 5167, 65535},
    {2618, 65535, 64907},
    {65535, 4114, 44860},
    {64034, 65535, 5125},
};

// Items are renamed, and only what is too many or too few is deleted or added.
void rifai(std::int16_t menu) {
    const std::int16_t presenti = std::clamp<std::int16_t>(coloriPresenti, 0, maxColori);
    for (std::int16_t n = CountMenuItems(menu); n > presenti; --n) DeleteMenuItem(menu, n);
    const std::int16_t ci = CountMenuItems(menu);
    if (ci < 0) return;
    for (std::int16_t i = 1; i <= presenti; ++i) {
        const std::string nome = NomeColore(arrColori[static_cast<std::size_t>(i - 1)]);
        if (i <= ci) {
            SetMenuItemText(menu, i, nome);
        } else {
            AppendMenu(menu, nome);
        }
        CheckMenuItem(menu, i, i == colorCorrente);
    }
}

}   // namespace

std::string NomeColore(const Colore& c) {
    const std::size_t n = std::min<std::size_t>(c.nome[0], c.nome.size() - 1);
    return std::string(reinterpret_cast<const char*>(c.nome.data()) + 1, n);
}

void PoniNomeColore(Colore& c, std::string_view macRoman) {
    const std::size_t n = std::min<std::size_t>(macRoman.size(), maxNomeColore);
    c.nome[0] = static_cast<std::uint8_t>(n);
    std::copy_n(macRoman.begin(), n, c.nome.begin() + 1);
}

TavolaColori TavolaPredefinita() {
    TavolaColori t;
    t.presenti = static_cast<std::int16_t>(std::size(fissi));
    const std::string nero = GetIndString(listaTesti, primoNome);
    for (std::size_t i = 0; i < t.colori.size(); ++i) {
        Colore& c = t.colori[i];
        const bool fisso = i < std::size(fissi);
        const auto stringa = static_cast<std::int16_t>(primoNome + static_cast<int>(i));
        PoniNomeColore(c, fisso ? GetIndString(listaTesti, stringa) : nero);
        if (!fisso) continue;
        c.rgb = fissi[i];
        c.penna = static_cast<std::int16_t>(i + 1);
    }
    return t;
}

void ColoriPredefiniti() {
    const TavolaColori t = TavolaPredefinita();
    arrColori = t.colori;
    coloriPresenti = t.presenti;
}

// The second menu shows the items of the first.
void RifaiMenuColori() { rifai(menuNomiColori); }

namespace {
const VoceStato righe[] = {
    {"coloriPresenti", ColoriPredefiniti, [] { return NumeroJson(coloriPresenti); }},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
