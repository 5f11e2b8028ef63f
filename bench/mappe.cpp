// Maps out and in against GDAL's own commands over the same files (ogr2ogr, gdal_translate): both start from what they
// hold and end with a file on the disk, or with the elements in the drawing. What the trial in a process of its own costs
// stands beside it.
#include <cstdlib>
#include <random>

#include "maps/Gdal.h"
#include "maps/Mappe.h"
#include "maps/Prova.h"
#include "maps/SistemaRiferimento.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "Muto.h"
#include "platform/pict/Pict.h"
#include "raster/Immagini.h"
#include "registration/Coordinate.h"

namespace {

using namespace misure;

constexpr int polilinee = 50000, vertici = 8;
constexpr std::int32_t lato = 4500;   // 20.25 megapixels

void foglio() {
    AzzeraStato();
    noWindow = 0;
    XFDecimi = 4000;
    YFDecimi = 3000;
    if (!AllocaElementi(polilinee * vertici + 100)) fallito("the store");
    AzzeraArchivio();
    auto& s = Elem(1).att;
    auto& r = Elem(2).att;
    s.x1 = 0;
    s.y1 = s.y2 = 3000;
    s.x2 = 1000;
    r.x1 = 1394000;
    r.y1 = r.y2 = 4994000;
    r.x2 = 1394100;
    r.coordReali = 1;
    CalcTransfC();
    CalcolaRapporti();
    PoniSistemi({"EPSG:3003", "", ""});
}

void particelle() {
    std::mt19937 sorte(4);
    std::uniform_real_distribution<double> su(0, 2900), passo(-9, 9);
    for (int i = 0; i < polilinee; ++i) {
        double x = su(sorte), y = su(sorte);
        Memorizza(tPoligono, x, y, 5, 0, 0, 0, 1, 1, 1, PStr255("P 12"));
        for (int k = 1; k < vertici; ++k)
            Memorizza(tVertice, x += passo(sorte), y += passo(sorte), 6, 0, 0, 0, 1, 1, 1, PStr255(""));
    }
}

std::int32_t scansione() {
    std::vector<std::uint32_t> p(static_cast<std::size_t>(lato) * lato);
    std::mt19937 sorte(7);
    std::uniform_int_distribution<std::uint32_t> grigio(100, 131);
    for (std::uint32_t& c : p) c = 0xFF000000U | grigio(sorte) * 0x10101U;
    Memorizza(tPict, 100, 100, 0, 2500, 2500, 0, 0, 1, 1, "");
    Elem(indElem).pict.maniglia = NewPict(PictDaPixel(p.data(), lato, lato));
    return indElem;
}

// A command of GDAL's, its output thrown away.
double comando(const std::string& c) {
    bool bene = false;
    const double ms = millisecondi([&] { bene = std::system((c + " > /dev/null 2>&1").c_str()) == 0; });
    if (!bene) fallito(c.c_str());
    return ms;
}

std::vector<double> volte(const std::function<double()>& f) { return {f(), f(), f()}; }

}   // namespace

int main(int argc, char** argv) {
    avvia(argc, argv);
    if (CaricaGdal() == nullptr || std::system("ogr2ogr --version > /dev/null 2>&1") != 0) {
        std::puts("GDAL or its commands (gdal-bin) are not installed");
        return 0;
    }
    foglio();
    particelle();
    struct Forma {
        const char *suffisso, *driver;
    };
    for (const Forma f : {Forma{".gpkg", "GPKG"}, Forma{".geojson", "GeoJSON"}, Forma{".shp", "ESRI Shapefile"}}) {
        const FileBreve nostro((std::string("tessaro-bench-map") + f.suffisso).c_str()),
            loro((std::string("tessaro-bench-theirs") + f.suffisso).c_str());
        const FSSpec spec = FSMakeFSSpec(nostro.percorso);
        const std::string nome = f.driver;
        foglio();
        particelle();
        const std::vector<double> scritto = volte([&] { return millisecondi([&] { ScriviMappa(spec); }); });
        // A shapefile has a part for each kind of geometry.
        std::string file = nostro.percorso;
        if (!std::filesystem::exists(file)) file.insert(file.size() - 4, "_lines");
        std::string copia = "ogr2ogr -overwrite -f";
        for (const std::string& parola : {nome, loro.percorso, file}) copia.append(" '").append(parola).append("'");
        const std::vector<double> altri = volte([&] {
            std::filesystem::remove(loro.percorso);
            return comando(copia);
        });
        riga((nome + " written").c_str(), scritto, "ogr2ogr", altri, 3);
        const FSSpec letto = FSMakeFSSpec(file);
        const std::vector<double> prova =
            volte([&] { return millisecondi([&] { ProvaFile(letto, Prova::vettori); }); });
        const std::vector<double> entrato = volte([&] {
            foglio();
            return millisecondi([&] { LeggiMappa(letto); });
        });
        if (indElem < polilinee * vertici) fallito("the import");
        riga((nome + " read").c_str(), entrato, "ogr2ogr", altri, 3);
        riga("  the trial of it", prova, "ogr2ogr", altri, 1);
        for (const char* const parte : {".shx", ".dbf", ".prj", ".cpg"}) {
            std::filesystem::remove(std::filesystem::path(file).replace_extension(parte));
            std::filesystem::remove(std::filesystem::path(loro.percorso).replace_extension(parte));
        }
        std::filesystem::remove(file);
    }
    foglio();
    const std::int32_t n = scansione();
    const FileBreve tiff("tessaro-bench.tif"), loro("tessaro-bench-theirs.tif");
    const FSSpec spec = FSMakeFSSpec(tiff.percorso);
    const std::vector<double> scritto = volte([&] { return millisecondi([&] { ScriviGeoTIFF(spec, n); }); });
    const std::vector<double> altri = volte([&] {
        return comando("gdal_translate -co TILED=YES -co COMPRESS=DEFLATE -co PREDICTOR=2 '" + tiff.percorso + "' '"
                       + loro.percorso + "' && gdaladdo -r average '" + loro.percorso + "' 2 4 8 16");
    });
    riga("GeoTIFF written", scritto, "gdal_translate", altri, 3);
    const std::vector<double> prova = volte([&] { return millisecondi([&] { ProvaFile(spec, Prova::raster); }); });
    const std::vector<double> entrato = volte([&] {
        foglio();
        return millisecondi([&] { LeggiRaster(spec); });
    });
    if (indElem != 3) fallito("the import");
    const std::vector<double> scompatta =
        volte([&] { return comando("gdal_translate '" + tiff.percorso + "' '" + loro.percorso + "'"); });
    riga("GeoTIFF read", entrato, "gdal_translate", scompatta, 3);
    riga("  the trial of it", prova, "gdal_translate", scompatta, 1);
    StopToolbox();
    return 0;
}
