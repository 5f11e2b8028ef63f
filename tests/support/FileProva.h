// A small file of given bytes, open as the file in use; removed at the end.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>

#include "platform/Files.h"
#include "text/FileDati.h"

namespace prova {

class FileProva {
    std::string percorso;
    bool aperto = false;

public:
    explicit FileProva(std::string_view contenuto, std::int8_t permesso = tessaro::fsRdPerm) {
        static int quanti = 0;
        percorso = (std::filesystem::temp_directory_path()
                    / ("tessaro-prova-" + std::to_string(getpid()) + "-" + std::to_string(++quanti)))
                       .string();
        std::ofstream(percorso, std::ios::binary) << contenuto;
        aperto = tessaro::FSpOpenDF(tessaro::FSMakeFSSpec(percorso), permesso, tessaro::RefNum) == tessaro::noErr;
        EXPECT_TRUE(aperto);
    }
    ~FileProva() {
        chiudi();
        std::filesystem::remove(percorso);
    }
    FileProva(const FileProva&) = delete;
    FileProva& operator=(const FileProva&) = delete;
    void chiudi() {
        if (aperto) { EXPECT_EQ(tessaro::FSClose(tessaro::RefNum), tessaro::noErr); }
        aperto = false;
    }
    // What stands in the file once it is closed.
    std::string contenuto() {
        chiudi();
        std::ostringstream s;
        s << std::ifstream(percorso, std::ios::binary).rdbuf();
        return s.str();
    }
};

}   // namespace prova
