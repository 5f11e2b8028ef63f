// A raster of 20 megapixels rectified by many points: through the thin plate against the projective of the live
// transformation, told and smooth, the whole job as a person starts it; and the told walk alone against a plain copy of the
// pixels, the floor.
#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#include "digitising/PuntiApplica.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/Estensioni.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/pict/Pict.h"
#include "raster/NuovaImmagine.h"
#include "raster/Percorri.h"
#include "raster/raster.h"
#include "registration/attaccoDinamico.h"
#include "registration/gauss.h"
#include "registration/MappaFoglio.h"
#include "registration/PuntiControllo.h"

namespace {

using namespace misure;

constexpr std::int32_t larghezza = 5200, altezza = 3900;   // 20.3 megapixels

std::int32_t scena() {
    AzzeraStato();
    if (!AllocaElementi(100)) fallito("the store");
    AzzeraArchivio();
    std::vector<std::uint32_t> p(static_cast<std::size_t>(larghezza) * altezza);
    for (std::int32_t y = 0; y < altezza; ++y)   // long runs, so that the packed picture stays small
        for (std::int32_t x = 0; x < larghezza; ++x)
            p[static_cast<std::size_t>(y) * larghezza + static_cast<std::size_t>(x)] =
                0xFF000000U | static_cast<std::uint32_t>((x / 37 * 0x10305) ^ (y / 29 * 0x50109)) % 0xFFFFFF;
    Memorizza(tPict, 0, 0, 0, larghezza, altezza, 0, 1, 1, 1, PStr255(""));
    Elem(indElem).pict.maniglia = NewPict(PictDaPixel(p.data(), larghezza, altezza));
    return indElem;
}

// Crosses of a sheet that has shrunk and was folded across, each off by a little.
void tabella(std::size_t punti) {
    std::mt19937 sorte(3);
    std::normal_distribution<double> rumore(0, 0.3);
    TabellaPunti t;
    const auto colonne = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(punti) * 4 / 3)));
    for (std::size_t i = 0; i < punti; ++i) {
        const double x = larghezza * (0.5 + static_cast<double>(i % colonne)) / static_cast<double>(colonne),
                     y = altezza * (0.5 + static_cast<double>(i / colonne))
                         / std::ceil(static_cast<double>(punti) / static_cast<double>(colonne)),
                     s = (x - larghezza / 2.0) / 400;
        RigaPunto r;
        r.foglio = {x - 8 * std::tanh(s) + rumore(sorte), y + 5 * std::exp(-s * s) + rumore(sorte)};
        r.reale = {0.2 * x, -0.2 * y};
        r.conFoglio = r.conReale = true;
        t.righe.push_back(r);
    }
    t.metodo = Metodo::lastra;
    PoniTabella(t);
}

std::unique_ptr<MappaFoglio> mappaDi(std::size_t punti) {
    tabella(punti);
    auto m = MappaDellaTabella();
    if (!m) fallito("the mapping");
    return m;
}

void registra() {
    const Coppia sorgenti[] = {{0, altezza}, {0, 0}, {larghezza, 0}, {larghezza, altezza}},
                 destinazioni[] = {{60, 3890}, {10, 40}, {5150, 5}, {5195, 3800}};
    attaccoAttivo.tipo = 1;
    for (std::int16_t i = 0; i < 4; ++i) {
        AssegnaAttacco(static_cast<std::int16_t>(i + 1), sorgenti[i].x, sorgenti[i].y);
        attaccoAttivo.SetXYAtt(i, destinazioni[i].x, destinazioni[i].y);
    }
    const SenzaTraccia muto;
    attaccoAttivo.PreparaAttacco();
}

// 0 points: the live transformation.
double lavoro(std::int32_t n, std::size_t punti, bool liscia) {
    const auto m = punti > 0 ? mappaDi(punti) : nullptr;
    const SenzaTraccia muto;
    morbida = liscia;
    risoluzione = 254;   // a result pixel a sheet unit
    bool bene = false;
    const double ms = millisecondi([&] { bene = m ? RettificaPictMolti(Elem(n), 0, *m) : RettificaPict(Elem(n), 0); });
    if (!bene) fallito("the rectification");
    indElem = n;
    return ms;
}

double cammino(std::int32_t n, std::size_t punti, double& preparata) {
    const auto m = punti > 0 ? mappaDi(punti) : nullptr;
    const ConMappa mappa(m.get());
    coeffRisoluzione = DecPunto;
    preparata = millisecondi([&] {
        if (m && !m->PerPixel(-20, -20, larghezza + 20, altezza + 20, 0.01)) fallito("the net");
    });
    if (m)
        std::printf("  grid of %d cells, net of %d by %d\n", m->griglia()->celle, m->rete()->colonne, m->rete()->righe);
    CalcolaVertici(Elem(n), 0);
    MisuraRaster(false);
    Sorgente densa(PictBytes(Elem(n).pict.maniglia), mapSizeX, mapSizeY, 32, 1LL << 30);
    Tela t;
    if (!NuovaTela(t, larghBitMap, altBitMap, densa.formato(), true)) fallito("the buffers");
    const Percorso p{densa, t, PianoDelLavoro(t), MappaturaAttiva(), pictRect, TaglioWalk::nessuno, nullptr};
    return millisecondi([&] { (void)Percorri(p, [](double) { return true; }); });
}

}   // namespace

int main() {
    const std::int32_t n = scena();
    double nulla = 0;
    std::vector<std::uint32_t> a(static_cast<std::size_t>(larghezza) * altezza, 7), b(a.size());
    const auto meglio = [](const auto& f) { return std::vector<double>{f(), f(), f()}; };
    const std::vector<double> copia =
        meglio([&] { return millisecondi([&] { std::memcpy(b.data(), a.data(), a.size() * 4); }); });
    registra();
    const std::vector<double> prospettiva = meglio([&] { return cammino(n, 0, nulla); });
    riga("walk, projective", prospettiva, "plain copy", copia, 0);
    for (const std::size_t punti : {40U, 200U, 1000U}) {
        double rete = 0;
        const std::vector<double> lastra = meglio([&] { return cammino(n, punti, rete); });
        std::printf("thin plate of %zu points: the net takes %.0f ms\n", punti, rete);
        riga("walk, thin plate", lastra, "projective", prospettiva, 3);
    }
    for (const bool liscia : {false, true}) {
        std::printf("\nwhole job, %s\n", liscia ? "smooth" : "told");
        const std::vector<double> p = meglio([&] { return lavoro(n, 0, liscia); });
        for (const std::size_t punti : {40U, 200U, 1000U})
            riga(("thin plate, " + std::to_string(punti) + " points").c_str(),
                 meglio([&] { return lavoro(n, punti, liscia); }), "projective", p, 3);
    }
    AzzeraEstensioni();
    return 0;
}
