// The program's own reader and writer of ASCII DXF, and the tables of conversion that they keep.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Files.h"
#include "text/PascalString.h"

namespace tessaro {

struct layerdxfT {
    std::int16_t colore = 1;    // DXF colour of the table, never negative
    std::int16_t pattern = 1;   // of the pen
    PStr15 nome = "";           // Mac Roman
    std::string intero;         // the name uncut; empty when the table gives none
};
inline constexpr std::int16_t maxLayerDxf = 255;
extern std::array<layerdxfT, maxLayerDxf> Layerdxf;   // the first indluc are in use; the writer fills 0 to 99
extern std::int16_t indluc;

struct TBloccoDXF {
    PStr63 nome = "";
    std::int16_t layer = 0;
    std::int32_t conHandle = 0;
    std::int16_t conFlag = 0;
    double x = 0, y = 0, z = 0;   // base point, drawing units of the file
    std::int32_t primo = 0;       // its records are primo + 1 ...
    std::int32_t ultimo = -1;     // ... to ultimo + 1
};
extern std::vector<TBloccoDXF> BlocchiDXF;   // those read; block number n is BlocchiDXF[n - 1]
extern std::uint8_t LettiBlocchiDXF;         // their records still stand in the drawing

std::int16_t RigaToPat(std::string_view tipoLinea);   // pen pattern of a line type
// Colours of files are numbers of the published index: the nearest of the drawing's table, 1 for what is no colour of it,
// and the nearest of the index. The table must rest from InizioTabelleDXF on.
std::int16_t NumToColor(std::int16_t colore);
std::int16_t ColorToNum(std::int16_t colore);
// Sheet of a layer. Kept: the position less one, and 0 for an unknown one as for the first.
std::int16_t CercaLayer(const PStr15& nome);
// The sheet for the elements of a layer of the table, given by CercaLayer: that of the layer's name (AccogliLucido), else
// its place, at most 99.
std::int16_t LucidoDelLayerDXF(std::int16_t layer);

bool ApriDXF(FSSpec& file);   // the file request
void LeggiDXF();              // the open file into the drawing; ends with the report of what came in

std::uint8_t ApriDXFScr();   // asks for the file to write and opens it; 0 and `uscita` set when there is none
void FaiDXF();               // the whole export

const char* LineTscad2DXF(std::int16_t pattern);   // line type of a pen pattern

}   // namespace tessaro
