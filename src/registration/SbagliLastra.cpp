// The points of a thin plate judged by what they have in common: the plate passes through all of them, so that no residual
// tells a slip. The sheet's deformation is taken for a random surface whose covariance is the plate's kernel, each point
// off it by an error of its own (a smoothing spline; Wahba, Spline Models for Observational Data, 1990). How much of what
// bends is error is chosen by the likelihood of what the linear part leaves.
#include <algorithm>
#include <cmath>
#include <limits>

#include <Eigen/Cholesky>
#include <Eigen/QR>

#include "registration/Lastra.h"
#include "registration/Sbagli.h"

namespace tessaro {

namespace {

using Eigen::MatrixXd;

struct Modello {
    MatrixXd nucleo, y;   // behind the projection that takes the linear terms out
    Eigen::HouseholderQR<MatrixXd> qr;

    Modello(std::span<const PuntoNoto> punti, std::span<const std::size_t> usati) {
        const auto m = static_cast<Eigen::Index>(usati.size());
        MatrixXd p(m, 3), k(m, m);
        y.resize(m, 2);
        for (Eigen::Index i = 0; i < m; ++i) {
            const PuntoNoto& n = punti[usati[static_cast<std::size_t>(i)]];
            p.row(i) << 1, n.foglio.x, n.foglio.y;
            y.row(i) << n.reale.x, n.reale.y;
        }
        const Eigen::RowVector2d centro = p.rightCols(2).colwise().mean(), medio = y.colwise().mean();
        p.rightCols(2).rowwise() -= centro;
        y.rowwise() -= medio;
        p.rightCols(2) *= 1 / std::max(std::sqrt(p.rightCols(2).squaredNorm() / static_cast<double>(m)), 1e-300);
        for (Eigen::Index i = 0; i < m; ++i)
            for (Eigen::Index j = 0; j <= i; ++j) k(i, j) = k(j, i) = NucleoLastra((p.row(i) - p.row(j)).squaredNorm());
        qr.compute(p);
        const auto Q = qr.householderQ();
        k.applyOnTheLeft(Q.adjoint());
        k.applyOnTheRight(Q);
        y.applyOnTheLeft(Q.adjoint());
        nucleo = k.bottomRightCorner(m - 3, m - 3);
        y = y.bottomRows(m - 3).eval();
    }
    [[nodiscard]] Eigen::LLT<MatrixXd> fattori(double errore) const {
        MatrixXd a = nucleo;
        a.diagonal().array() += errore;
        return Eigen::LLT<MatrixXd>(a);
    }
    // The error's variance as a part of the surface's that is most likely, among powers of ten of the kernel's own size.
    [[nodiscard]] double errore() const {
        constexpr double parti[] = {1e-4, 1e-3, 1e-2, 1e-1, 1, 1e3};
        const double grandezza = nucleo.trace() / static_cast<double>(nucleo.rows());
        double scelto = grandezza, meglio = -std::numeric_limits<double>::infinity();
        for (const double parte : parti) {
            const auto f = fattori(parte * grandezza);
            if (f.info() != Eigen::Success) continue;
            const MatrixXd z = f.matrixL().solve(y);
            const double somma = z.squaredNorm(),
                         verosimile = -static_cast<double>(y.rows()) * std::log(std::max(somma, 1e-300))
                                      - 2 * f.matrixLLT().diagonal().array().log().sum();
            if (!(verosimile > meglio)) continue;
            meglio = verosimile;
            scelto = parte * grandezza;
        }
        return scelto;
    }
};

}   // namespace

bool EsaminaLastra(std::span<const PuntoNoto> punti, std::span<const double> pesi, EsameLastra& e) {
    constexpr std::size_t bastano = 300;   // points that the errors' part is chosen by: its time grows with their cube
    std::vector<std::size_t> usati;
    for (std::size_t i = 0; i < punti.size(); ++i)
        if (pesi[i] > 0) usati.push_back(i);
    e = {};
    e.prova.assign(punti.size(), 0);
    e.ridondanza.assign(punti.size(), 0);
    if (usati.size() < 5) return false;
    const Modello tutto(punti, usati);
    double errore = 0;
    if (usati.size() > bastano) {
        std::vector<std::size_t> alcuni;
        for (std::size_t i = 0; i < bastano; ++i) alcuni.push_back(usati[i * usati.size() / bastano]);
        errore = Modello(punti, alcuni).errore();
    } else {
        errore = tutto.errore();
    }
    const auto f = tutto.fattori(errore);
    if (f.info() != Eigen::Success) return false;
    // M = Q2 (K + error)^-1 Q2', c = M y: leaving a point out takes c_i^2 / M_ii off y'My.
    const auto m = static_cast<Eigen::Index>(usati.size());
    MatrixXd c = MatrixXd::Zero(m, 2), radice = MatrixXd::Zero(m - 3, m);
    c.bottomRows(m - 3) = f.solve(tutto.y);
    c.applyOnTheLeft(tutto.qr.householderQ());
    radice.rightCols(m - 3).setIdentity();
    radice.applyOnTheRight(tutto.qr.householderQ().adjoint());
    f.matrixL().solveInPlace(radice);
    e.somma = f.matrixL().solve(tutto.y).squaredNorm();
    e.gradi = static_cast<int>(2 * (m - 3));
    for (std::size_t i = 0; i < usati.size(); ++i) {
        const auto r = static_cast<Eigen::Index>(i);
        const double mii = radice.col(r).squaredNorm();
        if (!(mii > 0)) continue;
        e.prova[usati[i]] = c.row(r).squaredNorm() / mii;
        e.ridondanza[usati[i]] = std::min(errore * mii, 1.0);
    }
    return true;
}

}   // namespace tessaro
