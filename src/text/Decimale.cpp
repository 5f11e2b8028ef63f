// Decimal numbers: the exact short cuts, and the library's conversions behind them.
#include "text/Decimale.h"

#include <array>
#include <bit>
#include <charconv>
#include <limits>

namespace tessaro {

namespace {

bool cifra(char c) { return c >= '0' && c <= '9'; }

// Where a number beyond a double's range lies: power of ten of its first digit other than 0, at least its sign.
bool traboccaInAlto(std::string_view numero) {
    std::int64_t ordine = -1;
    bool punto = false, significative = false;
    std::size_t i = 0;
    for (; i < numero.size() && numero[i] != 'e' && numero[i] != 'E'; ++i) {
        if (numero[i] == '.') punto = true;
        if (!cifra(numero[i])) continue;
        if (numero[i] != '0') significative = true;
        if (!punto && significative) ++ordine;
        if (punto && !significative) --ordine;
    }
    std::int64_t esponente = 0;
    if (i < numero.size()) {
        ++i;
        const bool negativo = i < numero.size() && numero[i] == '-';
        if (i < numero.size() && !cifra(numero[i])) ++i;
        for (; i < numero.size() && esponente < 100000; ++i) esponente = esponente * 10 + (numero[i] - '0');
        if (negativo) esponente = -esponente;
    }
    return ordine + esponente > 0;
}

}   // namespace

double DoubleDaTesto(std::string_view s, std::size_t& used) {
    used = 0;
    const bool piu = !s.empty() && s[0] == '+';
    const std::string_view numero = piu ? s.substr(1) : s;
    const bool segno = !piu && !numero.empty() && numero[0] == '-';
    const std::string_view senzaSegno = numero.substr(segno ? 1 : 0);
    // Words such as "inf" are no numbers here.
    if (senzaSegno.empty() || !(cifra(senzaSegno[0]) || senzaSegno[0] == '.')) return 0;
    double x = 0;
    const auto r = std::from_chars(senzaSegno.data(), senzaSegno.data() + senzaSegno.size(), x);
    if (r.ec == std::errc::invalid_argument) return 0;
    const auto lungo = static_cast<std::size_t>(r.ptr - senzaSegno.data());
    used = static_cast<std::size_t>(r.ptr - s.data());
    if (r.ec == std::errc::result_out_of_range)
        x = traboccaInAlto(senzaSegno.substr(0, lungo)) ? std::numeric_limits<double>::infinity() : 0;
    return segno ? -x : x;
}

namespace {

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
        if (n.mantissa != 0 || n.cifre != 0) ++n.cifre;   // 2^64 and its multiples wrap to 0 on the way
    }
    return p;
}

// False when the text holds anything else.
bool leggiPiano(std::string_view s, Piano& n) {
    const char* const fine = s.data() + s.size();
    const char* p = saltaBianchi(s.data(), fine);
    if (p != fine && (*p == '-' || *p == '+')) n.negativo = *p++ == '-';
    n.inizio = p;
    const char* const intere = p;
    p = prendiCifre(p, fine, n);
    if (p == intere) return false;
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

// Without the blanks behind, and the zeros that end its decimals: programs write them by the dozen.
std::string_view senzaCoda(std::string_view s) {
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    if (s.empty() || s.back() != '0') return s;
    const auto punto = s.find('.');
    if (punto == std::string_view::npos || s.find_first_not_of("0123456789", punto + 1) != std::string_view::npos)
        return s;
    while (s.back() == '0') s.remove_suffix(1);
    return s;
}

}   // namespace

bool RealePiano(std::string_view testo, double& v) {
    constexpr std::uint64_t mantissaEsatta = std::uint64_t{1} << 53;
    constexpr int cifreMantissa = 19;   // fit 64 bits
    if (testo.empty()) return false;
    const auto esatto = [&v](std::string_view s) {
        const char* const fine = s.data() + s.size();
        double x = 0;
        if (RealeEsatto(s.data(), fine, x) != fine) return false;
        v = x;
        return true;
    };
    if (esatto(testo)) return true;
    const std::string_view s = senzaCoda(testo);
    if (s.size() != testo.size() && !s.empty() && esatto(s)) return true;
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

namespace {

__extension__ using Largo = unsigned __int128;

constexpr int decimaliMassimi = 18;
constexpr auto potenzeIntere = [] {
    std::array<std::uint64_t, decimaliMassimi + 1> p{1};
    for (std::size_t i = 1; i < p.size(); ++i) p[i] = p[i - 1] * 10;
    return p;
}();

// "00" to "99".
constexpr auto coppie = [] {
    std::array<char, 200> c{};
    for (std::size_t i = 0; i < 100; ++i) {
        c[2 * i] = static_cast<char>('0' + i / 10);
        c[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return c;
}();

constexpr int cifreParte = 8;
constexpr std::uint64_t parte = 100'000'000;

// The last `quante` digits of n, at most eight.
char* cifreBrevi(char* dove, std::uint32_t n, int quante) {
    char* p = dove + quante;
    while (p - dove >= 2) {
        const std::uint32_t coppia = n % 100;
        n /= 100;
        *--p = coppie[2 * coppia + 1];
        *--p = coppie[2 * coppia];
    }
    if (p != dove) *dove = static_cast<char>('0' + n % 10);
    return dove + quante;
}

char* cifreFisse(char* dove, std::uint64_t n, int quante) {
    if (quante <= cifreParte) return cifreBrevi(dove, static_cast<std::uint32_t>(n), quante);
    dove = cifreFisse(dove, n / parte, quante - cifreParte);
    return cifreBrevi(dove, static_cast<std::uint32_t>(n % parte), cifreParte);
}

int quanteCifre(std::uint64_t n) {
    int quante = 1;
    while (quante <= decimaliMassimi && n >= potenzeIntere[static_cast<std::size_t>(quante)]) ++quante;
    return quante;
}

}   // namespace

// The number is mantissa / 2^k. Its whole part and the rest times the power of ten are taken in whole numbers, so what
// the shift drops says exactly whether to round up; a tie goes to the even digit.
char* TestoDaReale(char* dove, double v, int decimali) {
    constexpr int bitMantissa = 52, scarto = 1075;
    constexpr std::uint64_t mascheraMantissa = (std::uint64_t{1} << bitMantissa) - 1;
    const double grandezza = v < 0 ? -v : v;
    if (!(grandezza < 1e15) || decimali < 0 || decimali > decimaliMassimi) return nullptr;
    const auto bit = std::bit_cast<std::uint64_t>(v);
    const int esponente = static_cast<int>(bit >> bitMantissa & 0x7FF);
    const std::uint64_t mantissa = (bit & mascheraMantissa) | (esponente != 0 ? mascheraMantissa + 1 : 0);
    const int k = scarto - (esponente != 0 ? esponente : 1);   // above 2, as v is below 2^50
    const std::uint64_t unita = potenzeIntere[static_cast<std::size_t>(decimali)];
    std::uint64_t intera = k < 64 ? mantissa >> k : 0;
    std::uint64_t frazione = 0;
    if (k < 128) {
        const Largo prodotto = Largo{k < 64 ? mantissa - (intera << k) : mantissa} * unita;
        frazione = static_cast<std::uint64_t>(prodotto >> k);
        const Largo meta = Largo{1} << (k - 1);
        const Largo resto = prodotto & ((meta << 1) - 1);
        const std::uint64_t ultima = decimali == 0 ? intera : frazione;
        if (resto > meta || (resto == meta && (ultima & 1) != 0)) ++frazione;
    }
    if (frazione == unita) {
        frazione = 0;
        ++intera;
    }
    if (bit >> 63 != 0 && (intera | frazione) != 0) *dove++ = '-';   // what rounds to nothing has no sign
    dove = cifreFisse(dove, intera, quanteCifre(intera));
    if (decimali == 0) return dove;
    *dove++ = '.';
    return cifreFisse(dove, frazione, decimali);
}

}   // namespace tessaro
