// Any bytes as a DXF file: it is read into a small drawing, whose records must hold together.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

#include "exchange/DXF.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Unita.h"
#include "platform/Files.h"
#include "text/FileDati.h"

using namespace tessaro;

namespace {

constexpr std::int32_t capacita = 2000;

// The vertices that a head counts are there.
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
    static const std::string percorso = "/tmp/tessaro-fuzz-dxf-" + std::to_string(getpid());
    static const bool pronto = AllocaElementi(capacita);
    if (!pronto) std::abort();
    std::ofstream(percorso, std::ios::binary).write(reinterpret_cast<const char*>(data), std::streamsize(size));
    AzzeraArchivio();
    uscita = 0;
    rappvid = 1;
    Elem(2).att.coordReali = size % 2 != 0;
    if (FSpOpenDF(FSMakeFSSpec(percorso), fsRdPerm, RefNum) != noErr) std::abort();
    LeggiDXF();
    FSClose(RefNum);
    unlink(percorso.c_str());
    controlla();
    return 0;
}
