// The services that the kit calls: its progress on the screen.
#include "dwg/dwgdxf.h"

#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"

namespace tessaro {

void MyServices::newProgressMeter(std::int16_t stringa) {
    constexpr std::int16_t listaNomi = 129;
    releaseProgressMeter();
    ProgressOpen(GetIndString(listaNomi, stringa));
    aperto = true;
}

void MyServices::releaseProgressMeter() {
    if (aperto) ProgressClose();
    aperto = false;
}

void MyServices::setLimit(std::int32_t max) {
    limite = max;
    conto = contoDisegnato = 0;
}

// Drawing is slow beside the work itself.
bool MyServices::meterProgress() {
    constexpr double passo = 0.7, cento = 100;   // per cent
    ++conto;
    const auto percento = [this](std::int32_t n) { return limite > 0 ? cento * n / limite : 0; };
    const double adesso = percento(conto);
    if (adesso - percento(contoDisegnato) <= passo) return !fermato;
    contoDisegnato = conto;
    fermato = fermato || !ProgressStep(adesso / cento) || escapePressed();
    return !fermato;
}

}   // namespace tessaro
