// Decoding of DXF text. ASCII, which is nearly all of it, passes untouched.
#include "exchange/TestoDxf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "exchange/Alfabeti.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr char32_t ignoto = 0xFFFD;
constexpr std::string_view bom = "\xEF\xBB\xBF";
constexpr std::string_view primaUtf8 = "AC1021";

void aggiungi(std::string& s, char32_t c) {
    if (c >= 0xD800 && c <= 0xDFFF) c = ignoto;
    const auto byte = [&s](char32_t b) { s += static_cast<char>(static_cast<std::uint8_t>(b)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | c >> 6);
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xE0 | (c >> 12 & 0xF));
        byte(0x80 | (c >> 6 & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

bool ascii(std::string_view s) {
    return std::all_of(s.begin(), s.end(), [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
}

// Length of the well-formed character that s begins with; 0 when there is none.
std::size_t lungaUtf8(std::string_view s) {
    const auto b = [s](std::size_t i) { return static_cast<std::uint8_t>(s[i]); };
    const std::size_t n = b(0) < 0x80                   ? 1
                          : b(0) >= 0xC2 && b(0) < 0xE0 ? 2
                          : b(0) >= 0xE0 && b(0) < 0xF0 ? 3
                          : b(0) >= 0xF0 && b(0) < 0xF5 ? 4
                                                        : 0;
    if (n == 0 || s.size() < n) return 0;
    for (std::size_t i = 1; i < n; ++i)
        if ((b(i) & 0xC0) != 0x80) return 0;
    if (b(0) == 0xE0 && b(1) < 0xA0) return 0;
    if (b(0) == 0xF0 && b(1) < 0x90) return 0;
    return n;
}

bool validaUtf8(std::string_view s) {
    while (!s.empty()) {
        const std::size_t n = lungaUtf8(s);
        if (n == 0) return false;
        s.remove_prefix(n);
    }
    return true;
}

template <class T>
std::optional<T> numero(std::string_view s, int base) {
    T v{};
    const auto r = std::from_chars(s.data(), s.data() + s.size(), v, base);
    if (s.empty() || r.ec != std::errc{} || r.ptr != s.data() + s.size()) return std::nullopt;
    return v;
}

// A sign that s begins with, as Unicode; `presi` says how many characters it takes. Line marks over and under a text
// give nothing.
std::optional<char32_t> segno(std::string_view s, std::size_t& presi) {
    constexpr char32_t nulla = 0;
    if (s.substr(0, 3) == "\\U+") {
        presi = 7;
        const auto v = s.size() < presi ? std::nullopt : numero<std::uint32_t>(s.substr(3, 4), 16);
        if (v && *v >= 0x20) return static_cast<char32_t>(*v);
        return std::nullopt;
    }
    if (s.size() < 3 || s.substr(0, 2) != "%%") return std::nullopt;
    presi = 3;
    switch (s[2]) {
    case 'c':
    case 'C': return U'\u00D8';   // the diameter sign has no place in Mac Roman: the letter that looks like it
    case 'd':
    case 'D': return U'\u00B0';
    case 'p':
    case 'P': return U'\u00B1';
    case '%': return U'%';
    case 'o':
    case 'O':
    case 'u':
    case 'U': return nulla;
    default: break;
    }
    presi = 5;
    const auto v = s.size() < presi ? std::nullopt : numero<std::uint8_t>(s.substr(2, 3), 10);
    if (v && *v >= 0x20 && *v < 0x7F) return static_cast<char32_t>(*v);
    return std::nullopt;
}

// utf8 with its signs replaced.
std::string conSegni(std::string_view utf8) {
    std::string s;
    s.reserve(utf8.size());
    while (!utf8.empty()) {
        std::size_t presi = 1;
        if (const auto c = utf8[0] == '\\' || utf8[0] == '%' ? segno(utf8, presi) : std::nullopt) {
            if (*c != 0) aggiungi(s, *c);
        } else {
            presi = 1;
            s += utf8[0];
        }
        utf8.remove_prefix(presi);
    }
    return s;
}

// The value line of a header variable, two lines behind its name.
std::string_view valore(std::string_view testo, std::string_view variabile) {
    const auto dove = testo.find(variabile);
    if (dove == std::string_view::npos) return {};
    testo.remove_prefix(dove + variabile.size());
    for (int i = 0; i < 2; ++i) {
        const auto fine = testo.find_first_of("\r\n");
        if (fine == std::string_view::npos) return {};
        const bool due = testo.substr(fine, 2) == "\r\n";
        testo.remove_prefix(fine + (due ? 2 : 1));
    }
    testo = testo.substr(0, testo.find_first_of("\r\n"));
    const auto primo = testo.find_first_not_of(' ');
    if (primo == std::string_view::npos) return {};
    return testo.substr(primo, testo.find_last_not_of(' ') - primo + 1);
}

std::string maiuscolo(std::string_view s) {
    std::string m(s);
    for (char& c : m)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return m;
}

}   // namespace

const AlfabetoDxf::Dichiarato AlfabetoDxf::dichiarati[] = {
    {"ANSI_1252", Insieme::w1252},  {"ISO8859-1", Insieme::w1252},  {"ISO_8859-1", Insieme::w1252},
    {"ANSI_1250", Insieme::w1250},  {"DOS437", Insieme::dos437},    {"DOS850", Insieme::dos850},
    {"MACINTOSH", Insieme::mac},    {"UTF-8", Insieme::utf8},       {"UTF8", Insieme::utf8},
    {"ANSI_932", Insieme::dueByte}, {"ANSI_936", Insieme::dueByte}, {"ANSI_949", Insieme::dueByte},
    {"ANSI_950", Insieme::dueByte}, {"JOHAB", Insieme::dueByte},
};

void AlfabetoDxf::scegli(std::string_view inizioFile) {
    insieme = Insieme::prova;
    const std::string versione = maiuscolo(valore(inizioFile, "$ACADVER"));
    const bool nota = versione.size() == primaUtf8.size() && versione.substr(0, 2) == "AC";
    if (inizioFile.substr(0, bom.size()) == bom || (nota && versione >= primaUtf8)) {
        insieme = Insieme::utf8;
        return;
    }
    const std::string pagina = maiuscolo(valore(inizioFile, "$DWGCODEPAGE"));
    if (pagina.empty()) return;
    const auto* d = std::find_if(std::begin(dichiarati), std::end(dichiarati),
                                 [&](const Dichiarato& x) { return x.nome == pagina; });
    insieme = d == std::end(dichiarati) ? Insieme::unByte : d->insieme;
}

char32_t AlfabetoDxf::carattere(std::uint8_t byte) const {
    if (byte < 0x80) return byte;
    const std::size_t alto = byte - 0x80U;
    switch (insieme) {
    case Insieme::w1250: return alti1250[alto];
    case Insieme::dos437: return alti437[alto];
    case Insieme::dos850: return alti850[alto];
    case Insieme::unByte:
    case Insieme::dueByte: return ignoto;   // of a set that Mac Roman has nothing in common with
    default: return alto < alti1252.size() ? alti1252[alto] : char32_t{byte};
    }
}

std::string AlfabetoDxf::daUnByte(std::string_view bytes) const {
    std::string s;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<std::uint8_t>(bytes[i]);
        aggiungi(s, carattere(byte));
        if (insieme == Insieme::dueByte && byte >= 0x80) ++i;   // the pair is one character
    }
    return s;
}

std::string AlfabetoDxf::utf8(std::string_view bytes) {
    if (insieme == Insieme::mac) return MacToUtf8(bytes);
    const bool utf8 = insieme == Insieme::utf8 || insieme == Insieme::prova;
    if (utf8 && validaUtf8(bytes)) return std::string(bytes);
    // Not UTF-8 once, not UTF-8 at all. A file that says it is and is not was written by a program of the old sets.
    if (insieme == Insieme::prova) insieme = Insieme::w1252;
    return daUnByte(bytes);
}

std::string AlfabetoDxf::testo(std::string_view bytes) {
    const bool segni = bytes.find('\\') != std::string_view::npos || bytes.find("%%") != std::string_view::npos;
    if (!segni && ascii(bytes)) return std::string(bytes);
    const std::string s = utf8(bytes);
    return Utf8ToMac(segni ? conSegni(s) : s);
}

std::string AlfabetoDxf::nome(std::string_view bytes) {
    if (ascii(bytes)) return std::string(bytes);
    std::string s = Utf8ToMac(utf8(bytes));
    return s.find('?') == std::string::npos ? s : std::string(bytes);
}

std::string ConSegniDxf(std::string_view s) { return conSegni(s); }

std::string TestoPerDxf(std::string_view macRoman) {
    constexpr std::size_t massimo = 255, lunghezzaSegno = 7;
    std::string s;
    for (std::size_t i = 0; i < macRoman.size(); ++i) {
        const char c = macRoman[i];
        const std::size_t resto = macRoman.size() - i - 1;
        if (static_cast<std::uint8_t>(c) >= 0x20 && static_cast<std::uint8_t>(c) < 0x7F) {
            s += c;
            continue;
        }
        if (static_cast<std::uint8_t>(c) < 0x80 || s.size() + lunghezzaSegno + resto > massimo) {
            s += static_cast<std::uint8_t>(c) < 0x80 ? ' ' : '?';   // a line end inside a text would break the file
            continue;
        }
        const std::string u = MacToUtf8({&c, 1});
        const auto b = [&u](std::size_t k) { return static_cast<std::uint32_t>(static_cast<std::uint8_t>(u[k])); };
        const std::uint32_t punto = u.size() == 2 ? (b(0) & 0x1F) << 6 | (b(1) & 0x3F)
                                                  : (b(0) & 0xF) << 12 | (b(1) & 0x3F) << 6 | (b(2) & 0x3F);
        constexpr std::string_view cifre = "0123456789ABCDEF";
        s += "\\U+";
        for (const unsigned sposta : {12U, 8U, 4U, 0U}) s += cifre[punto >> sposta & 0xF];
    }
    return s;
}

}   // namespace tessaro
