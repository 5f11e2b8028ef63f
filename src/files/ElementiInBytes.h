// Elements as bytes of their own: what goes over the clipboard from one drawing to another.
//
// Big-endian: "TS3E", a byte 1; i16 number of colours and 30 bytes each, as in the drawing's file; i32 number of records and
// 84 bytes each in the file's order, behind a picture's record i32 and its data; i16 number of layers with a name and for
// each i16 layer, a byte and that many bytes of its name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

inline constexpr std::string_view mimeElementi = "application/vnd.tessaro3d.elements";

// The selected elements, polylines whole; empty when there are none.
std::string ElementiInBytes();

enum class EsitoElementi : std::uint8_t { entrati, illeggibili, senzaPosto };
// Puts them behind the last record, all or none: colours by their value in this drawing's table, which grows by those that it
// lacks; layers by their number. Nothing is selected. Any bytes may come in.
EsitoElementi ElementiDaBytes(std::string_view bytes);

}   // namespace tessaro
