// The live transformation's preview of a picture: the selected one as it would come out, half transparent over the sheet,
// at the screen's resolution. Nothing is stored; what it is made from is a reduced copy, kept while the picture is.
#include "raster/AnteprimaPict.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

#include "display/Disegno.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "raster/Morbida.h"
#include "raster/raster.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

namespace {

constexpr std::int64_t pixelCopia = 6 << 20;      // of the reduced copy, at most
constexpr std::uint32_t scoperto = 0xFF010203U;   // a colour that stands for no colour

struct Copia {
    PicHandle pict = 0;
    Campioni campioni;
    bool buona = false;
};
std::unique_ptr<Copia> copia;

const Campioni* copiaDi(PicHandle h, const std::string& bytes) {
    if (!copia || copia->pict != h) {
        copia = std::make_unique<Copia>();
        copia->pict = h;
        copia->buona = copia->campioni.caricaRidotta(bytes, pixelCopia) && copia->campioni.copie(6);
    }
    return copia->buona ? &copia->campioni : nullptr;
}

// The device pixels that the picture's image may touch: all of them where the horizon crosses it.
Rect scatola(const elemento& e, double scala, const Rect& tutto) {
    const double xs[] = {e.pict.x, e.pict.x + e.pict.larghezza}, ys[] = {e.pict.y, e.pict.y + e.pict.altezza};
    double x1 = 1e99, y1 = 1e99, x2 = -1e99, y2 = -1e99;
    bool davanti = false, dietro = false;
    for (const double px : xs)
        for (const double py : ys) {
            double x = px, y = py;
            const double D = 1 + (attaccoAttivo.coef[6] * x + attaccoAttivo.coef[7] * y);
            (D > 0 || TipoMappa() == mappaPerMolti ? davanti : dietro) = true;
            attaccoAttivo.Traf4Pt(x, y);
            if (!std::isfinite(x) || !std::isfinite(y)) return tutto;
            x1 = std::min(x1, x);
            y1 = std::min(y1, y);
            x2 = std::max(x2, x);
            y2 = std::max(y2, y);
        }
    if (TipoMappa() != 0 && davanti && dietro) return tutto;
    // A construction bends its sides a little beyond the corners, and so do many points.
    const double margine = TipoMappa() >= 2 ? 0.2 * std::max(x2 - x1, y2 - y1) : 0;
    const auto in = [scala](double v, double origine) { return Troncato32(v * scala - origine); };
    return SectRect(tutto, Rect{in(y1 - margine, OrigY) - 1, in(x1 - margine, OrigX) - 1, in(y2 + margine, OrigY) + 2,
                                in(x2 + margine, OrigX) + 2});
}

void vela(RasterPort& porta, const Tela& t, const Rect& area, std::int32_t ratio) {
    for (const Rect& parte : porta.clip.parti) {
        const Rect r = SectRect(parte, area);
        if (EmptyRect(r)) continue;
        for (std::int32_t y = r.top * ratio; y < r.bottom * ratio; ++y) {
            const auto* da = reinterpret_cast<const std::uint32_t*>(t.riga(y - area.top * ratio)) - area.left * ratio;
            std::uint32_t* a = porta.pixels() + y * porta.rowPixels();
            for (std::int32_t x = r.left * ratio; x < r.right * ratio; ++x)
                if (da[x] != scoperto) a[x] = 0xFF000000U | ((a[x] >> 1 & 0x7F7F7FU) + (da[x] >> 1 & 0x7F7F7FU));
        }
        porta.touch(r);
    }
}

}   // namespace

void DisegnaAnteprimaPict() {
    if (!AnteprimaAttiva() || !Puntosel.attiva) return;
    auto* porta = dynamic_cast<RasterPort*>(GetPort());
    const Scelti s = PictScelta();
    if (porta == nullptr || s.pict == 0) return;
    const elemento e = Elem(s.pict);
    const std::int32_t ratio = porta->ratio;
    const Rect pixel{0, 0, porta->deviceHeight() / ratio, porta->deviceWidth() / ratio};
    const Rect area = scatola(e, scalavid, SectRect(SectRect(porta->clip.box(), pixel), pixel));
    if (EmptyRect(area)) return;
    const Campioni* c = copiaDi(e.pict.maniglia, PictBytes(e.pict.maniglia));
    const auto forma = FormatoPer(32, nullptr);
    Tela t;
    if (c == nullptr
        || !NuovaTela(t, (area.right - area.left) * ratio, (area.bottom - area.top) * ratio, *forma, false))
        return;
    std::fill_n(reinterpret_cast<std::uint32_t*>(t.dati.get()), t.rowBytes / 4 * t.altezza, scoperto);
    Piano p;
    p.x1PictBase = e.pict.x;
    p.y1PictBase = e.pict.y;
    p.stepD = scalavid * ratio;
    p.x1Pict2 = (area.left + OrigX) / scalavid;
    p.y1Pict2 = (area.top + OrigY) / scalavid;
    CampoInverso campo;
    campo.larghezza = c->livello(0).w;
    campo.altezza = c->livello(0).h;
    if (!CampoDellaMappa(MappaturaAttiva(), p, campo.larghezza / e.pict.larghezza, campo.altezza / e.pict.altezza,
                         campo))
        return;
    Ricampiona({*c, campo, t, *forma, Rect{0, 0, t.altezza, t.larghezza}}, [](double) { return true; });
    vela(*porta, t, area, ratio);
}

namespace {
[[maybe_unused]] const bool legata = (anteprimaImmagine = DisegnaAnteprimaPict, true);
}   // namespace

}   // namespace tessaro
