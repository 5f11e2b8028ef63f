// Joining of strings, numbers as text and back, keys, lines of standard streams.
#include "text/PasUtils.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "platform/Events.h"
#include "text/Decimale.h"

namespace tessaro {

// NOLINTBEGIN(performance-unnecessary-value-param): the given signatures take their strings by value
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
// NOLINTEND(performance-unnecessary-value-param)

void Num2Str(decform f, double x, PStr255& s) {
    if (std::isnan(x)) {
        s = "NAN";
        return;
    }
    // What rounds to nothing has no sign.
    if (x < 0 && f.style == 1 && x > -0.5 * std::pow(10.0, -std::clamp<int>(f.digits, 0, 250))) x = 0;
    if (x == 0) x = 0;
    std::array<char, 255> testo;
    const int cifre = std::clamp<int>(f.digits, 0, 250);
    if (f.style == 1) {
        if (const char* const dopo = TestoDaReale(testo.data(), x, cifre)) {
            s = PStr255(std::string_view(testo.data(), static_cast<std::size_t>(dopo - testo.data())));
            return;
        }
    }
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

double Str2Num(PStr255 s) {   // NOLINT(performance-unnecessary-value-param): as above
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
