// Undo and Redo: a step of the journal back or forward, with all that shows it made afresh.
#pragma once

namespace tessaro {

void AnnullaUltima();   // with nothing to take back, nothing
void RipetiUltima();    // with nothing to do again, nothing
// The two items name the command whose step they take, and `annullamento` is the kind of the one that Undo takes.
void AggiornaVociAnnulla();

}   // namespace tessaro
