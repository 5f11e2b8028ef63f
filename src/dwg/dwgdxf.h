// The bridge to the drawing database: what an export builds and how it is told, and the services that the kit calls.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "dwg/kit/OdVersioni.h"
#include "exchange/Resoconto.h"
#include "platform/Files.h"

namespace tessaro {

extern std::unique_ptr<OdDbDatabase> pDb;          // being built or read; null between jobs
extern std::array<OdDbObjectId, 100> newLayerId;   // the layer of each sheet
extern OdDbObjectId ttfStyleIdArial, ttfStyleIdTime, ttfStyleIdCourier, ttfStyleIdVerdana, ttfStyleIdSymbol;

// What goes beyond the plain export; off at first.
struct ScelteEsporta {
    std::uint8_t soloInUso = 0;   // only sheets that hold something have their layers
    std::uint8_t chiuse = 0;      // a polyline that ends where it began is closed
};
extern ScelteEsporta scelteEsporta;

// The progress of the kit's work, dialog 145: a bar that is moved only by steps of more than 0.7 per cent.
class MyServices : public OdDbHostAppProgressMeter {
public:
    MyServices() = default;
    ~MyServices() override { releaseProgressMeter(); }
    MyServices(const MyServices&) = delete;
    MyServices& operator=(const MyServices&) = delete;

    void newProgressMeter(std::int16_t stringa);   // of list 129
    void releaseProgressMeter();                   // the bar goes; nothing without one
    void setLimit(std::int32_t max) override;
    bool meterProgress() override;

private:
    std::int32_t limite = 0, conto = 0, contoDisegnato = 0;
    bool aperto = false, fermato = false;
};

// The kit's start and its end: no database is left behind.
void InizioDWG();
void FineDWG();

// --- the tables of an export; names are UTF-8, a name that is there already is not added again
// A layer of colour 7 and a continuous line; `id` names it.
void addLayer(OdDbDatabase& db, const char* nome, OdDbObjectId& id);
// A line type without dashes, which the caller sets; its record.
OdDbObjectId addLinetype(OdDbDatabase& db, const char* nome, const char* descrizione);
// The seven line types that pen patterns are exported as, in drawing units.
void addLinetypes(OdDbDatabase& db);
// A text style: heights in drawing units, 0 for none fixed; `obliquo` in radians; font file and face. Its record.
OdDbObjectId addStyle(OdDbDatabase& db, const char* nome, double altezza, double scalaX, double obliquo,
                      double precedente, const char* file, const char* carattere);
// An application that may hang data of its own on records.
void addRegApp(OdDbDatabase& db, const char* nome);
// The line type of a pen pattern.
OdDbObjectId LineTscad2TypeHandle(const OdDbDatabase& db, std::int16_t linea);

// --- the entities of an export, from the records of the drawing
// The colour of a 1-based number of the colour table; one that is none counts as black. Black is index 7.
void esportaColore(OdDbEntity& e, std::int16_t colore);
// The line weight, hundredths of a millimetre, of a pen size: the standard one for its 20 times, 5 to 211.
void SetSpessore(OdDbEntity& e, double penna);
// The text styles and every element of the drawing, in real coordinates, on the layers of newLayerId; `conto` counts what
// was made and what no entity stands for.
void CreaDWG(OdDbDatabase& db, Scritti& conto);
// Its second half: styles that are not there yet, then the elements.
void EntityCreates(OdDbDatabase& db, Scritti& conto);

// The database of the whole drawing: layers, line types, styles, entities, extent.
std::unique_ptr<OdDbDatabase> CreaDatabaseDisegno(Scritti& conto);
// Builds the drawing's database and writes it to a file that the person names; kind 1 DWG, 2 DXF. Tells what it wrote
// and what it lost, or what failed.
void SaveDWGDXF(std::int16_t tipo, std::int16_t versione);

}   // namespace tessaro
