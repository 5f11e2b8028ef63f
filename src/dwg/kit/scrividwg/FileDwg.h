// How the parts of a DWG lie in its file, which every generation of the format did in its own way.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "dwg/kit/scrividwg/StesuraDwg.h"

namespace tessaro {

inline constexpr std::array<unsigned char, 16> segnoVariabili{0xCF, 0x7B, 0x1F, 0x23, 0xFD, 0xDE, 0x38, 0xA9,
                                                              0x5F, 0x7C, 0x68, 0xB8, 0x4E, 0x6D, 0x33, 0x5F};
inline constexpr std::array<unsigned char, 16> segnoClassi{0x8D, 0xA1, 0xC4, 0xB8, 0xC4, 0xA9, 0xF8, 0xC5,
                                                           0xC0, 0xDC, 0xF4, 0x5F, 0xE7, 0xCF, 0xB6, 0x8A};

// Where each object stands, by rising handle; places count from `inizio`.
std::string MappaDwg(const StesuraDwg& st, std::int64_t inizio);

// What formats from 2000 on tell of the program that saved: numbers of format and release, saves, dates.
std::string AusiliariaDwg(const StesuraDwg& st, unsigned versione);
// How many objects there are and from where on; `inizioOggetti` is the first one's place.
std::string SpazioLiberoDwg(const StesuraDwg& st, std::uint32_t inizioOggetti);

// One of the named parts of files from 2004 on.
struct ParteDwg {
    const char* nome;
    std::string dati;
    bool facoltativa = false;   // for who looks at files from outside; never packed
};
// In the order of the file; `versione` is the format's number for itself.
std::vector<ParteDwg> PartiDwg(const StesuraDwg& st, unsigned versione);

// Each writes the whole file. eFileWriteError when it would be too large for the format's own numbers.
OdError FileDwg2000(const StesuraDwg& st, std::string_view sigla, OdWrFileBuf& file);   // R14 and 2000
OdError FileDwg2004(const StesuraDwg& st, std::string_view sigla, OdWrFileBuf& file);   // 2004 and 2010
OdError FileDwg2007(const StesuraDwg& st, std::string_view sigla, OdWrFileBuf& file);

}   // namespace tessaro
