// Groups of a DXF file on their way out, in the characters and with the objects' parts that its version has.
#pragma once

#include <cstdint>
#include <string_view>

#include "dwg/kit/OdVersioni.h"

namespace tessaro {

// Numbers of the versions at which the format changed.
enum VersioneDxf : std::int16_t { dxfR12 = 16, dxfR14 = 21, dxf2000 = 23, dxf2004 = 25, dxf2007 = 27, dxf2010 = 29 };

class GruppiInUscita {
public:
    GruppiInUscita(const OdDbDatabase& d, const OdDbDwgVersion& versione, OdWrFileBuf& f)
        : db(d), v(versione), file(f) {}

    const OdDbDatabase& db;
    const OdDbDwgVersion& v;

    [[nodiscard]] bool da(VersioneDxf prima) const { return v.numero >= prima; }

    // A group as it stands in the file; `ascii` goes out byte by byte.
    void g(int codice, std::string_view ascii);
    void g(int codice, const char* ascii) { g(codice, std::string_view(ascii)); }
    void g(int codice, std::int32_t n);
    // The shortest digits that read back as this very number, without an exponent.
    void g(int codice, double v);
    // A text of the drawing: in the code page 1252 before 2007, with \U+XXXX for what it lacks, in UTF-8 from then on.
    void testo(int codice, std::string_view utf8);
    void handle(int codice, OdDbHandle h);   // hexadecimal
    // codice, codice + 10, codice + 20
    void punto(int codice, const OdGePoint3d& p);
    void punto2(int codice, double x, double y);
    void sottoclasse(const char* nome) {   // R12 has none
        if (da(dxfR14)) g(100, nome);
    }
    // Begins an object: name, handle, owner from R14 on.
    void oggetto(const char* nome, OdDbHandle h, OdDbHandle proprietario);

private:
    void codiceGruppo(int codice);
    void fineRiga() { file.put("\r\n"); }

    OdWrFileBuf& file;
};

// A section each, whole, as the version has it.
void ScriviIntestazioneDxf(GruppiInUscita& s);
void ScriviClassiDxf(GruppiInUscita& s);
void ScriviTabelleDxf(GruppiInUscita& s);
void ScriviBlocchiDxf(GruppiInUscita& s);
// eUnsupportedVersion when there is an entity of a class that is not written.
OdError ScriviEntitaDxf(GruppiInUscita& s, const OdDbBlockTableRecord& blocco, OdDbHostAppProgressMeter& meter);
void ScriviOggettiDxf(GruppiInUscita& s);

// The writer of all versions.
OdError ScriviDxf(const OdDbDatabase& db, const OdDbDwgVersion& versione, OdWrFileBuf& file,
                  OdDbHostAppProgressMeter& meter);

}   // namespace tessaro
