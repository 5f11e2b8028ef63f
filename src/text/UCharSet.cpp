// Character sets and the scanner of their token grammar.
#include "text/UCharSet.h"

#include <cstdlib>
#include <string>
#include <string_view>

namespace tessaro {
namespace {

struct Nome {
    std::string_view nome;
    std::int16_t valore;
};
// Kept: `fullstop` and `ellipsis` do not mean "." and the ellipsis.
constexpr Nome nomi[] = {
    {"space", 32},   {"enter", 3},    {"bs", 8},         {"tab", 9},       {"linefeed", 10},
    {"cr", 13},      {"comma", 44},   {"leftkey", 28},   {"rightkey", 29}, {"upkey", 30},
    {"downkey", 31}, {"fullstop", 4}, {"ellipsis", 126},
};

constexpr std::int16_t intervallo = 257;
constexpr std::int16_t nessuno = -257;

[[noreturn]] void malformato() { std::exit(1); }

// The classes of the plain ASCII table, whatever the locale.
bool lettera(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool alfanumerico(char c) { return lettera(c) || (c >= '0' && c <= '9'); }
bool bianco(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
char minuscola(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::int16_t valoreDi(std::string_view nome) {
    for (const Nome& n : nomi)
        if (n.nome == nome) return n.valore;
    malformato();
}

}   // namespace

bool TCharSet::IN(std::int16_t c) const {
    const auto u = static_cast<std::uint8_t>(c);
    return (parole[u >> 5] >> (u & 31) & 1) != 0;
}

void TCharSet::SetChar(char c) {
    const auto u = static_cast<std::uint8_t>(c);
    parole[u >> 5] |= std::uint32_t{1} << (u & 31);
}

void TCharSet::UnSetChar(char c) {
    const auto u = static_cast<std::uint8_t>(c);
    parole[u >> 5] &= ~(std::uint32_t{1} << (u & 31));
}

TCharSet& TCharSet::operator=(char c) {
    UnSetAll();
    SetChar(c);
    return *this;
}

TCharSet& TCharSet::operator=(const char* membri) {
    UnSetAll();
    ProcessCharString(membri);
    return *this;
}

std::int16_t TCharSet::GetCharFromToken(const char** p) {
    const char* s = *p;
    if (s[0] == '.' && s[1] == '.') {
        *p += 2;
        return intervallo;
    }
    std::int16_t risultato = nessuno;
    std::string nome;
    for (;; ++s) {
        if (*s == '\'') {
            if (s[1] == '\0' || s[2] != '\'') malformato();
            risultato = static_cast<std::uint8_t>(s[1]);
            s += 2;
        } else if (lettera(*s) && nome.empty()) {
            nome = minuscola(*s);
            while (alfanumerico(s[1])) nome += minuscola(*++s);
        } else if (*s == '.' || *s == '\0') {
            break;
        } else if (!bianco(*s)) {
            malformato();
        }
    }
    *p = s;
    return nome.empty() ? risultato : valoreDi(nome);
}

void TCharSet::processNextMember(const char* membro) {
    const std::int16_t a = GetCharFromToken(&membro);
    if (*membro == '\0') {
        SetChar(static_cast<char>(a));   // Kept: -257, no character, is cut to the byte 255
        return;
    }
    if (GetCharFromToken(&membro) != intervallo) malformato();
    const std::int16_t b = GetCharFromToken(&membro);
    if (b < a) malformato();
    for (std::int16_t c = a; c <= b; ++c) SetChar(static_cast<char>(c));
}

void TCharSet::ProcessCharString(const char* membri) {
    std::string_view resto = membri;
    while (!resto.empty()) {
        const std::size_t n = resto.find(',');
        processNextMember(std::string(resto.substr(0, n)).c_str());
        if (n == std::string_view::npos) return;
        resto.remove_prefix(n + 1);
    }
}

TCharSet operator+(TCharSet a, const TCharSet& b) {
    for (std::size_t i = 0; i < a.parole.size(); ++i) a.parole[i] |= b.parole[i];
    return a;
}
TCharSet operator+(TCharSet a, const char* membri) {
    a.ProcessCharString(membri);
    return a;
}
TCharSet operator+(const char* membri, TCharSet b) { return b + membri; }
TCharSet operator+(TCharSet a, char c) {
    a.SetChar(c);
    return a;
}

}   // namespace tessaro
