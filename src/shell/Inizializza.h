// The process's skeleton.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

void Initialize();          // every global at its start, settings read, menus made, an empty drawing open
void LeggiImpostazioni();   // what the settings files hold, in silence; once, behind Initialize
void CheckEvents();         // one event and one idle step
// What the program is started for. Paths are UTF-8.
struct Partenza {
    std::vector<std::string> documenti;   // the first one is opened
    bool stampa = false;                  // the drawings are printed, and that is all
    std::string stampaSu;                 // on this file; empty: on the printer that is kept or the default one
};
// The settings load in silence, the drawing of the start closes, then events until the end. False when a drawing that was
// to be printed was not.
bool CicloPrincipale(const Partenza& p);
extern void (*dopoIlGiro)();               // called when a round of the main loop is over; for who watches the state
void ApriPercorso(const char* pathUtf8);   // as the desktop's "odoc" does
// As the desktop's "pdoc" does: each drawing is opened and printed, with the page format and the printer that are kept or
// are the defaults. False when one was not opened or not printed, which was shown.
bool HandlePDOC(const std::vector<std::string>& percorsi);

}   // namespace tessaro
