// The bytes of a run as the file in use, in memory alone, and an empty drawing of 500 records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "text/FileDati.h"

namespace prova {

class TestoInMemoria {
    int fd = ::memfd_create("testo", 0);

public:
    TestoInMemoria(const std::uint8_t* data, std::size_t size) {
        using namespace tessaro;
        static const bool pronto = AllocaElementi(500);
        if (!pronto || ::write(fd, data, size) != static_cast<ssize_t>(size)) std::abort();
        AzzeraStato();
        AzzeraArchivio();
        noWindow = 0;
        rappvid = 1;
        if (FSpOpenDF(FSMakeFSSpec("/proc/self/fd/" + std::to_string(fd)), fsRdPerm, RefNum) != noErr) std::abort();
    }
    ~TestoInMemoria() {
        if (tessaro::RefNum != 0) tessaro::FSClose(tessaro::RefNum);
        ::close(fd);
    }
    TestoInMemoria(const TestoInMemoria&) = delete;
    TestoInMemoria& operator=(const TestoInMemoria&) = delete;
};

}   // namespace prova
