// The format codes of multi-line texts.
#include "dwg/kit/Frammenti.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "dwg/kit/Alfabeto.h"
#include "text/Decimale.h"

namespace tessaro {

namespace {

constexpr std::size_t frammentiMassimi = 10000;
constexpr double interlinea = 5.0 / 3;   // from line to line, in letter heights

struct Formato {
    double altezza = 0, largo = 1;
    std::string font;
    OdCmColor colore;
};

// Width of a letter in heights of capitals: an estimate that suits most fonts.
double largo(char32_t c) {
    constexpr std::u32string_view stretti = U"iljtfrI.,;:'|!()[] ";
    constexpr std::u32string_view larghi = U"mwMW@%";
    if (stretti.find(c) != std::u32string_view::npos) return 0.45;
    if (larghi.find(c) != std::u32string_view::npos) return 1.2;
    return c >= U'A' && c <= U'Z' ? 0.95 : 0.8;
}

double largo(std::string_view utf8) {
    double w = 0;
    while (!utf8.empty()) w += largo(PrendiUtf8(utf8));
    return w;
}

struct Pezzo {
    Formato f;
    std::string testo;
    [[nodiscard]] double larghezza() const { return largo(testo) * f.altezza * f.largo; }
};
using Riga = std::vector<Pezzo>;

class Lettore {
public:
    explicit Lettore(const OdDbMText& t) : resto(t.contents) {
        formato.altezza = t.textHeight;
        formato.colore.setColorIndex(0);
        righe.emplace_back();
    }
    std::vector<Riga> leggi() {
        while (!resto.empty() && pezzi < frammentiMassimi) passo();
        chiudi();
        return std::move(righe);
    }

private:
    void passo() {
        constexpr std::size_t annidamenti = 64;
        const char c = resto.front();
        if (c == '{' || c == '}') {
            chiudi();
            resto.remove_prefix(1);
            if (c == '{' && salvati.size() < annidamenti) salvati.push_back(formato);
            if (c == '}' && !salvati.empty()) {
                formato = salvati.back();
                salvati.pop_back();
            }
        } else if (c == '\\' && resto.size() > 1) {
            codice(resto[1]);
        } else if (c == '\n') {
            aCapo();
            resto.remove_prefix(1);
        } else {
            testo += c == '\t' ? ' ' : c;
            resto.remove_prefix(1);
        }
    }

    // The value of a code, up to its semicolon.
    std::string_view valore() {
        resto.remove_prefix(2);
        const std::size_t fine = resto.find(';');
        const std::string_view v = resto.substr(0, fine);
        resto.remove_prefix(fine == std::string_view::npos ? resto.size() : fine + 1);
        return v;
    }

    void codice(char c) {
        switch (c) {
        case '\\':
        case '{':
        case '}':
            testo += c;
            resto.remove_prefix(2);
            return;
        case '~':
            testo += ' ';
            resto.remove_prefix(2);
            return;
        case 'P':
        case 'N':
        case 'X':
            aCapo();
            resto.remove_prefix(2);
            return;
        case 'L':
        case 'l':
        case 'O':
        case 'o':
        case 'K':
        case 'k': resto.remove_prefix(2); return;
        case 'U':
        case 'M':   // a character by its number: for those who show the text
            testo += resto.front();
            resto.remove_prefix(1);
            return;
        case 'H':
        case 'W':
            chiudi();
            misura(c, valore());
            return;
        case 'f':
        case 'F': {
            chiudi();
            const std::string_view v = valore();
            formato.font = v.substr(0, v.find('|'));
            return;
        }
        case 'C':
        case 'c':
            chiudi();
            colore(c, valore());
            return;
        case 'S': frazione(valore()); return;
        case 'A':
        case 'Q':
        case 'T':
        case 'p': valore(); return;
        default: resto.remove_prefix(1); return;
        }
    }

    void misura(char c, std::string_view v) {
        const bool volte = !v.empty() && (v.back() == 'x' || v.back() == 'X');
        std::size_t presi = 0;
        const double d = DoubleDaTesto(v, presi);
        if (presi == 0 || !std::isfinite(d) || !(d > 0)) return;
        if (c == 'W')
            formato.largo = d;
        else
            formato.altezza = volte ? formato.altezza * d : d;
    }

    void colore(char c, std::string_view v) {
        std::uint32_t n = 0;
        if (std::from_chars(v.data(), v.data() + v.size(), n).ec != std::errc{}) return;
        if (c == 'C' && n <= 256)
            formato.colore.setColorIndex(static_cast<std::int16_t>(n));
        else if (c == 'c')   // blue is the highest byte
            formato.colore.setRGB(static_cast<std::uint8_t>(n), static_cast<std::uint8_t>(n >> 8),
                                  static_cast<std::uint8_t>(n >> 16));
    }

    void frazione(std::string_view v) {
        for (const char c : v) testo += c == '^' || c == '#' ? '/' : c;
    }

    void chiudi() {
        if (testo.empty()) return;
        righe.back().push_back({formato, std::move(testo)});
        testo.clear();
        ++pezzi;
    }
    void aCapo() {
        chiudi();
        righe.emplace_back();
        ++pezzi;
    }

    std::string_view resto;
    Formato formato;
    std::vector<Formato> salvati;
    std::vector<Riga> righe;
    std::string testo;
    std::size_t pezzi = 0;
};

// Lines broken between words where they pass the width.
std::vector<Riga> aLarghezza(std::vector<Riga> righe, double limite) {
    if (!(limite > 0)) return righe;
    std::vector<Riga> r;
    for (const Riga& riga : righe) {
        r.emplace_back();
        double usata = 0;
        const Pezzo* origine = nullptr;   // of the piece that is being filled
        for (const Pezzo& p : riga) {
            std::string_view resto = p.testo;
            while (!resto.empty()) {
                const std::size_t fine = std::min(resto.find(' ', resto.find_first_not_of(' ')), resto.size());
                const std::string_view parola = resto.substr(0, fine);
                resto.remove_prefix(fine);
                const double w = largo(parola) * p.f.altezza * p.f.largo;
                const bool nuova = usata > 0 && usata + w > limite;
                if (nuova) {
                    r.emplace_back();
                    usata = 0;
                }
                const std::size_t primo = nuova ? std::min(parola.find_first_not_of(' '), parola.size()) : 0;
                if (r.back().empty() || &p != origine) r.back().push_back({p.f, {}});
                origine = &p;
                r.back().back().testo += parola.substr(primo);
                usata += w;
            }
        }
    }
    return r;
}

}   // namespace

std::vector<OdDbMTextFragment> explodeFragments(const OdDbMText& t) {
    const std::vector<Riga> righe = aLarghezza(Lettore(t).leggi(), t.width);
    const OdGeVector3d x = Versore(t.direction);
    const OdGeVector3d y = Versore(Vettoriale(t.normal, x));
    const double h = t.textHeight, passo = interlinea * h * (t.lineSpacing > 0 ? t.lineSpacing : 1);
    const int posto = std::clamp<int>(t.attachment, 1, 9) - 1;
    const double lato = (posto % 3) / 2.0;   // 0 left, a half, 1 right
    const double alta = passo * static_cast<double>(righe.size() - 1) + h;
    double su = (posto / 3) * alta / 2 - h;   // of the first line
    std::vector<OdDbMTextFragment> r;
    for (const Riga& riga : righe) {
        double w = 0;
        for (const Pezzo& p : riga) w += p.larghezza();
        double qui = -lato * w;
        for (const Pezzo& p : riga) {
            if (r.size() >= frammentiMassimi) return r;
            OdDbMTextFragment f;
            f.location = t.location + (x * qui + y * su);
            f.direction = x;
            f.capsHeight = p.f.altezza;
            f.text = p.testo;
            f.fontFile = p.f.font;
            f.color = p.f.colore;
            if (f.text.find_first_not_of(' ') != std::string::npos) r.push_back(std::move(f));
            qui += p.larghezza();
        }
        su -= passo;
    }
    return r;
}

}   // namespace tessaro
