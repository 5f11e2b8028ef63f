// Time: 60 ticks a second from the machine's steady clock, or a script's own clock that moves only when it is told to.
#include <QApplication>
#include <QTimer>

#include <chrono>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {
constinit std::uint32_t ticksDelCopione = 0;

std::int64_t millisecondi() {
    using namespace std::chrono;
    static const auto inizio = steady_clock::now();
    return duration_cast<milliseconds>(steady_clock::now() - inizio).count();
}

constexpr std::uint32_t inTicks(std::int64_t ms) { return static_cast<std::uint32_t>(ms * 60 / 1000); }
}   // namespace

void avanzaOrologio(std::uint32_t ticks) { ticksDelCopione += ticks; }

std::uint32_t TickCount() { return copione() != nullptr ? ticksDelCopione : inTicks(millisecondi()) + 1; }

std::uint32_t tickDi(ulong stamp) {
    if (copione() != nullptr || stamp == 0) return TickCount();
    // The stamps run on a clock of their own. The least delay ever seen between a stamp and its arrival is the distance
    // of the two clocks, so a press that waited while the program was busy keeps the moment at which it happened.
    static std::int64_t distanza = INT64_MAX;
    const std::int64_t ora = millisecondi();
    const auto suo = static_cast<std::int64_t>(stamp);
    if (distanza == INT64_MAX || ora - suo < distanza || ora - suo > distanza + 60000) distanza = ora - suo;
    return inTicks(std::max<std::int64_t>(suo + distanza, 0)) + 1;
}

void Delay(std::int32_t ticks) {
    if (ticks <= 0) return;
    if (copione() != nullptr) {
        avanzaOrologio(static_cast<std::uint32_t>(ticks));
        return;
    }
    if (!conFinestre()) return;
    mostraDisegnato();
    QEventLoop attesa;
    QTimer::singleShot(static_cast<int>(std::int64_t{ticks} * 1000 / 60), &attesa, &QEventLoop::quit);
    attesa.exec(QEventLoop::ExcludeUserInputEvents);
}

std::uint32_t GetDblTime() {
    constexpr std::uint32_t delCopione = 30;
    if (copione() != nullptr || !conFinestre()) return delCopione;
    return inTicks(QApplication::doubleClickInterval());
}

void SysBeep(std::int32_t duration) {
    if (copione() != nullptr) return copione()->beep(duration);
    if (conFinestre()) QApplication::beep();
}

}   // namespace tessaro
