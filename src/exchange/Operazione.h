// A long reading as the person sees it: the keyword at work in the window's foot, the progress bar, and Escape.
#pragma once

#include <cstdint>

#include "exchange/Resoconto.h"

namespace tessaro {

// The keyword into StrOperCorr. The first is painted at once, the others as the reading advances: they may change a
// million times a second.
void MostraOperazione(const char* parola);
extern void (*operazioneMostrata)();   // called when the keyword was painted: the status strip's. Set by the shell
void FineOperazione();                 // no operation any more; the next repaint shows the coordinates again
bool AvanzaLettura(double frazione);   // 0 to 1; false when the person asked to stop

// The progress of the file `RefNum` as long as the object lives; a reader asks it once a line or row.
class LetturaLunga {
public:
    explicit LetturaLunga(TestoScambio titolo);
    ~LetturaLunga();
    LetturaLunga(const LetturaLunga&) = delete;
    LetturaLunga& operator=(const LetturaLunga&) = delete;

    bool continua();   // false once the person asked to stop
    [[nodiscard]] bool fermata() const { return stop; }

private:
    std::int64_t dimensione = 0;   // of the file, bytes
    std::uint32_t domande = 0;
    bool stop = false;
};

}   // namespace tessaro
