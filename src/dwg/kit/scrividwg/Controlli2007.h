// What guards the bytes of a 2007 file against damage: parity of Reed and Solomon's code, a check of 64 bits over the packed
// bytes and one of 32 over the unpacked ones. Their constants were found on files of the world, which the tests hold them to.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

// Blocks of 255 bytes, of which 16 or 4 are parity.
enum class Parita2007 : std::uint8_t { pagineSistema = 16, pagineDati = 4 };

// Cuts the bytes into blocks, the last one filled up with zeros, adds each block's parity and interleaves the blocks byte by
// byte, so that a scratch across the file hits each of them a little.
std::string ConParita2007(std::string_view dati, Parita2007 p);

// Over the packed bytes of a page.
std::uint64_t Crc2007(std::string_view dati);
// Over the unpacked bytes of a page.
std::uint32_t Somma2007(std::string_view dati);

}   // namespace tessaro
