// Where the squares of a board meet in a picture, to parts of a pixel.
#pragma once

#include <cmath>

#include "model/Registrazione.h"

namespace prova {

using tessaro::Coppia;

// `g` gives the grey of a whole pixel. The point that all edges round p point at: where the gradients are square to the way there.
template <class Grigi>
Coppia incrocioVicino(const Grigi& g, Coppia p, int raggio = 5) {
    constexpr int giri = 20;
    for (int giro = 0; giro < giri; ++giro) {
        const int cx = static_cast<int>(std::lround(p.x)), cy = static_cast<int>(std::lround(p.y));
        double a = 0, b = 0, c = 0, u = 0, v = 0;
        for (int y = cy - raggio; y <= cy + raggio; ++y) {
            for (int x = cx - raggio; x <= cx + raggio; ++x) {
                const double gx = g(x + 1, y) - g(x - 1, y), gy = g(x, y + 1) - g(x, y - 1);
                a += gx * gx;
                b += gx * gy;
                c += gy * gy;
                u += gx * gx * x + gx * gy * y;
                v += gx * gy * x + gy * gy * y;
            }
        }
        const Coppia q{(c * u - b * v) / (a * c - b * b), (a * v - b * u) / (a * c - b * b)};
        const bool fermo = std::hypot(q.x - p.x, q.y - p.y) < 0.005;
        p = q;
        if (fermo) break;
    }
    return p;
}

}   // namespace prova
