// The bent part of a thin plate: the sum over its nodes of weight times r^2 ln r^2. Nodes come in blocks of four.
#pragma once

#include <array>
#include <span>

#include "model/Registrazione.h"

namespace tessaro {

inline constexpr std::size_t bloccoLastra = 4;

double NucleoLastra(double r2);   // r^2 ln r^2; 0 at 0
// What the kernel is beyond its smooth stand-in inside a radius: 0 from there on. The stand-in follows ln t about t = 1 to the
// sixth power, t = r^2 / radius^2, and has six derivatives in common with the kernel at the radius.
double PuntaLastra(double r2, double raggio2);
// All four spans are equally long, a multiple of bloccoLastra.
Coppia SommaLastra(std::span<const double> u, std::span<const double> v, std::span<const double> pesoX,
                   std::span<const double> pesoY, double x, double y);
// Adds the derivatives dX/du, dX/dv, dY/du, dY/dv to `d`.
void DerivateLastra(std::span<const double> u, std::span<const double> v, std::span<const double> pesoX,
                    std::span<const double> pesoY, double x, double y, std::array<double, 4>& d);

}   // namespace tessaro
