// The drawing painted away from the screen, into the recorder of stored pictures.
#include "raster/CreaPict.h"

#include <algorithm>
#include <cmath>

#include "bitmap/PictInPixel.h"
#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Disegno.h"
#include "display/Interruzione.h"
#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Images.h"
#include "platform/pict/Pict.h"
#include "platform/Windows.h"
#include "raster/Immagini.h"
#include "raster/VistaPict.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoMemoria = 128;
constexpr std::int16_t richiestaTutto = 42;

bool soloPict() {
    return Puntosel.attiva && !Puntosel.multipla && Puntosel.indice >= 3 && Puntosel.indice <= indElem
           && Elem(Puntosel.indice).tipo == tPict;
}

struct Riquadro {
    double x = 0, y = 0, larghezza = 0, altezza = 0;
};

// A figure without width or height, such as a level segment, still has its pen's.
Riquadro daDisegnare() {
    constexpr double minimo = 1;   // sheet units
    if (!Puntosel.attiva || !(rettSel.xmax >= rettSel.xmin) || !(rettSel.ymax >= rettSel.ymin))
        return {0, 0, double(XFDecimi), double(YFDecimi)};
    return {rettSel.xmin, rettSel.ymin, std::max(rettSel.xmax - rettSel.xmin, minimo),
            std::max(rettSel.ymax - rettSel.ymin, minimo)};
}

// As fine as wanted, less where the box's far corner would pass what a picture's coordinates can say.
double scalaPer(const Riquadro& r, double dpi) {
    constexpr double limite = 29000;   // pixels; figures are cut at 30000
    const double lontano =
        std::max({std::fabs(r.x), std::fabs(r.y), std::fabs(r.x + r.larghezza), std::fabs(r.y + r.altezza)});
    return std::min(dpi / DecPollice, lontano > 0 ? limite / lontano : dpi);
}

// The box's pixels at the scale in force; at least one.
Rect pixelDi(const Riquadro& r) {
    const Rect p{arrotonda32(YVidD(r.y)), arrotonda32(XVidD(r.x)), arrotonda32(YVidD(r.y + r.altezza)),
                 arrotonda32(XVidD(r.x + r.larghezza))};
    return Rect{p.top, p.left, std::max(p.bottom, p.top + 1), std::max(p.right, p.left + 1)};
}

// Stepped by the progress that is open; of what was stopped nothing is left.
std::string disegna(const Riquadro& r, double dpi, bool solaSelezione) {
    const VistaPict vista(scalaPer(r, dpi));
    const DisegnoSeguito seguito;
    OpenPicture(pixelDi(r), scalavid * DecPollice);
    if (solaSelezione)
        DisegnaElementiSelezionati();
    else
        Disegna();
    std::string bytes = ClosePicture();
    return ProgressStopped() ? std::string() : bytes;
}

std::string png(const std::string& bytes, double larghezza, double altezza) {
    constexpr double massimo = 40e6;   // pixels
    PictInPixel pict(bytes);
    double w = pict.width(), h = pict.height();
    if (!pict.soloRaster()) {
        w = larghezza * dpiPict / DecPollice;
        h = altezza * dpiPict / DecPollice;
    }
    const double riduci = std::min(1.0, std::sqrt(massimo / std::max(w * h, 1.0)));
    const auto lato = [riduci](double n) { return std::max(1, arrotonda32(n * riduci)); };
    const Rect r{0, 0, lato(h), lato(w)};
    std::string fatto;
    if (!pict.misura(r.right, r.bottom)) return fatto;
    std::vector<std::uint32_t> pixel(static_cast<std::size_t>(r.right) * static_cast<std::size_t>(r.bottom));
    pict.righe(0, r.bottom, pixel.data());
    EncodeImage(FormatoImmagine::png, PixMap{pixel.data(), r.right, r}, r.right * DecPollice / larghezza,
                r.bottom * DecPollice / altezza, fatto);
    return fatto;
}

bool scrivi(std::int16_t ref, const std::string& bytes) {
    constexpr std::size_t testaFile = 512, minimo = 101;
    if (!ProgressStep(1)) return false;
    if (bytes.size() < minimo) {
        StopAlert(avvisoMemoria);
        return false;
    }
    const std::string testa(testaFile, '\0');
    for (const std::string* pezzo : {&testa, &bytes}) {
        auto conto = static_cast<std::int32_t>(pezzo->size());
        const OSErr e = FSWrite(ref, conto, pezzo->data());
        if (e == noErr) continue;
        IOERR2(e);
        return false;
    }
    return true;
}

}   // namespace

bool CreaPict(FiguraPict& p) {
    if (soloPict()) {
        const auto& e = Elem(Puntosel.indice).pict;
        p = FiguraPict{PictBytes(e.maniglia), e.x, e.y, e.larghezza, e.altezza};
        return !p.bytes.empty();
    }
    const Riquadro r = daDisegnare();
    p = FiguraPict{disegna(r, dpiPict, Puntosel.attiva != 0), r.x, r.y, r.larghezza, r.altezza};
    return !p.bytes.empty();
}

Sapori SaporiPict(const FiguraPict& p) {
    const auto pict = [bytes = p.bytes] { return bytes; };
    return {{"image/x-pict", pict}, {"image/pict", pict}, {"image/png", [p] {
                                                               return png(p.bytes, p.larghezza, p.altezza);
                                                           }}};
}

bool PutPicScrap(Sapori proprie) {
    const Termometro termometro(LavoroLungo::disegna);
    FiguraPict p;
    SetCursor(ClockCursor);
    if (CreaPict(p))
        for (Sapore& s : SaporiPict(p)) proprie.push_back(std::move(s));
    // Stopped: the clipboard keeps what it has.
    const bool fatto = !termometro.fermato() && PutScrap(proprie);
    SetCursor(arrowCursor);
    if (!fatto) AvvisoMemoria();
    return fatto;
}

void CreaImmagineDaSelezione() {
    if (!Puntosel.attiva || indElem >= maxElementi) return SysBeep(30);
    const Termometro termometro(LavoroLungo::disegna);
    FiguraPict p;
    if (!CreaPict(p)) return AvvisoMemoria();
    CominciaAggiunta();
    PoniAnnulla(aNiente);
    if (MemorizzaPict(std::move(p.bytes), p.x, p.y, p.larghezza, p.altezza)) PoniAnnulla(aAggiunta);
    InvalFinestra();
}

bool PutPictFile(std::int16_t ref) {
    constexpr double dpiFile = 72;
    const Termometro termometro(LavoroLungo::scriviImmagine);
    if (theItem == richiestaTutto) {
        const Riquadro foglio{0, 0, double(XFDecimi), double(YFDecimi)};
        return scrivi(ref, disegna(foglio, dpiFile, false));
    }
    return soloPict() && scrivi(ref, PictBytes(Elem(Puntosel.indice).pict.maniglia));
}

}   // namespace tessaro
