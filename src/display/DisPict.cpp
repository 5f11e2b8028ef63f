// Drawing of placed pictures, from decoded copies that are kept under a memory budget.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <memory>

#include "bitmap/Piramide.h"
#include "display/Disegno.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Stato.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Esegui.h"
#include "platform/pict/Pict.h"

namespace tessaro {

namespace {

using Orologio = std::chrono::steady_clock;

// A played picture as it came out at one size, for those that take long to play.
struct Ripresa {
    std::int32_t width = 0, height = 0, ratio = 0;
    std::vector<std::uint32_t> pixels;   // alpha 0 where the picture left the ground alone
};

struct Copia {
    std::unique_ptr<Piramide> piramide;
    Ripresa ripresa;
    bool lenta = false;   // playing it took long the last time
    std::uint64_t uso = 0;
    [[nodiscard]] std::int64_t memoria() const {
        return piramide->memoria() + static_cast<std::int64_t>(ripresa.pixels.size() * 4);
    }
};

std::map<PicHandle, Copia> copie;
std::uint64_t contaUsi = 0;

void dimentica(PicHandle h) { copie.erase(h); }

Copia& copiaDi(PicHandle h) {
    pictDimenticata = dimentica;
    Copia& c = copie[h];
    if (!c.piramide) c.piramide = std::make_unique<Piramide>(PictBytes(h));
    c.uso = ++contaUsi;
    return c;
}

// Gives up the copies that were used longest ago until `serve` bytes fit beside the rest.
void faiPosto(PicHandle tranne, std::int64_t serve) {
    std::int64_t altre = 0;
    for (const auto& [h, c] : copie)
        if (h != tranne) altre += c.memoria();
    while (altre + serve > bilancioImmagini) {
        auto vecchia = copie.end();
        for (auto i = copie.begin(); i != copie.end(); ++i)
            if (i->first != tranne && (vecchia == copie.end() || i->second.uso < vecchia->second.uso)) vecchia = i;
        if (vecchia == copie.end()) return;
        altre -= vecchia->second.memoria();
        copie.erase(vecchia);
    }
}

std::int32_t pixelDiVista(double v) {
    constexpr double limite = 1 << 28;
    return static_cast<std::int32_t>(std::lround(std::clamp(v, -limite, limite)));
}

// Unbounded edges of the picture in logical pixels, on whole ones.
struct Bordi {
    double left, top, right, bottom;
    [[nodiscard]] Rect rett() const {
        return Rect{pixelDiVista(top), pixelDiVista(left), pixelDiVista(bottom), pixelDiVista(right)};
    }
};

void disegnaCrociata(const Rect& r) {
    PenNormal();
    ForeColor(blackColor);
    FrameRect(r);
    MoveTo(r.left, r.top);
    LineTo(r.right - 1, r.bottom - 1);
    MoveTo(r.left, r.bottom - 1);
    LineTo(r.right - 1, r.top);
}

void copia(GrafPort& port, const std::vector<std::uint32_t>& pixel, std::int32_t w, std::int32_t h, const Rect& dst,
           bool buchi) {
    const Rect tutto{0, 0, h, w};
    const PixMap mappa{pixel.data(), w, tutto};
    if (buchi)
        CopiaConBuchi(port, mappa, tutto, dst);
    else
        port.stdBits(mappa, tutto, dst);
}

// The visible part at the port's own resolution, a band of rows at a time.
bool disegnaRaster(GrafPort& port, PicHandle h, Copia& c, const Bordi& b) {
    constexpr std::int32_t fascia = 1 << 20;   // device pixels
    const Rect visto = SectRect(port.clip.box(), b.rett());
    if (EmptyRect(visto)) return true;
    const double ratio = port.ratio;
    Piramide& p = *c.piramide;
    const double finezza = std::max((b.right - b.left) / p.width(), (b.bottom - b.top) / p.height()) * ratio;
    const int esponente = finezza < 1 ? static_cast<int>(std::floor(-std::log2(finezza))) : 0;
    faiPosto(h, p.memoriaPer(esponente));
    int fatto = 0;
    FonteRighe* fonte = p.livello(esponente, fatto);
    if (fonte == nullptr) return false;
    const double volte = std::ldexp(1.0, fatto);
    const Posa posa{b.left * ratio, b.top * ratio, (b.right - b.left) * ratio / p.width() * volte,
                    (b.bottom - b.top) * ratio / p.height() * volte};
    const std::int32_t w = (visto.right - visto.left) * port.ratio;
    Riduttore riduttore(*fonte, posa, visto.left * port.ratio, w);
    const std::int32_t perFascia = std::max(1, fascia / (w * port.ratio));
    std::vector<std::uint32_t> pixel;
    for (std::int32_t y = visto.top; y < visto.bottom; y += perFascia) {
        const std::int32_t fine = std::min(visto.bottom, y + perFascia);
        const std::int32_t righe = (fine - y) * port.ratio;
        pixel.resize(static_cast<std::size_t>(w) * static_cast<std::size_t>(righe));
        riduttore.righe(y * port.ratio, righe, pixel.data());
        copia(port, pixel, w, righe, Rect{y, visto.left, fine, visto.right}, fonte->buchi);
    }
    return true;
}

// Plays the picture on a white and on a black ground: where they differ, it left the ground alone.
bool riprendi(Copia& c, std::string_view bytes, std::int32_t w, std::int32_t h, std::int32_t ratio) {
    RasterPort chiaro(w, h, ratio);
    RasterPort scuro(w, h, ratio);
    const PortaCorrente porta;
    const Rect tutto{0, 0, h, w};
    SetPort(&scuro);
    PaintRect(tutto);
    const bool bene = DrawPicture(bytes, tutto);
    SetPort(&chiaro);
    DrawPicture(bytes, tutto);
    const auto n = static_cast<std::size_t>(chiaro.deviceWidth()) * static_cast<std::size_t>(chiaro.deviceHeight());
    c.ripresa = Ripresa{w, h, ratio, std::vector<std::uint32_t>(n)};
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t p = chiaro.pixels()[i];
        c.ripresa.pixels[i] = p == scuro.pixels()[i] ? p : p & 0x00FFFFFFU;
    }
    return bene;
}

// A picture of several figures is played anew each time, unless that takes so long that a copy at this size is better.
void disegnaFigure(GrafPort& port, PicHandle h, Copia& c, const Rect& dst) {
    constexpr std::int64_t massimo = 12 << 20;   // device pixels of a copy
    constexpr auto attesa = std::chrono::milliseconds(40);
    const std::string& bytes = PictBytes(h);
    const std::int64_t w = std::int64_t(dst.right) - dst.left;
    const std::int64_t alta = std::int64_t(dst.bottom) - dst.top;
    const std::int64_t n = w * alta * port.ratio * port.ratio;
    if (c.lenta && n <= massimo) {
        faiPosto(h, n * 4);
        const auto pw = static_cast<std::int32_t>(w);
        const auto ph = static_cast<std::int32_t>(alta);
        Ripresa& r = c.ripresa;
        if (r.width != pw || r.height != ph || r.ratio != port.ratio) riprendi(c, bytes, pw, ph, port.ratio);
        copia(port, r.pixels, pw * r.ratio, ph * r.ratio, dst, true);
        return;
    }
    const auto inizio = Orologio::now();
    DrawPicture(bytes, dst);
    c.lenta = Orologio::now() - inizio > attesa;
}

void disegnaVelo(const Rect& r) {
    constexpr std::int32_t retinoVelo = 21;   // selezionePat
    PenNormal();
    PenPat(GetIndPattern(retinoVelo));
    PenMode(notPatBic);
    PaintRect(r);
    PenMode(patCopy);
    PenPat(qdGray);
    FrameRect(r);
    PenPat(qdBlack);
}

}   // namespace

void DisPict(std::int32_t index) {
    const elemento& e = Elem(index);
    const elemento::Pict& p = e.pict;
    const double x0 = p.x, y0 = p.y, x1 = p.x + p.larghezza, y1 = p.y + p.altezza;
    const Bordi b{std::round(XVidD(x0)), std::round(YVidD(y0)), std::round(XVidD(x1)), std::round(YVidD(y1))};
    const Rect dst = b.rett();
    GrafPort& port = *GetPort();
    if (EmptyRect(dst) || !port.clip.touches(dst)) return;
    const PicHandle h = p.maniglia;
    // Pictures and paper take the picture itself; a copy at the screen's resolution would be too coarse for them.
    if (dynamic_cast<RasterPort*>(&port) == nullptr) {
        DrawPicture(PictBytes(h), dst);
    } else {
        Copia& c = copiaDi(h);
        if (c.piramide->specie() == Piramide::Specie::figure)
            disegnaFigure(port, h, c, dst);
        else if (!disegnaRaster(port, h, c, b))
            disegnaCrociata(dst);
    }
    if (LucidoGrigio(e.lucido)) disegnaVelo(dst);
    PenMode(patCopy);
}

}   // namespace tessaro
