// The line readers: LeggiRiga and ReadlnDisco over the open file, LeggiStr and LeggiRigaC over standard streams, and
// the searches of the exchange reader.
#include "text/Righe.h"

#include <algorithm>

#include "text/FileDati.h"
#include "text/FileStd.h"

namespace tessaro {

constinit std::FILE* inst = nullptr;
constinit std::FILE* out = nullptr;

namespace {

constexpr std::uint8_t cr = 13;
constexpr std::uint8_t lf = 10;
constexpr std::uint8_t tab = 9;

}   // namespace

bool RaccoltaRiga::finisceCon(std::uint8_t c) const {
    if (c == cr) return true;
    if (c != lf || regola == FineRiga::cr) return false;
    return regola == FineRiga::crOLf ? p[0] != 0 : prec != cr;
}

bool RaccoltaRiga::daTralasciare(std::uint8_t c) const {
    // An LF that got here belongs to the CR of the line before.
    if (c == lf && regola != FineRiga::cr) return true;
    return senzaTabELf && c == tab;
}

bool RaccoltaRiga::prendi(std::uint8_t c) {
    const bool finita = finisceCon(c);
    const bool tralasciato = !finita && daTralasciare(c);
    if (!finita && !tralasciato && p[0] < 255) p[++p[0]] = c;
    presi = presi || !tralasciato;
    prec = c;
    return finita || (spezza && p[0] == 255);
}

namespace {

// One line of the open file, walked in the blocks of its buffer.
void daDisco(RaccoltaRiga& riga) {
    riga.taglia();
    for (bool finita = false; !finita;) {
        const char* blocco = nullptr;
        std::int64_t quanti = 0;
        const OSErr e = FSPeek(RefNum, blocco, quanti);
        if (e != noErr && e != eofErr) {
            IOERR2(e);
            return;
        }
        if (quanti <= 0) {
            EndFile = 1;
            return;
        }
        std::array<std::uint8_t, 512> scarto;
        const auto visti = static_cast<std::size_t>(std::min<std::int64_t>(quanti, scarto.size()));
        std::size_t presi = 0;
        while (presi < visti && !finita) finita = riga.prendi(static_cast<std::uint8_t>(blocco[presi++]));
        auto daConsumare = static_cast<std::int32_t>(presi);
        const OSErr letto = FSRead(RefNum, daConsumare, scarto.data());
        if (letto != noErr && letto != eofErr) {
            IOERR2(letto);
            return;
        }
    }
}

// One line of a standard stream.
void daStream(std::FILE* f, RaccoltaRiga& riga) {
    int c = f == nullptr ? EOF : std::getc(f);
    while (c != EOF && !riga.prendi(static_cast<std::uint8_t>(c))) c = std::getc(f);
    if (c == EOF) EndFile = 1;
}

// The next line that is no comment; `una` reads one line into s and tells whether there was any.
template <class Lettura>
void senzaCommenti(PStr255& s, std::int32_t& n, Lettura una) {
    s = "";
    while (uscita == 0) {
        if (una()) ++n;
        if (s[0] == 0 || s[1] != '!') return;
        s = "";   // a comment never reaches the caller, nor does one that ends the file
        if (EndFile != 0) return;
    }
}

}   // namespace

void LeggiRiga(PStr255& s, std::int32_t& n) {
    senzaCommenti(s, n, [&s] {
        RaccoltaRiga riga(s, FineRiga::crOLf);
        daDisco(riga);
        return riga.iniziata();
    });
}

void LeggiRigaC(PStr255& s, std::int32_t& n) {
    senzaCommenti(s, n, [&s] {
        RaccoltaRiga riga(s, FineRiga::crOLf);
        daStream(out, riga);
        return riga.iniziata();
    });
}

void LeggiStr(PStr255& s) {
    std::int32_t n = 0;
    senzaCommenti(s, n, [&s] {
        RaccoltaRiga riga(s, FineRiga::cr);
        daStream(inst, riga);
        return riga.iniziata();
    });
}

void LeggiStr2(PStr255& s) { LeggiStr(s); }

bool RigaDisco(PStr255& s, std::uint8_t& charprec, bool senzaTab) {
    s = "";
    if (uscita != 0) return false;
    RaccoltaRiga riga(s, FineRiga::crOLfDopoCr, charprec, senzaTab);
    daDisco(riga);
    charprec = riga.ultimo();
    return true;
}

namespace {

// Last byte that ReadlnDisco read, kept between its calls.
constinit std::uint8_t charprec = 0;

void allineaTabulata(PStr255& s) {
    if (s[0] == 0 || s[1] != tab) return;
    const bool due = s[0] == 2;
    s[1] = 20;   // Kept: 20, not a blank
    if (due) s += ' ';
}

}   // namespace

void ReadlnDisco(PStr255& s) {
    if (!RigaDisco(s, charprec, false)) return;
    numriga = static_cast<std::int16_t>(static_cast<std::uint16_t>(numriga) + 1U);
    rigapari = rigapari == 0 ? 1 : 0;
    allineaTabulata(s);
    // A group code is compared as a text of three characters.
    if (rigapari != 0) return;
    while (s[0] < 3) s = " " + s;
}

void AzzeraReadlnDisco() {
    numriga = 0;
    rigapari = 1;
    charprec = 0;
}

bool CercaStr(const PStr255& s) {
    PStr255 riga;
    while (uscita == 0 && EndFile == 0) {
        ReadlnDisco(riga);
        if (riga == s) return uscita == 0;
    }
    return false;
}

void Salta(const PStr255& s) {
    static const PStr255 ZeroLabel("  0");
    PStr255 riga;
    while (CercaStr(ZeroLabel)) {
        ReadlnDisco(riga);
        if (riga == s || EndFile != 0) return;
    }
}

}   // namespace tessaro
