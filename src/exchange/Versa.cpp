// The one thing that the VersaCAD export does.
#include "exchange/Versa.h"

#include "model/TabellaStato.h"
#include "platform/Files.h"
#include "text/FileDati.h"

namespace tessaro {

constinit std::array<std::uint8_t, 128> InfoVer{};

void TScriviVersa::ScriviSegs() {
    conto = static_cast<std::int32_t>(InfoVer.size());
    IOERR2(FSWrite(RefNum, conto, InfoVer.data()));
}

namespace {
const VoceStato righe[] = {{"InfoVer", [] { InfoVer.fill(0); }, nullptr}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
