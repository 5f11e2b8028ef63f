// How often a long reading looks at the screen and the keyboard.
#include "exchange/Operazione.h"

#include "display/palette.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "text/FileDati.h"

namespace tessaro {

void (*operazioneMostrata)() = nullptr;

namespace {

constexpr std::uint32_t righeTraDomande = 512;   // lines between two looks at the keyboard
constexpr std::uint32_t ticksTraPitture = 6;
constinit std::uint32_t ultimaPittura = 0;

void dipingi() {
    ultimaPittura = TickCount();
    DrawOperazCorr();
    if (operazioneMostrata) operazioneMostrata();
}

}   // namespace

void MostraOperazione(const char* parola) {
    if (StrOperCorr.view() == parola) return;
    const bool prima = StrOperCorr.view().empty();
    StrOperCorr = parola;
    if (prima) dipingi();
}

void FineOperazione() { StrOperCorr = ""; }

bool AvanzaLettura(double frazione) {
    if (!StrOperCorr.view().empty() && TickCount() - ultimaPittura >= ticksTraPitture) dipingi();
    const bool avanti = ProgressStep(frazione);
    return !escapePressed() && avanti;
}

LetturaLunga::LetturaLunga(TestoScambio titolo) {
    GetEOF(RefNum, dimensione);
    ProgressOpen(TestoDi(titolo));
}

LetturaLunga::~LetturaLunga() {
    ProgressClose();
    FineOperazione();
}

bool LetturaLunga::continua() {
    if (stop || ++domande % righeTraDomande != 0) return !stop;
    std::int64_t qui = 0;
    GetFPos(RefNum, qui);
    stop = !AvanzaLettura(dimensione > 0 ? static_cast<double>(qui) / static_cast<double>(dimensione) : 0);
    return !stop;
}

}   // namespace tessaro
