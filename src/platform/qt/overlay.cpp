// The overlays of the drawing window: their rasters, and the pixels of the window with them laid over.
#include <algorithm>

#include "platform/qt/FinestraQt.h"

namespace tessaro {

void (*aggiornaVeli)() = nullptr;

namespace {

constexpr std::uint32_t colori = 0x00FFFFFF;   // the bits that an overlay inverts

VeloFinestra& veloDi(Finestra& f, Velo v) { return f.veli[static_cast<std::size_t>(v)]; }

void aggiungi(Region& a, const Region& b) {
    for (const Rect& parte : b.parti) a.add(parte);
}

// The overlay's raster as the current port for a while, black below whatever is drawn.
class SulVelo {
    GrafPtr prima = GetPort();

public:
    explicit SulVelo(VeloFinestra& v) {
        SetPort(&v.porta);
        ClipRect(v.porta.portRect);
        PenNormal();
        ForeColor(blackColor);
        BackColor(blackColor);
    }
    ~SulVelo() { SetPort(prima); }
    SulVelo(const SulVelo&) = delete;
    SulVelo& operator=(const SulVelo&) = delete;
};

}   // namespace

void adattaVeli(Finestra& f) {
    for (VeloFinestra& v : f.veli) {
        v.porta.resize(f.porta->portRect.right, f.porta->portRect.bottom, f.porta->ratio);
        const SulVelo sopra(v);
        EraseRect(v.porta.portRect);
        v.porta.sporco.clear();
        v.coperto = v.cambiato = Region{};
    }
}

void RedrawOverlay(WindowPtr w, Velo quale, void (*draw)()) {
    if (w == nullptr) return;
    VeloFinestra& v = veloDi(*w, quale);
    const SulVelo sopra(v);
    for (const Rect& parte : v.coperto.parti) EraseRect(parte);
    aggiungi(v.cambiato, v.coperto);
    v.porta.sporco.clear();
    draw();
    v.coperto = v.porta.PrendiSporco();
    aggiungi(v.cambiato, v.coperto);
}

void ScrollOverlay(WindowPtr w, Velo quale, const Rect& r, std::int32_t dh, std::int32_t dv, void (*draw)()) {
    if (w == nullptr) return;
    VeloFinestra& v = veloDi(*w, quale);
    const SulVelo sopra(v);
    SetClip(v.porta.scroll(r, dh, dv));
    draw();
    v.porta.sporco.clear();
    aggiungi(v.coperto, Region::of(r));
    aggiungi(v.cambiato, Region::of(r));
}

void componi(const Finestra& f, const DeviceRect& area, std::vector<std::uint32_t>& out) {
    const auto larga = static_cast<std::size_t>(area.right - area.left);
    out.resize(larga * static_cast<std::size_t>(area.bottom - area.top));
    std::uint32_t* riga = out.data();
    for (std::int32_t y = area.top; y < area.bottom; ++y, riga += larga) {
        const auto da = [&](const RasterPort& p) { return p.pixels() + y * p.rowPixels() + area.left; };
        const std::uint32_t *sotto = da(*f.porta), *a = da(f.veli[0].porta), *b = da(f.veli[1].porta),
                            *c = da(f.veli[2].porta);
        for (std::size_t x = 0; x < larga; ++x) {
            const std::uint32_t punti = a[x] & colori, tinta = c[x] & colori;
            const bool tinto = (tinta & 1) != 0 || (tinta != 0 && punti == 0);
            riga[x] = (tinto ? ~colori | tinta : sotto[x] ^ punti) ^ (b[x] & colori);
        }
    }
}

std::vector<std::uint32_t> ShownPixels(WindowPtr w) {
    std::vector<std::uint32_t> out;
    if (w == nullptr) return out;
    if (aggiornaVeli) aggiornaVeli();
    componi(*w, DeviceRect{0, 0, w->porta->deviceWidth(), w->porta->deviceHeight()}, out);
    return out;
}

}   // namespace tessaro
