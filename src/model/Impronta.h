// Digests of 64 bits: of runs of records, blind to the flag of selection, and of plain bytes. Two contents that differ have
// the same digest with a chance of about 1 in 2^64; no key, so they guard against accidents and not against an adversary.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

// Of `quanti` records from `primo`. Reads each byte once, at about the speed of memory; any alignment.
std::uint64_t ImprontaRecord(const elemento* primo, std::int32_t quanti);
std::uint64_t ImprontaByte(const void* dati, std::size_t byte, std::uint64_t seme = 0);

// Do two records hold the same but for the flag of selection?
bool StessoRecord(const elemento& a, const elemento& b);

}   // namespace tessaro
