// Six numbers: from the registration, to and from text, and the names that such files have.
#include "files/FileMondo.h"

#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>

#include "registration/Coordinate.h"

namespace tessaro {

namespace {

std::string minuscolo(std::string_view s) {
    std::string m(s);
    for (char& c : m)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return m;
}

struct Suffisso {
    std::string_view immagine, mondo;
};
constexpr Suffisso suffissi[] = {{".png", ".pgw"},  {".tif", ".tfw"}, {".tiff", ".tfw"}, {".jpg", ".jgw"},
                                 {".jpeg", ".jgw"}, {".bmp", ".bpw"}, {".gif", ".gfw"}};

std::string_view mondoDi(std::string_view suffisso) {
    const std::string piccolo = minuscolo(suffisso);
    for (const Suffisso& s : suffissi)
        if (s.immagine == piccolo) return s.mondo;
    return {};
}

}   // namespace

Mondo MondoDi(const PostoRaster& r) {
    // Four corners make the least squares plain: opposite sides are averaged.
    const auto reale = [&](double col, double row, double& X, double& Y) {
        DigiToReal(r.x + r.larghezza * col / r.width, r.y + r.altezza * row / r.height, X, Y);
    };
    const double w = r.width, h = r.height;
    std::array<double, 4> X{}, Y{};
    reale(0, 0, X[0], Y[0]);
    reale(w, 0, X[1], Y[1]);
    reale(0, h, X[2], Y[2]);
    reale(w, h, X[3], Y[3]);
    Mondo m;
    m.a = (X[1] - X[0] + X[3] - X[2]) / (2 * w);
    m.d = (Y[1] - Y[0] + Y[3] - Y[2]) / (2 * w);
    m.b = (X[2] - X[0] + X[3] - X[1]) / (2 * h);
    m.e = (Y[2] - Y[0] + Y[3] - Y[1]) / (2 * h);
    m.c = (X[0] + X[1] + X[2] + X[3]) / 4 - (m.a * (w - 1) + m.b * (h - 1)) / 2;
    m.f = (Y[0] + Y[1] + Y[2] + Y[3]) / 4 - (m.d * (w - 1) + m.e * (h - 1)) / 2;
    return m;
}

std::string TestoMondo(const Mondo& m) {
    std::string s;
    for (const double v : {m.a, m.d, m.b, m.e, m.c, m.f}) {
        std::array<char, 40> cifre{};
        const auto fine = std::to_chars(cifre.data(), cifre.data() + cifre.size(), v);
        s.append(cifre.data(), fine.ptr);
        s += "\r\n";
    }
    return s;
}

bool LeggiMondo(std::string_view testo, Mondo& m) {
    std::array<double, 6> v{};
    std::string numeri(testo.substr(0, 4096));
    for (char& c : numeri)
        if (c == ',') c = '.';
    const char* p = numeri.data();
    const char* const fine = p + numeri.size();
    for (double& x : v) {
        while (p < fine && (static_cast<unsigned char>(*p) <= ' ' || *p == '+')) ++p;
        const auto letto = std::from_chars(p, fine, x);
        if (letto.ec != std::errc() || !std::isfinite(x)) return false;
        p = letto.ptr;
    }
    m = Mondo{v[0], v[2], v[4], v[1], v[3], v[5]};
    const double area = m.a * m.e - m.b * m.d;
    return std::isfinite(area) && area != 0;
}

std::string NomeMondo(std::string_view percorso) {
    std::filesystem::path p(percorso);
    const std::string_view mondo = mondoDi(p.extension().string());
    if (mondo.empty()) return {};
    return p.replace_extension(mondo).string();
}

std::string TrovaMondo(std::string_view percorso) {
    const std::filesystem::path p(percorso);
    const std::string suffisso = p.extension().string();
    if (suffisso.empty()) return {};
    std::error_code guasto;
    const auto prova = [&](const std::string& s) {
        std::filesystem::path q = p;
        q.replace_extension(s);
        return std::filesystem::is_regular_file(q, guasto) ? q.string() : std::string();
    };
    const std::string breve(mondoDi(suffisso));
    std::string breveGrande = breve;
    for (char& c : breveGrande)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
    for (const std::string& s :
         {breve, breveGrande, suffisso + "w", suffisso + "W", std::string(".wld"), std::string(".WLD")}) {
        if (s.empty()) continue;
        if (std::string trovato = prova(s); !trovato.empty()) return trovato;
    }
    return {};
}

}   // namespace tessaro
