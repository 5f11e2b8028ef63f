// The program's options and the driver of scripts. A script is a text file of one command a line; the toolbox pulls the
// lines when the program has nothing else to do. Order: LeggiOpzioni, PreparaCopione, StartToolbox, Initialize, the main
// loop, EsitoCopione, StopToolbox.
#pragma once

#include <string>
#include <vector>

#include "platform/Automation.h"

namespace tessaro {

struct Opzioni {
    Avvio avvio;
    std::string copione;                  // --script; "-" is standard input; empty: no script
    std::vector<std::string> documenti;   // other arguments: drawings to open, UTF-8
    bool stampa = false;                  // --print: the drawings are printed, and that is all
    bool scuro = false;                   // --dark: light on dark
    std::string stampaSu;                 // --print-to: the same, onto this PDF file
    bool aiuto = false;                   // --help or -h
    bool versione = false;                // --version
};

// Takes the program's own options out of argv (argc shrinks; what the toolkit knows, such as -platform, stays for it).
// False: an option is unknown or has a bad value, and `guasto` says which.
[[nodiscard]] bool LeggiOpzioni(int& argc, char** argv, Opzioni& out, std::string& guasto);

// Reads the script and hands its hooks to the toolbox. False: it cannot be read, and `guasto` says why (exit status 2).
// Does nothing for an empty path.
[[nodiscard]] bool PreparaCopione(const std::string& path, std::string& guasto);

// The exit status of a script whose main loop has ended: 0, or 1 with a line on standard error when commands or answers
// are left over. Without a script 0. A command that fails ends the process at once with its own status.
int EsitoCopione();

}   // namespace tessaro
