// Elimination as it is done by hand, and its trace.
#include "registration/gauss.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "platform/Console.h"
#include "text/PasUtils.h"

namespace tessaro {

// --- the trace: `f` is the console, null when nobody reads it, and then no line is even made

namespace {

constinit int zitti = 0;   // SenzaTraccia that live

std::FILE* traccia() { return zitti > 0 ? nullptr : ConsoleOut(); }

std::string treCifre(double v) {
    char b[32];
    const auto fine = std::to_chars(b, b + sizeof b, v, std::chars_format::general, 3).ptr;
    return {b, fine};
}

std::string righe(double a[][colonneGauss], int n) {
    std::string s = "Matrice\n";
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) s += "\t" + treCifre(a[i][j]);
        s += "\n";
    }
    return s;
}

void mostraPasso(std::FILE* f, int n, int k, double a[][colonneGauss]) {
    if (!f) return;
    ConsoleClear();
    std::fprintf(f, " Pivoting: passo (%d)\n%s", k, righe(a, n).c_str());
    ConsolePause();
}

}   // namespace

SenzaTraccia::SenzaTraccia() { ++zitti; }
SenzaTraccia::~SenzaTraccia() { --zitti; }

void stampa(double a[][colonneGauss], int n) {
    if (std::FILE* f = traccia()) std::fputs(righe(a, n).c_str(), f);
}

void stampa_sol(const double* x, int n) {
    std::FILE* f = traccia();
    if (!f) return;
    std::string s = "Vettore soluzioni\n";
    for (int i = 0; i < n; ++i) s += "\tx(" + std::to_string(i) + ")=" + treCifre(x[i]) + "\n";
    std::fputs(s.c_str(), f);
    std::fflush(f);
}

// --- the solver

namespace {

void scambiaRighe(int n, int k, int j, double a[][colonneGauss], double* b) {
    std::swap_ranges(a[k] + k, a[k] + n, a[j] + k);
    std::swap(b[k], b[j]);
}

// Kept: the first row that is not 0 serves, however small; a NaN is not 0.
int perno(std::FILE* f, int n, int k, double a[][colonneGauss], double* b) {
    mostraPasso(f, n, k, a);
    int j = k;
    while (j < n && a[j][k] == 0) ++j;
    if (j == n) {
        if (f) std::fputs("Pivot NULLO !!\n\n", f);
        return -1;
    }
    if (f) std::fprintf(f, "matr[j][j] non nullo per j=%d\n", j + 1);
    if (j == k) return 0;
    if (f) std::fprintf(f, "Scambio Riga %d con %d\n", k, j);
    scambiaRighe(n, k, j, a, b);
    return 0;
}

void eliminaSotto(int n, int k, double a[][colonneGauss], double* b) {
    for (int i = k + 1; i < n; ++i) {
        const double m = a[i][k] / a[k][k];
        for (int j = k; j < n; ++j) a[i][j] -= a[k][j] * m;
        b[i] -= b[k] * m;
    }
}

void risali(int n, double a[][colonneGauss], const double* b, double* x) {
    for (int i = n - 1; i >= 0; --i) {
        double s = b[i];
        for (int j = i + 1; j < n; ++j) s -= a[i][j] * x[j];
        x[i] = s / a[i][i];
    }
}

}   // namespace

int pivot(int n, int k, double a[][colonneGauss], double* b) { return perno(traccia(), n, k, a, b); }

int gauss(double a[][colonneGauss], double* b, double* x, int n) {
    std::FILE* const f = traccia();   // asked once: a mesh solves by the thousand
    for (int k = 0; k < n - 1; ++k) {
        if (perno(f, n, k, a, b) != 0) return -1;
        eliminaSotto(n, k, a, b);
    }
    if (a[n - 1][n - 1] == 0) {
        if (f) std::fputs("Righe linearmente dipendenti. Soluzioni infinite\n\n", f);
        return 1;
    }
    x[n] = b[n] / a[n][n];
    risali(n, a, b, x);
    return 0;
}

// --- by hand

namespace {

double leggiNumero(std::FILE* in) {
    PStr255 s("");
    FscanfStringLn(in, s);
    return Str2Num(s);
}

}   // namespace

void leggi(std::FILE* in, double a[][colonneGauss], int n) {
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) a[i][j] = leggiNumero(in);
}

void leggi_tn(std::FILE* in, double* b, int n) {
    for (int i = 0; i < n; ++i) b[i] = leggiNumero(in);
}

void ProvaGauss(std::FILE* in) {
    constexpr double massimo = colonneGauss - 1;
    const double incognite = leggiNumero(in);
    if (!(incognite >= 1 && incognite <= massimo)) return;
    const int n = static_cast<int>(incognite);
    double a[colonneGauss][colonneGauss] = {}, b[colonneGauss] = {}, x[colonneGauss] = {};
    leggi(in, a, n);
    leggi_tn(in, b, n);
    if (gauss(a, b, x, n) != 0) return;
    stampa(a, n);
    stampa_sol(x, n);
}

}   // namespace tessaro
