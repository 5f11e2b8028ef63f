// The import's walk over a database: for each entity the dumper of its class, which stores elements.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "dwg/dwgdxf.h"
#include "dwg/kit/OdDbDatabase.h"
#include "exchange/Resoconto.h"

namespace tessaro {

// What goes beyond the plain import; all off at first.
struct ScelteImporta {
    std::uint8_t piani = 0;     // the file's layers become sheets
    std::uint8_t archi = 0;     // arcs of polylines become chords within the tolerance
    std::uint8_t curve = 0;     // ellipses, splines, faces and face meshes become polylines
    double tolleranza = 0.01;   // of arcs and curves, real units
};
extern ScelteImporta scelteImporta;

extern std::vector<std::string> arrayNameLayer;   // of the file, in table order, UTF-8
extern std::int16_t layerTot;
extern std::int32_t numElImportati;    // entities handled
extern std::int32_t ixSpazioCarta;     // index of the paper space among the layouts, -1 none
extern std::uint8_t layoutPicked;      // 0: nothing chooses a layout
extern std::uint8_t suddividi_piani;   // each layer of the file becomes a sheet

// --- colours, weights, line types
// Of the published index, each component times 255; 7 is black, a number that is none too.
RGBColor convertRGBfromIndexAutocad(std::int16_t indice);
// The number of a colour of the table, put there when there is room; else 1, and overflow set.
std::int16_t controllaColore(const RGBColor& colore, bool& overflow);
// The 1-based colour of an entity: its own, its layer's, or 1 by block; `overflow` as above.
std::int16_t ColoreDXFDWGtoTessaro(const OdDbDatabase& db, const OdDbEntity& e, bool& overflow);
// The pen size, 1 to 9 pixels of a fifth of a millimetre; 1 where the entity tells no weight.
std::int16_t SpessoreBordo(const OdDbDatabase& db, const OdDbEntity& e);
// The pen pattern, 1 to 5, of a line type's name in English or Italian, case aside; 1 for any other.
std::int16_t RigaToPatDXFDWG(std::string_view tipoLinea);
// That of an entity's line type, or of its layer's.
std::int16_t tipoLineaModelSpace(const OdDbDatabase& db, const OdDbEntity& e);
// The 1-based place of a name among arrayNameLayer; 0 none.
std::int16_t getLayerByName(std::string_view nome);

class DbDumper {
public:
    DbDumper(const OdDbDatabase& d, Resoconto& r) : db(d), resoconto(r) {}
    bool dump();   // false when the person stopped it

    std::int64_t coloriOltre = 0;   // entities whose colour found no room
    [[nodiscard]] std::int64_t layerUsati() const { return std::count(visti.begin(), visti.end(), true); }

private:
    friend struct Dumpers;
    void dumpHeader() const;
    void dumpLayers() const;
    bool dumpBlocks();
    void dumpEntity(const OdDbEntity& e);
    bool dumpCommonData(const OdDbEntity& e);   // false when the person stopped it

    // --- coordinates: real ones to those of the sheet
    static bool interno(const OdGePoint3d& p, double& x, double& y);   // false when it is no place on a sheet

    // --- elements
    void lucido(const OdDbEntity& e, std::int16_t altrimenti);
    bool posto();   // room for one more
    void faiLine(const OdDbEntity& e, const OdGePoint3d& a, const OdGePoint3d& b);
    void faiPolilinea(const OdDbEntity& e, const std::vector<OdGePoint3d>& punti, bool chiusa);
    void faiPunto(const OdDbPoint& p);
    void creaCerchio2D(const OdDbCircle& c);
    void creaArco2D(const OdDbArc& a, bool nelPiano);
    void faiTesto(const OdDbEntity& e, const OdGePoint3d& mondo, const OdGeVector3d& direzione, double altezza,
                  OdDbObjectId stile, const std::string& font, const std::string& utf8);
    void faiTestoPiano(const OdDbTextBase& t, const std::string& utf8, double giu = 0);
    void perde(const char* nome, const char* stampa);
    std::int16_t colore(const OdDbEntity& e);

    const OdDbDatabase& db;
    Resoconto& resoconto;
    std::unordered_map<std::string, std::int16_t> fontNoti;   // by font file
    std::vector<bool> visti;                                  // layer records that entities of the drawing lie on
    struct LucidoDelLayer {
        std::int16_t lucido;
        bool noto;   // its name has been looked for
    };
    std::vector<LucidoDelLayer> lucidoDiLayer;   // by layer record, when layers become sheets
};

// The dumper of each class, registered as long as one of these lives.
struct ExProtocolExtension {
    static void initialize();
    static void uninitialize();
};

void SceglieImportaDWG();   // the dialog of scelteImporta
// Asks for a file and imports it; the command.
void ImportaDWG();
// Imports a file that is known: one dropped.
void ImportaDWGFile(const FSSpec& file);

}   // namespace tessaro
