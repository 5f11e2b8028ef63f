// The line reader of the DXF road, and its numbers.
#include "exchange/RigheDxf.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "exchange/Operazione.h"
#include "platform/Files.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr char cr = 13, lf = 10, tab = 9;
constexpr std::ptrdiff_t massima = 255;   // characters of a line; a longer one goes on in the next

}   // namespace

RigheDxf::RigheDxf() {
    GetFPos(RefNum, posizione);
    GetEOF(RefNum, dimensione);
}

bool RigheDxf::finite() const { return uscita != 0 || EndFile != 0; }

bool RigheDxf::altroBlocco() {
    qui = fine = nullptr;
    if (posizione > 0 && !AvanzaLettura(static_cast<double>(posizione) / static_cast<double>(dimensione))) {
        fermataDaTastiera = true;
        EndFile = 1;
        return false;
    }
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

std::string_view RigheDxf::riga() {
    if (uscita != 0) return {};
    if (qui == fine && !altroBlocco()) {
        numriga = static_cast<std::int16_t>(static_cast<std::uint16_t>(numriga) + 1U);
        rigapari = rigapari == 0 ? 1 : 0;
        return allineata(raccolta.data(), 0);
    }
    ++contate;
    numriga = static_cast<std::int16_t>(static_cast<std::uint16_t>(numriga) + 1U);
    rigapari = rigapari == 0 ? 1 : 0;
    // The LF of a line end that came before.
    if (*qui == lf && prec == cr) {
        ++qui;
        prec = lf;
    }
    const char* const inizio = qui;
    const char* const limite = fine - qui < massima ? fine : qui + massima;
    const char* p = qui;
    while (p != limite && *p != cr && *p != lf) ++p;
    const auto n = static_cast<std::size_t>(p - inizio);
    if (p == fine) return rigaSpezzata(inizio);
    if (n == massima) {
        qui = p;
        prec = static_cast<std::uint8_t>(p[-1]);
    } else {
        prec = static_cast<std::uint8_t>(*p);
        qui = p + 1;
    }
    return allineata(inizio, n);
}

// The rest of the block begins a line that the next block ends.
std::string_view RigheDxf::rigaSpezzata(const char* inizio) {
    auto n = static_cast<std::size_t>(fine - inizio);
    std::copy(inizio, fine, raccolta.data());
    if (n > 0) prec = static_cast<std::uint8_t>(raccolta[n - 1]);
    qui = fine;
    while (n < massima && (qui != fine || altroBlocco())) {
        const char c = *qui++;
        const bool dopoCr = prec == cr;
        prec = static_cast<std::uint8_t>(c);
        if (c == lf && dopoCr) continue;
        if (c == cr || c == lf) break;
        raccolta[n++] = c;
    }
    return allineata(raccolta.data(), n);
}

// A tabbed file keeps the alignment of its codes; a code is compared as a text of three characters.
std::string_view RigheDxf::allineata(const char* p, std::size_t n) {
    const bool codice = rigapari == 0;
    const bool tabulata = n > 0 && p[0] == tab;
    if (!tabulata && (!codice || n >= 3)) return {p, n};
    std::memmove(raccolta.data(), p, n);
    if (tabulata) {
        raccolta[0] = 20;   // Kept: 20, not a blank
        if (n == 2) raccolta[n++] = ' ';
    }
    if (codice && n < 3) {
        const std::size_t bianchi = 3 - n;
        std::memmove(raccolta.data() + bianchi, raccolta.data(), n);
        std::fill_n(raccolta.data(), bianchi, ' ');
        n = 3;
    }
    return {raccolta.data(), n};
}

bool RigheDxf::cerca(std::string_view s) {
    while (!finite())
        if (StessaParola(riga(), s)) return uscita == 0;
    return false;
}

void RigheDxf::salta(std::string_view s) {
    while (cerca("  0"))
        if (StessaParola(riga(), s) || EndFile != 0) return;
}

bool StessaParola(std::string_view a, std::string_view b) {
    const auto maiuscola = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) {
               return x == y || maiuscola(x) == maiuscola(y);
           });
}

namespace {

constexpr double potenzeDieci[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t mantissaEsatta = std::uint64_t{1} << 53;
constexpr int cifreMantissa = 19;   // fit 64 bits

bool cifra(char c) { return c >= '0' && c <= '9'; }

// Digits, point, digits, exponent as they usually stand in files.
struct Piano {
    std::uint64_t mantissa = 0;
    int cifre = 0;     // significant ones
    int potenza = 0;   // of ten, of the mantissa's last digit
    bool negativo = false;
    const char* inizio = nullptr;   // of the number, behind sign and blanks
    const char* fine = nullptr;
};

const char* saltaBianchi(const char* p, const char* fine) {
    while (p != fine && *p == ' ') ++p;
    return p;
}

const char* prendiCifre(const char* p, const char* fine, Piano& n) {
    for (; p != fine && cifra(*p); ++p) {
        n.mantissa = n.mantissa * 10 + static_cast<unsigned>(*p - '0');
        if (n.mantissa != 0) ++n.cifre;
    }
    return p;
}

// False when the line holds anything else: the scan of STRtoFP then says what it is.
bool leggiPiano(std::string_view s, Piano& n) {
    const char* const fine = s.data() + s.size();
    const char* p = saltaBianchi(s.data(), fine);
    if (p != fine && (*p == '-' || *p == '+')) n.negativo = *p++ == '-';
    n.inizio = p;
    const char* const intere = p;
    p = prendiCifre(p, fine, n);
    bool qualcuna = p != intere;
    if (!qualcuna) return false;
    if (p != fine && *p == '.') {
        const char* const decimali = ++p;
        p = prendiCifre(p, fine, n);
        n.potenza = -static_cast<int>(p - decimali);
    }
    if (p != fine && (*p == 'e' || *p == 'E')) {
        ++p;
        bool meno = false;
        if (p != fine && (*p == '-' || *p == '+')) meno = *p++ == '-';
        int esponente = 0;
        const char* const prima = p;
        for (; p != fine && cifra(*p) && p - prima < 3; ++p) esponente = esponente * 10 + (*p - '0');
        if (p == prima) return false;
        n.potenza += meno ? -esponente : esponente;
    }
    n.fine = p;
    return saltaBianchi(p, fine) == fine;
}

bool realePiano(std::string_view s, double& v) {
    Piano n;
    if (!leggiPiano(s, n)) return false;
    if (n.mantissa == 0 && n.cifre == 0) {
        v = 0;
        return true;
    }
    const int ordine = n.cifre + n.potenza;   // below 10 to this power
    if (ordine < -15 || ordine > 18) return false;
    double x = 0;
    if (n.cifre <= cifreMantissa && n.mantissa <= mantissaEsatta && n.potenza >= -22 && n.potenza <= 22) {
        x = static_cast<double>(n.mantissa);
        x = n.potenza < 0 ? x / potenzeDieci[-n.potenza] : x * potenzeDieci[n.potenza];
    } else if (const auto r = std::from_chars(n.inizio, n.fine, x); r.ec != std::errc{} || r.ptr != n.fine) {
        return false;
    }
    v = n.negativo ? -x : x;
    return true;
}

}   // namespace

bool RealeDaRiga(std::string_view s, double& v) {
    constexpr std::int16_t malformato = -3;
    if (cifreEstese != 0 && realePiano(s, v)) return true;
    double letto = 0;
    std::int16_t dove = 0;
    const std::int16_t esito = STRtoFP(-1e99, 1e99, PStr255(s), letto, dove, 0);
    if (esito == malformato) {
        Sbaglio(malformato, uscita);
        return false;
    }
    v = letto;
    return true;
}

Intero InteroDaRiga(std::string_view s, std::int16_t min, std::int16_t max, std::int16_t& v) {
    const char* const fine = s.data() + s.size();
    const char* p = saltaBianchi(s.data(), fine);
    bool negativo = false;
    if (p != fine && (*p == '-' || *p == '+')) negativo = *p++ == '-';
    if (p == fine || !cifra(*p)) return Intero::malformato;
    std::int32_t n = 0;
    for (; p != fine && cifra(*p); ++p) n = std::min(n * 10 + (*p - '0'), 100000);
    if (p != fine && *p != ' ') return Intero::malformato;
    if (negativo) n = -n;
    if (n < min || n > max) return Intero::fuoriLimiti;
    v = static_cast<std::int16_t>(n);
    return Intero::buono;
}

}   // namespace tessaro
