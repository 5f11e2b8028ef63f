// Is a registration one? Points that lie in one place give a similarity without end, which nothing shows or undoes well:
// who would store such points is told which they are, and nothing changes.
#pragma once

#include <string>

#include "model/Elemento.h"

namespace tessaro {

// What keeps records 1 and 2 from being a registration, in words that name the points (Mac Roman): points 1 and 2 not
// given, closer than 0.001 sheet units, or with the same real coordinates; empty when they are one. A record 2 without
// coordReali asks for none and is good.
std::string GuastoRegistrazione(const elemento& primo, const elemento& secondo);
// Alert 9151 with those words, above the open dialog where there is one.
void RifiutaRegistrazione(const std::string& guasto);

// What keeps the live transformation from mapping (control points that its mode takes and nobody gave, points that lie in
// one place), in words; empty when nothing does.
std::string GuastoTrasformazione();

}   // namespace tessaro
