// Any bytes as a DXF file of the kit's: read, taken apart, imported into a small drawing whose records must hold
// together, with and without what goes beyond the plain import.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

#include "dwg/DbDumper.h"
#include "model/Archivio.h"
#include "platform/Files.h"
#include "text/FileDati.h"

using namespace tessaro;

namespace {

constexpr std::int32_t capacita = 2000;

void controlla() {
    if (indElem > maxElementi) std::abort();
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const elemento& e = Elem(i);
        if (e.lucido < 0 || e.lucido > 99 || e.tipo == tVertice) std::abort();
        if (e.tipo != tPoligono) continue;
        const std::int32_t fine = i + e.poli.numVertici;
        if (fine < i || fine > indElem) std::abort();
        while (i < fine)
            if (Elem(++i).tipo != tVertice) std::abort();
    }
}

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
    controlla();
    return 0;
}
