// A picture of the sheet as GeoTIFF: in tiles, compressed without loss, with smaller copies of itself, and the affine that
// its pixels have in real coordinates.
#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <new>
#include <vector>

#include "bitmap/PictInPixel.h"
#include "dialogs/Errori.h"
#include "exchange/Resoconto.h"
#include "files/FileMondo.h"
#include "maps/Frasi.h"
#include "maps/Mappe.h"
#include "maps/Provvisoria.h"
#include "maps/SistemaGdal.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "raster/CreaPict.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int32_t righeInsieme = 256;   // rows that are written at once: those of a tile

struct Scritto {
    std::int32_t width = 0, height = 0;
    std::array<double, 6> dove{};   // GDAL's: the corner of the first pixel, not its middle
};

int passo(double parte, const char*, void*) { return ProgressStep(0.5 + parte / 2) && !escapePressed() ? 1 : 0; }

class TiffScritto {
public:
    TiffScritto(const Gdal& gdal, PictInPixel& p, const Scritto& s) : g(gdal), pict(p), cosa(s) {}
    bool fermato = false;

    // False when the library or the picture refuses, or the person stopped it.
    bool scrivi(const std::string& percorso, double dpiX, double dpiY) {
        bande = grigia() ? 1 : 3;
        if (fermato) return false;
        Aperto ds(g, crea(percorso, dpiX, dpiY));
        if (ds == nullptr || !pixel(ds)) return false;
        const std::vector<int> copie = riduzioni();
        constexpr int guasto = 3;
        if (!copie.empty()
            && g.GDALBuildOverviews(ds, "AVERAGE", static_cast<int>(copie.size()), copie.data(), 0, nullptr, passo,
                                    nullptr)
                   >= guasto) {
            fermato = escapePressed();
            return false;
        }
        ds.chiudi();
        return g.CPLGetLastErrorType() < guasto;
    }

    // What was written, looked at again.
    [[nodiscard]] bool rilegge(const std::string& percorso) const {
        static constexpr const char* const driver[] = {"GTiff", nullptr};
        const Aperto ds(g, g.GDALOpenEx(percorso.c_str(), gdal::soloRaster, driver, nullptr, nullptr));
        std::array<double, 6> letti{};
        if (ds == nullptr || g.GDALGetGeoTransform(ds, letti.data()) != 0) return false;
        for (std::size_t i = 0; i < letti.size(); ++i)
            if (std::fabs(letti[i] - cosa.dove[i]) > 1e-9 * std::max(1.0, std::fabs(cosa.dove[i]))) return false;
        return g.GDALGetRasterXSize(ds) == cosa.width && g.GDALGetRasterYSize(ds) == cosa.height
               && g.GDALGetRasterCount(ds) == bande;
    }

private:
    bool righe(std::int32_t y, std::int32_t n) {
        fila.resize(static_cast<std::size_t>(n) * static_cast<std::size_t>(cosa.width));
        return pict.righe(y, n, fila.data());
    }

    // Looks no further than the first pixel with a colour.
    bool grigia() {
        for (std::int32_t y = 0; y < cosa.height; y += righeInsieme) {
            if (!righe(y, std::min(righeInsieme, cosa.height - y))) return false;
            const auto colorato = [](std::uint32_t p) {
                return ((p >> 16) & 255) != (p & 255) || ((p >> 8) & 255) != (p & 255);
            };
            if (std::any_of(fila.begin(), fila.end(), colorato)) return false;
            fermato = !ProgressStep(0) || escapePressed();
            if (fermato) return false;
        }
        return true;
    }

    gdal::Oggetto crea(const std::string& percorso, double dpiX, double dpiY) const {
        const std::string foto = bande == 1 ? "PHOTOMETRIC=MINISBLACK" : "PHOTOMETRIC=RGB";
        const char* const opzioni[] = {"TILED=YES",        "BLOCKXSIZE=256", "BLOCKYSIZE=256",
                                       "COMPRESS=DEFLATE", "PREDICTOR=2",    "BIGTIFF=IF_SAFER",
                                       "INTERLEAVE=PIXEL", foto.c_str(),     nullptr};
        const gdal::Oggetto driver = g.GDALGetDriverByName("GTiff");
        if (driver == nullptr) return nullptr;
        const gdal::Oggetto ds =
            g.GDALCreate(driver, percorso.c_str(), cosa.width, cosa.height, bande, gdal::pixelByte, opzioni);
        if (ds == nullptr) return nullptr;
        const SistemaGdal sistema(g);
        g.GDALSetGeoTransform(ds, cosa.dove.data());
        if (sistema.riferimento() != nullptr) g.GDALSetSpatialRef(ds, sistema.riferimento());
        g.GDALSetMetadataItem(ds, "TIFFTAG_XRESOLUTION", std::to_string(dpiX).c_str(), nullptr);
        g.GDALSetMetadataItem(ds, "TIFFTAG_YRESOLUTION", std::to_string(dpiY).c_str(), nullptr);
        g.GDALSetMetadataItem(ds, "TIFFTAG_RESOLUTIONUNIT", "2", nullptr);
        g.GDALSetMetadataItem(ds, "TIFFTAG_SOFTWARE", "Tessaro 3D", nullptr);
        return ds;
    }

    bool pixel(gdal::Oggetto ds) {
        std::vector<std::uint8_t> byte;
        for (std::int32_t y = 0; y < cosa.height; y += righeInsieme) {
            const std::int32_t n = std::min(righeInsieme, cosa.height - y);
            if (!righe(y, n)) return false;
            byte.clear();
            for (const std::uint32_t p : fila) {
                if (bande == 3) {
                    byte.push_back(static_cast<std::uint8_t>(p >> 16));
                    byte.push_back(static_cast<std::uint8_t>(p >> 8));
                }
                byte.push_back(static_cast<std::uint8_t>(p));
            }
            if (g.GDALDatasetRasterIO(ds, gdal::scrive, 0, y, cosa.width, n, byte.data(), cosa.width, n,
                                      gdal::pixelByte, bande, nullptr, bande, bande * cosa.width, 1)
                != 0)
                return false;
            fermato = !ProgressStep(0.5 * (y + n) / cosa.height) || escapePressed();
            if (fermato) return false;
        }
        return true;
    }

    // Halves, until a copy is no larger than a tile.
    [[nodiscard]] std::vector<int> riduzioni() const {
        std::vector<int> v;
        for (int f = 2; std::max(cosa.width, cosa.height) / (f / 2) > righeInsieme; f *= 2) v.push_back(f);
        return v;
    }

    const Gdal& g;
    PictInPixel& pict;
    const Scritto& cosa;
    int bande = 3;
    std::vector<std::uint32_t> fila;
};

void guasto(FraseMappe f, const FSSpec& file, const std::string& p0 = {}) {
    MostraGuasto({noErr, Frase(f, p0), Utf8ToMac(file.percorso), -1});
}

void racconta(const Scritto& s, const Mondo& m) {
    constexpr std::int16_t avvisoScritto = 9111;
    ElementiContati una;
    una.aggiungi(tPict);
    PStr255 lato;
    RToStr(std::hypot(m.a, m.d), 6, lato);
    std::string note = Frase(FraseMappe::tiffScritto, std::to_string(s.width), std::to_string(s.height), lato.view());
    if (SistemaDelDisegno().empty()) note += ' ' + Frase(FraseMappe::senzaSistema);
    ParamText(una.testo(), {}, note, {});
    NoteAlert(avvisoScritto);
}

}   // namespace

void ScriviGeoTIFF(const FSSpec& file, std::int32_t n) {
    const Gdal* const g = GdalOppureMessaggio();
    if (g == nullptr) return;
    const auto& e = Elem(n).pict;
    PictInPixel pict(PictBytes(e.maniglia));
    double w = pict.width(), h = pict.height();
    if (!pict.soloRaster()) {   // figures: at the resolution of all that goes to others
        w = std::clamp(e.larghezza * dpiPict / DecPollice, 1.0, 29000.0);
        h = std::clamp(e.altezza * dpiPict / DecPollice, 1.0, 29000.0);
    }
    if (!(w >= 1) || !(h >= 1) || !pict.misura(arrotonda32(w), arrotonda32(h))) return AvvisoMemoria();
    Scritto s{arrotonda32(w), arrotonda32(h), {}};
    const Mondo m = MondoDi({e.x, e.y, e.larghezza, e.altezza, s.width, s.height});
    s.dove = {m.c - (m.a + m.b) / 2, m.a, m.b, m.f - (m.d + m.e) / 2, m.d, m.e};

    const CartellaProvvisoria cartella(file.percorso);
    if (!cartella.buona()) return guasto(FraseMappe::cartella, file);
    const std::string dove = cartella.percorso(std::filesystem::path(file.percorso).filename().string());
    const GdalMuto muto(*g);
    TiffScritto tiff(*g, pict, s);
    bool scritto = false, uguale = false, memoria = true;
    SetCursor(ClockCursor);
    ProgressOpen(Frase(FraseMappe::avanzaScrittura));
    try {
        scritto = tiff.scrivi(dove, s.width * DecPollice / e.larghezza, s.height * DecPollice / e.altezza);
        uguale = scritto && tiff.rilegge(dove);
    } catch (const std::bad_alloc&) { memoria = false; }
    const bool fermato = tiff.fermato || ProgressStopped();   // the library keeps some of its own asking to itself
    ProgressClose();
    SetCursor(arrowCursor);
    if (fermato) return;
    if (!memoria) return AvvisoMemoria();
    if (!scritto || !uguale) return guasto(FraseMappe::nonScrive, file, DettoDaGdal());
    if (!cartella.sposta()) return guasto(FraseMappe::cartella, file);
    racconta(s, m);
}

}   // namespace tessaro
