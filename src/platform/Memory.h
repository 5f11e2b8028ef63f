// What the machine can give.
#pragma once
#include <cstdint>
namespace tessaro {
std::int32_t CompactMem();   // free bytes, held to what 32 bits can say
std::int64_t FreeMemory();   // free bytes
}   // namespace tessaro
