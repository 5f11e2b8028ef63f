// File kinds and versions, and who reads and writes them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "dwg/kit/OdDbDatabase.h"
#include "dwg/kit/OdFileBuf.h"

namespace tessaro {

enum class OdDbSaveType : std::int16_t { kDwg = 0, kDxf = 1 };

// What a number of the export's dialog means: the numbers are those of the kit's enumeration of file versions, which
// counts the drawing formats in the order of their making.
struct OdDbDwgVersion {
    std::int16_t numero;
    std::string_view sigla;      // the first six bytes of a DWG, $ACADVER of a DXF
    std::string_view prodotto;   // of what year or release
};
std::span<const OdDbDwgVersion> VersioniScrivibili();    // the newest first
const OdDbDwgVersion* VersioneDi(std::int16_t numero);   // null: none of them

enum OdResult : std::int16_t {
    eOk = 0,
    eFileNotFound = 1,
    eNotOpenForRead,   // the file's system error stands in `dettaglio`
    eBadDxfFile,       // no group, or no DXF at all; `dettaglio` is the line
    eBadDwgFile,
    eUnsupportedVersion,   // `nota` names it
    eUserBreak,            // the person stopped it
    eFileWriteError,       // the file's system error stands in `dettaglio`
    eOutOfMemory,
    eHelperMissing,   // a program that the reading needs is not installed
    eHelperFailed,    // `nota` is what it said
    eDxfTruncated,    // the file ended before its end; what came before was read. `dettaglio` is the line
};
struct OdError {
    OdResult codice = eOk;
    std::int64_t dettaglio = 0;
    std::string nota;   // UTF-8
};
std::string getErrorDescription(const OdError& e);   // a sentence for people, Mac Roman; empty for eOk

// A writer turns the database, whose handles AssegnaHandle has given, into the whole file. It tells `meter` a step an
// entity. What it cannot write it must not have been asked: see PuoScrivere.
using OdScrittore = OdError (*)(const OdDbDatabase& db, const OdDbDwgVersion& versione, OdWrFileBuf& file,
                                OdDbHostAppProgressMeter& meter);
bool PuoScrivere(OdDbSaveType tipo, std::int16_t numero);
// precision: digits behind the point of a DXF's numbers, at most 16. eUnsupportedVersion when there is no writer.
OdError writeFile(OdDbDatabase& db, OdWrFileBuf& file, OdDbSaveType tipo, std::int16_t numero,
                  OdDbHostAppProgressMeter& meter);

// A reader fills a database that createDatabase(false, 0) made, from a file by its path. What it read before a fault
// stays in the database.
using OdLettore = OdError (*)(OdDbDatabase& db, const FSSpec& file, OdDbHostAppProgressMeter& meter);
// By the first bytes of the file, else by its suffix. eUnsupportedVersion when nobody reads its kind.
OdError readFile(OdDbDatabase& db, const FSSpec& file, OdDbHostAppProgressMeter& meter);
bool PuoLeggere(OdDbSaveType tipo);

}   // namespace tessaro
