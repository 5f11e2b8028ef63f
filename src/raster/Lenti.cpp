// The table itself, its names, and a lens read off a mesh.
#include "raster/Lenti.h"

#include <algorithm>

#include "model/Mesh.h"
#include "model/TabellaStato.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

constinit std::array<LenteOttica, maxLenti> deformazioneOttica{};
constinit std::int16_t lentiPresenti = 1, indiceLenteAttuale = 1;

namespace {
constexpr std::int16_t listaTesti = 129, stringaNessuna = 66;
}

std::string NomeLente(const LenteOttica& l) {
    const std::size_t n = std::min<std::size_t>(l.nome[0], maxNomeLente);
    return {reinterpret_cast<const char*>(l.nome.data()) + 1, n};
}

void PoniNomeLente(LenteOttica& l, std::string_view macRoman) {
    const std::size_t n = std::min<std::size_t>(macRoman.size(), maxNomeLente);
    l.nome = {};
    l.nome[0] = static_cast<std::uint8_t>(n);
    std::copy_n(macRoman.begin(), n, l.nome.begin() + 1);
}

TavolaLenti LentiPredefinite() {
    TavolaLenti t;
    for (LenteOttica& l : t.lenti) PoniNomeLente(l, GetIndString(listaTesti, stringaNessuna));
    return t;
}

void MostraMenuLenti(const TavolaLenti& t) {
    while (CountMenuItems(menuLenti) > 0) DeleteMenuItem(menuLenti, 1);
    for (std::int16_t i = 0; i < t.presenti; ++i)
        AppendMenu(menuLenti, NomeLente(t.lenti[static_cast<std::size_t>(i)]));
}

void RifaiMenuLenti() { MostraMenuLenti({deformazioneOttica, lentiPresenti}); }

Bombature DallaMesh(const Mesh& m) {
    const int nx = std::min<int>(m.nx, 100), ny = std::min<int>(m.ny, 100);
    if (nx < 2 || ny < 2) return {};
    double minX = 1e99, minY = 1e99, maxX = -1e99, maxY = -1e99;
    for (int r = 0; r < ny; ++r)
        for (int c = 0; c < nx; ++c) {
            minX = std::min(minX, m.x[r][c]);
            minY = std::min(minY, m.y[r][c]);
            maxX = std::max(maxX, m.x[r][c]);
            maxY = std::max(maxY, m.y[r][c]);
        }
    // Rows run along X: the first row is the left edge, and the first column the lower one.
    const double left = (m.x[0][0] + m.x[0][nx - 1]) / 2, right = (m.x[ny - 1][0] + m.x[ny - 1][nx - 1]) / 2;
    const double bottom = (m.y[0][0] + m.y[ny - 1][0]) / 2, top = (m.y[0][nx - 1] + m.y[ny - 1][nx - 1]) / 2;
    Bombature b;
    b.sinistra = 200 * (minX - left) / (right - left);
    b.destra = 200 * (right - maxX) / (right - left);
    b.alto = 200 * (minY - top) / (bottom - top);
    b.basso = 200 * (bottom - maxY) / (bottom - top);
    return b;
}

namespace {

void azzera() {
    deformazioneOttica = {};
    lentiPresenti = indiceLenteAttuale = 1;
}
const VoceStato righe[] = {
    {"lentiPresenti", azzera, [] { return NumeroJson(lentiPresenti); }},
    voce<indiceLenteAttuale>("indiceLenteAttuale"),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
