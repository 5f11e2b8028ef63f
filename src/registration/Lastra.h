// The bent part of a thin plate: the sum over its nodes of weight times r^2 ln r^2. Nodes come in blocks of four.
#pragma once

#include <array>
#include <span>

#include "model/Registrazione.h"

namespace tessaro {

inline constexpr std::size_t bloccoLastra = 4;

double NucleoLastra(double r2);   // r^2 ln r^2; 0 at 0
// All four spans are equally long, a multiple of bloccoLastra.
Coppia SommaLastra(std::span<const double> u, std::span<const double> v, std::span<const double> pesoX,
                   std::span<const double> pesoY, double x, double y);
// Adds the derivatives dX/du, dX/dv, dY/du, dY/dv to `d`.
void DerivateLastra(std::span<const double> u, std::span<const double> v, std::span<const double> pesoX,
                    std::span<const double> pesoY, double x, double y, std::array<double, 4>& d);

}   // namespace tessaro
