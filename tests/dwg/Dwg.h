// The bridge in tests: a drawing into a database and a DXF text into the drawing.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

#include "dwg/DbDumper.h"
#include "dwg/dwgdxf.h"
#include "exchange/Dxf.h"
#include "support/Avvisi.h"

namespace prova {

// Takes no steps and never stops.
class SenzaMisura : public OdDbHostAppProgressMeter {
public:
    void setLimit(std::int32_t) override {}
    bool meterProgress() override { return true; }
};

// A file of given bytes for as long as it lives.
class FileCad {
public:
    explicit FileCad(const std::string& contenuto = {}) {
        static int quanti = 0;
        percorso = (std::filesystem::temp_directory_path()
                    / ("tessaro-cad-" + std::to_string(getpid()) + "-" + std::to_string(++quanti) + ".dxf"))
                       .string();
        std::ofstream(percorso, std::ios::binary) << contenuto;
    }
    ~FileCad() { std::filesystem::remove(percorso); }
    FileCad(const FileCad&) = delete;
    FileCad& operator=(const FileCad&) = delete;
    [[nodiscard]] FSSpec spec() const { return FSMakeFSSpec(percorso); }

private:
    std::string percorso;
};

inline std::string scrittoDxf(OdDbDatabase& db, std::int16_t versione) {
    OdWrFileBuf b;
    SenzaMisura m;
    const OdError e = writeFile(db, b, OdDbSaveType::kDxf, versione, m);
    EXPECT_EQ(e.codice, eOk);
    return {b.byte.begin(), b.byte.end()};
}

inline OdError rilettoDxf(OdDbDatabase& db, const std::string& testo) {
    const FileCad f(testo);
    SenzaMisura m;
    return readFile(db, f.spec(), m);
}

// Imports and gives what the report said.
inline std::string importaDxf(const std::string& testo) {
    const FileCad f(testo);
    avvisi.clear();
    ImportaDWGFile(f.spec());
    return avvisi.empty() ? std::string() : avvisi.back().testo;
}

}   // namespace prova
