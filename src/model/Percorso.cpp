// Area, moments, lengths and direction of a path of real points.
#include "model/Percorso.h"

#include <cmath>
#include <string>

#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "text/Conversione.h"

namespace tessaro {

constinit std::array<double, maxPuntiPercorso + 1> Xspezz{}, Yspezz{}, Zspezz{};
Risultati RisCalc;

void InizioPercorso(double x, double y, double z) {
    RisCalc.numPunti = 0;
    AggiungiAlPercorso(x, y, z);
}

void AggiungiAlPercorso(double x, double y, double z) {
    if (RisCalc.numPunti >= maxPuntiPercorso) return;
    const auto n = static_cast<std::size_t>(++RisCalc.numPunti);
    Xspezz[n] = x;
    Yspezz[n] = y;
    Zspezz[n] = z;
}

namespace {

void estremi(std::size_t n) {
    Risultati& r = RisCalc;
    r.primoX = Xspezz[1];
    r.primoY = Yspezz[1];
    r.primoZ = Zspezz[1];
    r.ultimoX = Xspezz[n];
    r.ultimoY = Yspezz[n];
    r.ultimoZ = Zspezz[n];
    r.deltaX = r.ultimoX - r.primoX;
    r.deltaY = r.ultimoY - r.primoY;
    r.deltaZ = r.ultimoZ - r.primoZ;
}

// Triangles from the first point to each side, the closing one first. Everything is taken from the first point, so that
// a figure far from the origin loses no digits.
void figuraChiusa(std::size_t n) {
    Risultati& r = RisCalc;
    r.area = r.momentoX = r.momentoY = r.perimetro = r.sviluppo = 0;
    Xspezz[0] = Xspezz[n];
    Yspezz[0] = Yspezz[n];
    for (std::size_t i = 0; i < n; ++i) {
        const double a = Xspezz[i] - r.primoX, b = Yspezz[i] - r.primoY;
        const double c = Xspezz[i + 1] - r.primoX, d = Yspezz[i + 1] - r.primoY;
        const double t = (d * a - c * b) / 2;
        r.momentoX += (d + b) * t / 3;
        r.momentoY += (c + a) * t / 3;
        r.area += t;
        r.perimetro += Distanza(a, b, c, d);
    }
}

}   // namespace

void Calcolo() {
    Risultati& r = RisCalc;
    if (r.numPunti < 1) return;
    const auto n = static_cast<std::size_t>(r.numPunti);
    estremi(n);
    figuraChiusa(n);
    r.baricentroX = r.momentoY / r.area;
    r.baricentroY = r.momentoX / r.area;
    CartPolar(0, 0, r.deltaX, r.deltaY, r.distanza, r.azimut, orientCorrente);
    r.sviluppo = r.perimetro - r.distanza;
    // Only now: with the sign the centroid is the same whichever way the path runs.
    r.area = std::fabs(r.area);
}

namespace {

void azzera() {
    RisCalc = Risultati{};
    Xspezz = Yspezz = Zspezz = {};
}

struct Campo {
    const char* nome;
    double Risultati::*valore;
};
constexpr Campo campi[] = {
    {"memoria", &Risultati::memoria},         {"accumulatore", &Risultati::accumulatore},
    {"valore", &Risultati::valore},           {"area", &Risultati::area},
    {"perimetro", &Risultati::perimetro},     {"sviluppo", &Risultati::sviluppo},
    {"deltaX", &Risultati::deltaX},           {"deltaY", &Risultati::deltaY},
    {"deltaZ", &Risultati::deltaZ},           {"primoX", &Risultati::primoX},
    {"primoY", &Risultati::primoY},           {"primoZ", &Risultati::primoZ},
    {"ultimoX", &Risultati::ultimoX},         {"ultimoY", &Risultati::ultimoY},
    {"ultimoZ", &Risultati::ultimoZ},         {"distanza", &Risultati::distanza},
    {"fattore", &Risultati::fattore},         {"azimut", &Risultati::azimut},
    {"momentoX", &Risultati::momentoX},       {"momentoY", &Risultati::momentoY},
    {"baricentroX", &Risultati::baricentroX}, {"baricentroY", &Risultati::baricentroY},
};

std::string json() {
    std::string s = "{\"numPunti\":" + std::to_string(RisCalc.numPunti);
    for (const Campo& c : campi) s += ",\"" + std::string(c.nome) + "\":" + NumeroJson(RisCalc.*c.valore);
    return s + "}";
}

const VoceStato righe[] = {{"RisCalc", azzera, json}};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
