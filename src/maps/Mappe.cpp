// The file requests of the room's commands.
#include "maps/Mappe.h"

#include "maps/Frasi.h"
#include "maps/Gdal.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int16_t tipiMappeScritte = 320, tipiMappe = 324, tipiTiff = 326, tipiRaster = 328;

// The drawing's name, without its own suffix; nothing but the suffix for one without a name.
std::string nomeOfferto(std::string_view suffisso) {
    constexpr std::int16_t listaNomi = 129, nomeSenzaTitolo = 1;
    constexpr std::string_view nostro = ".ts3d";
    std::string s = NomeD.str();
    if (s == GetIndString(listaNomi, nomeSenzaTitolo)) s.clear();
    if (s.ends_with(nostro)) s.resize(s.size() - nostro.size());
    return s + std::string(suffisso);
}

}   // namespace

void EsportaMappa() {
    FSSpec file;
    if (GdalOppureMessaggio() == nullptr) return;
    if (!NavPutFile(Frase(FraseMappe::invitoScrivi), nomeOfferto(".gpkg"), file, tipiMappeScritte)) return;
    if (!NomeDiMappa(file.percorso)) file = FSMakeFSSpec(file.percorso + ".gpkg");
    ScriviMappa(file);
}

void ImportaMappa() {
    FSSpec file;
    if (GdalOppureMessaggio() == nullptr) return;
    if (NavGetFile(Frase(FraseMappe::invitoLeggi), tipiMappe, file)) LeggiMappa(file);
}

void EsportaGeoTIFF() {
    constexpr std::int16_t avvisoSelezione = 146;
    const bool una = Puntosel.attiva && !Puntosel.multipla && Puntosel.indice >= 3 && Puntosel.indice <= indElem
                     && Elem(Puntosel.indice).tipo == tPict;
    if (!una) {
        StopAlert(avvisoSelezione);
        return;
    }
    FSSpec file;
    if (GdalOppureMessaggio() == nullptr) return;
    if (NavPutFile(Frase(FraseMappe::invitoScriviTiff), nomeOfferto(".tif"), file, tipiTiff))
        ScriviGeoTIFF(file, Puntosel.indice);
}

void ImportaRaster() {
    FSSpec file;
    if (GdalOppureMessaggio() == nullptr) return;
    if (NavGetFile(Frase(FraseMappe::invitoLeggiRaster), tipiRaster, file)) LeggiRaster(file);
}

}   // namespace tessaro
