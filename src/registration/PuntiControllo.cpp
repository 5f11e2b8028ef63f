// Where the control points lie, what hangs on them, and whether four of them make a quadrilateral.
#include "registration/PuntiControllo.h"

#include <cmath>

#include "model/Archivio.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"

namespace tessaro {

void AssegnaAttacco(std::int16_t n, const double& x, const double& y) {
    auto& primo = Elem(1).att;
    auto& secondo = Elem(2).att;
    switch (n) {
    case 1:
        primo.x1 = x;
        primo.y1 = y;
        break;
    case 2:
        primo.x2 = x;
        primo.y2 = y;
        break;
    case 3:   // the Z fields are not needed for Z
        primo.z1 = x;
        primo.z2 = y;
        break;
    case 4:
        secondo.z1 = x;
        secondo.z2 = y;
        break;
    case 5:
        xAttacco5 = x;
        yAttacco5 = y;
        break;
    default: break;
    }
}

Coppia LeggiAttacco(std::int16_t n) {
    const auto& primo = Elem(1).att;
    const auto& secondo = Elem(2).att;
    switch (n) {
    case 1: return {primo.x1, primo.y1};
    case 2: return {primo.x2, primo.y2};
    case 3: return {primo.z1, primo.z2};
    case 4: return {secondo.z1, secondo.z2};
    default: return {xAttacco5, yAttacco5};
    }
}

void CopiePunti12() {
    const Coppia p1 = LeggiAttacco(1), p2 = LeggiAttacco(2);
    XA1 = p1.x;
    YA1 = p1.y;
    XA2 = p2.x;
    YA2 = p2.y;
}

bool AggiornaTrasformazioni(ErroriIncontrati& errori) {
    errori = {};
    if (Elem(2).att.coordReali) CalcTransfC();
    if (!attaccoAttivo.GetModificato()) return false;
    errori = attaccoAttivo.PreparaAttacco();
    return true;
}

namespace {

bool vicini(const Coppia& a, const Coppia& b) {
    constexpr double tolleranza = 0.001;   // sheet units
    return std::fabs(a.x - b.x) < tolleranza && std::fabs(a.y - b.y) < tolleranza;
}

// Lower left, upper left, upper right, lower right, with Y down; equal coordinates pass.
bool maleOrdinati(const std::array<Coppia, 4>& p) {
    return p[0].x > p[3].x || p[1].x > p[2].x || p[1].y > p[0].y || p[2].y > p[3].y;
}

}   // namespace

std::int16_t GuastoCoincidenti(const std::array<Coppia, 4>& punti) {
    constexpr std::int16_t erroreCoincidenti = 32;
    for (std::size_t i = 0; i < punti.size(); ++i)
        for (std::size_t j = i + 1; j < punti.size(); ++j)
            if (vicini(punti[i], punti[j])) return erroreCoincidenti;
    return 0;
}

std::int16_t GuastoAttacchi(const std::array<Coppia, 4>& punti) {
    constexpr std::int16_t erroreOrdine = 33;
    if (const std::int16_t guasto = GuastoCoincidenti(punti)) return guasto;
    return maleOrdinati(punti) ? erroreOrdine : std::int16_t{0};
}

}   // namespace tessaro
