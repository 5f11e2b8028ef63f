// The registration's quality from the points of a moment.
#include "digitising/RapportoAttacchi.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "model/Archivio.h"
#include "model/Unita.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/gauss.h"
#include "registration/PuntiControllo.h"
#include "registration/Solutori.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

enum : std::int32_t { duePunti = 0, quattroPt = 1, cinquePt = 2 };   // modes

bool uguali(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }
bool uguali(const Coppia& a, const Coppia& b) { return uguali(a.x, b.x) && uguali(a.y, b.y); }

template <std::size_t n>
bool uguali(const std::array<Coppia, n>& a, const std::array<Coppia, n>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), [](const Coppia& p, const Coppia& q) { return uguali(p, q); });
}

bool uguali(const TransfRec& a, const TransfRec& b) {
    using Parole = std::array<std::uint64_t, sizeof(TransfRec) / sizeof(std::uint64_t)>;
    return std::bit_cast<Parole>(a) == std::bit_cast<Parole>(b);
}

std::array<Coppia, 4> primi4(const std::array<Coppia, 5>& p) { return {p[0], p[1], p[2], p[3]}; }

}   // namespace

bool DatiRapporto::operator==(const DatiRapporto& d) const {
    return uguali(foglio, d.foglio) && uguali(destinazione, d.destinazione) && dati == d.dati && uguali(reali, d.reali)
           && uguali(transf, d.transf) && uguali(rappvid, d.rappvid) && uguali(decimiUnita, d.decimiUnita)
           && uguali(altezzaFoglio, d.altezzaFoglio) && modo == d.modo && coordReali == d.coordReali
           && prospettica == d.prospettica;
}

DatiRapporto DatiDelMomento() {
    DatiRapporto d;
    for (std::size_t i = 0; i < d.foglio.size(); ++i) {
        d.foglio[i] = LeggiAttacco(static_cast<std::int16_t>(i + 1));
        d.destinazione[i] = {attaccoAttivo.xAtt[i], attaccoAttivo.yAtt[i]};
        d.dati[i] = d.foglio[i].x != 0 || d.foglio[i].y != 0;
    }
    const auto& secondo = Elem(2).att;
    const bool quattro = secondo.quattroPunti != 0;
    d.dati[2] = d.dati[2] || quattro;
    // At rest the fields of point 4 hold what a new drawing's record 2 does: (0, 1), in older ones (0, 0).
    d.dati[3] = quattro || d.foglio[3].x != 0 || (d.foglio[3].y != 0 && d.foglio[3].y != 1.0);
    d.dati[4] = OKAttacco5 != 0;
    d.reali = {{{secondo.x1, secondo.y1}, {secondo.x2, secondo.y2}}};
    d.transf = TransfCoord;
    d.rappvid = rappvid;
    d.decimiUnita = decimiUnita;
    d.altezzaFoglio = YFDecimi;
    d.modo = attaccoAttivo.GetTipo();
    d.coordReali = secondo.coordReali != 0;
    d.prospettica = deformProspettica != 0;
    return d;
}

// --- faults

namespace {

bool vicini(const Coppia& a, const Coppia& b) {
    constexpr double tolleranza = 0.001;   // sheet units
    return std::fabs(a.x - b.x) < tolleranza && std::fabs(a.y - b.y) < tolleranza;
}

// Twice the area of a triangle; above 0 when a, b, c turn from X towards Y.
double giro(const Coppia& a, const Coppia& b, const Coppia& c) {
    return (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
}

// The triangle's height over its longest side, as a part of that side.
bool allineati(const Coppia& a, const Coppia& b, const Coppia& c) {
    constexpr double parte = 0.001;
    const double ab = std::hypot(b.x - a.x, b.y - a.y), bc = std::hypot(c.x - b.x, c.y - b.y);
    const double lato = std::max({ab, bc, std::hypot(c.x - a.x, c.y - a.y)});
    return std::fabs(giro(a, b, c)) <= parte * lato * lato;
}

class Esame {
    const DatiRapporto& d;
    std::vector<AvvisoPunti>& avvisi;
    std::size_t presi;   // points that the mode takes, 1 to this

    void segnala(Difetto difetto, bool destinazione, std::vector<std::int16_t> punti) {
        avvisi.push_back({difetto, destinazione, std::move(punti)});
    }

    void mancanti() {
        std::vector<std::int16_t> punti;
        for (std::size_t i = 0; i < presi; ++i)
            if (!d.dati[i]) punti.push_back(static_cast<std::int16_t>(i + 1));
        if (!punti.empty()) segnala(Difetto::mancanti, false, std::move(punti));
    }

    [[nodiscard]] bool dato(std::size_t i, bool destinazione) const { return destinazione || d.dati[i]; }

    bool coincidenti(bool destinazione) {
        const auto& p = destinazione ? d.destinazione : d.foglio;
        bool trovati = false;
        for (std::size_t i = 0; i < presi; ++i) {
            for (std::size_t j = i + 1; j < presi; ++j) {
                if (!dato(i, destinazione) || !dato(j, destinazione) || !vicini(p[i], p[j])) continue;
                trovati = true;
                segnala(Difetto::coincidenti, destinazione,
                        {static_cast<std::int16_t>(i + 1), static_cast<std::int16_t>(j + 1)});
            }
        }
        return trovati;
    }

    // 1 or -1 when the four go round a convex quadrilateral; else 0, and what is wrong is told.
    std::int16_t quadrilatero(bool destinazione) {
        const bool tutti = std::all_of(d.dati.begin(), d.dati.begin() + 4, [](bool b) { return b; });
        if (coincidenti(destinazione) || !(destinazione || tutti)) return 0;
        const std::array<Coppia, 4> p = primi4(destinazione ? d.destinazione : d.foglio);
        if (auto linea = PuntiAllineati(p); !linea.empty()) {
            segnala(Difetto::allineati, destinazione, std::move(linea));
            return 0;
        }
        if (!destinazione && GuastoAttacchi(p) != 0) {
            segnala(Difetto::disordine, false, {1, 2, 3, 4});
            return VersoConvesso(p);
        }
        const std::int16_t verso = VersoConvesso(p);
        if (verso == 0) segnala(Difetto::concavi, destinazione, {1, 2, 3, 4});
        return verso;
    }

public:
    Esame(const DatiRapporto& dati, std::vector<AvvisoPunti>& dove)
        : d(dati), avvisi(dove), presi(dati.modo == cinquePt    ? 5
                                       : dati.modo == quattroPt ? 4
                                                                : 2) {
        // A sheet registered by points 1 and 2 lacks nothing until somebody gives a third.
        if (d.coordReali && !d.dati[2] && !d.dati[3] && !d.dati[4]) presi = 2;
    }

    void tutto() {
        mancanti();
        if (d.coordReali && d.reali[0].x == d.reali[1].x && d.reali[0].y == d.reali[1].y)
            segnala(Difetto::realiCoincidenti, false, {1, 2});
        if (presi == 2) {
            coincidenti(false);
            coincidenti(true);
            return;
        }
        const std::int16_t foglio = quadrilatero(false), destinazione = quadrilatero(true);
        if (foglio * destinazione < 0) segnala(Difetto::specchiati, true, {1, 2, 3, 4});
    }
};

}   // namespace

std::vector<std::int16_t> PuntiAllineati(const std::array<Coppia, 4>& p) {
    std::vector<std::int16_t> trovati;
    for (std::size_t fuori = 4; fuori-- > 0;) {   // 1 2 3 first
        std::vector<std::int16_t> tre;
        for (std::size_t i = 0; i < p.size(); ++i)
            if (i != fuori) tre.push_back(static_cast<std::int16_t>(i + 1));
        const auto punto = [&](std::size_t i) { return p[static_cast<std::size_t>(tre[i] - 1)]; };
        if (!allineati(punto(0), punto(1), punto(2))) continue;
        if (!trovati.empty()) return {1, 2, 3, 4};
        trovati = tre;
    }
    return trovati;
}

std::int16_t VersoConvesso(const std::array<Coppia, 4>& p) {
    int positivi = 0, negativi = 0;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const double g = giro(p[i], p[(i + 1) % 4], p[(i + 2) % 4]);
        positivi += g > 0;
        negativi += g < 0;
    }
    return positivi == 4 ? std::int16_t{1} : negativi == 4 ? std::int16_t{-1} : std::int16_t{0};
}

// --- numbers

namespace {

Coppia inReali(const DatiRapporto& d, const Coppia& p) {
    if (!d.coordReali) return {d.rappvid * p.x, d.rappvid * (d.altezzaFoglio - p.y)};
    Coppia r;
    Tracoord(d.transf, p.x, p.y, r.x, r.y);
    return r;
}

void registrazione(const DatiRapporto& d, RapportoAttacchi& r) {
    r.rapporto = d.coordReali ? d.transf.ingr : d.rappvid;
    r.scala = d.decimiUnita * r.rapporto;
    if (!d.coordReali) return;
    constexpr double mezzoGiro = 3.14159265358979323846;
    r.rotazione = std::atan2(d.transf.rot12, d.transf.rot11);
    if (r.rotazione <= -mezzoGiro) r.rotazione = mezzoGiro;   // a zero with a sign
}

// The transformation of these points, prepared aside: without alerts, and without a trace. False when they make none.
class Mappa {
    const DatiRapporto& d;
    Att4Pt lavoro;
    Coefficienti coef{};
    bool buona;

    [[nodiscard]] bool omografia() const { return d.modo == quattroPt && d.prospettica; }

public:
    explicit Mappa(const DatiRapporto& dati) : d(dati) {
        const bool quattro = std::all_of(d.dati.begin(), d.dati.begin() + 4, [](bool b) { return b; });
        buona = d.modo != duePunti && quattro && (d.modo != cinquePt || d.dati[4]);
        if (!buona) return;
        lavoro.src = primi4(d.foglio);
        lavoro.dst = primi4(d.destinazione);
        lavoro.srcC = d.foglio[4];
        lavoro.dstC = d.destinazione[4];
        if (omografia()) {
            const SenzaTraccia zitta;
            buona = RisolviOmografia(lavoro.src, lavoro.dst, coef);
        } else if (d.modo == quattroPt) {
            (void)PreparaQuattro(lavoro, {});   // asked for no numbers
        } else {
            (void)PreparaCinque(lavoro, {});
        }
    }
    explicit operator bool() const { return buona; }
    [[nodiscard]] Coppia operator()(Coppia p) const {
        if (omografia()) {
            TrasformaOmografia(coef, p.x, p.y);
        } else {
            TrasformaFuga(lavoro, d.prospettica, p.x, p.y);
        }
        return p;
    }
};

// A residual that is no number is the worst there is; what is but rounding makes none worse.
bool peggio(double a, double b) {
    constexpr double arrotondamento = 1e-6;   // sheet units
    return std::isnan(a) ? !std::isnan(b) : a > b + arrotondamento;
}

void residui(const DatiRapporto& d, RapportoAttacchi& r) {
    const Mappa mappa(d);
    if (!mappa) return;
    double somma = 0;
    int quanti = 0;
    for (std::size_t i = 0; i < r.punti.size(); ++i) {
        PuntoRapporto& p = r.punti[i];
        if (!p.dato) continue;
        p.mappato = true;
        p.contato = i < 4 || d.modo == cinquePt;
        p.dove = mappa(p.foglio);
        p.doveReale = inReali(d, p.dove);
        p.residuo = std::hypot(p.dove.x - p.destinazione.x, p.dove.y - p.destinazione.y);
        p.residuoReale = p.residuo * std::fabs(r.rapporto);
        if (!p.contato) continue;
        ++quanti;
        somma += p.residuo * p.residuo;
        if (r.peggiore != 0 && !peggio(p.residuo, r.massimo)) continue;
        r.massimo = p.residuo;
        r.peggiore = static_cast<std::int16_t>(i + 1);
    }
    r.conResidui = quanti > 0;
    r.medio = std::sqrt(somma / quanti);
    r.massimoReale = r.massimo * std::fabs(r.rapporto);
    r.medioReale = r.medio * std::fabs(r.rapporto);
}

}   // namespace

RapportoAttacchi CalcolaRapportoAttacchi(const DatiRapporto& d) {
    RapportoAttacchi r;
    r.modo = d.modo;
    r.coordReali = d.coordReali;
    registrazione(d, r);
    for (std::size_t i = 0; i < r.punti.size(); ++i) {
        PuntoRapporto& p = r.punti[i];
        p.dato = d.dati[i];
        p.foglio = d.foglio[i];
        p.reale = inReali(d, p.foglio);
        p.destinazione = d.destinazione[i];
        p.destinazioneReale = inReali(d, p.destinazione);
    }
    residui(d, r);
    Esame(d, r.avvisi).tutto();
    return r;
}

}   // namespace tessaro
