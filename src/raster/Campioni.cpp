// A picture's own pixels, and smaller copies of them.
#include <algorithm>
#include <new>

#include "bitmap/Piramide.h"
#include "bitmap/Riduci.h"
#include "raster/Morbida.h"
#include "raster/Sorgente.h"

namespace tessaro {

bool Campioni::carica(std::string_view pict, std::int32_t larghezza, std::int32_t altezza) {
    try {
        livelli.resize(1);
        Livello& l = livelli[0];
        auto fonte = ApriFonte(pict);
        l.w = fonte ? fonte->width : larghezza;
        l.h = fonte ? fonte->height : altezza;
        if (l.w < 1 || l.h < 1) return false;
        l.pixel.resize(static_cast<std::size_t>(l.w) * static_cast<std::size_t>(l.h));
        if (fonte) {
            for (std::int32_t y = 0; y < l.h; ++y) fonte->riga(y, 0, l.w, l.pixel.data() + std::ptrdiff_t(y) * l.w);
            if (fonte->buchi)
                for (std::uint32_t& p : l.pixel)
                    if (p >> 24 == 0) p = 0xFFFFFFFFU;
            return true;
        }
        Sorgente figure(pict, l.w, l.h, 32);
        if (!figure.leggibile()) return false;
        const std::int32_t perVolta = std::clamp<std::int32_t>((24 << 20) / l.w, 1, l.h);
        for (std::int32_t y = 0; y < l.h; y += perVolta) {
            const std::int32_t n = std::min(perVolta, l.h - y);
            if (!figure.disegna(y, n, 0, l.w)) return false;
            for (std::int32_t k = 0; k < n; ++k)
                figure.formato().decodifica(figure.riga(y + k), l.w, l.pixel.data() + std::ptrdiff_t(y + k) * l.w);
        }
        return true;
    } catch (const std::bad_alloc&) { return false; }
}

bool Campioni::copie(int livello) {
    try {
        while (ultimo() < livello && std::min(livelli.back().w, livelli.back().h) > 1) {
            FonteTela f;
            Livello l;
            f.width = livelli.back().w;
            f.height = livelli.back().h;
            f.pixel.swap(livelli.back().pixel);
            Dimezza(f, 1, l.pixel);
            livelli.back().pixel.swap(f.pixel);
            l.w = (f.width + 1) / 2;
            l.h = (f.height + 1) / 2;
            livelli.push_back(std::move(l));
        }
        return true;
    } catch (const std::bad_alloc&) { return false; }
}

bool Campioni::caricaRidotta(std::string_view pict, std::int64_t massimo) {
    try {
        Piramide p(pict);
        int esponente = 0, fatto = 0;
        while (esponente < 8 && (std::int64_t(p.width()) * p.height() >> (2 * esponente)) > massimo) ++esponente;
        FonteRighe* f = p.specie() == Piramide::Specie::figure ? nullptr : p.livello(esponente, fatto);
        if (f == nullptr || std::int64_t(f->width) * f->height > 4 * massimo) return false;
        livelli.assign(1, Livello{f->width, f->height, {}});
        Livello& l = livelli[0];
        l.pixel.resize(static_cast<std::size_t>(l.w) * static_cast<std::size_t>(l.h));
        for (std::int32_t y = 0; y < l.h; ++y) f->riga(y, 0, l.w, l.pixel.data() + std::ptrdiff_t(y) * l.w);
        for (std::uint32_t& c : l.pixel)
            if (c >> 24 == 0) c = 0xFFFFFFFFU;
        return true;
    } catch (const std::bad_alloc&) { return false; }
}

}   // namespace tessaro
