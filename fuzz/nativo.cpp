// Any bytes as a native drawing: read into an empty drawing, merged into it, and saved again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "files/Nativo.h"
#include "files/Richieste.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "text/FileDati.h"

using namespace tessaro;

namespace {

// A file that lives in memory alone.
class FileInMemoria {
    int fd = ::memfd_create("nativo", 0);

public:
    FileInMemoria(const std::uint8_t* data, std::size_t size) {
        if (::write(fd, data, size) != static_cast<ssize_t>(size)) std::abort();
    }
    ~FileInMemoria() { ::close(fd); }
    FileInMemoria(const FileInMemoria&) = delete;
    FileInMemoria& operator=(const FileInMemoria&) = delete;
    void leggi(std::int16_t item) const {
        theItem = item;
        uscita = 0;
        if (FSpOpenDF(FSMakeFSSpec("/proc/self/fd/" + std::to_string(fd)), fsRdPerm, RefNum) != noErr) std::abort();
        leggidati();
        FSClose(RefNum);
    }
};

// What every part of the program relies on.
void controlla() {
    if (indElem < 2 || indElem > maxElementi) std::abort();
    for (std::int32_t n = 3; n <= indElem; ++n) {
        const elemento& e = Elem(n);
        if (e.tipo == tPoligono && (e.poli.numVertici < 0 || n + e.poli.numVertici > indElem)) std::abort();
        if (e.tipo != tVertice) continue;
        const std::int64_t testa = std::int64_t{n} - e.vert.distanzaTesta;
        if (testa < 3 || testa > n) std::abort();
    }
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool pronto = AllocaElementi(500);
    if (!pronto) return 0;
    const FileInMemoria file(data, size);
    AzzeraStato();
    noWindow = 0;
    file.leggi(2);
    controlla();
    for (const int item : {51, 53}) {
        file.leggi(static_cast<std::int16_t>(item));
        controlla();
    }
    std::int16_t uscente = 0;
    if (FSpOpenDF(FSMakeFSSpec("/dev/null"), fsWrPerm, uscente) != noErr) return 0;
    RefNum = uscente;
    uscita = 0;
    theItem = rSalva;
    Scrividati();
    FSClose(uscente);
    return 0;
}
