// Whether a painting gives way to the wheel, or to the person who stops it.
#include "display/Interruzione.h"

#include <atomic>
#include <cmath>
#include <thread>

#include "platform/Dialogs.h"
#include "platform/Events.h"

namespace tessaro {

namespace {

std::atomic<bool> allaRotella = false, seguito = false, interrotto = false;
std::thread::id principale;
double inizio = 0, fine = 1, ultima = 0;   // of the work, and where it was last known to be

}   // namespace

DisegnoInterrompibile::DisegnoInterrompibile() {
    principale = std::this_thread::get_id();
    interrotto = false;
    allaRotella = true;
}

DisegnoInterrompibile::~DisegnoInterrompibile() { allaRotella = interrotto = false; }

DisegnoSeguito::DisegnoSeguito(double da, double a) {
    principale = std::this_thread::get_id();
    inizio = ultima = da;
    fine = a;
    seguito = true;
}

DisegnoSeguito::~DisegnoSeguito() { seguito = false; }

bool DisegnoInterrotto(double parte) {
    if (!allaRotella && !seguito) return false;
    if (std::this_thread::get_id() == principale) {
        if (allaRotella && !interrotto && ZoomWaits()) interrotto = true;
        if (std::isfinite(parte)) ultima = inizio + (fine - inizio) * parte;
        if (seguito) ProgressStep(ultima);
    }
    return interrotto || (seguito && ProgressStopped());
}

bool RotellaAspetta() { return interrotto; }

}   // namespace tessaro
