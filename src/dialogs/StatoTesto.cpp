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
    {"dialoghi", VoceStato::speciale, nullptr, 0, azzeraDialoghi, nullptr},
    {"cifreEstese", VoceStato::u8, &cifreEstese, 1},
    {"RefNum", VoceStato::i16, &RefNum, 0},
    {"EndFile", VoceStato::u8, &EndFile, 0},
    {"numriga", VoceStato::i16, &numriga, 0},
    {"rigapari", VoceStato::u8, &rigapari, 1},
    {"LF", VoceStato::u8, &LF, 10},
    {"uscita", VoceStato::u8, &uscita, 0},
    {"Noitem", VoceStato::i16, &Noitem, 0},
    {"inx", VoceStato::i16, &inx, 0},
    {"err_", VoceStato::i16, &err_, 1},
};
TabellaStato tabella(righe);

}   // namespace
}   // namespace tessaro
