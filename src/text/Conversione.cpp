// Numbers in fixed layouts, the three angle systems, polar and Cartesian points, two line formulas.
#include "text/Conversione.h"

#include <charconv>
#include <cmath>
#include <string_view>

#include "text/PasUtils.h"

namespace tessaro {

void (*mostraSbaglio)(std::int16_t) = nullptr;

void Sbaglio(std::int16_t code, std::uint8_t& flag) {
    if (code >= 1) return;
    if (mostraSbaglio) mostraSbaglio(code);
    flag = 1;
}

constinit const std::int32_t* gradInUso = nullptr;
constinit const std::int16_t* tipoAngoloInUso = nullptr;

void RToStr(const double& x, std::int16_t d, PStr255& s) { Num2Str(decform{1, d}, x, s); }

PStr255 FormatStr(const PStr255& s, std::int16_t w) {
    static constexpr std::string_view bianchi = "                              ";
    if (s[0] >= w) return s;
    return PStr255(bianchi.substr(0, static_cast<std::size_t>(w - s[0]))) + s;
}

PStr255 FormatInt(std::int32_t n, std::int16_t w) { return FormatStr(NumToString(n), w); }

PStr255 FormatReal(const double& x, std::int16_t w, std::int16_t d) {
    PStr255 s;
    RToStr(x, d, s);
    return FormatStr(s, w);
}

PStr255 NumToString(std::int32_t n) {
    std::array<char, 12> testo;
    const auto r = std::to_chars(testo.data(), testo.data() + testo.size(), n);
    return PStr255(std::string_view(testo.data(), static_cast<std::size_t>(r.ptr - testo.data())));
}

std::int32_t StringToNum(const PStr255& s) {
    std::string_view v = s.view();
    while (!v.empty() && v[0] == ' ') v.remove_prefix(1);
    const bool negativo = !v.empty() && v[0] == '-';
    if (!v.empty() && (v[0] == '-' || v[0] == '+')) v.remove_prefix(1);
    std::int64_t n = 0;
    for (const char c : v) {
        if (c < '0' || c > '9' || n > INT32_MAX) break;
        n = n * 10 + (c - '0');
    }
    if (negativo) n = -n;
    return static_cast<std::int32_t>(n > INT32_MAX ? INT32_MAX : n < INT32_MIN ? INT32_MIN : n);
}

double Distanza(const double& x1, const double& y1, const double& x2, const double& y2) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    return std::sqrt(dx * dx + dy * dy);
}

double X_to_Y(const double& x, const double& y) { return std::exp(y * std::log(x)); }
double PwrOfTen(std::int16_t n) { return X_to_Y(10, n); }
double Log(const double& x) { return std::log(x) / std::log(10.0); }

namespace {

constexpr double pi = Pig;
constexpr double duePi = DuePig;
constexpr double piMezzi = PigMezzi;
constexpr double secondiMezzoGiro = 648000;

}   // namespace

double SeDecRad(const double& a) { return a * pi / 180; }
double RadSeDec(const double& a) { return a * 180 / pi; }
double CentRad(const double& a) { return a * pi / 200; }
double RadCent(const double& a) { return a * 200 / pi; }

// Degrees, minutes and seconds are taken from whole millionths, which doubles hold exactly: 10.20 is 20 minutes, though
// the double nearest to 10.2 lies below it.
double SeGesRad(const double& a) {
    const double milionesimi = std::round(a * 1e6);
    const double sottoGrado = std::fmod(milionesimi, 1e6);
    const double gradi = (milionesimi - sottoGrado) / 1e6;
    const double minuti = std::trunc(sottoGrado / 1e4);
    const double secondi = std::fmod(sottoGrado, 1e4) / 100;
    return pi * (3600 * gradi + 60 * minuti + secondi) / secondiMezzoGiro;
}

// Seconds that reach 60 but for the rounding of the radians carry into the minutes: 12.30 never shows as 12.2960.
double RadSeGes(const double& a) {
    constexpr double quasi60 = 60 - 1e-7;
    double t = std::fabs(a) * secondiMezzoGiro / pi;
    double gradi = std::trunc(t / 3600);
    t -= 3600 * gradi;
    double minuti = std::trunc(t / 60);
    t -= 60 * minuti;
    if (t >= quasi60) {
        t = t > 60 ? t - 60 : 0;
        ++minuti;
    }
    if (minuti > 59) {
        minuti -= 60;
        ++gradi;
    }
    return std::copysign(gradi + minuti / 100 + t / 10000, a);
}

namespace {

using Angolo = double (*)(const double&);
struct Sistema {
    Angolo inRadianti, daRadianti;
};
constexpr std::array<Sistema, 3> sistemi{{{CentRad, RadCent}, {SeDecRad, RadSeDec}, {SeGesRad, RadSeGes}}};

bool noto(std::int32_t t) { return t >= gradCentesimali && t <= gradSessagesimali; }
bool nelSistemaInUso() { return gradInUso != nullptr && tipoAngoloInUso != nullptr && *tipoAngoloInUso == 1; }

}   // namespace

double AngToRad(const double& a, std::int32_t t) {
    return noto(t) ? sistemi[static_cast<std::size_t>(t)].inRadianti(a) : 0.0;
}
double RadToAng(const double& a, std::int32_t t) {
    return noto(t) ? sistemi[static_cast<std::size_t>(t)].daRadianti(a) : 0.0;
}
double AngToSessad(const double& a, std::int32_t t) { return RadToAng(AngToRad(a, t), gradSessadecimali); }
double SessadToAng(const double& a, std::int32_t t) { return RadToAng(AngToRad(a, gradSessadecimali), t); }
double AngToAttuale(const double& a) { return nelSistemaInUso() ? AngToSessad(a, *gradInUso) : a; }
double AttualeToAng(const double& a) { return nelSistemaInUso() ? SessadToAng(a, *gradInUso) : a; }

namespace {

// The angle from the b axis toward the a axis, 0 up to 2 pi; half a turn for no direction at all.
double direzione(double a, double b) {
    if (b == 0 && a > 0) return piMezzi;
    if (b == 0 && a < 0) return 3 * piMezzi;
    if (a == 0) return b > 0 ? 0 : 2 * piMezzi;
    const double angolo = std::atan(a / b);
    if (b < 0) return angolo + pi;
    return a < 0 ? angolo + duePi : angolo;
}

}   // namespace

void CartPolar(const double& x1, const double& y1, const double& x2, const double& y2, double& dist, double& ang,
               std::int32_t orient) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    const double a = orient != orientMatematico ? dx : dy;
    const double b = orient != orientMatematico ? dy : dx;
    dist = std::sqrt(a * a + b * b);
    ang = direzione(a, b);
}

void PolarCart(const double& x1, const double& y1, const double& ang, const double& dist, double& x2, double& y2,
               std::int32_t orient) {
    const double p = dist * std::sin(ang);
    const double q = -dist * std::cos(ang);
    const double x = x1 + (orient == orientMatematico ? q : p);
    const double y = y1 + (orient == orientMatematico ? p : q);
    x2 = x;
    y2 = y;
}

bool IntersRette(const double& x1, const double& y1, const double& x2, const double& y2, const double& x3,
                 const double& y3, const double& x4, const double& y4, double& x, double& y) {
    const double D = (y3 - y4) * (x2 - x1) - (y1 - y2) * (x4 - x3);
    if (std::fabs(D) < 1e-6) {
        x = y = 0;
        return true;
    }
    const double k12 = x1 * y2 - x2 * y1;
    const double k34 = x3 * y4 - x4 * y3;
    const double xi = ((x4 - x3) * k12 - k34 * (x2 - x1)) / D;
    const double yi = (k34 * (y1 - y2) - (y3 - y4) * k12) / D;
    x = xi;
    y = yi;
    return false;
}

double DistRetta(const double& x0, const double& y0, const double& ang, const double& x, const double& y) {
    return (x - x0) * std::cos(ang) - (y - y0) * std::sin(ang);
}

}   // namespace tessaro
