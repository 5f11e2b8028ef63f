// Reading and writing of the block of entries.
#include "files/BloccoEstensioni.h"

#include <cstdint>
#include <string>
#include <utility>

#include "files/TestiFile.h"
#include "model/Estensioni.h"
#include "platform/Files.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::uint32_t marcaBlocco = MarcaDi("TSEX");
constexpr std::int64_t byteTesta = 8;   // a mark and a length

std::uint32_t parola() { return static_cast<std::uint32_t>(leggiLong()); }
void scriviParola(std::uint32_t v) { scriviLong(static_cast<std::int32_t>(v)); }

std::int64_t resto() {
    std::int64_t pos = 0, fine = 0;
    GetFPos(RefNum, pos);
    GetEOF(RefNum, fine);
    return fine - pos;
}

bool guasta(Guasto& g) {
    g.code = eofErr;
    g.what = TestoDi(TestoFile::estensioni);
    GetFPos(RefNum, g.offset);
    return false;
}

}   // namespace

void ScriviEstensioni() {
    const auto voci = VociEstensione();
    if (voci.empty()) return;
    std::size_t byte = 0;
    for (const VoceEstensione& v : voci) byte += static_cast<std::size_t>(byteTesta) + Estensione(v.marca).size();
    scriviParola(marcaBlocco);
    scriviParola(static_cast<std::uint32_t>(byte));
    for (const VoceEstensione& v : voci) {
        const std::string_view dati = Estensione(v.marca);
        scriviParola(v.marca);
        scriviParola(static_cast<std::uint32_t>(dati.size()));
        scriviBlocco(dati.data(), static_cast<std::int32_t>(dati.size()));
    }
}

bool LeggiEstensioni(Guasto& g) {
    if (uscita || resto() < byteTesta || parola() != marcaBlocco) return true;
    std::int64_t byte = parola();
    if (byte > resto()) return guasta(g);
    while (byte >= byteTesta && !uscita) {
        const std::uint32_t marca = parola();
        const std::int64_t lungo = parola();
        byte -= byteTesta;
        if (lungo > byte || lungo > maxByteEstensione) return guasta(g);
        std::string dati(static_cast<std::size_t>(lungo), '\0');
        leggiBlocco(dati.data(), static_cast<std::int32_t>(lungo));
        byte -= lungo;
        if (uscita || !PoniEstensione(marca, std::move(dati))) return guasta(g);
    }
    return byte == 0 ? true : guasta(g);
}

}   // namespace tessaro
