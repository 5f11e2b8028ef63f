// The program's door: options and the toolbox, then the shell.
#include <cstdio>
#include <string>

#include "platform/Automation.h"
#include "platform/Resources.h"
#include "script/Copione.h"
#include "script/Guarda.h"
#include "shell/Inizializza.h"

namespace {

using namespace tessaro;

int guastoOpzioni(const std::string& guasto) {
    std::fprintf(stderr, "%s\n", guasto.c_str());
    return 2;
}

// What the command line asks to be printed; true when that is all it asked for.
bool soloInformazioni(const Opzioni& opzioni) {
    if (!opzioni.aiuto && !opzioni.versione) return false;
    std::fputs(ResourceFile(opzioni.aiuto ? "texts/usage.txt" : "texts/version.txt").c_str(), stdout);
    return true;
}

}   // namespace

int main(int argc, char** argv) {
    Opzioni opzioni;
    std::string guasto;
    if (!LeggiOpzioni(argc, argv, opzioni, guasto)) return guastoOpzioni(guasto);
    if (soloInformazioni(opzioni)) return 0;
    if (!PreparaCopione(opzioni.copione, guasto)) return guastoOpzioni(guasto);
    StartToolbox(argc, argv, opzioni.avvio);
    Initialize();
    GuardaStato();
    Partenza p;
    p.documenti = opzioni.documenti;
    p.stampa = opzioni.stampa || !opzioni.stampaSu.empty();
    p.stampaSu = opzioni.stampaSu;
    const bool bene = CicloPrincipale(p);
    const int esito = p.stampa ? !bene : EsitoCopione();
    StopToolbox();
    return esito;
}
