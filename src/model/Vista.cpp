// Sheet units to pixels and back.
#include "model/Vista.h"

#include <cmath>

#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"

namespace tessaro {

constinit double scalavid = 0.3, diffCerca = 5 / 0.3, DiffSelez = 4 / 0.3, ScalaTesto = 0.3 * DecPunto;
constinit std::int32_t OrigX = -32, OrigY = 0;
constinit AngoloPagina PageCorner{};
constinit Rect myViewRect{};

namespace {

double pixel(double v, std::int32_t origine) {
    const double p = std::round(scalavid * v) - origine;
    return std::isnan(p) ? -1e15 : p;   // a broken coordinate lies far outside every view
}

// Any whole double to 16 bits as two's complement arithmetic wraps it.
std::int16_t avvolgi(double p) {
    if (!(std::fabs(p) < 9e15)) return p > 0 ? 32767 : -32768;
    return i16(static_cast<std::int64_t>(p));
}

std::string rettangoloJson(const Rect& r) {
    return "[" + NumeroJson(r.left) + "," + NumeroJson(r.top) + "," + NumeroJson(r.right) + "," + NumeroJson(r.bottom)
           + "]";
}

}   // namespace

double XVidD(const double& x) { return pixel(x, OrigX); }
double YVidD(const double& y) { return pixel(y, OrigY); }
std::int16_t XVid(const double& x) { return avvolgi(pixel(x, OrigX)); }
std::int16_t YVid(const double& y) { return avvolgi(pixel(y, OrigY)); }

void VidToReal(Point p, puntot& out) {
    out.x = (static_cast<double>(p.h) + OrigX) / scalavid;
    out.y = (static_cast<double>(p.v) + OrigY) / scalavid;
}

void AggiornaTolleranze() {
    diffCerca = 5 / scalavid;
    DiffSelez = 4 / scalavid;
    ScalaTesto = scalavid * DecPunto;
}

namespace {
const VoceStato righe[] = {
    voce<scalavid>("scalavid"),
    voce<OrigX>("OrigX"),
    voce<OrigY>("OrigY"),
    {"PageCorner", [] { PageCorner = {}; },
     [] { return "{\"v\":" + NumeroJson(PageCorner.v) + ",\"h\":" + NumeroJson(PageCorner.h) + "}"; }},
    {"myViewRect", [] { myViewRect = {}; }, [] { return rettangoloJson(myViewRect); }},
    voce<diffCerca>("diffCerca"),
    voce<DiffSelez>("DiffSelez"),
    voce<ScalaTesto>("ScalaTesto"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
