// The recovery file: the drawing as it was when the file was begun, then each change of it, every piece with a checksum, so
// that what a kill or a full disk tore off is cut off and the rest is whole. For this machine and this program alone: in
// native byte order, the document's rows by their names.
//
// A piece is a head of 32 bytes (kind, payload bytes, checksum of the payload, checksum of the head) and its payload:
//   "head"  version, size of a record, time, name of the drawing, then each row's name and length
//   "pict"  number, then the bytes of a picture that records name by that number
//   "extn"  number, then the bytes of an entry that the table of entries names by that number
//   "base"  whether it differs from its file, record count, all rows, all records
//   "step"  time, stretches and row ranges, then the new records and the new bytes (model/Giornale.h)
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "model/Giornale.h"
#include "platform/StateFiles.h"

namespace tessaro {

// --- writing. Each gives false when the disk refuses; the file then ends behind its last whole piece.
struct ScritturaRecupero {
    StateFile file = 0;
    std::int64_t scritti = 0;                // bytes so far
    std::vector<PicHandle> immagini;         // numbers whose bytes are in it, ascending
    std::vector<std::uint32_t> estensioni;   // the same of entries
    std::vector<unsigned char> tampone;      // pieces are put together here, and written at once
};
// `secondi`: of the system's clock. The drawing of the moment and VociGiornale are what is written.
[[nodiscard]] bool ScriviInizio(ScritturaRecupero& s, const std::string& nomeMacRoman, std::int64_t secondi,
                                bool diversoDalFile);
[[nodiscard]] bool ScriviPasso(ScritturaRecupero& s, const Transizione& t, std::int64_t secondi);

// --- reading
struct DisegnoRecuperato {
    std::string nome;           // Mac Roman
    std::int64_t secondi = 0;   // of the last change
    bool diverso = false;       // there is something that its file has not
    std::vector<elemento> record;
    struct Riga {
        std::string nome;
        std::string byte;
    };
    std::vector<Riga> righe;
    struct Immagine {
        PicHandle numero;
        std::string byte;
    };
    std::vector<Immagine> immagini;
    std::map<std::uint32_t, std::string> estensioni;   // bytes by number
};
// Everything up to the first piece that is not whole or says what cannot be. False without a drawing to begin with.
[[nodiscard]] bool LeggiRecupero(StateFile f, DisegnoRecuperato& d);

// It becomes the open drawing: records that fit, rows that this program has with the same length, pictures under new
// numbers. Numbers that index tables are held within them.
void AccogliRecupero(const DisegnoRecuperato& d);

}   // namespace tessaro
