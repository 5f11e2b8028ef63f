// The character's globals with their start values.
#include "model/Carattere.h"

#include "model/TabellaStato.h"

namespace tessaro {

PStr255 gFontName("");
constinit std::int16_t gFontID = 0;
constinit std::int16_t gFontSize = 9;
constinit TxStyle gTxStyle{};
constinit std::int16_t TheOldFontIt = 1;
constinit std::int16_t TheOldDimFIt = 2;

namespace {

const VoceStato righe[] = {
    voce<gFontName>("gFontName"), voce<gFontID>("gFontID"),           voce<gFontSize>("gFontSize"),
    voce<gTxStyle>("gTxStyle"),   voce<TheOldFontIt>("TheOldFontIt"), voce<TheOldDimFIt>("TheOldDimFIt"),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
