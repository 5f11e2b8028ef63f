// Reading of a script's words.
#include "script/Parole.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/Events.h"
#include "platform/Resources.h"
#include "script/Messaggi.h"

namespace tessaro {

namespace {

template <class T>
struct Nome {
    std::string_view nome;
    T valore;
};

constexpr Nome<std::uint16_t> modificatori[] = {
    {"shift", shiftKey}, {"option", optionKey}, {"command", cmdKey}, {"control", controlKey}};

constexpr Nome<std::uint8_t> nomiTasti[] = {{"space", 32},    {"return", 13}, {"enter", 3},   {"tab", 9},
                                            {"backspace", 8}, {"escape", 27}, {"left", 28},   {"right", 29},
                                            {"up", 30},       {"down", 31},   {"delete", 127}};

bool bianco(char c) { return c == ' ' || c == '\t' || c == '\r'; }

char dopoBarra(char c) {
    if (c == 'n') return '\n';
    if (c == '"' || c == '\\') return c;
    sbaglia(Avviso::barra, std::string(1, c));
}

// One word from position i on, which is left behind it.
Parola prendiParola(std::string_view riga, std::size_t& i) {
    Parola p;
    bool dentro = false;
    for (; i < riga.size() && (dentro || !bianco(riga[i])); ++i) {
        if (riga[i] == '"') {
            dentro = !dentro;
            p.protetta = true;
        } else if (dentro && riga[i] == '\\' && i + 1 < riga.size()) {
            p.testo += dopoBarra(riga[++i]);
        } else {
            p.testo += riga[i];
        }
    }
    if (dentro) sbaglia(Avviso::virgolette);
    return p;
}

}   // namespace

std::vector<Parola> Spezza(std::string_view riga) {
    std::vector<Parola> parole;
    std::size_t i = 0;
    for (;;) {
        while (i < riga.size() && bianco(riga[i])) ++i;
        if (i == riga.size()) return parole;
        if (parole.empty() && riga[i] == '#') return {};
        parole.push_back(prendiParola(riga, i));
    }
}

std::uint16_t TogliModificatori(std::vector<Parola>& parole) {
    std::uint16_t r = 0;
    while (parole.size() > 1 && !parole.back().protetta) {
        const auto* m = std::find_if(std::begin(modificatori), std::end(modificatori),
                                     [&](const auto& n) { return n.nome == parole.back().testo; });
        if (m == std::end(modificatori)) break;
        r |= m->valore;
        parole.pop_back();
    }
    return r;
}

std::int32_t Intero(std::string_view s, std::int32_t min, std::int32_t max) {
    std::int32_t v = 0;
    const auto [fine, guasto] = std::from_chars(s.data(), s.data() + s.size(), v);
    if (s.empty() || guasto != std::errc{} || fine != s.data() + s.size() || v < min || v > max)
        sbaglia(Avviso::numero, std::string(s));
    return v;
}

bool LeggiReale(std::string_view s, double& v) {
    if (s == "nan")
        v = std::numeric_limits<double>::quiet_NaN();
    else if (s == "inf")
        v = std::numeric_limits<double>::infinity();
    else if (s == "-inf")
        v = -std::numeric_limits<double>::infinity();
    else {
        const auto [fine, guasto] = std::from_chars(s.data(), s.data() + s.size(), v);
        return !s.empty() && guasto == std::errc{} && fine == s.data() + s.size();
    }
    return true;
}

double Reale(std::string_view s) {
    double v = 0;
    if (!LeggiReale(s, v)) sbaglia(Avviso::numero, std::string(s));
    return v;
}

Luogo LeggiLuogo(std::string_view s) {
    Luogo l;
    const std::string tutto(s);
    l.foglio = s.starts_with('@');
    if (l.foglio) s.remove_prefix(1);
    const auto virgola = s.find(',');
    if (virgola == std::string_view::npos) sbaglia(Avviso::luogo, tutto);
    constexpr double oltre = 1e9;
    const bool letto = LeggiReale(s.substr(0, virgola), l.x) && LeggiReale(s.substr(virgola + 1), l.y);
    const bool dentro = std::fabs(l.x) < oltre && std::fabs(l.y) < oltre;   // false for NaN too
    const bool interi = l.foglio || (l.x == std::floor(l.x) && l.y == std::floor(l.y));
    if (!letto || !dentro || !interi) sbaglia(Avviso::luogo, tutto);
    return l;
}

std::uint8_t LeggiTasto(const std::string& utf8) {
    for (const auto& t : nomiTasti)
        if (t.nome == utf8) return t.valore;
    const std::string mac = Utf8ToMac(utf8);
    if (mac.size() != 1 || static_cast<unsigned char>(mac[0]) < 32) sbaglia(Avviso::tasto, utf8);
    return static_cast<std::uint8_t>(mac[0]);
}

PassoDialogo LeggiPasso(const std::string& s) {
    PassoDialogo p;
    p.origine = s;
    const std::string_view v = s;
    constexpr std::string_view tasto = "key:", figura = "screenshot:";
    if (v.starts_with(tasto)) {
        p.tipo = PassoDialogo::tasto;
        p.numero = LeggiTasto(s.substr(tasto.size()));
        return p;
    }
    if (v.starts_with(figura) && v.size() > figura.size()) {
        p.tipo = PassoDialogo::figura;
        p.scritta = s.substr(figura.size());
        return p;
    }
    const bool mostra = v.starts_with('?');
    const auto inizio = std::size_t{mostra};
    auto fineVoce = v.find_first_not_of("0123456789", inizio);
    if (fineVoce == std::string_view::npos) fineVoce = v.size();
    if (fineVoce == inizio || fineVoce - inizio > 4) sbaglia(Avviso::passo, s);
    p.voce = static_cast<std::int16_t>(Intero(v.substr(inizio, fineVoce - inizio), 1, 9999));
    const std::string_view resto = v.substr(fineVoce);
    if (resto.empty()) {
        p.tipo = mostra ? PassoDialogo::mostra : PassoDialogo::clic;
    } else if (resto[0] == '=' && !mostra) {
        p.tipo = PassoDialogo::testo;
        p.scritta = resto.substr(1);
    } else if (resto[0] == ':' && !mostra) {
        p.tipo = PassoDialogo::valore;
        p.numero = Intero(resto.substr(1));
    } else {
        sbaglia(Avviso::passo, s);
    }
    return p;
}

std::string TraVirgolette(std::string_view utf8) {
    std::string out = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\') out += '\\';
        if (c == '\n' || c == '\r')
            out += "\\n";
        else
            out += c;
    }
    return out + '"';
}

}   // namespace tessaro
