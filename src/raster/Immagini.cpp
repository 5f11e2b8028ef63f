// Pictures coming in: raster files turned into stored pictures without loss, and PICT files taken as they are.
#include "raster/Immagini.h"

#include <memory>

#include "dialogs/Errori.h"
#include "display/Ridisegno.h"
#include "model/Annulla.h"
#include "model/Attributi.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Pict.h"
#include "platform/pict/Scrittore.h"
#include "platform/Resources.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoMemoria = 128;
constexpr std::int16_t avvisoImmagine = 9102;   // ^0 the reason, ^1 the file
constexpr std::int16_t listaMotivi = 9102;
constexpr std::int16_t motivoTroppoGrande = 3;

// A new picture element at the cursor, of that size on the sheet. False when the store is full.
bool memorizzaPict(std::string bytes, double larghezza, double altezza) {
    const std::int32_t prima = indElem;
    Memorizza(tPict, xcurs, ycurs, zcurs, larghezza, altezza, 0, spessore, colorCorrente, NumPat, PStr255(""));
    if (indElem == prima) return false;
    Elem(indElem).pict.maniglia = NewPict(std::move(bytes));
    return true;
}

// Packs the pixels of a deep image while they are decoded: they never stand beside a second copy.
class Imballatore final : public RicevitoreRighe {
public:
    void inizio(const Immagine& info) override {
        const Rect r{0, 0, info.height, info.width};
        // Room for the worst case: what is not written to is never taken from the machine.
        const auto n = static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height);
        scrittore.bytes.reserve(n * 3 + n / 32 + 65536);
        scrittore.testa(r);
        corso = std::make_unique<PixelInCorso>(scrittore, info.width, info.height, PostoBits{r, r, bitsCopia});
    }
    void riga(const std::uint32_t* pixels) override { corso->riga(pixels); }
    [[nodiscard]] bool usato() const { return corso != nullptr; }
    std::string fine() { return scrittore.fine(); }

private:
    Scrittore scrittore;
    std::unique_ptr<PixelInCorso> corso;
};

bool nonImportata(const FSSpec& spec, const std::string& reason) {
    ParamText(reason, spec.nome, "", "");
    StopAlert(avvisoImmagine);
    return false;
}

bool leggiTutto(std::int16_t ref, std::int64_t da, std::int64_t n, std::string& bytes) {
    OSErr e = SetFPos(ref, da);
    bytes.resize(static_cast<std::size_t>(n));
    auto conto = static_cast<std::int32_t>(n);
    if (e == noErr) e = FSRead(ref, conto, bytes.data());
    if (e != noErr) IOERR2(e);
    return e == noErr;
}

}   // namespace

bool GetPictInfo(const std::string& bytes, Rect& frame) {
    double x = 0, y = 0;
    return PictFrame(bytes, frame, x, y);
}

std::string PictDaImmagine(const Immagine& im) {
    if (!im.jpegBytes.empty()) return PictDaJpeg(im.jpegBytes, im.width, im.height, im.dpiX, im.dpiY);
    if (im.depth == 32) return PictDaPixel(im.pixels.data(), im.width, im.height);
    return PictDaIndici(im.indices.data(), im.palette, im.width, im.height, im.depth);
}

bool ImportaImmagine(const FSSpec& spec) {
    if (indElem >= maxElementi) return false;
    Immagine im;
    Imballatore imballatore;
    std::string reason;
    if (!DecodeImageFile(spec, im, reason, &imballatore)) return nonImportata(spec, reason);
    std::string pict = imballatore.usato() ? imballatore.fine() : PictDaImmagine(im);
    if (pict.empty()) return nonImportata(spec, GetIndString(listaMotivi, motivoTroppoGrande));
    const double larghezza = im.width * DecPollice / im.dpiX;
    const double altezza = im.height * DecPollice / im.dpiY;
    return memorizzaPict(std::move(pict), larghezza, altezza);
}

void LeggiPict(std::int16_t ref) {
    constexpr std::int64_t testaFile = 512;
    PoniAnnulla(aNiente);
    if (indElem >= maxElementi) return;
    std::int64_t lungo = 0;
    const OSErr e = GetEOF(ref, lungo);
    if (e != noErr) return IOERR2(e);
    if (lungo < testaFile) return SysBeep(50);
    if (lungo > 0x7FFFFFFF) {
        StopAlert(avvisoMemoria);
        return;
    }
    std::string bytes;
    if (!leggiTutto(ref, testaFile, lungo - testaFile, bytes)) return;
    if (!VociPict(bytes).valido()) {   // some programs leave the file header out
        std::string intero;
        if (!leggiTutto(ref, 0, lungo, intero)) return;
        if (VociPict(intero).valido()) bytes = std::move(intero);
    }
    Rect frame;
    if (!GetPictInfo(bytes, frame)) {
        StopAlert(avvisoMemoria);
        return;
    }
    memorizzaPict(std::move(bytes), DecPunto * (frame.right - frame.left), DecPunto * (frame.bottom - frame.top));
    InvalWind();
}

}   // namespace tessaro
