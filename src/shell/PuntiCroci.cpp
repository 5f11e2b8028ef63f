// The crosses of a scan's grid into the table of control points.
#include <algorithm>
#include <cmath>

#include "bitmap/PictInPixel.h"
#include "dialogs/Parametri.h"
#include "digitising/PuntiTesti.h"
#include "model/Archivio.h"
#include "model/Stato.h"
#include "platform/Dialogs.h"
#include "raster/Croci.h"
#include "registration/TabellaPunti.h"
#include "shell/PuntiAzioni.h"

namespace tessaro {

namespace {

enum : std::int16_t { senzaDue = 58, senzaImmagine, nessuna, trovate };
constexpr std::int16_t avvisoPunti = 9300, avvisoTrovate = 9302;

struct Chiesto {                                                  // kept between uses
    double passoX = 100, passoY = 100, braccio = 3, raggio = 4;   // real units; millimetres of the sheet
};
Chiesto chiesto;

bool chiedi() {
    enum : std::int16_t { dialogo = 9302, ok = 1, annulla = 2, passoX = 4, passoY = 6, braccio = 8, raggio = 10 };
    std::int16_t item = 0;
    const PortaCorrente porta;
    const DialogoAperto aperto(dialogo);
    ScriviCampoReale(passoX, chiesto.passoX, 3);
    ScriviCampoReale(passoY, chiesto.passoY, 3);
    ScriviCampoReale(braccio, chiesto.braccio, 2);
    ScriviCampoReale(raggio, chiesto.raggio, 2);
    SelectDialogItemText(theDialog, passoX, 0, 100);
    Chiesto c;
    const auto letto = [&c] {
        return LeggiCampoReale(passoX, 1e-6, 1e9, c.passoX) && LeggiCampoReale(passoY, 1e-6, 1e9, c.passoY)
               && LeggiCampoReale(braccio, 0.2, 100, c.braccio) && LeggiCampoReale(raggio, 0.1, 100, c.raggio);
    };
    do ModalDialog(MyMovableFilter, item);
    while (item != annulla && !(item == ok && letto()));
    if (item == ok) chiesto = c;
    return item == ok;
}

bool grigia(const elemento& e, ImmagineGrigia& im) {
    constexpr std::int64_t massimo = 400'000'000;   // pixels
    PictInPixel pixel(PictBytes(e.pict.maniglia));
    im.larghezza = pixel.width();
    im.altezza = pixel.height();
    if (im.larghezza < 3 || im.altezza < 3 || std::int64_t{im.larghezza} * im.altezza > massimo) return false;
    constexpr std::int32_t striscia = 256;
    std::vector<std::uint32_t> righe(static_cast<std::size_t>(im.larghezza) * striscia);
    im.valori.resize(static_cast<std::size_t>(im.larghezza) * static_cast<std::size_t>(im.altezza));
    for (std::int32_t y = 0; y < im.altezza; y += striscia) {
        const std::int32_t n = std::min(striscia, im.altezza - y);
        if (!pixel.righe(y, n, righe.data())) return false;
        const std::size_t quanti = static_cast<std::size_t>(n) * static_cast<std::size_t>(im.larghezza);
        float* a = im.valori.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(im.larghezza);
        for (std::size_t i = 0; i < quanti; ++i) {
            const std::uint32_t p = righe[i];
            a[i] = 0.299F * static_cast<float>(p >> 16 & 0xFF) + 0.587F * static_cast<float>(p >> 8 & 0xFF)
                   + 0.114F * static_cast<float>(p & 0xFF);
        }
    }
    return true;
}

// Between the sheet and the middles of the picture's pixels.
struct PosaPixel {
    double x, y, perX, perY;   // of the picture's corner; sheet units a pixel
    [[nodiscard]] Coppia pixel(const Coppia& f) const { return {(f.x - x) / perX - 0.5, (f.y - y) / perY - 0.5}; }
    [[nodiscard]] Coppia foglio(const Coppia& p) const { return {x + (p.x + 0.5) * perX, y + (p.y + 0.5) * perY}; }
};

// The row of that corner of the grid, or a new one.
RigaPunto& rigaDi(TabellaPunti& t, const Coppia& reale) {
    for (RigaPunto& r : t.righe)
        if (r.conReale && std::fabs(r.reale.x - reale.x) < chiesto.passoX * 0.01
            && std::fabs(r.reale.y - reale.y) < chiesto.passoY * 0.01)
            return r;
    RigaPunto& r = t.righe.emplace_back();
    r.reale = reale;
    r.conReale = true;
    return r;
}

std::string riempi(TabellaPunti& t, const std::vector<Croce>& croci, const PosaPixel& posa) {
    std::size_t quante = 0;
    double minima = 1;
    for (const Croce& c : croci) {
        if (!c.presa || t.righe.size() >= massimoPuntiTabella) continue;
        RigaPunto& r = rigaDi(t, c.reale);
        r.foglio = posa.foglio(c.dove);
        r.conFoglio = true;
        const std::string fiducia = std::to_string(std::lround(c.fiducia * 100)) + "%";
        if (r.nome.empty() || r.nome.ends_with('%'))
            r.nome = std::to_string(c.i) + "/" + std::to_string(c.j) + " " + fiducia;
        minima = std::min(minima, c.fiducia);
        ++quante;
    }
    return StringaPunti(trovate, std::to_string(quante), std::to_string(croci.size()),
                        std::to_string(std::lround(minima * 100)));
}

}   // namespace

void TrovaCrociTabella() {
    const std::int32_t n = PictDeiPunti();
    if (n == 0) {
        StopAlertParam(avvisoPunti, StringaPunti(senzaImmagine));
        return;
    }
    TabellaPunti t = LaTabella();
    const std::vector<PuntoNoto> note = PuntiDellaTabella(t, true);
    if (note.size() < 2) {
        StopAlertParam(avvisoPunti, StringaPunti(senzaDue));
        return;
    }
    if (!chiedi()) return;
    ImmagineGrigia im;
    const auto& p = Elem(n).pict;
    std::vector<Croce> croci;
    PosaPixel posa{};
    if (grigia(Elem(n), im)) {
        posa = {p.x, p.y, p.larghezza / im.larghezza, p.altezza / im.altezza};
        constexpr double mm = 10;   // sheet units
        RichiestaCroci r;
        r.pixelA = posa.pixel(note[0].foglio);
        r.pixelB = posa.pixel(note[1].foglio);
        r.realeA = note[0].reale;
        r.realeB = note[1].reale;
        r.passoX = chiesto.passoX;
        r.passoY = chiesto.passoY;
        r.braccio = chiesto.braccio * mm / posa.perX;
        r.raggio = chiesto.raggio * mm / posa.perX;
        croci = TrovaCroci(im, r);
    }
    if (croci.empty()) {
        StopAlertParam(avvisoPunti, StringaPunti(nessuna));
        return;
    }
    const std::string detto = riempi(t, croci, posa);
    PoniTabella(t);
    ParamText(detto, "", "", "");
    NoteAlert(avvisoTrovate);
}

}   // namespace tessaro
