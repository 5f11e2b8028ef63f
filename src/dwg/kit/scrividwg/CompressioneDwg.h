// The packing of pages in files of format 2004 and later: copies of what came before, by distance and length, and
// literal bytes between them.
#pragma once

#include <string>
#include <string_view>

namespace tessaro {

// At least four bytes and at most a page of 64 kB. The result ends with the mark of the end.
std::string ComprimiDwg(std::string_view dati);
// The page's check: two sums modulo 65521, over bytes that follow those of the seed.
std::uint32_t SommaDwg(std::string_view dati, std::uint32_t seme);

}   // namespace tessaro
