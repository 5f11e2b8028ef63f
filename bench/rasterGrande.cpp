// A picture of 100 megapixels rectified: the time, and what memory it takes at most; and how often the live preview of
// one of 20 megapixels can follow a moving point, on a window of 1280 by 800.
#include <fstream>
#include <random>

#include "Misure.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Pict.h"
#include "raster/AnteprimaPict.h"
#include "raster/raster.h"
#include "registration/attaccoDinamico.h"
#include "registration/gauss.h"
#include "registration/PuntiControllo.h"

namespace {

using namespace misure;

long residenti(const char* voce) {   // MB
    std::ifstream stato("/proc/self/status");
    std::string parola;
    long v = 0;
    while (stato >> parola)
        if (parola == voce && stato >> v) return v / 1024;
    return 0;
}

// Grey levels with some grain; one pixel a sheet unit.
std::int32_t scansione(std::int32_t w, std::int32_t h) {
    AzzeraStato();
    if (!AllocaElementi(100)) fallito("the store");
    AzzeraArchivio();
    std::vector<std::uint32_t> pixel(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    std::mt19937 caso(7);
    for (std::uint32_t& p : pixel) {
        const std::uint32_t g = 100 + caso() % 64;
        p = 0xFF000000U | g << 16 | (g + 7) << 8 | g;
    }
    Memorizza(tPict, 0, 0, 0, w, h, 0, 1, 1, 1, "");
    Elem(indElem).pict.maniglia = NewPict(PictDaPixel(pixel.data(), w, h));
    return indElem;
}

void registra(double w, double h, double mosso) {
    const double sorgenti[4][2] = {{0, h}, {0, 0}, {w, 0}, {w, h}};
    const double destinazioni[4][2] = {
        {w * 0.012, h * 0.998}, {w * 0.002, h * 0.01}, {w * 0.99 + mosso, 5 - mosso}, {w, h * 0.975}};
    attaccoAttivo.tipo = 1;
    for (std::int16_t i = 0; i < 4; ++i) {
        AssegnaAttacco(static_cast<std::int16_t>(i + 1), sorgenti[i][0], sorgenti[i][1]);
        attaccoAttivo.SetXYAtt(i, destinazioni[i][0], destinazioni[i][1]);
    }
    const SenzaTraccia muto;
    attaccoAttivo.PreparaAttacco();
}

void grande() {
    constexpr std::int32_t lato = 10'000;
    const std::int32_t n = scansione(lato, lato);
    registra(lato, lato, 0);
    coeffRisoluzione = DecPunto;
    const long prima = residenti("VmRSS:");
    std::ofstream("/proc/self/clear_refs") << "5";   // the peak so far was the making of the scan
    bool bene = false;
    const double ms = millisecondi([&] {
        CalcolaVertici(Elem(n), 0);
        bene = PictureToPixMap(Elem(n).pict.maniglia, false);
    });
    if (!bene) fallito("the rectification");
    std::printf("100 megapixels rectified: %.1f s, %ld MB before, %ld MB at most   limit 1536 MB\n", ms / 1000, prima,
                residenti("VmHWM:"));
}

void dalVivo() {
    constexpr std::int32_t w = 5200, h = 3900;
    const std::int32_t n = scansione(w, h);
    registra(w, h, 0);
    attaccoAttivo.SetModificato(1);
    Elem(n).selezionato = 1;
    Puntosel.attiva = 1;
    Puntosel.oggetto = oPict;
    Puntosel.indice = n;
    Puntosel.numSel = 1;
    RasterPort porta(1280, 800, 1);
    SetPort(&porta);
    OrigX = OrigY = 0;
    for (const double scala : {0.2, 1.0}) {   // the whole sheet, and one pixel a pixel
        scalavid = scala;
        DisegnaAnteprimaPict();   // the reduced copies are made once
        constexpr int quadri = 20;
        int i = 0;
        const double ms = millisecondi([&] {
            for (; i < quadri; ++i) {
                registra(w, h, i);
                DisegnaAnteprimaPict();
            }
        });
        std::printf("live preview of 20 megapixels at %.0f%%: %.1f pictures a second   at least 10\n", scala * 100,
                    quadri * 1000 / ms);
    }
    SetPort(nullptr);
}

}   // namespace

int main() {
    dalVivo();
    grande();
    return 0;
}
