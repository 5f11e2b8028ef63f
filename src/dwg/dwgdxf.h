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
    void releaseProgressMeter();
    void setLimit(std::int32_t max) override;
    bool meterProgress() override;

private:
    std::int32_t limite = 0, conto = 0, contoDisegnato = 0;
    bool aperto = false, fermato = false;
};

void InizioDWG();   // the kit's start and end
void FineDWG();

// --- the tables of an export
void addLayer(OdDbDatabase& db, const char* nome, OdDbObjectId& id);
OdDbObjectId addLinetype(OdDbDatabase& db, const char* nome, const char* descrizione);
void addLinetypes(OdDbDatabase& db);
OdDbObjectId addStyle(OdDbDatabase& db, const char* nome, double altezza, double scalaX, double obliquo,
                      double precedente, const char* file, const char* carattere);
void addRegApp(OdDbDatabase& db, const char* nome);
// The line type of a pen pattern.
OdDbObjectId LineTscad2TypeHandle(const OdDbDatabase& db, std::int16_t linea);

// --- the entities of an export, from the records of the drawing
void esportaColore(OdDbEntity& e, std::int16_t colore);   // 1-based number of the colour table
void SetSpessore(OdDbEntity& e, double penna);            // pen size
void CreaDWG(OdDbDatabase& db, Scritti& conto);           // styles and entities
void EntityCreates(OdDbDatabase& db, Scritti& conto);

// The database of the whole drawing: layers, line types, styles, entities, extent.
std::unique_ptr<OdDbDatabase> CreaDatabaseDisegno(Scritti& conto);
// Builds the drawing's database and writes it to a file that the person names; kind 1 DWG, 2 DXF. Tells what it wrote
// and what it lost, or what failed.
void SaveDWGDXF(std::int16_t tipo, std::int16_t versione);

}   // namespace tessaro
