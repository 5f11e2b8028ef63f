// A DWG in the making: its objects, one behind the other, and where each begins.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "dwg/kit/OdVersioni.h"
#include "dwg/kit/scrividwg/OggettoDwg.h"

namespace tessaro {

struct StesuraDwg {
    const OdDbDatabase& db;
    FormatoDwg formato;
    std::string oggetti;                                       // bytes of all objects
    std::vector<std::pair<OdDbHandle, std::uint32_t>> mappa;   // handle and place in `oggetti`

    // Behind the last object; its place goes into the map.
    void aggiungi(OdDbHandle handle, OggettoDwg& o) {
        mappa.emplace_back(handle, static_cast<std::uint32_t>(oggetti.size()));
        oggetti += o.byte();
    }
    // Line types that every file has.
    [[nodiscard]] OdDbHandle linea(const char* nome) const {
        const OdDbObjectId id = db.linetypes.getAt(nome);
        return id.isNull() ? 0 : db.linetypes[id].handle;
    }
    [[nodiscard]] OdDbHandle dizionario(const char* nome) const {
        for (const OdDbDizionario& d : db.dizionari)
            if (d.name == nome) return d.handle;
        return 0;
    }
};

// What formats call a fixed object; classes stand from 500 on, in the order of ClassiDwg.
enum : unsigned {
    tipoText = 1,
    tipoBlock = 4,
    tipoEndBlk = 5,
    tipoSeqEnd = 6,
    tipoVertex2d = 10,
    tipoVertex3d = 11,
    tipoPolyline2d = 15,
    tipoPolyline3d = 16,
    tipoArc = 17,
    tipoCircle = 18,
    tipoLine = 19,
    tipoPoint = 27,
    tipoDictionary = 42,
    tipoBlockControl = 48,
    tipoBlockHeader = 49,
    tipoLayerControl = 50,
    tipoLayer = 51,
    tipoStyleControl = 52,
    tipoStyle = 53,
    tipoLtypeControl = 56,
    tipoLtype = 57,
    tipoViewControl = 60,
    tipoUcsControl = 62,
    tipoVportControl = 64,
    tipoVport = 65,
    tipoAppIdControl = 66,
    tipoAppId = 67,
    tipoDimStyleControl = 68,
    tipoDimStyle = 69,
    tipoVxControl = 70,
    tipoMlineStyle = 73,
    tipoLwPolyline = 77,
    tipoDictionaryDefault = 500,
    tipoPlaceholder = 501,
    tipoLayout = 502,
};

void scriviTabelleDwg(StesuraDwg& s);                                   // tables, dictionaries and what they name
void scriviDizionariDwg(StesuraDwg& s);                                 // the named objects, layouts and groups
bool scriviEntitaDwg(StesuraDwg& s, OdDbHostAppProgressMeter& meter);   // false: the person stopped it
std::string VariabiliDwg(const StesuraDwg& s);                          // the header's variables, without their frame
std::string ClassiDwg(const StesuraDwg& s);                             // the classes, without their frame

// The number that files give a line weight: 0 to 23 by thickness, 29 by layer, 30 by block, 31 the default.
unsigned NumeroSpessoreDwg(std::int16_t lineWeight);
// The common part of an object that is no entity: references to its owner and, with `reagisce`, to it as a reactor.
void comuneOggetto(OggettoDwg& o, OdDbHandle proprietario, bool reagisce = false);

}   // namespace tessaro
