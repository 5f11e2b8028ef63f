// What a drawing knows beyond its told records: tagged entries, each the bytes of who owns its mark, stored in a block
// behind the end of the file. The table of entries is a row of the document: the journal keeps it with a step, and an
// entry that is replaced lives on until the drawing is closed, since a step may name it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tessaro {

// A mark is four characters, the first in the highest byte.
constexpr std::uint32_t MarcaDi(const char (&s)[5]) {
    return std::uint32_t(std::uint8_t(s[0])) << 24 | std::uint32_t(std::uint8_t(s[1])) << 16
           | std::uint32_t(std::uint8_t(s[2])) << 8 | std::uint32_t(std::uint8_t(s[3]));
}
inline constexpr std::uint32_t estLucidi = MarcaDi("lays");        // names of the layers
inline constexpr std::uint32_t estPunti = MarcaDi("ctrl");         // the table of control points
inline constexpr std::uint32_t estRiferimento = MarcaDi("crs ");   // the reference system

inline constexpr std::int32_t maxEstensioni = 64;                     // entries of a drawing
inline constexpr std::int64_t maxByteEstensione = 64 * 1024 * 1024;   // of one entry

// The entry's bytes; empty when there is none. Valid until the entry is next replaced.
std::string_view Estensione(std::uint32_t marca);
// Replaces the entry; empty bytes take it out. False, and nothing changed, when it is too long or the table is full.
// It is part of the step that ends when the event loop is reached.
bool PoniEstensione(std::uint32_t marca, std::string dati);
// The number of the entry's bytes, 0 for none: it changes with them, so that a cache can tell whether it still holds.
std::uint32_t NumeroEstensione(std::uint32_t marca);

struct VoceEstensione {
    std::uint32_t marca = 0, numero = 0;   // of a free place 0 and 0; places in use come first, by ascending mark
};
std::span<const VoceEstensione> VociEstensione();          // those in use
const std::string* DatiEstensione(std::uint32_t numero);   // null when there are no such bytes
void AzzeraEstensioni();                                   // a drawing without entries: all bytes are given up
// The entries of a recovered drawing get numbers of this session; `byte` gives null for a number that it does not know.
void RinumeraEstensioni(const std::string* (*byte)(std::uint32_t numero, const void* di), const void* di);

void AssestaEstensioni();   // the journal has taken down the table: its numbers stay known from here on

// Who shows what entries say. Called when the event loop is reached and an entry is not what it was there last: after an
// opening, a step back or forward, a command. Files register with a static object of this kind.
struct AscoltoEstensioni {
    void (*cambiate)();
    AscoltoEstensioni* prossimo;
    explicit AscoltoEstensioni(void (*f)());
    static AscoltoEstensioni* primo;
};
void AvvisaEstensioni();

}   // namespace tessaro
