// Saving and restoring the drawing state of the document's window.
#include "model/Stato.h"

#include "model/Documento.h"

namespace tessaro {

void SaveStato(SaveRecord& s) {
    s.valido = noWindow == 0 && theWindow != nullptr;
    if (!s.valido) return;
    s.port = GetPort();
    SetPortWindowPort(theWindow);
    const GrafPtr p = GetPort();
    s.colore = p->foreground;
    s.sfondo = p->background;
    s.origine = p->origin;
    s.clip = GetClip();
    s.penna = GetPenState();
    s.testo = p->text;
}

void RestoreStato(const SaveRecord& s) {
    if (!s.valido || noWindow || !theWindow) return;
    SetPortWindowPort(theWindow);
    SetClip(s.clip);
    SetOrigin(s.origine.h, s.origine.v);
    SetPenState(s.penna);
    const GrafPtr p = GetPort();
    p->text = s.testo;
    RGBForeColor(s.colore);
    RGBBackColor(s.sfondo);
    SetPort(s.port);
}

}   // namespace tessaro
