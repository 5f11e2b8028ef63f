// The least squares of the mappings by many points.
#include <algorithm>
#include <cmath>
#include <limits>

#include <Eigen/QR>

#include "registration/Risolutore.h"

namespace tessaro {

namespace {

using Eigen::MatrixXd;
using Eigen::VectorXd;

constexpr double rangoMinimo = 1e-9;   // a pivot below this part of the largest: terms that cannot be told apart

Cornice corniceDi(std::span<const PuntoNoto> punti, std::span<const std::size_t> usati, Coppia PuntoNoto::*quale) {
    Cornice c;
    const auto n = static_cast<double>(usati.size());
    for (const std::size_t i : usati) {
        c.centro.x += (punti[i].*quale).x / n;
        c.centro.y += (punti[i].*quale).y / n;
    }
    double somma = 0;
    for (const std::size_t i : usati) {
        const Coppia& p = punti[i].*quale;
        somma += std::pow(p.x - c.centro.x, 2) + std::pow(p.y - c.centro.y, 2);
    }
    c.scala = std::sqrt(somma / n);
    return c;
}

int terminiDi(Metodo m) { return m == Metodo::secondo ? 6 : m == Metodo::terzo ? 10 : 3; }

void termini(double u, double v, int quanti, double* t) {
    const double tutti[] = {1, u, v, u * u, u * v, v * v, u * u * u, u * u * v, u * v * v, v * v * v};
    std::copy_n(tutti, quanti, t);
}

// Height of the points over their main direction, as a part of their extent along it.
bool allineati(const MatrixXd& p) {
    constexpr double parte = 0.001;
    const double suu = p.col(0).squaredNorm(), svv = p.col(1).squaredNorm(), suv = p.col(0).dot(p.col(1));
    const double media = (suu + svv) / 2, differenza = std::hypot((suu - svv) / 2, suv);
    return media - differenza <= parte * parte * (media + differenza);
}

// The points that lie where another one does, in the frame.
std::vector<std::size_t> doppi(const MatrixXd& p, std::span<const std::size_t> usati) {
    constexpr double stesso = 1e-9;
    std::vector<std::size_t> ordine(usati.size()), trovati;
    for (std::size_t i = 0; i < ordine.size(); ++i) ordine[i] = i;
    const auto riga = [](std::size_t i) { return static_cast<Eigen::Index>(i); };
    std::sort(ordine.begin(), ordine.end(),
              [&](std::size_t a, std::size_t b) { return p(riga(a), 0) < p(riga(b), 0); });
    for (std::size_t i = 0; i < ordine.size(); ++i)
        for (std::size_t j = i + 1; j < ordine.size() && p(riga(ordine[j]), 0) - p(riga(ordine[i]), 0) <= stesso; ++j)
            if (std::fabs(p(riga(ordine[j]), 1) - p(riga(ordine[i]), 1)) <= stesso) {
                trovati.push_back(usati[ordine[i]]);
                trovati.push_back(usati[ordine[j]]);
            }
    std::sort(trovati.begin(), trovati.end());
    trovati.erase(std::unique(trovati.begin(), trovati.end()), trovati.end());
    return trovati;
}

MatrixXd coordinate(std::span<const PuntoNoto> punti, std::span<const std::size_t> quali, const Cornice& c,
                    Coppia PuntoNoto::*campo, double versoY) {
    MatrixXd m(static_cast<Eigen::Index>(quali.size()), 2);
    for (std::size_t i = 0; i < quali.size(); ++i) {
        const Coppia& p = punti[quali[i]].*campo;
        m.row(static_cast<Eigen::Index>(i)) << (p.x - c.centro.x) / c.scala, versoY * (p.y - c.centro.y) / c.scala;
    }
    return m;
}

}   // namespace

void Risolutore::residui(const MatrixXd& resto, const MatrixXd& q, int righe) {
    s.punti.assign(static_cast<std::size_t>(n()), {});
    s.sommaQuadrati = 0;
    double somma = 0;
    for (Eigen::Index i = 0; i < n(); ++i) {
        ResiduoPunto& p = s.punti[static_cast<std::size_t>(i)];
        const Eigen::Vector2d r = resto.row(i).transpose();
        Eigen::Matrix2d h = Eigen::Matrix2d::Identity() * q.row(righe * i).squaredNorm();
        if (righe == 2) h = q.middleRows(2 * i, 2) * q.middleRows(2 * i, 2).transpose();
        const bool conta = peso(i) > 0;
        const Eigen::Matrix2d k = conta ? Eigen::Matrix2d(Eigen::Matrix2d::Identity() - peso(i) * h)
                                        : Eigen::Matrix2d(Eigen::Matrix2d::Identity() + h);
        // A point that alone decides an unknown has no residual, and nothing to be measured against.
        const double det = k(0, 0) * k(1, 1) - k(0, 1) * k(1, 0);
        Eigen::Vector2d corretto = Eigen::Vector2d::Zero();
        if (det > 1e-12) corretto << (k(1, 1) * r(0) - k(0, 1) * r(1)) / det, (k(0, 0) * r(1) - k(1, 0) * r(0)) / det;
        const Eigen::Vector2d senza = conta ? corretto : r;
        p.residuo = {r.x() * s.mappa.realeC.scala, r.y() * s.mappa.realeC.scala};
        p.senza = {senza.x() * s.mappa.realeC.scala, senza.y() * s.mappa.realeC.scala};
        p.prova = r.dot(corretto) * s.mappa.realeC.scala * s.mappa.realeC.scala;
        if (!conta) continue;
        p.ridondanza = std::clamp((k(0, 0) + k(1, 1)) / 2, 0.0, 1.0);
        s.sommaQuadrati += peso(i) * (p.residuo.x * p.residuo.x + p.residuo.y * p.residuo.y);
        somma += p.senza.x * p.senza.x + p.senza.y * p.senza.y;
    }
    s.medioSenza = std::sqrt(somma / s.usati);
}

void Risolutore::gradi() {
    s.gradi = std::max(0, 2 * s.usati - ParametriMetodo(s.mappa.quale));
    s.errore = s.gradi > 0 ? std::sqrt(s.sommaQuadrati / s.gradi) : 0;
}

// In complex numbers, both frames centred: w = k z, k = sum(conj(z) w) / sum |z|^2.
bool Risolutore::helmert() {
    double re = 0, im = 0, zz = 0, somma = 0;
    Eigen::RowVector2d mz = Eigen::RowVector2d::Zero(), mw = mz;
    for (Eigen::Index i = 0; i < n(); ++i) {
        mz += peso(i) * foglio.row(i);
        mw += peso(i) * reale.row(i);
        somma += peso(i);
    }
    mz /= somma;
    mw /= somma;
    const MatrixXd z = foglio.rowwise() - mz, w = reale.rowwise() - mw;
    for (Eigen::Index i = 0; i < n(); ++i) {
        re += peso(i) * (z(i, 0) * w(i, 0) + z(i, 1) * w(i, 1));
        im += peso(i) * (z(i, 0) * w(i, 1) - z(i, 1) * w(i, 0));
        zz += peso(i) * z.row(i).squaredNorm();
    }
    if (!(zz > 0)) return false;
    const double a = re / zz, b = im / zz;
    MappaPunti& m = s.mappa;
    m.cx = {mw(0) - a * mz(0) + b * mz(1), a, -b};
    m.cy = {mw(1) - b * mz(0) - a * mz(1), b, a};
    MatrixXd resto(n(), 2), q(n(), 2);
    for (Eigen::Index i = 0; i < n(); ++i) {
        resto.row(i) << a * z(i, 0) - b * z(i, 1) - w(i, 0), b * z(i, 0) + a * z(i, 1) - w(i, 1);
        q.row(i) << 1 / std::sqrt(somma), z.row(i).norm() / std::sqrt(zz);
    }
    residui(resto, q, 1);
    return true;
}

namespace {

// a R^-1 with the columns in the factorisation's order: its rows' squares are the leverages, weights not counted.
MatrixXd intermedia(const Eigen::ColPivHouseholderQR<MatrixXd>& qr, const MatrixXd& a, int quanti) {
    const MatrixXd ordinata = a * qr.colsPermutation();
    const MatrixXd r = qr.matrixQR().topLeftCorner(quanti, quanti).triangularView<Eigen::Upper>();
    return r.transpose().triangularView<Eigen::Lower>().solve(ordinata.transpose()).transpose();
}

}   // namespace

bool Risolutore::lineare() {
    const int quanti = terminiDi(s.mappa.quale);
    MatrixXd a(n(), quanti);
    for (Eigen::Index i = 0; i < n(); ++i) {
        double t[10];
        termini(foglio(i, 0), foglio(i, 1), quanti, t);
        a.row(i) = Eigen::Map<const Eigen::RowVectorXd>(t, quanti);
    }
    const VectorXd radici = peso.cwiseSqrt();
    Eigen::ColPivHouseholderQR<MatrixXd> qr(radici.asDiagonal() * a);
    qr.setThreshold(rangoMinimo);
    if (qr.rank() < quanti) return false;
    const MatrixXd c = qr.solve(radici.asDiagonal() * reale);
    for (int k = 0; k < quanti; ++k) {
        s.mappa.cx[static_cast<std::size_t>(k)] = c(k, 0);
        s.mappa.cy[static_cast<std::size_t>(k)] = c(k, 1);
    }
    residui(a * c - reale, intermedia(qr, a, quanti), 1);
    return true;
}

namespace {

// Rows of the linearised quotient: by a b c d e f g h of X = (a u + b v + c) / D, Y = (d u + e v + f) / D.
void righeProiettive(const VectorXd& h, double u, double v, Eigen::Ref<MatrixXd> j, Eigen::Vector2d& valore,
                     double& D) {
    D = 1 + h(6) * u + h(7) * v;
    valore = {(h(0) * u + h(1) * v + h(2)) / D, (h(3) * u + h(4) * v + h(5)) / D};
    j.setZero();
    j.row(0) << u / D, v / D, 1 / D, 0, 0, 0, -valore.x() * u / D, -valore.x() * v / D;
    j.row(1) << 0, 0, 0, u / D, v / D, 1 / D, -valore.y() * u / D, -valore.y() * v / D;
}

}   // namespace

// The linear equations X D = numerator first, then Gauss's method on the residuals themselves, its steps halved while
// they do not help.
Rifiuto Risolutore::proiettiva() {
    MatrixXd a = MatrixXd::Zero(2 * n(), 8);
    VectorXd l(2 * n()), w(2 * n());
    for (Eigen::Index i = 0; i < n(); ++i) {
        const double u = foglio(i, 0), v = foglio(i, 1), X = reale(i, 0), Y = reale(i, 1);
        a.row(2 * i) << u, v, 1, 0, 0, 0, -u * X, -v * X;
        a.row(2 * i + 1) << 0, 0, 0, u, v, 1, -u * Y, -v * Y;
        l.segment<2>(2 * i) << X, Y;
        w.segment<2>(2 * i).setConstant(std::sqrt(peso(i)));
    }
    Eigen::ColPivHouseholderQR<MatrixXd> qr(w.asDiagonal() * a);
    qr.setThreshold(rangoMinimo);
    if (qr.rank() < 8) return Rifiuto::malDisposti;
    VectorXd h = qr.solve(w.asDiagonal() * l);
    MatrixXd j(2 * n(), 8), resto(n(), 2);
    const auto calcola = [&](const VectorXd& x) {
        double somma = 0;
        for (Eigen::Index i = 0; i < n(); ++i) {
            Eigen::Vector2d valore;
            double D = 0;
            righeProiettive(x, foglio(i, 0), foglio(i, 1), j.middleRows(2 * i, 2), valore, D);
            if (peso(i) > 0 && !(D > 0)) return std::numeric_limits<double>::infinity();
            resto.row(i) << valore.x() - reale(i, 0), valore.y() - reale(i, 1);
            if (peso(i) > 0) somma += peso(i) * resto.row(i).squaredNorm();
        }
        return somma;
    };
    double somma = calcola(h);
    if (!std::isfinite(somma)) return Rifiuto::orizzonte;
    constexpr int giri = 30;
    for (int giro = 0; giro < giri; ++giro) {
        VectorXd r(2 * n());
        for (Eigen::Index i = 0; i < n(); ++i) r.segment<2>(2 * i) = resto.row(i).transpose();
        qr.compute(w.asDiagonal() * j);
        const VectorXd passo = qr.solve(w.asDiagonal() * r);
        double quanto = 1, nuova = somma;
        for (int mezzi = 0; mezzi < 20; ++mezzi, quanto /= 2)
            if (nuova = calcola(h - quanto * passo); nuova <= somma) break;
        if (!(nuova <= somma)) {
            (void)calcola(h);
            break;
        }
        h -= quanto * passo;
        const bool fermo = somma - nuova <= 1e-15 * somma || passo.norm() <= 1e-14 * h.norm();
        somma = nuova;
        if (fermo) break;
    }
    qr.compute(w.asDiagonal() * j);
    s.mappa.cx = {h(2), h(0), h(1)};
    s.mappa.cy = {h(5), h(3), h(4)};
    s.mappa.denominatore = {h(6), h(7)};
    residui(resto, intermedia(qr, j, 8), 2);
    return Rifiuto::nessuno;
}

bool Risolutore::indietro() {
    const auto m = static_cast<Eigen::Index>(usati.size());
    MatrixXd a(m, 3), f(m, 2);
    for (Eigen::Index i = 0; i < m; ++i) {
        const auto p = static_cast<Eigen::Index>(usati[static_cast<std::size_t>(i)]);
        a.row(i) << 1, reale(p, 0), reale(p, 1);
        f.row(i) = foglio.row(p);
    }
    MappaPunti& mappa = s.mappa;
    if (mappa.quale == Metodo::helmert || mappa.quale == Metodo::affine) {
        const double det = mappa.cx[1] * mappa.cy[2] - mappa.cx[2] * mappa.cy[1];
        if (!(std::fabs(det) > 0)) return false;
        const double a11 = mappa.cy[2] / det, a12 = -mappa.cx[2] / det, a21 = -mappa.cy[1] / det,
                     a22 = mappa.cx[1] / det;
        mappa.indietro = {-a11 * mappa.cx[0] - a12 * mappa.cy[0], a11, a12,
                          -a21 * mappa.cx[0] - a22 * mappa.cy[0], a21, a22};
        return true;
    }
    const MatrixXd c = a.colPivHouseholderQr().solve(f);
    mappa.indietro = {c(0, 0), c(1, 0), c(2, 0), c(0, 1), c(1, 1), c(2, 1)};
    return c.allFinite();
}

// Coordinates whose squares overflow are refused as what is no number.
EsitoPunti Risolutore::guasti(Metodo metodo) const {
    EsitoPunti e;
    e.servono = PuntiMinimi(metodo);
    e.dati = static_cast<int>(usati.size());
    for (const std::size_t i : usati)
        for (const double v : {punti[i].foglio.x, punti[i].foglio.y, punti[i].reale.x, punti[i].reale.y})
            if (!(std::fabs(v) < 1e100) && (e.punti.empty() || e.punti.back() != i)) e.punti.push_back(i);
    if (!e.punti.empty()) {
        e.rifiuto = Rifiuto::nonFiniti;
    } else if (e.dati < e.servono) {
        e.rifiuto = Rifiuto::pochi;
    } else if (metodo == Metodo::lastra && e.dati > massimoLastra) {
        e.rifiuto = Rifiuto::troppi;
        e.servono = massimoLastra;
    }
    return e;
}

EsitoPunti Risolutore::risolvi(Metodo metodo, std::span<const double> pesi) {
    s = {};
    peso = VectorXd::Ones(static_cast<Eigen::Index>(punti.size()));
    std::vector<std::size_t> tutti(punti.size());
    for (std::size_t i = 0; i < punti.size(); ++i) {
        double& w = peso(static_cast<Eigen::Index>(i));
        tutti[i] = i;
        if (i < pesi.size()) w = std::max(0.0, pesi[i]);
        if (w > 0) usati.push_back(i);
    }
    EsitoPunti e = guasti(metodo);
    if (!e) return e;
    MappaPunti& m = s.mappa;
    m.quale = metodo;
    m.foglioC = corniceDi(punti, usati, &PuntoNoto::foglio);
    m.realeC = corniceDi(punti, usati, &PuntoNoto::reale);
    s.usati = e.dati;
    if (!(m.foglioC.scala > 0) || !(m.realeC.scala > 0)) {
        e.rifiuto = m.foglioC.scala > 0 ? Rifiuto::realiCoincidenti : Rifiuto::foglioCoincidenti;
        e.punti = usati;
        return e;
    }
    foglio = coordinate(punti, tutti, m.foglioC, &PuntoNoto::foglio, -1);
    reale = coordinate(punti, tutti, m.realeC, &PuntoNoto::reale, 1);
    const MatrixXd presi = coordinate(punti, usati, m.foglioC, &PuntoNoto::foglio, -1);
    if (metodo != Metodo::helmert && allineati(presi)) {
        e.rifiuto = Rifiuto::allineati;
        return e;
    }
    if (metodo == Metodo::lastra && !(e.punti = doppi(presi, usati)).empty()) {
        e.rifiuto = Rifiuto::foglioCoincidenti;
        return e;
    }
    if (metodo == Metodo::proiettivo) {
        e.rifiuto = proiettiva();
    } else {
        const bool bene = metodo == Metodo::helmert ? helmert() : metodo == Metodo::lastra ? lastra() : lineare();
        if (!bene) e.rifiuto = Rifiuto::malDisposti;
    }
    if (!e) return e;
    gradi();
    if (!indietro()) e.rifiuto = Rifiuto::realiCoincidenti;
    m.pronta = e.rifiuto == Rifiuto::nessuno;
    return e;
}

EsitoPunti RisolviPunti(std::span<const PuntoNoto> punti, Metodo metodo, SoluzionePunti& s,
                        std::span<const double> pesi) {
    return Risolutore{punti, s, {}, {}, {}, {}}.risolvi(metodo, pesi);
}

}   // namespace tessaro
