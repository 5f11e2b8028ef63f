// Pictures coming in: raster files turned into stored pictures without loss, and PICT files taken as they are.
#include "raster/Immagini.h"

#include <algorithm>
#include <memory>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Ridisegno.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Codici.h"
#include "platform/pict/DaRighe.h"
#include "platform/pict/Pict.h"
#include "platform/Resources.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoMemoria = 128;
constexpr std::int16_t avvisoImmagine = 9102;   // ^0 the reason, ^1 the file
constexpr std::int16_t avvisoGuasta = 9121;     // ^0 the file
constexpr std::int16_t listaMotivi = 9102;
constexpr std::int16_t motivoTroppoGrande = 3, motivoFermata = 9;

// Packs the pixels of a deep image while they are decoded: they never stand beside a second copy.
class Imballatore final : public RicevitoreRighe {
public:
    void inizio(const Immagine& info) override {
        righe = std::make_unique<PictDaRighe>(info.width, info.height, FormaPict{.dpiX = info.dpiX, .dpiY = info.dpiY});
    }
    void riga(const std::uint32_t* pixels) override { righe->riga(pixels); }
    [[nodiscard]] bool usato() const { return righe != nullptr; }
    std::string fine() { return righe->fine(); }

private:
    std::unique_ptr<PictDaRighe> righe;
};

bool nonImportata(const std::string& nome, const std::string& reason) {
    if (reason == GetIndString(listaMotivi, motivoFermata)) return false;   // whoever stopped it knows
    ParamText(reason, nome, "", "");
    StopAlert(avvisoImmagine);
    return false;
}

constexpr double parteLettura = 0.5;   // of the work, by guess: playing it once is the rest

// Plays the picture once where nothing shows it. False when something of it cannot be read, or its end is missing.
bool sano(std::string_view pict) {
    RasterPort niente(1, 1, 1);
    const GrafPtr prima = GetPort();
    SetPort(&niente);
    EsitoPict esito;
    esito.avanti = [](double parte) { return ProgressStep(parteLettura + (1 - parteLettura) * parte); };
    const bool bene = DrawPicture(pict, Rect{0, 0, 1, 1}, &esito);
    SetPort(prima);
    return bene && (esito.finita || esito.fermata);
}

bool memorizza(std::string_view pict, const std::string& nome) {
    double larghi = 0, alti = 0;
    if (pict.empty() || !PictPunti(pict, larghi, alti)) {
        StopAlert(avvisoMemoria);
        return false;
    }
    if (!sano(pict)) {
        ParamText(nome, "", "", "");
        StopAlert(avvisoGuasta);
    }
    if (ProgressStopped()) return false;
    return MemorizzaPict(std::string(pict), xcurs, ycurs, DecPunto * larghi, DecPunto * alti);
}

// A JPEG is kept as it is, without being unpacked: one that ends in the middle has no end mark behind its last scan. Both
// marks stand nowhere else but in a thumbnail before the scans.
bool finisceAMeta(const std::string& jpeg) {
    const auto scansione = jpeg.rfind("\xFF\xDA"), fineFile = jpeg.rfind("\xFF\xD9");
    return scansione != std::string::npos && (fineFile == std::string::npos || fineFile < scansione);
}

bool memorizza(Immagine& im, Imballatore& imballatore, const std::string& nome) {
    if (finisceAMeta(im.jpegBytes)) {
        ParamText(nome, "", "", "");
        StopAlert(avvisoGuasta);
    }
    std::string pict = imballatore.usato() ? imballatore.fine() : PictDaImmagine(im);
    if (pict.empty()) return nonImportata(nome, GetIndString(listaMotivi, motivoTroppoGrande));
    return MemorizzaPict(std::move(pict), xcurs, ycurs, im.width * DecPollice / im.dpiX,
                         im.height * DecPollice / im.dpiY);
}

// Fills the bytes block by block; stopped, what was not read stays 0.
OSErr leggiSeguito(std::int16_t ref, std::string& bytes) {
    constexpr std::size_t perVolta = 8 << 20;
    OSErr e = noErr;
    for (std::size_t i = 0; i < bytes.size() && e == noErr; i += perVolta) {
        if (!ProgressStep(parteLettura * static_cast<double>(i) / static_cast<double>(bytes.size()))) break;
        auto conto = static_cast<std::int32_t>(std::min(perVolta, bytes.size() - i));
        e = FSRead(ref, conto, bytes.data() + i);
    }
    return e;
}

bool leggiTutto(std::int16_t ref, std::string& bytes) {
    std::int64_t lungo = 0;
    OSErr e = GetEOF(ref, lungo);
    if (e == noErr && lungo > 0x7FFFFFFF) {
        StopAlert(avvisoMemoria);
        return false;
    }
    bytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(lungo, 0)));
    if (e == noErr) e = SetFPos(ref, 0);
    if (e == noErr) e = leggiSeguito(ref, bytes);
    if (e != noErr) IOERR2(e);
    return e == noErr;
}

// A file's bytes, whatever goes wrong without a word: its reader tells.
std::string bytesDi(const FSSpec& spec, std::int64_t massimo = 0x7FFFFFFF) {
    std::string bytes;
    std::int16_t ref = 0;
    std::int64_t lungo = 0;
    if (FSpOpenDF(spec, fsRdPerm, ref) != noErr) return bytes;
    if (GetEOF(ref, lungo) == noErr && lungo > 0 && lungo <= 0x7FFFFFFF) {
        bytes.resize(static_cast<std::size_t>(std::min(lungo, massimo)));
        if (leggiSeguito(ref, bytes) != noErr) bytes.clear();
    }
    FSClose(ref);
    return bytes;
}

}   // namespace

bool GetPictInfo(const std::string& bytes, Rect& frame) {
    double x = 0, y = 0;
    return PictFrame(bytes, frame, x, y);
}

std::string_view PictNelFile(std::string_view bytes) {
    constexpr std::size_t testaFile = 512;
    if (bytes.size() > testaFile && VociPict(bytes.substr(testaFile)).valido()) return bytes.substr(testaFile);
    return VociPict(bytes).valido() ? bytes : std::string_view{};   // some programs leave the file header out
}

std::string PictDaImmagine(const Immagine& im) {
    if (!im.jpegBytes.empty()) return PictDaJpeg(im.jpegBytes, im.width, im.height, im.dpiX, im.dpiY);
    if (im.depth != 32)
        return PictDaIndici(im.indices.data(), im.palette, im.width, im.height, im.depth, im.dpiX, im.dpiY);
    PictDaRighe righe(im.width, im.height, FormaPict{.dpiX = im.dpiX, .dpiY = im.dpiY});
    for (std::int32_t y = 0; y < im.height; ++y) righe.riga(im.pixels.data() + std::ptrdiff_t(y) * im.width);
    return righe.fine();
}

bool MemorizzaPict(std::string bytes, double x, double y, double larghezza, double altezza) {
    const std::int32_t prima = indElem;
    Memorizza(tPict, x, y, zcurs, larghezza, altezza, 0, spessore, colorCorrente, NumPat, PStr255(""));
    if (indElem == prima) return false;
    Elem(indElem).pict.maniglia = NewPict(std::move(bytes));
    return true;
}

// Raster files are known by their first bytes, but for some readers that take much for theirs: a head of version 2, which
// nothing else has, goes before them. One of version 1 is two bytes: it is believed where no reader knows better.
bool ImportaImmagine(const FSSpec& spec) {
    constexpr std::int64_t testa = 4096;
    if (indElem >= maxElementi) return false;
    if (const std::string primi = bytesDi(spec, testa); VociPict(PictNelFile(primi)).versione == 2) {
        const Termometro termometro(LavoroLungo::leggiImmagine);
        const std::string bytes = bytesDi(spec);
        return !termometro.fermato() && memorizza(PictNelFile(bytes), spec.nome);
    }
    Immagine im;
    Imballatore imballatore;
    std::string reason;
    if (DecodeImageFile(spec, im, reason, &imballatore)) return memorizza(im, imballatore, spec.nome);
    const std::string bytes = bytesDi(spec);
    const std::string_view pict = PictNelFile(bytes);
    return pict.empty() ? nonImportata(spec.nome, reason) : memorizza(pict, spec.nome);
}

bool ImportaBytes(std::string_view bytes, const std::string& nome) {
    if (indElem >= maxElementi) return false;
    if (const std::string_view pict = PictNelFile(bytes); !pict.empty()) return memorizza(pict, nome);
    Immagine im;
    Imballatore imballatore;
    std::string reason;
    if (DecodeImageData(bytes, im, reason, &imballatore)) return memorizza(im, imballatore, nome);
    return nonImportata(nome, reason);
}

void LeggiPict(std::int16_t ref) {
    constexpr std::size_t testaFile = 512;
    PoniAnnulla(aNiente);
    if (indElem >= maxElementi) return;
    const Termometro termometro(LavoroLungo::leggiImmagine);
    std::string bytes;
    if (!leggiTutto(ref, bytes) || termometro.fermato()) return;
    if (bytes.size() < testaFile) return SysBeep(50);
    if (memorizza(PictNelFile(bytes), fileInLavoro)) InvalWind();
}

}   // namespace tessaro
