// The drawing as features: points, lines and polygons, each a layer of the file where the format has layers, a file of its
// own where it has none.
#include <array>
#include <filesystem>

#include "dialogs/Errori.h"
#include "exchange/Resoconto.h"
#include "maps/Campi.h"
#include "maps/Curve.h"
#include "maps/Frasi.h"
#include "maps/Mappe.h"
#include "maps/Provvisoria.h"
#include "maps/SistemaGdal.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/PuntiElemento.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

enum Specie : std::size_t { punti, linee, poligoni, nSpecie };
constexpr std::array<const char*, nSpecie> nomiSpecie = {"points", "lines", "polygons"};
constexpr std::array<unsigned int, nSpecie> tipiSpecie = {gdal::punto | gdal::conZ, gdal::linea | gdal::conZ,
                                                          gdal::poligono | gdal::conZ};

struct Formato {
    std::string_view suffisso;
    const char* driver;
    bool unoStrato;      // all kinds of features in one layer
    bool unFileStrato;   // a file a layer
};
constexpr Formato formati[] = {
    {".gpkg", "GPKG", false, false},
    {".shp", "ESRI Shapefile", false, true},
    {".geojson", "GeoJSON", true, false},
    {".json", "GeoJSON", true, false},
};

const Formato* formatoDi(std::string_view percorso) {
    std::string s = std::filesystem::path(percorso).extension().string();
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    for (const Formato& f : formati)
        if (f.suffisso == s) return &f;
    return nullptr;
}

// The corners of element n, sheet units.
std::vector<puntot> corniciDi(std::int32_t n) {
    const elemento& e = Elem(n);
    switch (e.tipo) {
    case tSegmento: return {{e.segm.x1, e.segm.y1, e.segm.z1}, {e.segm.x2, e.segm.y2, e.segm.z2}};
    case tMarker: return {{e.mark.x, e.mark.y, e.mark.z}};
    case tTesto: return {{e.test.x, e.test.y, 0}};
    case tPoligono: {
        std::vector<puntot> p;
        const std::int32_t ultimo = UltimoRecord(n);
        for (std::int32_t i = n; i <= ultimo; ++i) {
            if (i > n && Elem(i).tipo != tVertice) break;
            p.push_back({Elem(i).vert.x, Elem(i).vert.y, Elem(i).vert.z});   // a head has its point at the same place
        }
        return p;
    }
    case tCerchio:
    case tArco: return CurvaInPunti(e);
    default: return {};
    }
}

// A polyline that ends where it began, with three sides at least, is an area.
Specie specieDi(const elemento& e, const std::vector<puntot>& p) {
    if (e.tipo == tMarker || e.tipo == tTesto || p.size() == 1) return punti;
    const bool chiusa = p.size() >= 4 && p.front().x == p.back().x && p.front().y == p.back().y;
    return (e.tipo == tPoligono && chiusa) || e.tipo == tCerchio ? poligoni : linee;
}

class Scrittura {
public:
    Scrittura(const Gdal& gdal, const Formato& f) : g(gdal), formato(f) {}

    Scritti conti;
    std::int64_t curve = 0;
    std::array<std::int64_t, nSpecie> quanti{};

    void conta() {
        perElemento([this](std::int32_t n, const std::vector<puntot>& p) {
            ++quanti[specieDi(Elem(n), p)];
            conti.scritti.aggiungi(Elem(n).tipo);
            if (Elem(n).tipo == tCerchio || Elem(n).tipo == tArco) ++curve;
            return true;
        });
    }
    [[nodiscard]] std::int64_t tutti() const { return quanti[punti] + quanti[linee] + quanti[poligoni]; }

    // False when the library refuses; `fermata` when the person did not want it any more.
    bool scrivi(const CartellaProvvisoria& cartella, const std::string& nome);
    bool rilegge(const CartellaProvvisoria& cartella, const std::string& nome, std::int64_t& trovati) const;
    bool fermata = false;

private:
    template <class F>
    bool perElemento(F f) const {
        for (std::int32_t n = 3; n <= indElem; n = UltimoRecord(n) + 1) {
            const std::vector<puntot> p = corniciDi(n);
            if (!p.empty() && !f(n, p)) return false;
        }
        return true;
    }
    [[nodiscard]] std::string nomeStrato(Specie s, const std::string& nome) const {
        const std::string base = std::filesystem::path(nome).stem().string();
        const bool solo = tutti() == quanti[s];
        return formato.unFileStrato ? (solo ? base : base + '_' + nomiSpecie[s]) : base + '_' + nomiSpecie[s];
    }
    bool creaStrati(gdal::Oggetto ds, const std::string& nome);
    gdal::Oggetto geometria(Specie s, const std::vector<puntot>& p) const;
    bool elemento1(std::int32_t n, const std::vector<puntot>& p);

    const Gdal& g;
    const Formato& formato;
    std::array<gdal::Oggetto, nSpecie> strati{};
    std::int64_t fatti = 0;
};

bool Scrittura::creaStrati(gdal::Oggetto ds, const std::string& nome) {
    static constexpr const char* const opzioniJson[] = {"RFC7946=NO", nullptr};
    static constexpr const char* const opzioniShp[] = {"ENCODING=UTF-8", nullptr};
    static constexpr const char* const opzioniGpkg[] = {"GEOMETRY_NAME=geom", nullptr};
    const SistemaGdal sistema(g);
    if (formato.unoStrato) {
        const std::string base = std::filesystem::path(nome).stem().string();
        const gdal::Oggetto uno =
            g.GDALDatasetCreateLayer(ds, base.c_str(), sistema.riferimento(), gdal::ignota, opzioniJson);
        strati.fill(uno);
        return uno != nullptr && CreaCampi(g, uno);
    }
    for (std::size_t s = 0; s < nSpecie; ++s) {
        if (quanti[s] == 0) continue;
        const std::string strato = nomeStrato(static_cast<Specie>(s), nome);
        strati[s] = g.GDALDatasetCreateLayer(ds, strato.c_str(), sistema.riferimento(), tipiSpecie[s],
                                             formato.unFileStrato ? opzioniShp : opzioniGpkg);
        if (strati[s] == nullptr || !CreaCampi(g, strati[s])) return false;
    }
    return true;
}

gdal::Oggetto Scrittura::geometria(Specie s, const std::vector<puntot>& p) const {
    const auto aggiungi = [&](gdal::Oggetto a) {
        for (const puntot& q : p) {
            double X = 0, Y = 0;
            DigiToReal(q.x, q.y, X, Y);
            g.OGR_G_AddPoint(a, X, Y, q.z);
        }
    };
    if (s != poligoni) {
        const gdal::Oggetto figura = g.OGR_G_CreateGeometry(s == punti ? gdal::punto : gdal::linea);
        aggiungi(figura);
        return figura;
    }
    constexpr unsigned int anello = 101;
    const gdal::Oggetto figura = g.OGR_G_CreateGeometry(gdal::poligono), giro = g.OGR_G_CreateGeometry(anello);
    aggiungi(giro);
    g.OGR_G_AddGeometryDirectly(figura, giro);
    return figura;
}

bool Scrittura::elemento1(std::int32_t n, const std::vector<puntot>& p) {
    constexpr std::int64_t ogni = 256;
    const Specie s = specieDi(Elem(n), p);
    const gdal::Oggetto strato = strati[s];
    const gdal::Oggetto f = g.OGR_F_Create(g.OGR_L_GetLayerDefn(strato));
    ScriviCampi(g, f, AttributiDi(n));
    g.OGR_F_SetGeometryDirectly(f, geometria(s, p));
    const bool scritto = g.OGR_L_CreateFeature(strato, f) == 0;
    g.OGR_F_Destroy(f);
    if (++fatti % ogni == 0) {
        fermata = !ProgressStep(static_cast<double>(fatti) / static_cast<double>(tutti())) || escapePressed();
        if (fermata) return false;
    }
    return scritto;
}

bool Scrittura::scrivi(const CartellaProvvisoria& cartella, const std::string& nome) {
    const gdal::Oggetto driver = g.GDALGetDriverByName(formato.driver);
    if (driver == nullptr) return false;
    const std::string dove = cartella.percorso(formato.unFileStrato ? std::string() : nome);
    Aperto ds(g, g.GDALCreate(driver, dove.c_str(), 0, 0, 0, 0, nullptr));
    if (ds == nullptr || !creaStrati(ds, nome)) return false;
    const bool insieme = g.GDALDatasetStartTransaction(ds, 0) == 0;
    const bool tutti = perElemento([this](std::int32_t n, const std::vector<puntot>& p) { return elemento1(n, p); });
    if (insieme && tutti && g.GDALDatasetCommitTransaction(ds) != 0) return false;
    ds.chiudi();   // what is still in its buffers: an error of that is the last one told
    constexpr int guasto = 3;
    return tutti && g.CPLGetLastErrorType() < guasto;
}

bool Scrittura::rilegge(const CartellaProvvisoria& cartella, const std::string& nome, std::int64_t& trovati) const {
    trovati = 0;
    const char* const driver[] = {formato.driver, nullptr};
    const std::string dove = cartella.percorso(formato.unFileStrato ? std::string() : nome);
    const Aperto ds(g, g.GDALOpenEx(dove.c_str(), gdal::soloVettori, driver, nullptr, nullptr));
    if (ds == nullptr) return false;
    const int n = g.GDALDatasetGetLayerCount(ds);
    for (int i = 0; i < n; ++i) trovati += g.OGR_L_GetFeatureCount(g.GDALDatasetGetLayer(ds, i), 1);
    return trovati == tutti();
}

void mostraGuasto(FraseMappe frase, const FSSpec& file, const std::string& p0 = {}, const std::string& p1 = {}) {
    MostraGuasto({noErr, Frase(frase, p0, p1), Utf8ToMac(file.percorso), -1});
}

// Files of the set other than the one that was chosen would be replaced unasked.
bool sostituisce(const CartellaProvvisoria& cartella, const FSSpec& file) {
    constexpr std::int16_t avviso = 9350, si = 1;
    const std::string scelto = std::filesystem::path(file.percorso).stem().string();
    std::string altri;
    for (const std::string& nome : cartella.giaPresenti()) {
        const std::filesystem::path p(nome);
        if (p.extension() != ".shp" || p.stem() == scelto) continue;
        altri += (altri.empty() ? "" : ", ") + nome;
    }
    if (altri.empty()) return true;
    ParamText(Utf8ToMac(altri), {}, {}, {});
    return CautionAlert(avviso) == si;
}

void racconta(const Scrittura& s) {
    constexpr std::int16_t avvisoScritto = 9111;
    std::string note = Frase(FraseMappe::formaGenerale);
    if (s.curve > 0) note += ' ' + Frase(FraseMappe::curveInLati, ConMigliaia(s.curve));
    if (SistemaDelDisegno().empty()) note += ' ' + Frase(FraseMappe::senzaSistema);
    const std::string lasciati =
        s.conti.perduti.vuoti() ? std::string() : TestoDi(TestoScambio::tralasciati, s.conti.perduti.testo());
    ParamText(s.conti.scritti.testo(), lasciati, note, {});
    NoteAlert(avvisoScritto);
}

}   // namespace

bool NomeDiMappa(std::string_view percorso) { return formatoDi(percorso) != nullptr; }

void ScriviMappa(const FSSpec& file) {
    const Formato* const formato = formatoDi(file.percorso);
    const Gdal* const g = GdalOppureMessaggio();
    if (g == nullptr || formato == nullptr) return;
    Scrittura s(*g, *formato);
    s.conta();
    for (std::int32_t n = 3; n <= indElem; ++n)
        if (Elem(n).tipo == tPict) s.conti.perduti.aggiungi(tPict);
    if (s.tutti() == 0) return mostraGuasto(FraseMappe::nienteDaScrivere, file);
    const CartellaProvvisoria cartella(file.percorso);
    if (!cartella.buona()) return mostraGuasto(FraseMappe::cartella, file);

    SetCursor(ClockCursor);
    ProgressOpen(Frase(FraseMappe::avanzaScrittura));
    const std::string nome = std::filesystem::path(file.percorso).filename().string();
    const GdalMuto muto(*g);
    bool scritta = s.scrivi(cartella, nome);
    std::int64_t trovati = 0;
    const bool uguale = scritta && s.rilegge(cartella, nome, trovati);
    ProgressClose();
    SetCursor(arrowCursor);
    if (s.fermata) return;
    if (!scritta) return mostraGuasto(FraseMappe::nonScrive, file, DettoDaGdal());
    if (!uguale) return mostraGuasto(FraseMappe::diversoRiletto, file, ConMigliaia(s.tutti()), ConMigliaia(trovati));
    if (!sostituisce(cartella, file)) return;
    if (!cartella.sposta()) return mostraGuasto(FraseMappe::cartella, file);
    racconta(s);
}

}   // namespace tessaro
