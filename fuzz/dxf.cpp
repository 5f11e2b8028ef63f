// Any bytes as a DXF file: it is read into a small drawing, whose records must hold together.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

#include "Controlli.h"
#include "exchange/DXF.h"
#include "model/Documento.h"
#include "model/Unita.h"
#include "platform/Files.h"
#include "text/FileDati.h"

using namespace tessaro;

namespace {

constexpr std::int32_t capacita = 2000;

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
    controllaRecord();
    return 0;
}
