// Systems of linear equations by elimination, with a trace of every step on the console.
#pragma once

#include <cstdio>

namespace tessaro {

inline constexpr int colonneGauss = 10;   // row stride of a matrix

// Solves a x = b over the leading n by n block, n below 10; matrix and right side are worked on in place. 0 when solved,
// 1 when the last row depends on the others, -1 when a column has no pivot; x is then left as it was.
// The matrix, b and x have a row and a slot n of their own: x[n] = b[n] / a[n][n] is a spare that nobody reads.
int gauss(double a[][colonneGauss], double* b, double* x, int n);

// Brings the first row from k on with a column k that is not 0 to place k: no comparison of magnitudes. -1 without one.
int pivot(int n, int k, double a[][colonneGauss], double* b);

// While one lives nothing is traced: for whoever solves over and over, or only to look.
struct SenzaTraccia {
    SenzaTraccia();
    ~SenzaTraccia();
    SenzaTraccia(const SenzaTraccia&) = delete;
    SenzaTraccia& operator=(const SenzaTraccia&) = delete;
};

void stampa(double a[][colonneGauss], int n);   // the matrix, on the console
void stampa_sol(const double* x, int n);        // the unknowns, three digits each

// Trying the solver by hand: the number of unknowns, the matrix by rows and the right side, a number a line.
void ProvaGauss(std::FILE* in);
void leggi(std::FILE* in, double a[][colonneGauss], int n);
void leggi_tn(std::FILE* in, double* b, int n);

}   // namespace tessaro
