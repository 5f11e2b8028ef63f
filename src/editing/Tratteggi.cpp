// The hatch of a polyline: scan lines in a frame turned by the hatch's angle, paired by the even-odd rule.
#include "editing/Tratteggi.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <new>
#include <vector>

#include "display/Pixel.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Registrazione.h"
#include "model/TabellaStato.h"
#include "platform/Dialogs.h"
#include "text/Conversione.h"

namespace tessaro {

constinit std::uint8_t UscitaTratt = 0;

namespace {

constexpr std::int16_t alertMemoriaTratteggio = 3012;
constexpr double troppeLinee = 100000;   // more than any view can show apart: spacing from a damaged record

// The frame whose p axis runs along the hatch lines; q counts across them.
struct Riferimento {
    double c, s;
    [[nodiscard]] Coppia dentro(double x, double y) const { return {x * c + y * s, -x * s + y * c}; }
    [[nodiscard]] Coppia fuori(double p, double q) const { return {p * c - q * s, p * s + q * c}; }
};

struct Estremi {
    double min = 1e30, max = -1e30;
    void allarga(double q) {
        min = std::min(min, q);
        max = std::max(max, q);
    }
};

std::vector<Coppia> anello;    // vertices in the frame, the first again at the end; kept between repaints
std::vector<double> incroci;   // of one line, falling

Estremi faiAnello(std::int32_t testa, std::int32_t ultimo, const Riferimento& r) {
    Estremi e;
    anello.clear();
    for (std::int32_t i = testa; i <= ultimo; ++i) {
        anello.push_back(r.dentro(Elem(i).poli.x, Elem(i).poli.y));
        e.allarga(anello.back().y);
    }
    anello.push_back(anello.front());
    return e;
}

// What can be seen, across the lines.
Estremi inVista(const Riferimento& r) {
    const Rect area = AreaDisegnabile();
    Estremi e;
    for (const std::int32_t h : {area.left, area.right})
        for (const std::int32_t v : {area.top, area.bottom})
            e.allarga(r.dentro((h + 0.0 + OrigX) / scalavid, (v + 0.0 + OrigY) / scalavid).y);
    return e;
}

void linea(const Riferimento& r, double s) {
    incroci.clear();
    for (std::size_t i = 1; i < anello.size(); ++i) {
        const Coppia a = anello[i - 1], b = anello[i];
        if (s < std::min(a.y, b.y) || s > std::max(a.y, b.y)) continue;
        incroci.push_back(a.x - (a.y - s) * (a.x - b.x) / (a.y - b.y));
    }
    std::sort(incroci.begin(), incroci.end(), std::greater<>());
    for (std::size_t i = 1; i < incroci.size(); i += 2) {
        const Coppia a = r.fuori(incroci[i - 1], s), b = r.fuori(incroci[i], s);
        LineaFoglio(a.x, a.y, b.x, b.y);
    }
}

void direzione(std::int32_t testa, std::int32_t ultimo, double angolo, double passo) {
    const Riferimento r{std::cos(angolo), std::sin(angolo)};
    const Estremi figura = faiAnello(testa, ultimo, r), vista = inVista(r);
    // The lines of all polygons with one spacing lie on one grid through the sheet's origin.
    const double primo = std::max(std::trunc(figura.min / passo), std::floor(vista.min / passo));
    const double alto = std::min(figura.max, vista.max);
    if (!(alto / passo - primo < troppeLinee)) return;
    for (double n = primo; n * passo <= alto; ++n) linea(r, n * passo);
}

}   // namespace

void Hatch_Poligon(std::int32_t index) {
    const auto& e = Elem(index).poli;
    const double passo = e.passoTratt * 100.0, angolo = static_cast<double>(PigMezzi) + e.angoloTratt;
    if (!(passo > 0) || !std::isfinite(passo) || !std::isfinite(angolo)) return;
    const std::int32_t ultimo = std::min(index + std::max<std::int32_t>(e.numVertici, 0), indElem);
    const std::int16_t spessPrima = spess;
    spess = 0;
    try {
        direzione(index, ultimo, angolo, passo);
        if (e.incrociato) direzione(index, ultimo, angolo + static_cast<double>(PigMezzi), passo);
    } catch (const std::bad_alloc&) { ESCITRATTEGGIO(); }
    spess = spessPrima;
}

void ESCITRATTEGGIO() {
    StopAlert(alertMemoriaTratteggio);
    VisioneGraf.mostraTratteggi = 0;
    UscitaTratt = 1;
}

namespace {
const VoceStato righe[] = {{"UscitaTratt", VoceStato::u8, &UscitaTratt, 0}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
