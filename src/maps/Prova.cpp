// The trial, on both sides.
#include "maps/Prova.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/Errori.h"
#include "maps/Frasi.h"
#include "maps/Gdal.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Process.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::string_view parola = "--try-map";
constexpr const char* nomi[] = {"features", "pixels", "place"};

constexpr std::int64_t mega = 1 << 20;

std::int64_t megabyteDi(const FSSpec& file) {
    std::error_code e;
    const auto lungo = std::filesystem::file_size(file.percorso, e);
    return e ? 0 : static_cast<std::int64_t>(lungo) / mega;
}

// The thermometer comes when the trial is no matter of a moment.
class Attesa {
    int volte = 0;

public:
    Attesa() = default;
    ~Attesa() {
        if (volte >= breve) ProgressClose();
    }
    Attesa(const Attesa&) = delete;
    Attesa& operator=(const Attesa&) = delete;
    static constexpr int breve = 8;   // tenths of a second
    bool continua() {
        if (++volte == breve) ProgressOpen(Frase(FraseMappe::avanzaProva));
        return (volte < breve || ProgressStep(0)) && !escapePressed();
    }
};

}   // namespace

bool ProvaFile(const FSSpec& file, Prova che) {
    constexpr std::int64_t secondi = 30, megabyte = 1024, perMega = 16;   // and a second for each megabyte of the file
    const std::string programma = ProgrammaProprio();
    const FileTemporaneo nulla;
    if (programma.empty() || nulla.percorso().empty()) return true;
    const std::int64_t lungo = std::min<std::int64_t>(megabyteDi(file), 100000);
    ChiamataProcesso c;
    c.programma = programma;
    c.secondi = static_cast<int>(secondi + lungo);
    c.megabyte = megabyte + perMega * lungo;
    c.argomenti = {std::string(parola), nomi[static_cast<std::size_t>(che)], std::to_string(2 * c.secondi),
                   file.percorso};
    c.uscita = nulla.percorso();
    FineProcesso f;
    {
        Attesa attesa;
        c.continua = [&attesa] { return attesa.continua(); };
        f = EseguiProcesso(c);
    }
    FraseMappe perche{};
    switch (f.esito) {
    case EsitoProcesso::finito:
    case EsitoProcesso::manca: return true;
    case EsitoProcesso::fermato: return false;
    case EsitoProcesso::caduto: perche = FraseMappe::provaCaduta; break;
    case EsitoProcesso::lento: perche = FraseMappe::provaLenta; break;
    case EsitoProcesso::grande: perche = FraseMappe::provaGrande; break;
    }
    MostraGuasto(
        {noErr, Frase(perche, std::to_string(c.secondi), std::to_string(c.megabyte)), Utf8ToMac(file.percorso), -1});
    return false;
}

// --- the other process: no toolbox, no window

namespace {

void percorriForma(const Gdal& g, gdal::Oggetto forma) {
    for (int i = 0; i < g.OGR_G_GetGeometryCount(forma); ++i) percorriForma(g, g.OGR_G_GetGeometryRef(forma, i));
}

void percorriVettori(const Gdal& g, const char* file) {
    const Aperto ds(g, g.GDALOpenEx(file, gdal::soloVettori, driverVettori, nullptr, nullptr));
    for (int i = 0; ds != nullptr && i < g.GDALDatasetGetLayerCount(ds); ++i) {
        const gdal::Oggetto l = g.GDALDatasetGetLayer(ds, i);
        if (l == nullptr) continue;
        gdal::Envelope e{};
        (void)g.OGR_L_GetFeatureCount(l, 1);
        (void)g.OGR_L_GetExtent(l, &e, 1);
        const int campi = g.OGR_FD_GetFieldCount(g.OGR_L_GetLayerDefn(l));
        g.OGR_L_ResetReading(l);
        while (const gdal::Oggetto f = g.OGR_L_GetNextFeature(l)) {
            for (int k = 0; k < campi; ++k)
                if (g.OGR_F_IsFieldSetAndNotNull(f, k) != 0) (void)g.OGR_F_GetFieldAsString(f, k);
            if (const gdal::Oggetto forma = g.OGR_F_GetGeometryRef(f)) {
                const gdal::Oggetto dritta = g.OGR_G_GetLinearGeometry(forma, 0, nullptr);
                if (dritta != nullptr) percorriForma(g, dritta);
                g.OGR_G_DestroyGeometry(dritta);
            }
            g.OGR_F_Destroy(f);
        }
    }
}

void percorriRaster(const Gdal& g, const char* file, bool pixel) {
    constexpr double massimi = 2e9;             // pixels: more are not read
    constexpr std::int64_t insieme = 1 << 22;   // pixels at a time
    const Aperto ds(g, g.GDALOpenEx(file, gdal::soloRaster, driverRaster, nullptr, nullptr));
    if (ds == nullptr) return;
    const int w = g.GDALGetRasterXSize(ds), h = g.GDALGetRasterYSize(ds), bande = g.GDALGetRasterCount(ds);
    double sei[6];
    (void)g.GDALGetGeoTransform(ds, sei);
    if (!pixel || w < 1 || h < 1 || double(w) * h > massimi) return;
    const int righe = static_cast<int>(std::clamp<std::int64_t>(insieme / w, 1, h));
    std::vector<double> v(static_cast<std::size_t>(w) * static_cast<std::size_t>(righe));
    for (int b = 1; b <= std::min(bande, 4); ++b) {
        const gdal::Oggetto banda = g.GDALGetRasterBand(ds, b);
        double estremi[2];
        if (g.GDALGetRasterDataType(banda) != gdal::pixelByte) (void)g.GDALComputeRasterMinMax(banda, 1, estremi);
        for (int y = 0; y < h; y += righe) {
            const int n = std::min(righe, h - y);
            (void)g.GDALRasterIO(banda, gdal::legge, 0, y, w, n, v.data(), w, n, gdal::pixelDouble, 0, 0);
        }
    }
}

}   // namespace

bool EProva(int argc, char** argv) { return argc == 5 && argv[1] == parola; }

int EseguiProva(char** argv) {
    constexpr int finita = 0, senzaLibreria = 4;
    EndAfter(std::atoi(argv[3]));   // should the one that waits be gone
    const Gdal* const g = CaricaGdal();
    if (g == nullptr) return senzaLibreria;
    const GdalMuto muto(*g);
    if (argv[2] == std::string_view(nomi[static_cast<std::size_t>(Prova::vettori)]))
        percorriVettori(*g, argv[4]);
    else
        percorriRaster(*g, argv[4], argv[2] == std::string_view(nomi[static_cast<std::size_t>(Prova::raster)]));
    return finita;
}

}   // namespace tessaro
