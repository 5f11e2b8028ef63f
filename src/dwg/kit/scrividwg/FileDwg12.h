// The file of R12: records of fixed layout, in bytes and not in bits, and tables that are told apart by their place.
// Everything is little-endian; texts are in code page 1252. The layout is that of the format's public description, with
// what files of that age show.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "dwg/kit/OdVersioni.h"
#include "dwg/kit/scrividwg/BitDwg.h"

namespace tessaro {

// Bytes on their way into a file of R12.
struct ByteDwg12 {
    std::string s;

    void RC(unsigned v) { s.push_back(static_cast<char>(v & 0xFF)); }
    void RS(std::int32_t v) { aggiungiRS(s, static_cast<unsigned>(v) & 0xFFFF); }
    void RL(std::uint32_t v) { aggiungiRL(s, v); }
    // Eight bytes each, little-endian.
    void RD(double v);
    void RD2(double x, double y);
    void RD3(const OdGePoint3d& p);
    void RD3(const OdGeVector3d& v) { RD3(OdGePoint3d{v.x, v.y, v.z}); }
    // A text in `posti` bytes, the last one always 0: what does not fit is cut.
    void testo(std::string_view utf8, std::size_t posti);
    void controllo(std::size_t da) { RS(CrcDwg(std::string_view(s).substr(da), semeCrc)); }
};

// The tables in the order of the file; their records begin with flags, a name of 32 bytes and a count of uses.
enum Tavola12 : std::uint8_t {
    blocchi12,
    piani12,
    stili12,
    linee12,
    viste12,
    ucs12,
    finestre12,
    programmi12,
    quote12,
    vx12,
    nTavole12
};
struct TavolaDwg12 {
    std::uint16_t lunghezza = 0;   // of a record, its check included
    std::uint16_t record = 0;
    std::uint32_t dove = 0;   // of the first record in the file
};
using TavoleDwg12 = std::array<TavolaDwg12, nTavole12>;

inline constexpr std::uint32_t inizioVariabili12 = 0x5E, inizioEntita12 = 0x6CF;   // header and marks never change

// Numbers by which R12's entities name their line type: places in a table that lacks those of fixed meaning.
inline constexpr std::int32_t lineaDaPiano12 = 0x7FFF, lineaDaBlocco12 = 0x7FFE;
std::vector<std::int32_t> NumeriLinee12(const OdDbDatabase& db);   // of each record of `linetypes`

// Each table's records behind each other, and how many bytes and records they are.
std::array<std::string, nTavole12> TabelleDwg12(const OdDbDatabase& db, TavoleDwg12& tavole);
// A table's row in the header: length of a record, how many, flags, place.
void rigaTavola12(ByteDwg12& b, const TavolaDwg12& t);
// The header's variables, 1631 bytes, with the rows of the tables that stand among them.
std::string VariabiliDwg12(const OdDbDatabase& db, const TavoleDwg12& tavole);
// The entities of model space; references among them are places in the file. False: the person stopped it.
bool EntitaDwg12(const OdDbDatabase& db, std::string& byte, OdDbHostAppProgressMeter& meter);

// Writes the whole file; see OdScrittore. Colours are those of the index, texts and names lose what a byte cannot tell.
OdError ScriviDwg12(const OdDbDatabase& db, const OdDbDwgVersion& versione, OdWrFileBuf& file,
                    OdDbHostAppProgressMeter& meter);

}   // namespace tessaro
