// Codes, numbers, texts and handles as lines.
#include "dwg/kit/dxfscrivi/GruppiInUscita.h"

#include <array>
#include <charconv>
#include <cmath>

#include "dwg/kit/Alfabeto.h"

namespace tessaro {

void GruppiInUscita::codiceGruppo(int codice) {
    constexpr int tre = 100, due = 10;
    std::array<char, 8> s{' ', ' '};
    char* const inizio = s.data() + (codice < due ? 2 : codice < tre ? 1 : 0);
    char* const fine = std::to_chars(inizio, s.data() + s.size(), codice).ptr;
    file.put({s.data(), static_cast<std::size_t>(fine - s.data())});
    fineRiga();
}

void GruppiInUscita::g(int codice, std::string_view ascii) {
    codiceGruppo(codice);
    file.put(ascii);
    fineRiga();
}

void GruppiInUscita::g(int codice, std::int32_t n) {
    std::array<char, 16> s;
    g(codice, std::string_view(s.data(), std::to_chars(s.data(), s.data() + s.size(), n).ptr));
}

void GruppiInUscita::g(int codice, double x) {
    constexpr double illimitato = 1e99;   // beyond it no drawing lies, and no reader need find its way
    if (!std::isfinite(x)) x = 0;
    if (std::fabs(x) > illimitato) x = std::copysign(illimitato, x);
    if (x == 0) x = 0;   // without a sign
    std::array<char, 512> s;
    char* p = std::to_chars(s.data(), s.data() + s.size() - 2, x, std::chars_format::fixed).ptr;
    const std::string_view scritto(s.data(), p);
    if (scritto.find('.') == std::string_view::npos) {
        *p++ = '.';
        *p++ = '0';
    }
    g(codice, std::string_view(s.data(), p));
}

void GruppiInUscita::testo(int codice, std::string_view utf8) {
    codiceGruppo(codice);
    file.put(da(dxf2007) ? TestoUtf8Dxf(utf8) : TestoAnsiDxf(utf8));
    fineRiga();
}

void GruppiInUscita::handle(int codice, OdDbHandle h) {
    std::array<char, 20> s;
    char* const fine = std::to_chars(s.data(), s.data() + s.size(), h, 16).ptr;
    for (char* p = s.data(); p != fine; ++p)
        if (*p >= 'a') *p = static_cast<char>(*p - 'a' + 'A');
    g(codice, std::string_view(s.data(), fine));
}

void GruppiInUscita::punto(int codice, const OdGePoint3d& p) {
    g(codice, p.x);
    g(codice + 10, p.y);
    g(codice + 20, p.z);
}

void GruppiInUscita::punto2(int codice, double x, double y) {
    g(codice, x);
    g(codice + 10, y);
}

void GruppiInUscita::oggetto(const char* nome, OdDbHandle h, OdDbHandle proprietario) {
    g(0, nome);
    handle(5, h);
    if (da(dxfR14)) handle(330, proprietario);
}

}   // namespace tessaro
