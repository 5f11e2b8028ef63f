// The document's globals with their start values.
#include "model/Documento.h"

#include "model/TabellaStato.h"

namespace tessaro {

constinit std::uint8_t noWindow = 1;
constinit std::uint8_t fine = 0;
constinit std::uint8_t inizio = 0;
constinit WindowPtr theWindow = nullptr;
PStr255 NomeD("");
PStr255 NomeLavoro("");
FSSpec myFSS;
constinit std::int16_t theItem{};
constinit double Xmin = 0;
constinit double Ymin = 0;
constinit double Xmax = 300;
constinit double Ymax = 300;

namespace {

const VoceStato righe[] = {
    voce<noWindow>("noWindow"),
    voce<fine>("fine"),
    voce<inizio>("inizio"),
    voce<NomeD>("NomeD"),
    voce<NomeLavoro>("NomeLavoro"),
    voce<myFSS>("myFSS"),
    voce<theItem>("theItem"),
    voce<Xmin>("Xmin"),
    voce<Ymin>("Ymin"),
    voce<Xmax>("Xmax"),
    voce<Ymax>("Ymax"),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
