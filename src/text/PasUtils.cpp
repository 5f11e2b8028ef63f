// Joining of strings, numbers as text and back, keys, lines of standard streams.
#include "text/PasUtils.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

#include "platform/Events.h"
#include "text/Decimale.h"

namespace tessaro {

PStr255 ConCat2(PStr255 a, PStr255 b) { return a += b; }
PStr255 ConCat3(PStr255 a, PStr255 b, PStr255 c) { return (a += b) += c; }
PStr255 ConCat4(PStr255 a, PStr255 b, PStr255 c, PStr255 d) { return ((a += b) += c) += d; }
PStr255 ConCat5(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e) { return (((a += b) += c) += d) += e; }
PStr255 ConCat6(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e, PStr255 f) {
    return ((((a += b) += c) += d) += e) += f;
}
PStr255 ConCat7(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e, PStr255 f, PStr255 g) {
    return (((((a += b) += c) += d) += e) += f) += g;
}
PStr255 ConCat8(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e, PStr255 f, PStr255 g, PStr255 h) {
    return ((((((a += b) += c) += d) += e) += f) += g) += h;
}

void Num2Str(decform f, double x, PStr255& s) {
    if (std::isnan(x)) {
        s = "NAN";
        return;
    }
    std::array<char, 255> testo;
    const int cifre = std::clamp<int>(f.digits, 0, 250);
    std::to_chars_result r{testo.data(), std::errc::value_too_large};
    if (f.style == 1)
        r = std::to_chars(testo.data(), testo.data() + testo.size(), x, std::chars_format::fixed, cifre);
    else
        r = std::to_chars(testo.data(), testo.data() + testo.size(), x, std::chars_format::scientific,
                          std::max(cifre - 1, 0));
    if (std::isinf(x) || r.ec != std::errc{})
        s = x > 0 ? "INF" : "-INF";
    else
        s = PStr255(std::string_view(testo.data(), static_cast<std::size_t>(r.ptr - testo.data())));
}

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

double Str2Num(PStr255 s) {
    std::string_view v = s.view();
    while (!v.empty() && (v[0] == ' ' || (v[0] >= '\t' && v[0] <= '\r'))) v.remove_prefix(1);
    std::size_t used = 0;
    return DoubleDaTesto(v, used);
}

bool IsThisKeyDown(std::int16_t code) {
    struct Tasto {
        std::int16_t code;
        std::uint16_t bit;
    };
    static constexpr Tasto tasti[] = {{55, cmdKey}, {56, shiftKey}, {58, optionKey}, {59, controlKey}};
    for (const Tasto& t : tasti)
        if (t.code == code) return (KeyModifiers() & t.bit) != 0;
    return false;
}

void FscanfString(std::FILE* f, PStr255& s) {
    unsigned char* p = s.Lengthp();
    int n = 0, c = 0;
    while ((c = std::getc(f)) != EOF && c != '\n')
        if (n < 255) p[++n] = static_cast<unsigned char>(c);
    p[0] = static_cast<unsigned char>(n);
    if (c == '\n') std::ungetc(c, f);
}

void FscanfStringLn(std::FILE* f, PStr255& s) {
    FscanfString(f, s);
    std::getc(f);
}

void ScanfString(PStr255& s) { FscanfString(stdin, s); }
void ScanfStringLn(PStr255& s) { FscanfStringLn(stdin, s); }

void ReadLn(std::FILE* f) {
    int c = 0;
    while ((c = std::getc(f)) != EOF && c != '\n') {}
}

}   // namespace tessaro
