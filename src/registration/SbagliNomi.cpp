// A slip by name: what a hand that types coordinates gets wrong, tried one after the other on the point that does not fit.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "registration/Sbagli.h"

namespace tessaro {

namespace {

struct Cerca {
    std::span<const PuntoNoto> punti;
    Coppia giusto;
    double tolleranza;
    PuntoSbagliato& p;

    [[nodiscard]] const Coppia& dato() const { return punti[p.punto].reale; }
    [[nodiscard]] bool vicino(const Coppia& c) const {
        return std::hypot(c.x - giusto.x, c.y - giusto.y) <= tolleranza;
    }

    bool prova(Slittamento causa, const Coppia& c, double fattore = 1) {
        if (!vicino(c) || (c.x == dato().x && c.y == dato().y)) return false;
        p.causa = causa;
        p.proposta = c;
        p.fattore = fattore;
        p.inX = c.x != dato().x;
        p.inY = c.y != dato().y;
        return true;
    }

    // Their real coordinates stand at each other's place: this one's is near the other's, and the other does not fit either.
    bool scambiato() {
        for (std::size_t i = 0; i < punti.size(); ++i) {
            if (i == p.punto || !prova(Slittamento::puntiScambiati, punti[i].reale)) continue;
            p.altro = i;
            return true;
        }
        return false;
    }

    bool fattori() {
        // Metres for kilometres, decimetres, centimetres and millimetres, and the other way round; international feet.
        for (const double f : {1000.0, 0.001, 100.0, 0.01, 10.0, 0.1, 1 / 0.3048, 0.3048})
            if (prova(Slittamento::unita, {dato().x / f, dato().y / f}, f)) return true;
        return false;
    }

    bool segni() {
        return prova(Slittamento::segno, {-dato().x, dato().y}) || prova(Slittamento::segno, {dato().x, -dato().y})
               || prova(Slittamento::segno, {-dato().x, -dato().y});
    }

    [[nodiscard]] Coppia con(bool x, double v) const { return x ? Coppia{v, dato().y} : Coppia{dato().x, v}; }

    // The digits as they were typed: the fewest decimals that say the number, four at most.
    static std::string cifre(double v) {
        std::array<char, 64> b{};
        for (int decimali = 0; decimali <= 4; ++decimali) {
            const auto fine = std::to_chars(b.data(), b.data() + b.size(), v, std::chars_format::fixed, decimali);
            if (fine.ec != std::errc{}) return {};
            const std::string s(b.data(), fine.ptr);
            double letto = 0;
            std::from_chars(s.data(), s.data() + s.size(), letto);
            if (std::fabs(letto - v) <= 1e-6 || decimali == 4) return s;
        }
        return {};
    }
    static double numero(const std::string& s) {
        double v = 0;
        std::from_chars(s.data(), s.data() + s.size(), v);
        return v;
    }

    bool decimali(bool x) {
        const double v = x ? dato().x : dato().y;
        for (const double f : {10.0, 0.1, 100.0, 0.01, 1000.0, 0.001})
            if (prova(Slittamento::decimali, con(x, v / f), f)) return true;
        return false;
    }

    bool scambiate(bool x) {
        const std::string s = cifre(x ? dato().x : dato().y);
        std::size_t prima = std::string::npos;
        for (std::size_t i = 0; i < s.size(); ++i) {
            if (s[i] < '0' || s[i] > '9') continue;
            if (prima != std::string::npos && s[i] != s[prima]) {
                std::string t = s;
                std::swap(t[i], t[prima]);
                if (prova(Slittamento::cifreScambiate, con(x, numero(t)))) return true;
            }
            prima = i;
        }
        return false;
    }

    bool sbagliata(bool x) {
        const std::string s = cifre(x ? dato().x : dato().y);
        for (std::size_t i = 0; i < s.size(); ++i) {
            if (s[i] < '0' || s[i] > '9') continue;
            for (char c = '0'; c <= '9'; ++c) {
                std::string t = s;
                t[i] = c;
                if (prova(Slittamento::cifra, con(x, numero(t)))) return true;
            }
        }
        return false;
    }

    // Any residual is near some digit: a digit is named when the tolerance is small beside the decade of the residual.
    [[nodiscard]] bool cifreDistinguibili() const {
        constexpr double parte = 0.1;
        return tolleranza <= parte * std::pow(10, std::floor(std::log10(p.lungo)));
    }
};

}   // namespace

void NominaSlittamento(std::span<const PuntoNoto> punti, const Coppia& giusto, double tolleranza, PuntoSbagliato& p) {
    p.causa = Slittamento::ignoto;
    p.proposta = giusto;
    Cerca c{punti, giusto, tolleranza, p};
    const Coppia dato = c.dato();
    if (c.prova(Slittamento::assiScambiati, {dato.y, dato.x}) || c.scambiato() || c.fattori() || c.segni()) return;
    if (!(p.lungo > 0)) return;
    for (const bool x : {true, false})
        if (c.decimali(x)) return;
    if (!c.cifreDistinguibili()) return;
    for (const bool x : {true, false})
        if (c.scambiate(x)) return;
    for (const bool x : {true, false})
        if (c.sbagliata(x)) return;
}

}   // namespace tessaro
