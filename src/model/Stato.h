// The bracket round any drawing away from the normal pen state.
#pragma once

#include "platform/Quickdraw.h"
#include "platform/Windows.h"

namespace tessaro {

// Saved drawing state: port, colour, origin, clip, pen and text. Every SaveStato needs its RestoreStato; both do
// nothing without a window. SaveStato leaves the port set to theWindow.
struct SaveRecord {
    GrafPtr port = nullptr;
    RGBColor colore, sfondo;
    Point origine;
    Region clip;
    PenState penna;
    TextState testo;
    bool valido = false;
};
void SaveStato(SaveRecord& s);
void RestoreStato(const SaveRecord& s);
// The pair as a scope.
class Stato {
    SaveRecord s;

public:
    Stato() { SaveStato(s); }
    ~Stato() { RestoreStato(s); }
    Stato(const Stato&) = delete;
    Stato& operator=(const Stato&) = delete;
};

// The current port as a scope: what was current before comes back.
class PortaCorrente {
    GrafPtr prima = GetPort();

public:
    PortaCorrente() = default;
    explicit PortaCorrente(GrafPtr porta) { SetPort(porta); }
    ~PortaCorrente() { SetPort(prima); }
    PortaCorrente(const PortaCorrente&) = delete;
    PortaCorrente& operator=(const PortaCorrente&) = delete;
};

}   // namespace tessaro
