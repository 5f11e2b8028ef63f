// Numbers, angles and coordinates as text and back: fixed layouts, parsers with error positions, the surveyor's three
// angle systems, polar and Cartesian points, two line formulas. Nothing here shows a message but through Sbaglio.
#pragma once

#include <cstdint>

#include "text/PascalString.h"

namespace tessaro {

enum TipoGrad : std::int32_t {
    gradCentesimali = 0,
    gradSessadecimali = 1,
    gradSessagesimali = 2
};                                                                           // 400; 360; 360 as D.MMSSss
enum TipoOrient : std::int32_t { orientMatematico = 0, orientAzimut = 1 };   // from +X to +Y; from +Y to +X

// Kept: 32-bit pi, 2 pi and pi/2, widened on use; the last digits of every angle depend on them.
inline constexpr float Pig = 3.14159265358979323846F;
inline constexpr float DuePig = 6.28318530717958647692F;
inline constexpr float PigMezzi = 1.57079632679489661923F;

extern std::uint8_t cifreEstese;   // 1: numbers keep all their digits; 0: nine of them. 1 at start

// Codes of the parsers: 1 good, 0 bad integer, -1 too large, -2 too small, -3 bad real number.
// text is passed as typed; value gets the result; pos the index of the fault. flag: 1 shows the message of the code.
// Both set `uscita` when the text cannot be read.
std::int16_t STRtoFP(const double& min, const double& max, const PStr255& text, double& value, std::int16_t& pos,
                     std::uint8_t flag);
std::int16_t STRtoINT(std::int16_t min, std::int16_t max, const PStr255& text, std::int16_t& value, std::int16_t& pos,
                      std::uint8_t flag);
// The message of a code below 1 (alerts 1012, 1008, 1009, 1010, 1005), and flag set.
void Sbaglio(std::int16_t code, std::uint8_t& flag);
extern void (*mostraSbaglio)(std::int16_t code);   // its alert; set by the dialogs at start

void RToStr(const double& x, std::int16_t d, PStr255& s);              // fixed notation, d decimals
PStr255 FormatStr(const PStr255& s, std::int16_t w);                   // right-aligned, at most 30 blanks added
PStr255 FormatInt(std::int32_t n, std::int16_t w);                     // a whole number, right-aligned to w
PStr255 FormatReal(const double& x, std::int16_t w, std::int16_t d);   // d decimals, right-aligned to w
PStr255 NumToString(std::int32_t n);                                   // all its digits
// Leading blanks and a sign pass; digits up to the first other character, held to 32 bits.
std::int32_t StringToNum(const PStr255& s);

// Plain double arithmetic: a few units of the last place, and no guard against overflow above 1e154.
double Distanza(const double& x1, const double& y1, const double& x2, const double& y2);
// X to the power y for x above 0, by exp and log: relative error about |y ln x| units of the last place.
double X_to_Y(const double& x, const double& y);
// 10 to the n by X_to_Y: not the nearest double.
double PwrOfTen(std::int16_t n);
double Log(const double& x);   // to the base 10

// Angles between the systems, signed, unbounded. They go by 32-bit pi: 2.8e-8 of the angle off the true radians, and
// exact to a few units of the last place on the way there and back. Sexagesimals (D.MMSSss) are read from whole
// millionths. An unknown system gives 0.
double SeDecRad(const double& a);
double RadSeDec(const double& a);
double CentRad(const double& a);
double RadCent(const double& a);
double SeGesRad(const double& a);
double RadSeGes(const double& a);
double AngToRad(const double& a, std::int32_t t);
double RadToAng(const double& a, std::int32_t t);
double AngToSessad(const double& a, std::int32_t t);
double SessadToAng(const double& a, std::int32_t t);
// From an angle as it is kept, in gradCorrente, to the one that is shown or typed, and back: sexagesimal degrees while
// tipoAngolo is 1, else the same number.
double AngToAttuale(const double& a);
double AttualeToAng(const double& a);
extern const std::int32_t* gradInUso;         // set by the model: &gradCorrente
extern const std::int16_t* tipoAngoloInUso;   // set by the model: &tipoAngolo

// dist and ang (0 up to 2 pi) from point 1 to point 2; coincident points give pi.
void CartPolar(const double& x1, const double& y1, const double& x2, const double& y2, double& dist, double& ang,
               std::int32_t orient);
// Kept: the minus on Y makes it no exact inverse of CartPolar; it is meant for Y running down.
void PolarCart(const double& x1, const double& y1, const double& ang, const double& dist, double& x2, double& y2,
               std::int32_t orient);
// Crossing of the lines 1-2 and 3-4; true when they are parallel (|D| below 1e-6), and then 0, 0.
bool IntersRette(const double& x1, const double& y1, const double& x2, const double& y2, const double& x3,
                 const double& y3, const double& x4, const double& y4, double& x, double& y);
double DistRetta(const double& x0, const double& y0, const double& ang, const double& x, const double& y);

}   // namespace tessaro
