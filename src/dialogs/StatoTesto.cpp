// Rows of the reset table for the globals of texts, files and dialogs. The former stand below the table, so their rows
// stand here.
#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "model/TabellaStato.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {
namespace {

void azzeraDialoghi() {
    theDialog = nullptr;
    Stdato.fill(PStr255(""));
    fileInLavoro.clear();
    AzzeraReadlnDisco();
}

const VoceStato righe[] = {
    {"dialoghi", azzeraDialoghi, nullptr},
    voce<cifreEstese>("cifreEstese"),
    voce<RefNum>("RefNum"),
    voce<EndFile>("EndFile"),
    voce<numriga>("numriga"),
    voce<rigapari>("rigapari"),
    voce<LF>("LF"),
    voce<uscita>("uscita"),
    voce<Noitem>("Noitem"),
    voce<inx>("inx"),
    voce<err_>("err_"),
};
TabellaStato tabella(righe);

}   // namespace
}   // namespace tessaro
