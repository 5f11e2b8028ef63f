// Resources compiled into the program: texts by key in the language in force, string lists, and Mac Roman to Unicode
// and back. Everything here works without an application object.
#include "platform/Resources.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

std::array<std::string, 4> parametriTesto;

namespace {

// Characters 128 to 255 of Mac Roman; those below are ASCII.
constexpr std::array<char16_t, 128> macAlti = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5,
    0x00E7, 0x00E9, 0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3, 0x00F2, 0x00F4,
    0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6,
    0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8, 0x221E, 0x00B1, 0x2264, 0x2265,
    0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA, 0x00BA, 0x03A9, 0x00E6, 0x00F8, 0x00BF,
    0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB, 0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5,
    0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178, 0x2044,
    0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1,
    0x00CB, 0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4, 0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9,
    0x0131, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,
};

struct Inverso {
    char16_t unicode = 0;
    std::uint8_t mac = 0;
};
constexpr auto macInversi = [] {
    std::array<Inverso, macAlti.size()> t{};
    for (std::size_t i = 0; i < t.size(); ++i) t[i] = {macAlti[i], static_cast<std::uint8_t>(128 + i)};
    std::sort(t.begin(), t.end(), [](const Inverso& a, const Inverso& b) { return a.unicode < b.unicode; });
    return t;
}();

char macDi(char16_t c) {
    if (c < 128) return static_cast<char>(c);
    const auto i = std::lower_bound(macInversi.begin(), macInversi.end(), c,
                                    [](const Inverso& a, char16_t u) { return a.unicode < u; });
    return i != macInversi.end() && i->unicode == c ? static_cast<char>(i->mac) : '?';
}

struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
};
using Tabella = std::unordered_map<std::string, std::string, Hash, std::equal_to<>>;

struct Lingua {
    Tabella testi;
    bool scelta = false;
};
Lingua lingua;

std::string_view rifila(std::string_view s) {
    const auto bianco = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!s.empty() && bianco(s.front())) s.remove_prefix(1);
    while (!s.empty() && bianco(s.back())) s.remove_suffix(1);
    return s;
}

// `fn` gets each line that holds something, without its comment lines.
template <typename Fn>
void perLinee(std::string_view tutto, Fn fn) {
    while (!tutto.empty()) {
        const auto fine = tutto.find('\n');
        const auto linea = rifila(tutto.substr(0, fine));
        tutto.remove_prefix(fine == std::string_view::npos ? tutto.size() : fine + 1);
        if (!linea.empty() && linea.front() != '#') fn(linea);
    }
}

// Quotes keep blanks at the ends; `\n` and `\\` stand for themselves.
std::string valoreDi(std::string_view s) {
    if (s.size() >= 2 && s.front() == '"' && s.back() == '"') s = s.substr(1, s.size() - 2);
    std::string v;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i] != '\\' || i + 1 == s.size()) {
            v += s[i];
            continue;
        }
        ++i;
        v += s[i] == 'n' ? '\n' : s[i];
    }
    return v;
}

void leggiTesti(const std::string& nome, Tabella& t) {
    for (const std::string& file : FileRisorse("texts/" + nome))
        perLinee(ResourceFile(file), [&t](std::string_view linea) {
            const auto uguale = linea.find('=');
            if (uguale == std::string_view::npos) return;
            t.insert_or_assign(std::string(rifila(linea.substr(0, uguale))),
                               valoreDi(rifila(linea.substr(uguale + 1))));
        });
}

QString percorsoRisorsa(std::string_view path) { return QStringLiteral(":/") + daUtf8(path); }

}   // namespace

std::string MacToUtf8(std::string_view macRoman) {
    std::string s;
    s.reserve(macRoman.size());
    for (const char c : macRoman) {
        const auto b = static_cast<std::uint8_t>(c);
        if (b < 128) {
            s += c;
            continue;
        }
        const unsigned u = macAlti[b - 128U];
        if (u < 0x800) {
            s += static_cast<char>(0xC0 | (u >> 6));
        } else {
            s += static_cast<char>(0xE0 | (u >> 12));
            s += static_cast<char>(0x80 | ((u >> 6) & 0x3F));
        }
        s += static_cast<char>(0x80 | (u & 0x3F));
    }
    return s;
}

std::string Utf8ToMac(std::string_view utf8) {
    // An accent that stands by itself belongs to the letter before it.
    const QString s = daUtf8(utf8).normalized(QString::NormalizationForm_C);
    std::string mac;
    mac.reserve(static_cast<std::size_t>(s.size()));
    for (const QChar c : s)
        if (!c.isLowSurrogate()) mac += macDi(c.unicode());   // a pair of surrogates is one character, one '?'
    return mac;
}

std::string ResourceFile(std::string_view path) {
    QFile f(percorsoRisorsa(path));
    if (!f.open(QIODevice::ReadOnly)) return {};
    return f.readAll().toStdString();
}

std::vector<std::string> FileRisorse(std::string_view cartella) {
    std::vector<std::string> v;
    for (const QString& nome : QDir(percorsoRisorsa(cartella)).entryList(QDir::Files, QDir::Name))
        v.push_back(std::string(cartella) + "/" + nome.toStdString());
    return v;
}

void ScegliLingua(std::string_view nome) {
    lingua.testi.clear();
    lingua.scelta = true;
    leggiTesti("en", lingua.testi);
    if (nome == "it") leggiTesti("it", lingua.testi);   // what it lacks stays English
}

const std::string& testo(std::string_view chiave) {
    static const std::string nessuno;
    if (!lingua.scelta) ScegliLingua(linguaInUso());
    const auto i = lingua.testi.find(chiave);
    return i == lingua.testi.end() ? nessuno : i->second;
}

std::string GetIndString(std::int16_t list, std::int16_t index) {
    return Utf8ToMac(testo("list." + std::to_string(list) + "." + std::to_string(index)));
}

std::string conParametri(std::string_view utf8) {
    std::string s;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const bool parametro = utf8[i] == '^' && i + 1 < utf8.size() && utf8[i + 1] >= '0' && utf8[i + 1] <= '3';
        if (parametro)
            s += parametriTesto[static_cast<std::size_t>(utf8[++i] - '0')];
        else
            s += utf8[i];
    }
    return s;
}

int numeroDi(std::string_view parola, int altrimenti) {
    int n = 0;
    const auto [fine, errore] = std::from_chars(parola.data(), parola.data() + parola.size(), n);
    return errore == std::errc{} && fine == parola.data() + parola.size() ? n : altrimenti;
}

bool RigaRisorsa::ha(std::string_view parola) const {
    return !parole.empty() && std::find(parole.begin() + 1, parole.end(), parola) != parole.end();
}

std::string_view RigaRisorsa::opzione(std::string_view nome) const {
    for (const auto& [n, v] : opzioni)
        if (n == nome) return v;
    return {};
}

int RigaRisorsa::numero(std::string_view nome, int altrimenti) const { return numeroDi(opzione(nome), altrimenti); }

std::vector<RigaRisorsa> RigheRisorsa(std::string_view path) {
    std::vector<RigaRisorsa> righe;
    perLinee(ResourceFile(path), [&righe](std::string_view linea) {
        RigaRisorsa r;
        while (!linea.empty()) {
            const auto fine = linea.find_first_of(" \t");
            const auto parola = linea.substr(0, fine);
            linea = fine == std::string_view::npos ? std::string_view{} : rifila(linea.substr(fine));
            if (parola == "#") break;
            const auto uguale = parola.find('=');
            if (uguale == std::string_view::npos || uguale == 0)
                r.parole.emplace_back(parola);
            else
                r.opzioni.emplace_back(parola.substr(0, uguale), parola.substr(uguale + 1));
        }
        if (!r.parole.empty()) righe.push_back(std::move(r));
    });
    return righe;
}

}   // namespace tessaro
