// The command `info`: what a file holds, without changing it.
#include <array>
#include <cmath>
#include <fstream>
#include <numbers>
#include <set>

#include "batch/Comandi.h"
#include "batch/Misure.h"
#include "batch/Motore.h"
#include "batch/Rigo.h"
#include "bitmap/PictInPixel.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/PuntiElemento.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

// The version word of a native file; -1 for any other.
std::int64_t versioneDi(const std::string& percorso, const GenereFile* f) {
    if (f == nullptr || !f->diCasa) return -1;
    std::ifstream in(percorso, std::ios::binary);
    const int alto = in.get(), basso = in.get();
    return in ? alto * 256 + basso : -1;
}

struct Riquadro {
    double x1 = 1e300, y1 = 1e300, x2 = -1e300, y2 = -1e300;
};

Riquadro estensioneReale() {
    Riquadro r;
    const auto prendi = [&r](double x, double y) {
        double X = 0, Y = 0;
        DigiToReal(x, y, X, Y);
        r = {std::min(r.x1, X), std::min(r.y1, Y), std::max(r.x2, X), std::max(r.y2, Y)};
    };
    for (std::int32_t n = 3; n <= indElem; n = UltimoRecord(n) + 1) {
        PerEstremi(n, prendi);
        if (Elem(n).tipo == tTesto) prendi(Elem(n).test.x, Elem(n).test.y);
    }
    return r;
}

std::vector<std::string> lucidi() {
    std::set<std::int16_t> usati;
    for (std::int32_t n = 3; n <= indElem; ++n) usati.insert(Elem(n).lucido);
    std::vector<std::string> nomi;
    for (const std::int16_t l : usati) nomi.push_back(std::to_string(l));
    return nomi;
}

void immagini(const Chiamata& c) {
    for (std::int32_t n = 3; n <= indElem; ++n) {
        if (Elem(n).tipo != tPict) continue;
        const auto& p = Elem(n).pict;
        const std::string& bytes = PictBytes(p.maniglia);
        const PictInPixel pixel(bytes);
        Rigo r(c);
        r.intero("picture", n).intero("width_px", pixel.width()).intero("height_px", pixel.height());
        r.numero("width_mm", p.larghezza / 10).numero("height_mm", p.altezza / 10);
        r.numero("resolution_dpi", pixel.width() / (p.larghezza / DecPollice));
        r.intero("bytes", static_cast<std::int64_t>(bytes.size())).stampaRiga();
    }
}

// The turn from the sheet to the real plane, degrees anticlockwise.
double rotazione() {
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    DigiToReal(0, 0, x0, y0);
    DigiToReal(1000, 0, x1, y1);
    return std::atan2(y1 - y0, x1 - x0) * 180 / std::numbers::pi;
}

}   // namespace

Esito ComandoInforma(const Chiamata& c) {
    const std::string& da = c.file[0];
    if (const Esito e = ApriIngresso(c, da, false); e != Esito::fatto) return e;
    const GenereFile* f = GenereDi(da);
    Rigo r(c);
    r.testo("file", da).testo("format", f->suffisso.substr(1)).intero("bytes", ByteDi(da));
    if (const std::int64_t v = versioneDi(da, f); v >= 0) r.intero("version", v);
    const Conteggi conti = ContaElementi();
    r.intero("elements", conti.tutti());
    for (std::size_t i = 0; i < conti.quanti.size(); ++i) r.intero(Conteggi::nomi[i], conti.quanti[i]);
    r.elenco("layers_in_use", lucidi()).intero("colours", coloriPresenti);
    r.numero("sheet_width_mm", Xfoglio * 10).numero("sheet_height_mm", yfoglio * 10);
    r.testo("unit", Unita().substr(1)).numero("scale_denominator", Scaladis);
    const bool registrato = Elem(2).att.coordReali != 0;
    r.vero("registered", registrato);
    if (registrato) r.numero("rotation_deg", rotazione());
    if (const Riquadro q = estensioneReale(); q.x1 <= q.x2) {
        r.numero("x_min" + Unita(), q.x1).numero("y_min" + Unita(), q.y1);
        r.numero("x_max" + Unita(), q.x2).numero("y_max" + Unita(), q.y2);
    }
    r.elenco("notes", detto.note).stampa();
    immagini(c);
    return Esito::fatto;
}

}   // namespace tessaro
