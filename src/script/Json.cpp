// Walking through well-formed JSON text without building anything; text that is not well-formed finds nothing.
#include "script/Json.h"

#include <charconv>
#include <cmath>

#include "script/Parole.h"

namespace tessaro {

namespace {

void saltaBianchi(std::string_view s, std::size_t& i) {
    while (i < s.size() && (s[i] == ' ' || s[i] == '\n' || s[i] == '\t' || s[i] == '\r')) ++i;
}

bool saltaStringa(std::string_view s, std::size_t& i) {
    for (++i; i < s.size(); ++i) {
        if (s[i] == '\\')
            ++i;
        else if (s[i] == '"') {
            ++i;
            return true;
        }
    }
    return false;
}

// A value from i on; i is left behind it.
bool saltaValore(std::string_view s, std::size_t& i) {
    saltaBianchi(s, i);
    int profondita = 0;
    for (; i < s.size(); ++i) {
        const char c = s[i];
        if (c == '"') {
            if (!saltaStringa(s, i)) return false;
            if (profondita == 0) return true;
            --i;
        } else if (c == '{' || c == '[') {
            ++profondita;
        } else if (c == '}' || c == ']') {
            if (profondita == 0) return true;   // the end of what the value stands in
            if (--profondita == 0) {
                ++i;
                return true;
            }
        } else if (c == ',' && profondita == 0) {
            return true;
        }
    }
    return profondita == 0;
}

// The member of an object or the place of an array that `nome` names.
bool figlio(std::string_view json, std::string_view nome, std::string_view& valore) {
    std::size_t i = 0;
    saltaBianchi(json, i);
    if (i >= json.size() || (json[i] != '{' && json[i] != '[')) return false;
    const bool oggetto = json[i] == '{';
    ++i;
    for (std::size_t posto = 0;; ++posto) {
        saltaBianchi(json, i);
        if (i >= json.size() || json[i] == '}' || json[i] == ']') return false;
        std::string chiave = std::to_string(posto);
        if (oggetto) {
            const std::size_t inizio = i;
            if (json[i] != '"' || !saltaStringa(json, i)) return false;
            chiave = JsonTesto(json.substr(inizio, i - inizio));
            saltaBianchi(json, i);
            if (i >= json.size() || json[i] != ':') return false;
            ++i;
        }
        saltaBianchi(json, i);
        const std::size_t inizio = i;
        if (!saltaValore(json, i) || i == inizio) return false;
        if (chiave == nome) {
            valore = json.substr(inizio, i - inizio);
            while (!valore.empty() && valore.back() == ' ') valore.remove_suffix(1);
            return true;
        }
        saltaBianchi(json, i);
        if (i >= json.size() || json[i] != ',') return false;
        ++i;
    }
}

}   // namespace

bool JsonSotto(std::string_view json, std::string_view percorso, std::string_view& valore) {
    valore = json;
    while (!percorso.empty()) {
        const auto punto = percorso.find('.');
        if (!figlio(valore, percorso.substr(0, punto), valore)) return false;
        percorso = punto == std::string_view::npos ? std::string_view{} : percorso.substr(punto + 1);
    }
    return true;
}

std::string JsonTesto(std::string_view v) {
    if (v.size() < 2 || v.front() != '"' || v.back() != '"') return std::string(v);
    std::string out;
    for (std::size_t i = 1; i + 1 < v.size(); ++i) {
        if (v[i] != '\\' || i + 2 >= v.size()) {
            out += v[i];
            continue;
        }
        const char c = v[++i];
        if (c == 'n')
            out += '\n';
        else if (c == 't')
            out += '\t';
        else if (c == 'r')
            out += '\r';
        else if (c == 'u' && i + 4 < v.size()) {
            unsigned codice = 0;   // the program escapes control characters only
            std::from_chars(v.data() + i + 1, v.data() + i + 5, codice, 16);
            out += static_cast<char>(codice & 0x7F);
            i += 4;
        } else {
            out += c;
        }
    }
    return out;
}

bool JsonUguale(std::string_view valore, std::string_view atteso, double tolleranza) {
    const std::string testo = JsonTesto(valore);
    double a = 0;
    double b = 0;
    if (!LeggiReale(testo, a) || !LeggiReale(atteso, b)) return testo == atteso;
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return a == b || std::fabs(a - b) <= tolleranza;
}

}   // namespace tessaro
