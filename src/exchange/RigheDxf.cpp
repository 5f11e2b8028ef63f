// The line reader of the DXF road, and its numbers.
#include "exchange/RigheDxf.h"

#include <algorithm>
#include <cstring>

#include "exchange/Operazione.h"
#include "platform/Files.h"

namespace tessaro {

RigheDxf::RigheDxf() { GetEOF(RefNum, dimensione); }

bool RigheDxf::blocco() {
    if (posizione > 0 && !AvanzaLettura(static_cast<double>(posizione) / static_cast<double>(dimensione))) {
        qui = fine = nullptr;
        fermataDaTastiera = true;
        EndFile = 1;
        return false;
    }
    return altroBlocco();
}

// Byte by byte, over the end of the block.
std::string_view RigheDxf::rigaLenta() {
    if (uscita != 0) return {};
    if (qui == fine && !blocco()) {
        contaRigaDisco();
        return allineata(raccolta.data(), 0);
    }
    conta();
    std::size_t n = 0;
    while (qui != fine || blocco()) {
        const char c = *qui++;
        const bool dopoCr = prec == cr;
        prec = c;
        if (c == lf && dopoCr) continue;
        if (fineRiga(c)) break;
        if (n < massima) raccolta[n++] = c;
    }
    return allineata(raccolta.data(), n);
}

// The block may end before the line does: what is kept of it is kept apart.
std::string_view RigheDxf::rigaTroppoLunga(const char* inizio) {
    std::copy_n(inizio, massima, raccolta.begin());
    qui = inizio + massima;
    while (qui != fine || blocco()) {
        prec = *qui++;
        if (fineRiga(prec)) break;
    }
    return allineata(raccolta.data(), massima);
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
    if (a.size() != b.size()) return false;
    if (a == b) return true;
    const auto maiuscola = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) { return maiuscola(x) == maiuscola(y); });
}

bool RealeDaRiga(std::string_view s, double& v) {
    constexpr std::int16_t malformato = -3;
    if (cifreEstese != 0 && RealePiano(s, v)) return true;
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

namespace {

bool cifra(char c) { return c >= '0' && c <= '9'; }

}   // namespace

Intero InteroDaRiga(std::string_view s, std::int16_t min, std::int16_t max, std::int16_t& v) {
    const char* const fine = s.data() + s.size();
    const char* p = s.data();
    while (p != fine && *p == ' ') ++p;
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
