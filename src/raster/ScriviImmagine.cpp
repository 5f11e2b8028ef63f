// Requests 42 and 43 as PNG, TIFF or JPEG files with their resolution, and the world file that says where they lie.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <optional>
#include <vector>

#include "bitmap/PictInPixel.h"
#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Disegno.h"
#include "display/Interruzione.h"
#include "files/FileMondo.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Images.h"
#include "platform/Memory.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Pict.h"
#include "raster/CreaPict.h"
#include "raster/VistaPict.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoMemoria = 128;
constexpr std::int16_t avvisoFormato = 9122;   // ^0 the file's name
constexpr std::int16_t richiestaTutto = 42;

struct Formato {
    std::string_view suffisso;
    FormatoImmagine formato;
};
constexpr Formato formati[] = {{".png", FormatoImmagine::png},
                               {".tif", FormatoImmagine::tiff},
                               {".tiff", FormatoImmagine::tiff},
                               {".jpg", FormatoImmagine::jpeg},
                               {".jpeg", FormatoImmagine::jpeg}};

std::optional<FormatoImmagine> formatoDi(std::string_view nome) {
    const std::size_t punto = nome.rfind('.');
    if (punto == std::string_view::npos) return {};
    std::string suffisso(nome.substr(punto));
    for (char& c : suffisso)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    for (const Formato& f : formati)
        if (f.suffisso == suffisso) return f.formato;
    return {};
}

// What is written: the file's bytes, and where its pixels lie.
struct Fatta {
    std::string bytes;
    PostoRaster posto;
};

constexpr double partePixel = 0.5;   // of the work, by guess: the packing is the rest

bool abbastanzaMemoria(double w, double h) { return w * h * 4 < static_cast<double>(CompactMem()); }

bool delFoglio(FormatoImmagine formato, Fatta& f) {
    constexpr double massimo = 100e6, lato = 29000;   // pixels
    const double larga = XFDecimi, alta = YFDecimi;
    double perUnita = std::min(dpiPict / DecPollice, lato / std::max(larga, alta));
    perUnita = std::min(perUnita, std::sqrt(massimo / (larga * alta)));
    const std::int32_t w = std::max(1, arrotonda32(larga * perUnita));
    const std::int32_t h = std::max(1, arrotonda32(alta * perUnita));
    if (!abbastanzaMemoria(w, h)) return false;
    RasterPort porto(w, h, 1);
    const GrafPtr prima = GetPort();
    {
        const VistaPict vista(perUnita);
        const DisegnoSeguito seguito(0, partePixel);
        SetPort(&porto);
        Disegna();
    }
    SetPort(prima);
    if (ProgressStopped()) return false;
    f.posto = PostoRaster{0, 0, w / perUnita, h / perUnita, w, h};
    const double dpi = perUnita * DecPollice;
    return EncodeImage(formato, porto.pixMap(), dpi, dpi, f.bytes);
}

bool unJpeg(const std::string& pict, std::string_view& jpeg) {
    PictRaster solo;
    if (!PictSoloRaster(pict, solo) || !solo.jpeg) return false;
    jpeg = solo.data;
    return true;
}

// The resolution in a JPEG's first segment, which every reader looks at; one is put in front where there is none.
std::string conRisoluzione(std::string_view jpeg, double dpiX, double dpiY) {
    constexpr std::size_t segmento = 18;   // its mark, length, name, version, density, thumbnail size
    const auto corto = [](double v) { return static_cast<std::uint16_t>(std::clamp(v + 0.5, 1.0, 65535.0)); };
    const std::uint16_t x = corto(dpiX), y = corto(dpiY);
    const bool suo = jpeg.size() > 2 + segmento && jpeg.substr(2, 2) == "\xFF\xE0" && jpeg.substr(6, 4) == "JFIF";
    std::string s(jpeg.substr(0, 2));
    if (suo)
        s += jpeg.substr(2, segmento);
    else
        s += std::string("\xFF\xE0\0\x10JFIF\0\x01\x01\0\0\0\0\0\0\0", segmento);
    s[13] = 1;   // dots per inch
    s[14] = static_cast<char>(x >> 8);
    s[15] = static_cast<char>(x);
    s[16] = static_cast<char>(y >> 8);
    s[17] = static_cast<char>(y);
    return s.append(jpeg.substr(suo ? 2 + segmento : 2));
}

bool dellElemento(FormatoImmagine formato, Fatta& f) {
    const auto& e = Elem(Puntosel.indice).pict;
    const std::string& bytes = PictBytes(e.maniglia);
    PictInPixel pict(bytes);
    double w = pict.width(), h = pict.height();
    if (!pict.soloRaster()) {   // figures: at the resolution of all that goes to others
        w = std::clamp(e.larghezza * dpiPict / DecPollice, 1.0, 29000.0);
        h = std::clamp(e.altezza * dpiPict / DecPollice, 1.0, 29000.0);
    }
    if (!(w >= 1) || !(h >= 1)) return false;
    f.posto = PostoRaster{e.x, e.y, e.larghezza, e.altezza, arrotonda32(w), arrotonda32(h)};
    const double dpiX = f.posto.width * DecPollice / e.larghezza, dpiY = f.posto.height * DecPollice / e.altezza;
    if (std::string_view jpeg; formato == FormatoImmagine::jpeg && unJpeg(bytes, jpeg)) {   // nothing is lost
        f.bytes = conRisoluzione(jpeg, dpiX, dpiY);
        return true;
    }
    if (!abbastanzaMemoria(w, h) || !pict.misura(f.posto.width, f.posto.height)) return false;
    const Rect r{0, 0, f.posto.height, f.posto.width};
    std::vector<std::uint32_t> pixel(static_cast<std::size_t>(r.right) * static_cast<std::size_t>(r.bottom));
    constexpr std::int32_t striscia = 256;   // rows
    for (std::int32_t y = 0; y < r.bottom; y += striscia) {
        if (!ProgressStep(partePixel * y / r.bottom)) return false;
        pict.righe(y, std::min(striscia, r.bottom - y), pixel.data() + std::ptrdiff_t{y} * r.right);
    }
    return EncodeImage(formato, PixMap{pixel.data(), r.right, r}, dpiX, dpiY, f.bytes);
}

bool scriviTutto(std::int16_t ref, const std::string& bytes) {
    auto conto = static_cast<std::int32_t>(bytes.size());
    const OSErr e = FSWrite(ref, conto, bytes.data());
    if (e != noErr) IOERR2(e);
    return e == noErr;
}

// The world file stands beside the picture, whose own writing it does not undo when it fails.
void scriviMondo(const FSSpec& spec, const PostoRaster& posto) {
    if (!Elem(2).att.coordReali) return;
    const FSSpec mondo = FSMakeFSSpec(NomeMondo(spec.percorso));
    std::int16_t ref = 0;
    OSErr e = FSpOpenReplacing(mondo, 0, tipoDi("TEXT"), ref);
    if (e != noErr) return IOERR2(e);
    if (scriviTutto(ref, TestoMondo(MondoDi(posto))))
        IOERR2(FSClose(ref));
    else
        FSAbandon(ref);
}

}   // namespace

bool SuffissoImmagine(const FSSpec& spec) { return formatoDi(spec.percorso).has_value(); }

bool PutImageFile(std::int16_t ref, const FSSpec& spec) {
    const auto formato = formatoDi(spec.percorso);
    if (!formato) return false;
    const Termometro termometro(LavoroLungo::scriviImmagine);
    Fatta f;
    bool fatta = false;
    try {
        fatta = theItem == richiestaTutto ? delFoglio(*formato, f) : dellElemento(*formato, f);
    } catch (const std::bad_alloc&) {
        StopAlert(avvisoMemoria);
        return false;
    }
    if (termometro.fermato()) return false;
    if (!fatta) {
        ParamText(spec.nome, "", "", "");
        StopAlert(avvisoFormato);
        return false;
    }
    if (!scriviTutto(ref, f.bytes)) return false;
    scriviMondo(spec, f.posto);
    return true;
}

}   // namespace tessaro
