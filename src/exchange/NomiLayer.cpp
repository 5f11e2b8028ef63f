// Names of layers for files of other programs.
#include "exchange/NomiLayer.h"

#include <set>

namespace tessaro {

namespace {

char minuscola(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

std::string piegato(std::string s) {
    for (char& c : s) c = minuscola(c);
    return s;
}

std::string lecito(std::string s) {
    constexpr std::string_view vietati = "<>/\\\":;?*|,=`";
    for (char& c : s)
        if (vietati.find(c) != std::string_view::npos) c = '_';
    return s;
}

}   // namespace

std::array<std::string, quantiLucidi> NomiLayer(std::string_view prefisso) {
    std::array<std::string, quantiLucidi> nomi;
    std::set<std::string> presi;
    const auto numero = [](std::size_t l) { return std::to_string(l); };
    for (std::size_t l = 0; l < nomi.size(); ++l)
        if (NomeLucido(static_cast<std::int16_t>(l)).empty()) {
            nomi[l] = std::string(prefisso) + numero(l);
            presi.insert(piegato(nomi[l]));
        }
    for (std::size_t l = 0; l < nomi.size(); ++l) {
        if (!nomi[l].empty()) continue;
        nomi[l] = lecito(NomeLucido(static_cast<std::int16_t>(l)));
        while (!presi.insert(piegato(nomi[l])).second) nomi[l] += "_" + numero(l);
    }
    return nomi;
}

}   // namespace tessaro
