// Inside the solvers of many points: one solution in the making, in matrices of Eigen. Included by the solvers alone, since
// the library takes long to compile.
#pragma once

#include <Eigen/Core>

#include "registration/MoltiPunti.h"

namespace tessaro {

// Matrices hold all points, one a row, in the frames; `peso` is 0 for those that do not count.
struct Risolutore {
    std::span<const PuntoNoto> punti;
    SoluzionePunti& s;
    Eigen::MatrixXd foglio, reale;
    Eigen::VectorXd peso;
    std::vector<std::size_t> usati;

    EsitoPunti risolvi(Metodo metodo, std::span<const double> pesi);

private:
    [[nodiscard]] Eigen::Index n() const { return foglio.rows(); }
    [[nodiscard]] EsitoPunti guasti(Metodo metodo) const;
    // The residuals of a linear fit, and what they would be without each point: r / (1 - h) with h = w a (A'WA)^-1 a', or r
    // itself for a point that does not count. The squares of the rows of `q` are the h without weights; `righe` are a
    // point's rows in it: 1 where X and Y have the same terms and unknowns of their own, 2 where they share unknowns.
    void residui(const Eigen::MatrixXd& resto, const Eigen::MatrixXd& q, int righe);
    void gradi();
    bool helmert();
    bool lineare();
    Rifiuto proiettiva();
    bool lastra();
    void poniLastra(const Eigen::MatrixXd& lineari, const Eigen::MatrixXd& c, const Eigen::MatrixXd& inversa);
    bool indietro();   // the inverse's linear part, by which Newton's method begins: the affine mapping that fits best
};

}   // namespace tessaro
