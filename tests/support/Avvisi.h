// What a test may know and say about alerts, beeps and dialogs: which came, which button an alert gets, who answers an
// open dialog. The suite's one listener. Forgotten before each test.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

namespace prova {

struct Avviso {
    std::int16_t id;
    std::string testo;   // UTF-8
};
extern std::vector<Avviso> avvisi;                             // in the order they came
extern std::map<std::int16_t, std::int16_t> bottoni;           // alert to button; else its default
extern int suoni;                                              // beeps
extern std::function<bool(tessaro::DialogPtr)> passoDialogo;   // next step of an open dialog; false cancels it
void ganciDellaSuite();                                        // back to these, after a test that had hooks of its own
inline std::vector<std::int16_t> numeriAvvisi() {
    std::vector<std::int16_t> n;
    n.reserve(avvisi.size());
    for (const Avviso& a : avvisi) n.push_back(a.id);
    return n;
}

}   // namespace prova
