// The thin plate through many points.
#include <cmath>

#include <Eigen/Cholesky>
#include <Eigen/QR>

#include "registration/Lastra.h"
#include "registration/Risolutore.h"

namespace tessaro {

using Eigen::MatrixXd;

// With P the linear terms and Q2 an orthonormal basis of what they leave, the weights are c = Q2 (Q2' K Q2)^-1 Q2' y:
// the projected kernel is positive definite. M = Q2 (...)^-1 Q2' gives what each point would miss by if it were left out:
// c_i / M_ii (Rippa, Adv. Comput. Math. 11, 1999).
bool Risolutore::lastra() {
    const auto m = static_cast<Eigen::Index>(usati.size());
    MatrixXd k(m, m), p(m, 3), y(m, 2);
    for (Eigen::Index i = 0; i < m; ++i) {
        const auto pi = static_cast<Eigen::Index>(usati[static_cast<std::size_t>(i)]);
        p.row(i) << 1, foglio(pi, 0), foglio(pi, 1);
        y.row(i) = reale.row(pi);
        for (Eigen::Index q = 0; q <= i; ++q) k(i, q) = k(q, i) = NucleoLastra((p.row(i) - p.row(q)).squaredNorm());
    }
    const Eigen::HouseholderQR<MatrixXd> qr(p);
    const auto Q = qr.householderQ();
    k.applyOnTheLeft(Q.adjoint());
    k.applyOnTheRight(Q);
    const Eigen::Index resto = m - 3;
    MatrixXd qy = y;
    qy.applyOnTheLeft(Q.adjoint());
    MatrixXd c = MatrixXd::Zero(m, 2), inversa = MatrixXd::Zero(m, m);
    if (resto > 0) {
        const Eigen::LLT<MatrixXd> llt(k.bottomRightCorner(resto, resto));
        if (llt.info() != Eigen::Success) return false;
        c.bottomRows(resto) = llt.solve(qy.bottomRows(resto));
        MatrixXd radice = MatrixXd::Zero(resto, m);   // L^-1 Q2', so that M = radice' radice
        radice.rightCols(resto).setIdentity();
        radice.applyOnTheRight(Q.adjoint());
        llt.matrixL().solveInPlace(radice);
        inversa.noalias() = radice.transpose() * radice;
    }
    const MatrixXd lineari = qr.matrixQR().topLeftCorner(3, 3).triangularView<Eigen::Upper>().solve(
        qy.topRows(3) - k.topRightCorner(3, resto) * c.bottomRows(resto));
    c.applyOnTheLeft(Q);
    poniLastra(lineari, c, inversa);
    return true;
}

void Risolutore::poniLastra(const MatrixXd& lineari, const MatrixXd& c, const MatrixXd& inversa) {
    MappaPunti& mappa = s.mappa;
    const std::size_t m = usati.size(), interi = (m + bloccoLastra - 1) / bloccoLastra * bloccoLastra;
    for (auto* v : {&mappa.nodoU, &mappa.nodoV, &mappa.pesoX, &mappa.pesoY}) v->assign(interi, 0);
    mappa.cx = {lineari(0, 0), lineari(1, 0), lineari(2, 0)};
    mappa.cy = {lineari(0, 1), lineari(1, 1), lineari(2, 1)};
    const double scala = mappa.realeC.scala;
    s.punti.assign(static_cast<std::size_t>(n()), {});
    double somma = 0;
    for (std::size_t i = 0; i < m; ++i) {
        const auto r = static_cast<Eigen::Index>(i), p = static_cast<Eigen::Index>(usati[i]);
        mappa.nodoU[i] = foglio(p, 0);
        mappa.nodoV[i] = foglio(p, 1);
        mappa.pesoX[i] = c(r, 0);
        mappa.pesoY[i] = c(r, 1);
        ResiduoPunto& q = s.punti[usati[i]];
        const double mii = inversa(r, r), colonna = inversa.col(r).squaredNorm();
        if (!(mii > 0)) continue;
        // The node's weight is the given less what the others say, by M_ii: a residual computed less given is its negative.
        q.senza = {-c(r, 0) / mii * scala, -c(r, 1) / mii * scala};
        q.prova = c.row(r).squaredNorm() / colonna * scala * scala;
        somma += q.senza.x * q.senza.x + q.senza.y * q.senza.y;
    }
    s.medioSenza = std::sqrt(somma / static_cast<double>(m));
    for (std::size_t i = 0; i < punti.size(); ++i) {
        if (peso(static_cast<Eigen::Index>(i)) > 0) continue;
        const Coppia dove = mappa(punti[i].foglio);
        s.punti[i].residuo = s.punti[i].senza = {dove.x - punti[i].reale.x, dove.y - punti[i].reale.y};
    }
}

}   // namespace tessaro
