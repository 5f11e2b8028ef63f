// The packing of pages in files of format 2007: the copies and literal runs of 2004 under other codes, the literals in an
// order of their own.
#pragma once

#include <string>
#include <string_view>

namespace tessaro {

// At least one byte and at most 64 kB. May come out longer than it went in: then the page is stored as it is.
std::string ComprimiDwg2007(std::string_view dati);

}   // namespace tessaro
