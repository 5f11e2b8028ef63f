// Prediction, search, measure and doubt, cross by cross.
#include "raster/Croci.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessaro {

float ImmagineGrigia::in(double x, double y) const {
    const double cx = std::clamp(x, 0.0, larghezza - 1.0), cy = std::clamp(y, 0.0, altezza - 1.0);
    const auto x0 = std::min(static_cast<std::int32_t>(cx), std::max(larghezza - 2, 0)),
               y0 = std::min(static_cast<std::int32_t>(cy), std::max(altezza - 2, 0));
    const auto fx = static_cast<float>(cx - x0), fy = static_cast<float>(cy - y0);
    const float* p = valori.data() + std::ptrdiff_t{y0} * larghezza + x0;
    const std::ptrdiff_t destra = larghezza > 1 ? 1 : 0, sotto = altezza > 1 ? larghezza : 0;
    const float sopra = p[0] + fx * (p[destra] - p[0]), giu = p[sotto] + fx * (p[sotto + destra] - p[sotto]);
    return sopra + fy * (giu - sopra);
}

namespace {

struct Direzioni {   // unit vectors of the grid's axes in the image
    Coppia x, y;
};

// The image seen from one cross: along an arm and across it.
class Sonda {
    const ImmagineGrigia& im;
    std::array<Coppia, 4> bracci;
    double lungo, inizio, fianco;

    // The middle grey of the places at `s` beside both arms of an axis: what crosses one place shifts nothing.
    [[nodiscard]] double mediano(const Coppia& c, const Coppia& asse, const Coppia& traverso, double s) const {
        std::array<double, 128> posti{};
        std::size_t quanti = 0;
        for (double t = inizio; t <= lungo && quanti + 2 <= posti.size(); t += std::max(1.0, lungo / 60))
            for (const double verso : {t, -t})
                posti[quanti++] = im.in(c.x + verso * asse.x + s * traverso.x, c.y + verso * asse.y + s * traverso.y);
        // The mean of the middle half: as steady as a mean, as hard to mislead as a median.
        std::sort(posti.begin(), posti.begin() + static_cast<std::ptrdiff_t>(quanti));
        double somma = 0;
        const std::size_t da = quanti / 4, a = quanti - da;
        for (std::size_t i = da; i < a; ++i) somma += posti[i];
        return somma / static_cast<double>(a - da);
    }

public:
    Sonda(const ImmagineGrigia& immagine, const Direzioni& d, double braccio)
        : im(immagine), bracci{d.x, d.y, {-d.x.x, -d.x.y}, {-d.y.x, -d.y.y}}, lungo(braccio * 0.9),
          inizio(std::max(2.0, braccio * 0.25)), fianco(std::max(4.0, braccio * 0.3)) {}

    // How much darker the weakest arm is than what lies beside it on both sides: an edge is no arm. Of each arm the middle
    // one of its places counts: what crosses it elsewhere hides none.
    [[nodiscard]] double contrasto(const Coppia& c) const {
        double debole = 255;
        for (std::size_t k = 0; k < 4 && debole > 0; ++k) {
            const Coppia &b = bracci[k], &n = bracci[(k + 1) % 4];
            std::array<double, 64> posti{};
            std::size_t quanti = 0;
            for (double t = inizio; t <= lungo && quanti < posti.size(); t += std::max(1.0, lungo / 60)) {
                const auto grigio = [&](double s) { return im.in(c.x + t * b.x + s * n.x, c.y + t * b.y + s * n.y); };
                const auto accanto = [&](double lato) {   // a stroke that runs along hides one distance, not both
                    return std::max(grigio(lato * fianco), grigio(lato * (fianco + 2.5)));
                };
                posti[quanti++] = std::min(accanto(-1), accanto(1)) - (grigio(-0.5) + grigio(0.5)) / 2;
            }
            const auto meta = posti.begin() + static_cast<std::ptrdiff_t>(quanti / 2);
            std::nth_element(posti.begin(), meta, posti.begin() + static_cast<std::ptrdiff_t>(quanti));
            debole = std::min(debole, *meta);
        }
        return debole;
    }

    // The middle of the ink across an axis, both of its arms taken together.
    [[nodiscard]] double spostamento(const Coppia& c, std::size_t asse) const {
        constexpr double passo = 0.25;
        const Coppia &a = bracci[asse], &n = bracci[(asse + 1) % 4];
        const double base = (mediano(c, a, n, -fianco) + mediano(c, a, n, fianco)) / 2;
        double peso = 0, momento = 0;
        const double largo = fianco - 1;
        for (double s = -largo; s <= largo + 1e-9; s += passo) {
            const double inchiostro = base - mediano(c, a, n, s);
            if (!(inchiostro > 0)) continue;
            peso += inchiostro * inchiostro;   // squares: what is far and pale counts little
            momento += inchiostro * inchiostro * s;
        }
        return peso > 0 ? momento / peso : 0;
    }

    // From near the cross to its middle.
    [[nodiscard]] Coppia affina(Coppia c) const {
        for (int giro = 0; giro < 6; ++giro) {
            const double v = spostamento(c, 0), u = spostamento(c, 1);
            // Across the first axis lies the second, across the second the first backwards.
            c.x += v * bracci[1].x + u * bracci[2].x;
            c.y += v * bracci[1].y + u * bracci[2].y;
            if (std::hypot(u, v) < 1e-3) break;
        }
        return c;
    }

    [[nodiscard]] Coppia cerca(const Coppia& prevista, double raggio, double& meglio) const {
        Coppia dove = prevista;
        meglio = -1;
        const auto r = static_cast<std::int32_t>(std::ceil(raggio));
        for (std::int32_t dy = -r; dy <= r; ++dy)
            for (std::int32_t dx = -r; dx <= r; ++dx) {
                if (dx * dx + dy * dy > raggio * raggio) continue;
                const Coppia c{prevista.x + dx, prevista.y + dy};
                const double k = contrasto(c);
                if (!(k > meglio)) continue;
                meglio = k;
                dove = c;
            }
        return dove;
    }
};

struct Griglia {
    const RichiestaCroci& r;
    Coppia perReale;   // pixels of a real unit along X, as a complex number

    // The similarity by the two known crosses, the real Y turned over.
    [[nodiscard]] Coppia pixel(const Coppia& reale) const {
        const double dx = reale.x - r.realeA.x, dy = -(reale.y - r.realeA.y);
        return {r.pixelA.x + perReale.x * dx - perReale.y * dy, r.pixelA.y + perReale.y * dx + perReale.x * dy};
    }
};

double distanza(const Coppia& a, const Coppia& b) { return std::hypot(a.x - b.x, a.y - b.y); }

// By how much the crosses found around are off the similarity, the nearer the more.
Coppia correzione(const std::vector<Croce>& croci, const std::vector<Coppia>& semplici, std::size_t quale) {
    constexpr std::size_t vicini = 4;
    std::array<std::pair<double, std::size_t>, vicini> presi;
    std::size_t n = 0;
    for (std::size_t k = 0; k < croci.size(); ++k) {
        if (!croci[k].presa || k == quale) continue;
        const double d = std::hypot(croci[k].i - croci[quale].i, croci[k].j - croci[quale].j);
        if (n < vicini) {
            presi[n++] = {d, k};
        } else if (const auto lontano = std::max_element(presi.begin(), presi.end()); d < lontano->first) {
            *lontano = {d, k};
        }
    }
    Coppia somma;
    double peso = 0;
    for (std::size_t k = 0; k < n; ++k) {
        const auto [d, q] = presi[k];
        const double w = 1 / (d * d);
        somma.x += w * (croci[q].dove.x - semplici[q].x);
        somma.y += w * (croci[q].dove.y - semplici[q].y);
        peso += w;
    }
    return peso > 0 ? Coppia{somma.x / peso, somma.y / peso} : Coppia{};
}

std::vector<Croce> nodi(const ImmagineGrigia& im, const RichiestaCroci& r, const Griglia& g) {
    constexpr std::size_t massimo = 20000;
    std::vector<Croce> croci;
    // Real box of the image, by its corners turned back.
    double i1 = 1e99, i2 = -1e99, j1 = 1e99, j2 = -1e99;
    const double quadrato = g.perReale.x * g.perReale.x + g.perReale.y * g.perReale.y;
    for (const double x : {0.0, static_cast<double>(im.larghezza)})
        for (const double y : {0.0, static_cast<double>(im.altezza)}) {
            const double dx = x - r.pixelA.x, dy = y - r.pixelA.y;
            const double X = (dx * g.perReale.x + dy * g.perReale.y) / quadrato,
                         Y = -(dy * g.perReale.x - dx * g.perReale.y) / quadrato;
            i1 = std::min(i1, X / r.passoX);
            i2 = std::max(i2, X / r.passoX);
            j1 = std::min(j1, Y / r.passoY);
            j2 = std::max(j2, Y / r.passoY);
        }
    if (!((i2 - i1 + 1) * (j2 - j1 + 1) < static_cast<double>(massimo))) return croci;
    for (auto j = static_cast<std::int32_t>(std::ceil(j1)); j <= j2; ++j)
        for (auto i = static_cast<std::int32_t>(std::ceil(i1)); i <= i2; ++i) {
            Croce c;
            c.i = i;
            c.j = j;
            c.reale = {r.realeA.x + i * r.passoX, r.realeA.y + j * r.passoY};
            c.prevista = g.pixel(c.reale);
            const double m = r.braccio;
            if (c.prevista.x >= m && c.prevista.y >= m && c.prevista.x <= im.larghezza - 1 - m
                && c.prevista.y <= im.altezza - 1 - m)
                croci.push_back(c);
        }
    const auto quanto = [&](const Croce& c) {
        return std::min(distanza(c.prevista, r.pixelA), distanza(c.prevista, r.pixelB));
    };
    std::sort(croci.begin(), croci.end(), [&](const Croce& a, const Croce& b) { return quanto(a) < quanto(b); });
    return croci;
}

}   // namespace

std::vector<Croce> TrovaCroci(const ImmagineGrigia& im, const RichiestaCroci& r,
                              const std::function<bool(double)>& passo) {
    const double dx = r.pixelB.x - r.pixelA.x, dy = r.pixelB.y - r.pixelA.y;
    const double X = r.realeB.x - r.realeA.x, Y = -(r.realeB.y - r.realeA.y), quadrato = X * X + Y * Y;
    if (im.larghezza < 3 || im.altezza < 3 || !(quadrato > 0) || !(std::hypot(dx, dy) > 0) || !(r.passoX > 0)
        || !(r.passoY > 0))
        return {};
    const Griglia g{r, {(dx * X + dy * Y) / quadrato, (dy * X - dx * Y) / quadrato}};
    const double lungo = std::hypot(g.perReale.x, g.perReale.y);
    if (!(std::min(r.passoX, r.passoY) * lungo > 2 * r.braccio)) return {};
    const Direzioni d{{g.perReale.x / lungo, g.perReale.y / lungo}, {-g.perReale.y / lungo, g.perReale.x / lungo}};
    const Sonda sonda(im, d, r.braccio);
    // What a cross of this sheet is like.
    double campioneA = 0, campioneB = 0;
    constexpr double mano = 4;   // pixels that a click is off, at most
    (void)sonda.cerca(r.pixelA, mano, campioneA);
    (void)sonda.cerca(r.pixelB, mano, campioneB);
    const double campione = (campioneA + campioneB) / 2;
    constexpr double minimo = 6;   // grey levels
    if (!(std::min(campioneA, campioneB) > minimo)) return {};

    std::vector<Croce> croci = nodi(im, r, g);
    std::vector<Coppia> semplici(croci.size());
    for (std::size_t k = 0; k < croci.size(); ++k) semplici[k] = croci[k].prevista;
    for (std::size_t k = 0; k < croci.size(); ++k) {
        if (passo && !passo(static_cast<double>(k) / static_cast<double>(croci.size()))) return {};
        Croce& c = croci[k];
        const Coppia piu = correzione(croci, semplici, k);
        c.prevista = {semplici[k].x + piu.x, semplici[k].y + piu.y};
        double contrasto = 0;
        const Coppia circa = sonda.cerca(c.prevista, r.raggio, contrasto);
        c.dove = sonda.affina(circa);
        // Measured where it is: a search that hung on something else wanders off.
        const double vero = std::min(contrasto, sonda.contrasto(c.dove));
        c.fiducia = std::clamp(vero / campione, 0.0, 1.0);
        c.presa = c.fiducia >= r.soglia && vero > minimo && distanza(c.dove, circa) < 3;
    }
    // One that lies elsewhere than those around it say is none of the grid.
    for (std::size_t k = 0; k < croci.size(); ++k) {
        if (!croci[k].presa) continue;
        const Coppia piu = correzione(croci, semplici, k);
        const Coppia attesa{semplici[k].x + piu.x, semplici[k].y + piu.y};
        if (distanza(attesa, croci[k].dove) > std::max(4.0, r.raggio * 0.6)) croci[k].presa = false;
    }
    return croci;
}

}   // namespace tessaro
