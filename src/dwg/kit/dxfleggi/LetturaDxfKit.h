// The reading of a DXF file into a database: what its sections and entities share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dwg/kit/dxfleggi/GruppiInArrivo.h"
#include "dwg/kit/OdVersioni.h"
#include "exchange/TestoDxf.h"

namespace tessaro {

struct LetturaDxfKit {
    explicit LetturaDxfKit(OdDbDatabase& d) : db(d) {}

    OdDbDatabase& db;
    AlfabetoDxf alfabeto;   // chosen from the file's beginning, before the groups are read
    GruppiInArrivo g;
    std::string nome;       // of the next object, from its group 0; empty at the end
    bool inCarta = false;   // the entity just read belongs to paper space

    // To the next group 0, whose name becomes `nome`. False at the end.
    bool alProssimo();
    // A name or text as UTF-8, its escaped controls replaced.
    std::string utf8(std::string_view bytes);
    OdDbObjectId layer(std::string_view bytes);      // made when it is not in the table
    OdDbObjectId linetype(std::string_view bytes);   // none for BYLAYER
    OdDbObjectId blocco(std::string_view bytes);

    // The groups of the entity in hand up to the next group 0. f(code) takes a value and answers true, or leaves it.
    template <class F>
    void gruppi(OdDbEntity& e, F f) {
        while (g.prossimo()) {
            if (g.codice == 0) {
                nome = g.testo();
                return;
            }
            if (g.codice == oggettoIncorporato) {   // what follows is another object's, with the same codes
                alProssimo();
                return;
            }
            if (!f(g.codice) && !comune(g.codice, e)) salta();
        }
        nome.clear();
    }
    // The groups of a table's record or of a header; 0 is as above.
    template <class F>
    void gruppi(F f) {
        while (g.prossimo()) {
            if (g.codice == 0) {
                nome = g.testo();
                return;
            }
            if (!f(g.codice)) salta();
        }
        nome.clear();
    }
    bool coordinata(int codice, int primo, OdGePoint3d& p);   // groups primo, + 10 and + 20
    bool coordinata(int codice, int primo, OdGeVector3d& v);
    double angolo();   // degrees of the file as radians
    std::int16_t i16();

private:
    static constexpr int oggettoIncorporato = 101;
    bool comune(int codice, OdDbEntity& e);
    void salta();   // also the groups that an application put between braces

    std::string ultimoLayer;
    OdDbObjectId idUltimoLayer;
};

// A section each, up to its ENDSEC, into the database; what is damaged takes its default.
void LeggiIntestazione(LetturaDxfKit& l);
void LeggiTabelle(LetturaDxfKit& l);
// The entities up to `fine` ("ENDSEC", "ENDBLK"), into a block; those of paper space into theirs.
void LeggiEntitaDxf(LetturaDxfKit& l, OdDbObjectId blocco, std::string_view fine);
void LeggiBlocchi(LetturaDxfKit& l);

// --- the entity named `nome` and its parts
OdDbEntityPtr LeggiPolyline(LetturaDxfKit& l);
OdDbEntityPtr LeggiLwpolyline(LetturaDxfKit& l);
OdDbEntityPtr LeggiInsert(LetturaDxfKit& l);
OdDbEntityPtr LeggiTesto(LetturaDxfKit& l);
OdDbEntityPtr LeggiAttributo(LetturaDxfKit& l);
OdDbEntityPtr LeggiDefinizioneAttributo(LetturaDxfKit& l);
OdDbEntityPtr LeggiMText(LetturaDxfKit& l);
OdDbEntityPtr LeggiEllisse(LetturaDxfKit& l);
OdDbEntityPtr LeggiSpline(LetturaDxfKit& l);

// The reader of all versions.
OdError LeggiDxfKit(OdDbDatabase& db, const FSSpec& file, OdDbHostAppProgressMeter& meter);

}   // namespace tessaro
