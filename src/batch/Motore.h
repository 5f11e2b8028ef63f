// The engine under a command: started off screen, asked to open and to write, with nobody there to answer. What it says in
// alerts is kept: reports are notes, everything else is a fault.
#pragma once

#include <string>
#include <vector>

#include "batch/Chiamata.h"
#include "shell/Generi.h"

namespace tessaro {

struct Detto {
    std::vector<std::string> guasti, note;   // UTF-8, a sentence or more each
};
extern Detto detto;

std::string LinguaDi(const Chiamata& c);   // "en" or "it": --language, else the environment's
// The toolbox off screen, texts of the language, settings of the program alone. Once a process.
void AccendiMotore(int& argc, char** argv, const Chiamata& c);
// Leaves with the command's status.
[[noreturn]] void SpegniMotore(Esito e);

// Opens a file of any kind that is read, as the drawing. With `posa`, real coordinates are laid on the sheet. What is not
// read whole is refused: Esito::nonLetto, said.
Esito ApriIngresso(const Chiamata& c, const std::string& percorso, bool posa);
// The form that a file to be written has by its name; null, and said, for one that is none. ".pdf" has a row of its own.
const GenereFile* FormaUscita(const Chiamata& c, const std::string& percorso);
// The drawing into that file. Esito::nonFatto, said, when it was not written; the file that was there is then unchanged.
Esito ScriviUscita(const Chiamata& c, const GenereFile& formato, const std::string& percorso);
// Two names of one file.
bool StessoFile(const std::string& a, const std::string& b);
std::string Assoluto(const std::string& percorso);
std::int64_t ByteDi(const std::string& percorso);   // -1 when it is not there

}   // namespace tessaro
