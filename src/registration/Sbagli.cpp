// Points in error: the tests and the robust estimation.
#include "registration/Sbagli.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace tessaro {

namespace {

constexpr double livello = 0.035;   // chance of a false alarm, over all points

double lungo(const Coppia& c) { return std::hypot(c.x, c.y); }

// Numbers that are the same at each look: the same table must not be judged in two ways.
class Sorte {
    std::uint64_t stato = 0x9E3779B97F4A7C15;

public:
    std::size_t sotto(std::size_t n) {
        stato ^= stato << 13;
        stato ^= stato >> 7;
        stato ^= stato << 17;
        return static_cast<std::size_t>((stato >> 11) % n);
    }
};

// The residual length that `quanti` of all points stay under.
double ordinato(std::vector<double>& l, std::size_t quanti) {
    std::nth_element(l.begin(), l.begin() + static_cast<std::ptrdiff_t>(quanti - 1), l.end());
    return l[quanti - 1];
}

// The standard error of a coordinate when a part q of the lengths stays under l: they follow Rayleigh's law.
double scalaDa(double l, double q) { return l / std::sqrt(-2 * std::log(1 - q)); }

// Where the robust estimation begins: the points that the best try went by (1, else 0), and the scale by its median residual.
bool partenzaRobusta(std::span<const PuntoNoto> punti, Metodo metodo, std::vector<double>& partenza, double& scala) {
    const std::size_t n = punti.size(), k = static_cast<std::size_t>(PuntiMinimi(metodo));
    SoluzionePunti s;
    partenza.assign(n, 1);
    if (metodo == Metodo::lastra || !RisolviPunti(punti, metodo, s) || s.gradi == 0) return false;
    const std::size_t meta = std::min(n, (n + k + 1) / 2);
    std::vector<double> primi(n);
    std::transform(s.punti.begin(), s.punti.end(), primi.begin(),
                   [](const ResiduoPunto& p) { return lungo(p.residuo); });
    double meglio = ordinato(primi, meta);
    std::vector<double> prova(n);
    SoluzionePunti t;
    std::vector<PuntoNoto> alcuni;
    std::vector<double> lunghi(n);
    const auto tenta = [&] {
        alcuni.clear();
        for (std::size_t i = 0; i < n; ++i)
            if (prova[i] > 0) alcuni.push_back(punti[i]);
        if (!RisolviPunti(alcuni, metodo, t)) return;
        for (std::size_t i = 0; i < n; ++i) {
            const Coppia q = t.mappa(punti[i].foglio);
            const double l = std::hypot(q.x - punti[i].reale.x, q.y - punti[i].reale.y);
            lunghi[i] = std::isfinite(l) ? l : std::numeric_limits<double>::infinity();
        }
        const double l = ordinato(lunghi, meta);
        if (!(l < meglio)) return;
        meglio = l;
        partenza = prova;
    };
    // Each try looks at every point: many points are tried less often, as their scale is sure sooner.
    const std::size_t prove = std::clamp<std::size_t>(60000 / n, 20, 300);
    constexpr std::size_t pochi = 60;
    for (std::size_t i = 0; n <= pochi && i < n; ++i) {   // all but one, too: what a single slip among few asks for
        prova.assign(n, 1);
        prova[i] = 0;
        tenta();
    }
    Sorte sorte;
    std::vector<std::size_t> ordine(n);
    std::iota(ordine.begin(), ordine.end(), std::size_t{0});
    for (std::size_t i = 0; i < prove; ++i) {
        prova.assign(n, 0);
        for (std::size_t j = 0; j < k; ++j) {
            std::swap(ordine[j], ordine[j + sorte.sotto(n - j)]);
            prova[ordine[j]] = 1;
        }
        tenta();
    }
    const double q = static_cast<double>(meta) / static_cast<double>(n + 1);
    scala = scalaDa(meglio, q) * (1 + 5 / static_cast<double>(2 * n));
    return true;
}

}   // namespace

bool StimaRobusta(std::span<const PuntoNoto> punti, Metodo metodo, SoluzionePunti& s, std::vector<double>& pesi,
                  double& scala) {
    const std::size_t n = punti.size();
    std::vector<double> partenza;
    pesi.assign(n, 1);
    if (!partenzaRobusta(punti, metodo, partenza, scala)) return false;
    if (!RisolviPunti(punti, metodo, s, partenza)) return false;
    constexpr int giri = 40;
    constexpr double taglio = 5.1;   // Tukey's constant for residuals of two coordinates, 95 per cent efficient
    for (int giro = 0; giro < giri && scala > 0; ++giro) {
        double cambio = 0;
        for (std::size_t i = 0; i < n; ++i) {
            const double z = lungo(s.punti[i].residuo) / (taglio * scala);
            const double w = z < 1 ? (1 - z * z) * (1 - z * z) : 0;
            cambio = std::max(cambio, std::fabs(w - pesi[i]));
            pesi[i] = w;
        }
        if (!RisolviPunti(punti, metodo, s, pesi)) return false;
        if (cambio < 1e-6) break;
    }
    return true;
}

namespace {

// What the points are judged by: a sum of squares on `gradi` degrees of freedom, and of each the part of it that goes with
// the point.
struct Misura {
    double somma = 0;
    int gradi = 0;
    std::vector<double> prova, ridondanza;
};

Misura misuraDi(std::span<const PuntoNoto> punti, Metodo metodo, const SoluzionePunti& s,
                const std::vector<double>& pesi) {
    Misura m;
    if (metodo == Metodo::lastra) {
        EsameLastra l;
        if (EsaminaLastra(punti, pesi, l)) m = {l.somma, l.gradi, std::move(l.prova), std::move(l.ridondanza)};
        return m;
    }
    m.somma = s.sommaQuadrati;
    m.gradi = s.gradi;
    for (const ResiduoPunto& p : s.punti) {
        m.prova.push_back(p.prova);
        m.ridondanza.push_back(p.ridondanza);
    }
    return m;
}

// How likely a good point's residual is as large as that of `i`, judged by the others. With T its standardised square and
// R the sum of squares of the others on d degrees of freedom, T / R d / 2 follows F(2, d), whose tail is closed.
double probabilita(const Misura& m, std::size_t i, bool usato) {
    const double T = m.prova[i], gradi = usato ? m.gradi - 2 : m.gradi;
    const double R = std::max(usato ? m.somma - T : m.somma, 0.0);
    if (gradi < 1 || !(T > 0)) return 1;
    return R > 0 ? std::pow(1 + T / R, -gradi / 2) : 0;
}

// A sheet that bends more at one place than elsewhere, as at a fold, has large squares there with no point in error. Where
// most of what a thin plate bends is the sheet's own, it is the square that four fifths stay under that stands for the variance.
double probabilitaPiegata(const Misura& m, std::size_t i, const std::vector<double>& pesi) {
    constexpr double parte = 0.8, proprio = 0.2;
    std::vector<double> t;
    double ridondanza = 0;
    for (std::size_t j = 0; j < pesi.size(); ++j) {
        if (!(pesi[j] > 0)) continue;
        t.push_back(m.prova[j]);
        ridondanza += m.ridondanza[j];
    }
    const auto quanti = static_cast<double>(t.size());
    if (ridondanza > proprio * quanti) return 0;
    const auto qui = t.begin() + static_cast<std::ptrdiff_t>(parte * (quanti - 1));
    std::nth_element(t.begin(), qui, t.end());
    const double varianza = *qui / (-2 * std::log(1 - parte)), gradi = quanti - 3;
    return varianza > 0 ? std::pow(1 + m.prova[i] / (gradi * varianza), -gradi / 2) : 1;
}

// Rounding of coordinates: residuals below this are none.
double arrotondamento(std::span<const PuntoNoto> punti) {
    double m = 0;
    for (const PuntoNoto& p : punti) m = std::max({m, std::fabs(p.reale.x), std::fabs(p.reale.y)});
    return 1e-11 * m;
}

// The chance that an error of eight standard errors at a point of this redundancy is taken for a slip: the tail of the
// noncentral F(2, d) beyond the bound, d = gradi - 2, a mixture of beta tails by Poisson's weights.
double potenzaDi(double ridondanza, int gradi, double livelloPunto) {
    constexpr double errori = 8;
    const double b = (gradi - 2) / 2.0, meta = errori * errori * ridondanza / 2;
    if (b <= 0) return 0;
    const double x = 1 - std::pow(livelloPunto, 1 / b);
    double peso = std::exp(-meta), termine = livelloPunto, coda = termine, potenza = 0;
    constexpr int termini = 200;
    for (int j = 0; j < termini; ++j) {
        potenza += peso * coda;
        peso *= meta / (j + 1);
        termine *= x * (b + j) / (j + 1);
        coda += termine;
    }
    return std::min(potenza, 1.0);
}

struct Eliminazione {
    std::span<const PuntoNoto> punti;
    Metodo metodo;
    EsameSbagli& e;
    std::vector<double> pesi;
    double minimo;
    Misura misura{};

    bool risolvi() {
        if (!RisolviPunti(punti, metodo, e.buona, pesi)) return false;
        misura = misuraDi(punti, metodo, e.buona, pesi);
        return true;
    }

    // What could be found at all, by the redundancy of the points. More points of the same spread share what is not redundant.
    void misuraPotenza() {
        constexpr double basta = 0.95, meta = 0.5;
        constexpr int massimi = 1000;
        if (misura.prova.empty()) return;
        const auto n = static_cast<int>(punti.size());
        const int parametri = 2 * n - misura.gradi;
        const auto media = [&](int quanti, bool segna) {
            double somma = 0;
            for (std::size_t i = 0; i < punti.size(); ++i) {
                const double r = 1 - (1 - misura.ridondanza[i]) * n / quanti,
                             p = potenzaDi(r, 2 * quanti - parametri, livello / quanti);
                somma += p;
                if (segna && p < meta) e.scoperti.push_back(i);
            }
            return somma / n;
        };
        e.potenza = media(n, true);
        for (e.bastano = n; e.bastano <= massimi && media(e.bastano, false) < basta;) ++e.bastano;
        if (e.bastano > massimi) e.bastano = 0;
    }

    // The point that is least likely among good ones, when it is unlikely enough; else none.
    bool peggiore(std::size_t& quale, double& significato) const {
        significato = livello;
        bool trovato = false;
        for (std::size_t i = 0; i < punti.size(); ++i) {
            if (pesi[i] == 0 || misura.prova.empty() || lungo(e.buona.punti[i].senza) <= minimo) continue;
            const double p = std::max(probabilita(misura, i, true),
                                      metodo == Metodo::lastra ? probabilitaPiegata(misura, i, pesi) : 0.0);
            const double tutti = p * e.buona.usati;
            // Chances that are no longer numbers: the larger residual.
            const bool peggio =
                tutti < significato || (trovato && tutti == significato && misura.prova[i] > misura.prova[quale]);
            if (!peggio) continue;
            significato = tutti;
            quale = i;
            trovato = true;
        }
        return trovato;
    }

    void elimina() {
        // A plate is solved anew for each: a dozen is what a person looks at.
        const std::size_t massimo = std::min<std::size_t>(punti.size() / 3, metodo == Metodo::lastra ? 12 : 100);
        for (std::size_t tolti = 0; tolti < massimo; ++tolti) {
            std::size_t i = 0;
            double significato = 0;
            if (!peggiore(i, significato)) return;
            pesi[i] = 0;
            if (!risolvi()) {
                pesi[i] = 1;
                (void)risolvi();
                return;
            }
            PuntoSbagliato p;
            p.punto = i;
            p.significato = significato;
            e.punti.push_back(p);
        }
    }

    // Errors that hide each other: the robust scale is far below the standard error that is left.
    void smaschera() {
        constexpr double assai = 3;
        constexpr int pochi = 10;   // degrees of freedom: below, minimal sets fit too many points by chance
        if (e.buona.gradi < pochi) return;
        SoluzionePunti robusta;
        std::vector<double> dolci;
        double scala = 0;
        // The start tells the scale at a fifth of the time.
        if (!partenzaRobusta(punti, metodo, dolci, scala) || !(e.buona.errore > assai * std::max(scala, minimo)))
            return;
        if (!StimaRobusta(punti, metodo, robusta, dolci, scala)) return;
        scala = std::max(scala, minimo);
        std::vector<double> prova(punti.size(), 1);
        std::vector<PuntoSbagliato> fuori;
        for (std::size_t i = 0; i < punti.size(); ++i) {
            constexpr double lontano = 7;
            if (lungo(robusta.punti[i].residuo) <= lontano * scala) continue;
            prova[i] = 0;
            fuori.push_back({});
            fuori.back().punto = i;
        }
        if (fuori.empty() || fuori.size() > punti.size() / 3) return;
        SoluzionePunti s;
        if (!RisolviPunti(punti, metodo, s, prova) || s.gradi < 2) return;
        const Misura m = misuraDi(punti, metodo, s, prova);
        for (PuntoSbagliato& p : fuori) {
            p.significato = probabilita(m, p.punto, false) * s.usati;
            if (p.significato >= livello) return;   // the two ways do not agree: nothing is said of single points
        }
        e.punti = std::move(fuori);
        e.buona = std::move(s);
        pesi = std::move(prova);
    }

    void racconta() {
        for (std::size_t i = 0; i < punti.size(); ++i)
            if (pesi[i] > 0)
                e.accordo = std::max(
                    e.accordo, lungo(metodo == Metodo::lastra ? e.buona.punti[i].senza : e.buona.punti[i].residuo));
        for (PuntoSbagliato& p : e.punti) {
            const ResiduoPunto& r = e.buona.punti[p.punto];
            p.scarto = {-r.residuo.x, -r.residuo.y};
            p.lungo = lungo(p.scarto);
            const Coppia& dato = punti[p.punto].reale;
            const Coppia giusto{dato.x - p.scarto.x, dato.y - p.scarto.y};
            const double errore = metodo == Metodo::lastra ? e.buona.medioSenza : e.buona.errore;
            const double allargato = r.prova > 0 ? p.lungo / std::sqrt(r.prova) : 1;   // sqrt(1 + h)
            NominaSlittamento(punti, giusto, 4 * errore * allargato + minimo, p);
        }
        std::sort(e.punti.begin(), e.punti.end(),
                  [](const PuntoSbagliato& a, const PuntoSbagliato& b) { return a.lungo > b.lungo; });
    }
};

// X and Y exchanged in all points turn the sheet over: a similarity cannot follow, the others are seen from behind.
bool tuttiScambiati(std::span<const PuntoNoto> punti, Metodo metodo, const SoluzionePunti& s) {
    if (metodo != Metodo::helmert) {
        Coppia centro;
        for (const PuntoNoto& p : punti) {
            centro.x += p.foglio.x / static_cast<double>(punti.size());
            centro.y += p.foglio.y / static_cast<double>(punti.size());
        }
        return ParametriDi(s.mappa, centro).specchiata;
    }
    if (s.gradi == 0) return false;
    std::vector<PuntoNoto> scambiati(punti.begin(), punti.end());
    for (PuntoNoto& p : scambiati) std::swap(p.reale.x, p.reale.y);
    SoluzionePunti t;
    constexpr double assai = 100;
    return RisolviPunti(scambiati, metodo, t) && t.sommaQuadrati * assai < s.sommaQuadrati;
}

}   // namespace

EsameSbagli CercaSbagli(std::span<const PuntoNoto> punti, Metodo metodo) {
    EsameSbagli e;
    Eliminazione a{punti, metodo, e, std::vector<double>(punti.size(), 1), arrotondamento(punti)};
    if (!a.risolvi()) return e;
    e.tuttiScambiati = tuttiScambiati(punti, metodo, e.buona);
    a.misuraPotenza();
    e.fatto = a.misura.gradi >= 3;
    if (!e.fatto || e.tuttiScambiati) return e;
    a.elimina();
    if (metodo != Metodo::lastra) a.smaschera();
    a.racconta();
    return e;
}

}   // namespace tessaro
