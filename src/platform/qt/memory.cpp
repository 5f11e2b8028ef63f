// What memory the machine can still give, as the system tells it.
#include "platform/Memory.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <limits>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace tessaro {

namespace {

// "MemAvailable:   12345678 kB": what programs may take without the machine swapping. 0 when it is not told.
std::int64_t disponibile() {
    constexpr std::string_view voce = "MemAvailable:";
    std::ifstream f("/proc/meminfo");
    for (std::string riga; std::getline(f, riga);) {
        if (!riga.starts_with(voce)) continue;
        const std::size_t cifra = riga.find_first_of("0123456789");
        std::int64_t kilo = 0;
        if (cifra != std::string::npos) std::from_chars(riga.data() + cifra, riga.data() + riga.size(), kilo);
        return kilo * 1024;
    }
    return 0;
}

std::int64_t installata() {
    const long pagine = ::sysconf(_SC_PHYS_PAGES), pagina = ::sysconf(_SC_PAGESIZE);
    return pagine > 0 && pagina > 0 ? static_cast<std::int64_t>(pagine) * pagina : 0;
}

}   // namespace

std::int64_t FreeMemory() {
    std::int64_t byte = disponibile();
    if (byte <= 0) byte = installata();
    struct rlimit limite {};
    if (::getrlimit(RLIMIT_AS, &limite) == 0 && limite.rlim_cur != RLIM_INFINITY)
        byte = std::min(byte, static_cast<std::int64_t>(limite.rlim_cur));
    return std::max<std::int64_t>(byte, 0);
}

std::int32_t CompactMem() {
    return static_cast<std::int32_t>(std::min<std::int64_t>(FreeMemory(), std::numeric_limits<std::int32_t>::max()));
}

}   // namespace tessaro
