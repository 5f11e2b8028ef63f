// A command's sentences, and its options as numbers and words.
#include "batch/Chiamata.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "batch/Comandi.h"
#include "batch/Rigo.h"
#include "platform/Resources.h"
#include "text/Decimale.h"

namespace tessaro {

std::string Chiamata::valore(std::string_view nome) const {
    const auto i = opzioni.find(nome);
    return i == opzioni.end() ? std::string{} : i->second;
}

std::string Testo(Frase f, std::string_view p0, std::string_view p1) {
    constexpr std::int16_t lista = 9520;
    const std::string modello = MacToUtf8(GetIndString(lista, static_cast<std::int16_t>(f)));
    std::string s;
    for (std::size_t i = 0; i < modello.size(); ++i) {
        const char dopo = i + 1 < modello.size() ? modello[i + 1] : '\0';
        if (modello[i] != '^' || (dopo != '0' && dopo != '1')) {
            s += modello[i];
            continue;
        }
        s += dopo == '0' ? p0 : p1;
        ++i;
    }
    return s;
}

Esito Rifiuta(const Chiamata& c, Esito e, const std::string& dove, const std::string& perche) {
    const std::string luogo = dove.empty() ? "" : dove + ": ";
    std::fprintf(stderr, "tessaro3d %s: %s%s\n", c.comando.c_str(), luogo.c_str(), perche.c_str());
    if (!c.ha("json")) return e;
    Rigo r(c);
    if (!dove.empty()) r.testo("file", dove);
    r.testo("error", perche).intero("status", static_cast<std::int64_t>(e)).stampa();
    return e;
}

bool LeggiNumero(std::string_view s, double min, double max, double& v) {
    std::size_t usati = 0;
    const double letto = DoubleDaTesto(s, usati);
    if (usati == 0 || usati != s.size() || !(letto >= min) || !(letto <= max)) return false;
    v = letto;
    return true;
}

bool Numero(const Chiamata& c, std::string_view nome, double min, double max, double& v) {
    if (!c.ha(nome)) return true;
    const std::string s = c.valore(nome);
    if (LeggiNumero(s, min, max, v)) return true;
    Rifiuta(c, Esito::uso, "", Testo(Frase::valore, "--" + std::string(nome), s));
    return false;
}

bool Parola(const Chiamata& c, std::string_view nome, const std::vector<std::string_view>& parole, std::size_t& quale) {
    if (!c.ha(nome)) return true;
    const std::string s = c.valore(nome);
    const auto i = std::find(parole.begin(), parole.end(), s);
    if (i == parole.end()) {
        Rifiuta(c, Esito::uso, "", Testo(Frase::valore, "--" + std::string(nome), s));
        return false;
    }
    quale = static_cast<std::size_t>(i - parole.begin());
    return true;
}

}   // namespace tessaro
