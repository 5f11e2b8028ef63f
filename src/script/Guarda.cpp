// The state as a file that another program watches.
#include "script/Guarda.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "script/Rapporti.h"
#include "shell/Inizializza.h"

namespace tessaro {

namespace {

std::string percorso, scritto;

void scrivi() {
    // The clock runs on by itself, and is no news.
    static const std::vector<std::string> orologio{"ticks"};
    std::string ora = StatoJson({});
    const std::string ticks = StatoJson(orologio);
    const std::string riga = ticks.substr(1, ticks.size() - 2);
    if (const auto dove = ora.find(riga); dove != std::string::npos) ora.erase(dove, riga.size() + 1);
    if (ora == scritto) return;
    const std::string nuovo = percorso + ".new";
    std::FILE* f = std::fopen(nuovo.c_str(), "wb");
    if (f == nullptr) return;
    const bool bene = std::fwrite(ora.data(), 1, ora.size(), f) == ora.size();
    if (std::fclose(f) != 0 || !bene || std::rename(nuovo.c_str(), percorso.c_str()) != 0) return;
    scritto = std::move(ora);
}

}   // namespace

void GuardaStato() {
    const char* dove = std::getenv("TESSARO_WATCH");
    if (dove == nullptr || *dove == 0) return;
    percorso = dove;
    dopoIlGiro = scrivi;
}

}   // namespace tessaro
