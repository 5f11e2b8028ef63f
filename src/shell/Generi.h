// The kinds of files that a drawing comes from and goes to, by the suffix of their names: one table for what the desktop
// opens and for the commands without a window.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "model/Registrazione.h"
#include "platform/Files.h"

namespace tessaro {

struct GenereFile {
    std::string_view suffisso;   // with its point, in lower case
    // Into the drawing that is open. What is wrong is shown; what was read before stays. Null: not read.
    void (*leggi)(const FSSpec& file) = nullptr;
    // The drawing into a file that is asked for (NavPutFile). What is wrong is shown. Null: not written.
    void (*scrivi)() = nullptr;
    // It holds real coordinates and tells neither sheet nor scale: as a drawing of its own it is laid on the sheet.
    bool soloReali = false;
    bool diCasa = false;   // the program's own: the file becomes the document's
};
std::span<const GenereFile> GeneriDiFile();
const GenereFile* GenereDi(std::string_view percorso);   // by the end of the name, in any case; null: none

// A file of another program becomes the drawing, untitled: the open one is closed first, if its owner agrees. With `posa`
// what has only real coordinates is laid on the sheet where it does not lie on it. False: the owner did not agree.
bool ApriConGenere(const GenereFile& formato, const FSSpec& file, bool posa = true);

// Moves and scales everything so that it lies on the sheet and registers the sheet, so that all real coordinates stay:
// at the scale in force when it fits, else at the next of 1, 2, 2.5 and 5 times a power of ten. Nothing happens to an
// empty drawing, to one that is registered, and to one that lies on its sheet.
void PosaSulFoglio();

// Control points 1 and 2 of a sheet that no hand has registered: a centimetre inside its lower left and upper right
// corners, sheet units.
std::array<Coppia, 2> SegniFoglio();
// Their real coordinates; the sheet is registered by them.
void RegistraSegni(const Coppia& primo, const Coppia& secondo);

}   // namespace tessaro
