// Any bytes as a DXF file of the kit's: read, taken apart, imported into a small drawing whose records must hold
// together, with and without what goes beyond the plain import.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

#include "Controlli.h"
#include "dwg/DbDumper.h"
#include "platform/Files.h"
#include "text/FileDati.h"

using namespace tessaro;

namespace {

constexpr std::int32_t capacita = 2000;

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string percorso = "/tmp/tessaro-fuzz-kit-" + std::to_string(getpid()) + ".dxf";
    static const bool pronto = AllocaElementi(capacita) && std::freopen("/dev/null", "w", stdout) != nullptr;
    if (!pronto) std::abort();
    std::ofstream(percorso, std::ios::binary).write(reinterpret_cast<const char*>(data), std::streamsize(size));
    AzzeraArchivio();
    const auto scelta = static_cast<std::uint8_t>(size % 2);
    scelteImporta = {scelta, scelta, scelta, 0.01};
    ImportaDWGFile(FSMakeFSSpec(percorso));
    unlink(percorso.c_str());
    if (uscita != 0) std::abort();
    controllaRecord();
    return 0;
}
