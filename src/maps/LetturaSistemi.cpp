// The drawing's reference systems as a person reads them: the name, and a position in the second one.
#include <cmath>
#include <cstdio>

#include "display/Lettura.h"
#include "maps/Frasi.h"
#include "maps/SistemaRiferimento.h"
#include "model/Estensioni.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

// Degrees, minutes and seconds with four decimals, 3 mm of latitude.
std::string gradi(double v, FraseMappe positivo, FraseMappe negativo) {
    constexpr double parti = 3600.0 * 10000;   // ten-thousandths of a second
    const auto tutte = static_cast<long long>(std::llround(std::fabs(v) * parti));
    const long long secondi = tutte % 600000, minuti = tutte / 600000 % 60, interi = tutte / 36000000;
    std::array<char, 64> s{};
    std::snprintf(s.data(), s.size(), "%lld\xC2\xB0%02lld'%02lld.%04lld\" ", interi, minuti, secondi / 10000,
                  secondi % 10000);
    return Utf8ToMac(s.data()) + Frase(v < 0 ? negativo : positivo);
}

std::string decimali(double v) {
    std::array<char, 64> s{};
    std::snprintf(s.data(), s.size(), "%lld.%03lld", std::llround(std::fabs(v) * 1000) / 1000,
                  std::llround(std::fabs(v) * 1000) % 1000);
    return (v < 0 ? "-" : "") + std::string(s.data());
}

// Prepared once for the pair of systems in force.
struct Lettura {
    std::string da, a;
    FraSistemi via;
    SistemaTrovato verso;
};

Lettura& lettura(const SistemiDisegno& s) {
    static Lettura l;
    if (l.da == s.disegno && l.a == s.secondo) return l;
    l.da = s.disegno;
    l.a = s.secondo;
    l.verso = {};
    std::string motivo;
    if (l.via.prepara(s.disegno, s.secondo, motivo)) TrovaSistema(s.secondo, l.verso);
    return l;
}

}   // namespace

std::string TestoSistema() {
    static std::string per, testo;
    const std::string& disegno = SistemaDelDisegno();
    if (disegno.empty()) return {};
    if (disegno == per) return testo;
    SistemaTrovato s;
    per = disegno;
    testo = Utf8ToMac(disegno.substr(0, 40));
    if (TrovaSistema(disegno, s)) testo = Utf8ToMac(s.codice.empty() ? s.nome : s.codice + ' ' + s.nome);
    return testo;
}

std::string LetturaSecondoSistema(double X, double Y) {
    const SistemiDisegno& s = SistemiDelDisegno();
    if (s.disegno.empty() || s.secondo.empty()) return {};
    Lettura& l = lettura(s);
    constexpr double massimo = 1e12;
    if (!l.via.pronto() || !l.via.avanti(X, Y) || std::fabs(X) > massimo || std::fabs(Y) > massimo) return {};
    if (l.verso.geografico)
        return gradi(Y, FraseMappe::latLonNord, FraseMappe::latLonSud) + "  "
               + gradi(X, FraseMappe::latLonEst, FraseMappe::latLonOvest);
    const std::string nome = Utf8ToMac(l.verso.codice.empty() ? l.verso.nome : l.verso.codice);
    return nome + "  E " + decimali(X) + "  N " + decimali(Y);
}

std::string SecondaLetturaAlCursore() {
    static double x = HUGE_VAL, y = HUGE_VAL;
    static std::uint32_t voce = 0;
    static std::string testo;
    if (NumeroEstensione(estRiferimento) == 0 || SistemiDelDisegno().secondo.empty()) return {};
    if (lineaCoordinate.view().empty()) return {};
    const double X = XVisualPrec, Y = YVisualPrec;
    if (X == x && Y == y && voce == NumeroEstensione(estRiferimento)) return testo;
    x = X;
    y = Y;
    voce = NumeroEstensione(estRiferimento);
    testo = LetturaSecondoSistema(X, Y);
    return testo;
}

}   // namespace tessaro
