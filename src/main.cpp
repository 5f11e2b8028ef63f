// The program's door: options and the toolbox, then the shell.
#include <cstdio>
#include <iterator>
#include <string>

#include "batch/Batch.h"
#include "maps/Prova.h"
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
    const std::string& chiesta = opzioni.avvio.language;
    const std::string aiuto = "help/" + (chiesta.empty() ? LinguaAmbiente() : chiesta) + "/usage.txt";
    std::fputs(ResourceFile(opzioni.aiuto ? aiuto : "texts/version.txt").c_str(), stdout);
    return true;
}

// A PDF file needs no display: where there is none the command of that name makes it.
void stampaSenzaSchermo(const Opzioni& o, char* programma) {
    if (o.stampaSu.empty() || o.documenti.size() != 1 || !SenzaSchermo()) return;
    std::string parole[] = {"print", "--", o.documenti.front(), o.stampaSu};
    char* argv[] = {programma, parole[0].data(), parole[1].data(), parole[2].data(), parole[3].data(), nullptr};
    EseguiComando(static_cast<int>(std::size(argv)) - 1, argv);
}

}   // namespace

int main(int argc, char** argv) {
    if (EProva(argc, argv)) return EseguiProva(argv);
    if (argc > 1 && EComando(argv[1])) EseguiComando(argc, argv);
    Opzioni opzioni;
    std::string guasto;
    if (!LeggiOpzioni(argc, argv, opzioni, guasto)) return guastoOpzioni(guasto);
    if (soloInformazioni(opzioni)) return 0;
    if (!PreparaCopione(opzioni.copione, guasto)) return guastoOpzioni(guasto);
    stampaSenzaSchermo(opzioni, argv[0]);
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
