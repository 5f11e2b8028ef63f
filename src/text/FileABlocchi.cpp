// The block after the one in hand.
#include "text/FileABlocchi.h"

#include "platform/Files.h"
#include "text/FileDati.h"

namespace tessaro {

FileABlocchi::FileABlocchi() { GetFPos(RefNum, posizione); }

bool FileABlocchi::altroBlocco() {
    qui = fine = nullptr;
    const OSErr e = SetFPos(RefNum, posizione);
    std::int64_t quanti = 0;
    const OSErr letto = e == noErr ? FSPeek(RefNum, qui, quanti) : e;
    if (letto != noErr && letto != eofErr) {
        IOERR2(letto);
        return false;
    }
    if (letto != noErr || quanti <= 0) {
        EndFile = 1;
        return false;
    }
    fine = qui + quanti;
    posizione += quanti;
    return true;
}

}   // namespace tessaro
