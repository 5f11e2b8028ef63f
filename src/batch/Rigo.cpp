// Named values on standard output.
#include "batch/Rigo.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include "model/Unita.h"

namespace tessaro {

namespace {

std::FILE* uscitaComandi = nullptr;

std::string fraVirgolette(std::string_view s) {
    std::string out = "\"";
    for (const char c : s) {
        if (c == '"' || c == '\\') {
            out.append(1, '\\').append(1, c);
        } else if (static_cast<unsigned char>(c) < ' ') {
            std::array<char, 8> codice{};
            std::snprintf(codice.data(), codice.size(), "\\u%04x", static_cast<unsigned>(c));
            out += codice.data();
        } else {
            out += c;
        }
    }
    return out + '"';
}

std::string suUnaRiga(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c == '\n' || c == '\r' || c == '\t') c = ' ';
    return out;
}

std::string breve(double v) {
    std::array<char, 40> b;
    return {b.data(), std::to_chars(b.data(), b.data() + b.size(), v).ptr};
}

std::string dodiciCifre(double v) {
    constexpr int cifre = 12;
    std::array<char, 40> b;
    const auto fine = std::to_chars(b.data(), b.data() + b.size(), v, std::chars_format::general, cifre).ptr;
    return {b.data(), fine};
}

void scrivi(const std::string& s) {
    std::FILE* f = uscitaComandi != nullptr ? uscitaComandi : stdout;
    std::fwrite(s.data(), 1, s.size(), f);
    std::fflush(f);
}

}   // namespace

Rigo& Rigo::testo(std::string_view nome, std::string_view utf8) {
    valori.push_back({std::string(nome), fraVirgolette(utf8), suUnaRiga(utf8)});
    return *this;
}
Rigo& Rigo::numero(std::string_view nome, double v) {
    const bool finito = std::isfinite(v);
    valori.push_back({std::string(nome), finito ? breve(v) : "null", finito ? dodiciCifre(v) : "-"});
    return *this;
}
Rigo& Rigo::intero(std::string_view nome, std::int64_t v) {
    valori.push_back({std::string(nome), std::to_string(v), std::to_string(v)});
    return *this;
}
Rigo& Rigo::vero(std::string_view nome, bool v) {
    valori.push_back({std::string(nome), v ? "true" : "false", v ? "yes" : "no"});
    return *this;
}
Rigo& Rigo::elenco(std::string_view nome, const std::vector<std::string>& utf8) {
    if (utf8.empty()) return *this;
    std::string j, s;
    for (const std::string& x : utf8) {
        j.append(j.empty() ? "" : ",").append(fraVirgolette(x));
        s.append(s.empty() ? "" : "; ").append(suUnaRiga(x));
    }
    valori.push_back({std::string(nome), "[" + j + "]", s});
    return *this;
}

void Rigo::stampa() const {
    if (json) return stampaRiga();
    std::string s;
    for (const Valore& v : valori) s += v.nome + ": " + v.scritto + '\n';
    scrivi(s);
}

void Rigo::stampaRiga() const {
    std::string s;
    for (const Valore& v : valori) {
        if (json)
            s += (s.empty() ? "{" : ",") + fraVirgolette(v.nome) + ":" + v.json;
        else
            s += (s.empty() ? "" : "\t") + v.nome + "=" + v.scritto;
    }
    scrivi(s + (json ? "}\n" : "\n"));
}

void PrendiUscita() {
    std::fflush(stdout);
    const int propria = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (propria < 0) return;
    uscitaComandi = ::fdopen(propria, "w");
    const int niente = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (niente < 0) return;
    ::dup2(niente, STDOUT_FILENO);
    ::close(niente);
}

void ChiudiUscita() {
    if (uscitaComandi != nullptr) std::fflush(uscitaComandi);
}

std::string Decimali(double v, int decimali) {
    if (!std::isfinite(v)) return "-";
    std::array<char, 340> b;
    std::string s(b.data(), std::to_chars(b.data(), b.data() + b.size(), v, std::chars_format::fixed, decimali).ptr);
    if (s.find('.') == std::string::npos) return s;
    s.erase(s.find_last_not_of('0') + 1);
    if (s.back() == '.') s.pop_back();
    return s == "-0" ? "0" : s;
}

std::string Unita(int potenza) {
    static constexpr const char* nomi[] = {"mm", "cm", "m", "km", "in", "ft", "u"};
    const std::size_t quale = UnitaMCorrente >= 0 && UnitaMCorrente <= 6 ? static_cast<std::size_t>(UnitaMCorrente) : 6;
    return std::string("_") + nomi[quale] + (potenza == 1 ? "" : std::to_string(potenza));
}

}   // namespace tessaro
