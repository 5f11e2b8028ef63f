// Whether a repaint gives way to the wheel.
#include "display/Interruzione.h"

#include <atomic>
#include <thread>

#include "platform/Events.h"

namespace tessaro {

namespace {

std::atomic<bool> attivo = false, interrotto = false;
std::thread::id principale;

}   // namespace

DisegnoInterrompibile::DisegnoInterrompibile() {
    principale = std::this_thread::get_id();
    interrotto = false;
    attivo = true;
}

DisegnoInterrompibile::~DisegnoInterrompibile() { attivo = interrotto = false; }

bool DisegnoInterrotto() {
    if (!attivo) return false;
    if (!interrotto && std::this_thread::get_id() == principale && ZoomWaits()) interrotto = true;
    return interrotto;
}

}   // namespace tessaro
