// Registration by many points: a mapping from the sheet (tenths of a millimetre, Y down) to real coordinates (the user's
// unit, Y up), found by least squares, and its inverse. Everything is solved and mapped in centred and scaled coordinates
// with both Y axes up.
//
//   helmert     4 parameters   X = a u - b v + c, Y = b u + a v + d: shift, turn, one scale
//   affine      6              X and Y linear in u, v: two scales and a shear besides
//   proiettivo  8              quotients of linear forms with one denominator; residuals least in real coordinates
//   secondo    12              X and Y polynomials of the second order
//   terzo      20              of the third
//   lastra      -              thin plate spline: passes through every point and bends least; kernel r^2 ln r^2, with a
//                              linear part (Duchon 1977; Bookstein, IEEE PAMI 11, 1989)
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "model/Registrazione.h"

namespace tessaro {

enum class Metodo : std::uint8_t { helmert, affine, proiettivo, secondo, terzo, lastra };
inline constexpr std::uint8_t numMetodi = 6;
inline constexpr int massimoLastra = 2000;   // points of a thin plate
int PuntiMinimi(Metodo m);                   // points that define it: 2, 3, 4, 6, 10, 3
int ParametriMetodo(Metodo m);               // of the least squares; 0 for the thin plate, which leaves no residuals

struct PuntoNoto {   // a point of the sheet whose real coordinates are known
    Coppia foglio, reale;
};

// The frame that points are solved in: (p - centro) / scala, the sheet's Y turned over.
struct Cornice {
    Coppia centro;
    double scala = 1;
};

class MappaPunti {
public:
    [[nodiscard]] Metodo metodo() const { return quale; }
    explicit operator bool() const { return pronta; }
    [[nodiscard]] Coppia operator()(const Coppia& foglio) const;   // forward, in real coordinates
    // Back to the sheet, to a few units of the last place: closed where there is a formula, else by Newton's method from the
    // linear part. False where the mapping folds over or has no such point; `foglio` is then left as it was.
    [[nodiscard]] bool Inversa(const Coppia& reale, Coppia& foglio) const;
    // dX/dx, dX/dy, dY/dx, dY/dy by the sheet's own coordinates, Y down.
    [[nodiscard]] std::array<double, 4> Derivate(const Coppia& foglio) const;

    // Of a thin plate: its points with their weights, so that value = Liscia + the sum of peso * PuntaLastra(r^2, raggio^2),
    // r and the radius in the unit `unita` of the sheet. Of the other methods none, and Liscia is the value.
    struct Nodo {
        Coppia foglio, peso;
    };
    [[nodiscard]] std::vector<Nodo> Nodi() const;
    [[nodiscard]] double unita() const { return foglioC.scala; }
    [[nodiscard]] Coppia Liscia(const Coppia& foglio, double raggio) const;

private:
    friend struct Risolutore;
    [[nodiscard]] Coppia inCornice(const Coppia& foglio) const;
    [[nodiscard]] Coppia valore(const Coppia& p) const;                                     // in the frames
    [[nodiscard]] Coppia valoreDerivato(const Coppia& p, std::array<double, 4>& d) const;   // and by u, v
    [[nodiscard]] bool newton(const Coppia& meta, Coppia& p) const;

    Metodo quale = Metodo::helmert;
    bool pronta = false;
    Cornice foglioC, realeC;
    std::array<double, 10> cx{},
        cy{};   // by the terms 1 u v uu uv vv uuu uuv uvv vvv; of the projective the numerators
    std::array<double, 2> denominatore{};   // 1 + g u + h v
    // The thin plate's nodes in the frame and their weights, in blocks of four; the tail's weights are 0.
    std::vector<double> nodoU, nodoV, pesoX, pesoY;
    std::array<double, 6> indietro{};   // the linear part of the inverse, where Newton's method begins
};

enum class Rifiuto : std::uint8_t {
    nessuno,
    pochi,               // fewer points than the method takes
    nonFiniti,           // a coordinate that is no number
    foglioCoincidenti,   // of a thin plate: two points at one place of the sheet; else not enough places
    realiCoincidenti,    // all real coordinates are one place
    allineati,           // on one line of the sheet, off it by less than a thousandth of their extent
    malDisposti,   // on one conic or cubic, or three of a projective's four on a line: the terms cannot be told apart
    orizzonte,     // the points lie on both sides of the perspective's horizon
    troppi,        // more than a thin plate is solved for in seconds: its time grows with their cube
};
struct EsitoPunti {
    Rifiuto rifiuto = Rifiuto::nessuno;
    int servono = 0, dati = 0;        // of pochi; of troppi the most that are taken
    std::vector<std::size_t> punti;   // which ones, of the span given, from 0
    explicit operator bool() const { return rifiuto == Rifiuto::nessuno; }
};

// What a solution says of each point that it was given. Real units; residuals are computed less given.
struct ResiduoPunto {
    Coppia residuo;   // zero at the points of a thin plate
    Coppia senza;   // what the residual would be had this point not been used (leave one out; projective: first order)
    double prova = 0;        // square of the standardised residual times the variance of a coordinate
    double ridondanza = 0;   // part of an error of this point that shows in its residual, 0 to 1; of a thin plate 0
};
struct SoluzionePunti {
    MappaPunti mappa;
    std::vector<ResiduoPunto> punti;   // as many as were given, those without weight too
    int usati = 0;
    int gradi = 0;              // degrees of freedom, 2 usati - parameters; of a thin plate 0
    double sommaQuadrati = 0;   // of the weighted residuals
    double errore = 0;   // standard error of a coordinate: sqrt(sommaQuadrati / gradi); 0 without degrees of freedom
    double medioSenza = 0;   // root mean square length of `senza` over the points used
};

// Solves with weights 0 and up (all 1 when there are none); a thin plate takes a point or leaves it.
[[nodiscard]] EsitoPunti RisolviPunti(std::span<const PuntoNoto> punti, Metodo metodo, SoluzionePunti& s,
                                      std::span<const double> pesi = {});

// The mapping's linear part at a place of the sheet, taken apart: the real plane is the sheet scaled along its axes, sheared
// and turned. Scales in real units per sheet unit.
struct ParametriMappa {
    double scala = 0;                // root of the area's enlargement
    double scalaX = 0, scalaY = 0;   // along the sheet's own axes
    double rotazione = 0;            // radians, anticlockwise, from the sheet's X axis to the real one
    double taglio = 0;               // radians by which the angle between the axes exceeds a right one
    bool specchiata = false;         // the sheet would be seen from behind
    Coppia origine;                  // where the sheet's (0, 0) lies
};
ParametriMappa ParametriDi(const MappaPunti& m, const Coppia& foglio);
// The denominator of the map scale that is a round number (1, 1.25, 1.5, 2, 2.5, 4, 5, 7.5 times a power of ten) within 2.5
// per cent of `denominatore`; 0 when there is none. Shrinkage is told against it.
double ScalaTonda(double denominatore);

}   // namespace tessaro
