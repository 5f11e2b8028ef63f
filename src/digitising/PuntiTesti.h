// The table of control points in words: rows, what the solution says, what is wrong. Mac Roman.
#pragma once

#include <string>
#include <vector>

#include "registration/Sbagli.h"
#include "registration/TabellaPunti.h"

namespace tessaro {

// Number, in use (1 or 0), name, sheet x and y, real x and y, residual x, y and length, residual without the point; parted by
// tabs.
std::vector<std::string> RigheTabella(const TabellaPunti& t, const StatoPunti& s);
std::string TestataTabella();
// Points used, degrees of freedom, standard error; or why there is no solution.
std::string TestoEsito(const TabellaPunti& t, const StatoPunti& s);
// Scale, rotation, shrinkage along both axes, shear, at the middle of the points; empty without a solution.
std::string TestoParametri(const TabellaPunti& t, const StatoPunti& s);
// What is wrong, a sentence each; one that says so when nothing is.
std::vector<std::string> TestiSbagli(const TabellaPunti& t, const StatoPunti& s);
std::string StringaPunti(std::int16_t n, std::string_view p0 = {}, std::string_view p1 = {}, std::string_view p2 = {},
                         std::string_view p3 = {});

}   // namespace tessaro
