// The command `rectify`: a picture with known points becomes a true one, north up, with its real coordinates: through the
// perspective of four of them, or by all of them and a method of registration.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "batch/Comandi.h"
#include "batch/Misure.h"
#include "batch/Motore.h"
#include "batch/PuntiFile.h"
#include "batch/Rigo.h"
#include "bitmap/PictInPixel.h"
#include "digitising/RapportoAttacchi.h"
#include "editing/Scelta.h"
#include "files/Richieste.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "raster/CreaPict.h"
#include "raster/raster.h"
#include "registration/attaccoDinamico.h"
#include "registration/MappaFoglio.h"
#include "registration/PuntiControllo.h"
#include "shell/Archivia.h"

namespace tessaro {

namespace {

constexpr std::size_t vertici = 4;

// Clockwise from the lower left by the real coordinates: lower left, upper left, upper right, lower right.
bool ordina(std::vector<PuntoDato>& p) {
    Coppia c;
    for (const PuntoDato& d : p) c = {c.x + d.reale.x / vertici, c.y + d.reale.y / vertici};
    const auto angolo = [&c](const PuntoDato& d) { return std::atan2(d.reale.y - c.y, d.reale.x - c.x); };
    std::sort(p.begin(), p.end(), [&](const PuntoDato& a, const PuntoDato& b) { return angolo(a) > angolo(b); });
    const auto primo = std::min_element(p.begin(), p.end(), [](const PuntoDato& a, const PuntoDato& b) {
        return a.reale.x + a.reale.y < b.reale.x + b.reale.y;
    });
    std::rotate(p.begin(), primo, p.end());
    std::array<Coppia, vertici> foglio, reali;
    for (std::size_t i = 0; i < vertici; ++i) {
        foglio[i] = p[i].foglio;
        reali[i] = p[i].reale;
    }
    // On the sheet Y runs down, so that a picture that is not mirrored goes round the other way.
    return VersoConvesso(reali) != 0 && VersoConvesso(foglio) == -VersoConvesso(reali);
}

struct Meta {
    double X0 = 0, Y1 = 0;   // real coordinates of the sheet's upper left corner
    double perUnita = 1;     // real units to a sheet unit
};

Meta metaDi(const std::vector<PuntoDato>& p, double perUnita) {
    Meta m{1e300, -1e300, perUnita};
    for (const PuntoDato& d : p) m = {std::min(m.X0, d.reale.x), std::max(m.Y1, d.reale.y), perUnita};
    return m;
}

void preparaPunti(const std::vector<PuntoDato>& p, const Meta& m) {
    attaccoAttivo.tipo = 1;
    for (std::size_t i = 0; i < vertici; ++i) {
        AssegnaAttacco(static_cast<std::int16_t>(i + 1), p[i].foglio.x, p[i].foglio.y);
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(i), (p[i].reale.x - m.X0) / m.perUnita,
                               (m.Y1 - p[i].reale.y) / m.perUnita);
    }
    Elem(2).att.quattroPunti = 1;
}

// The sheet's real coordinates, north up, its upper left corner as told.
void registraMeta(const Meta& m) {
    const auto reale = [&m](const Coppia& q) { return Coppia{m.X0 + q.x * m.perUnita, m.Y1 - q.y * m.perUnita}; };
    const auto [primo, secondo] = SegniFoglio();
    RegistraSegni(reale(primo), reale(secondo));
}

// The convex hull of the control points, anticlockwise by their places (Andrew 1979); of the four that go round a
// quadrilateral those themselves.
std::vector<Coppia> contorno(const std::vector<PuntoDato>& p) {
    std::vector<Coppia> q, g;
    for (const PuntoDato& d : p) q.push_back(d.foglio);
    std::sort(q.begin(), q.end(),
              [](const Coppia& a, const Coppia& b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    const auto gira = [&g](const Coppia& c) {
        const Coppia &a = g[g.size() - 2], &b = g.back();
        return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x) > 0;
    };
    const auto aggiungi = [&](const Coppia& c, std::size_t almeno) {
        while (g.size() > almeno && !gira(c)) g.pop_back();
        g.push_back(c);
    };
    for (const Coppia& c : q) aggiungi(c, 1);
    const std::size_t sotto = g.size();
    for (std::size_t i = q.size() - 1; i-- > 0;) aggiungi(q[i], sotto);
    g.pop_back();   // the first again
    return g;
}

// The polyline that cuts the picture at its source.
std::int32_t cornice(const std::vector<Coppia>& p) {
    const PStr255 niente("");
    Memorizza(tPoligono, p[0].x, p[0].y, 0, 0, 0, 0, 1, 1, 1, niente);
    const std::int32_t testa = indElem;
    for (std::size_t i = 1; i <= p.size(); ++i)
        Memorizza(tVertice, p[i % p.size()].x, p[i % p.size()].y, 0, 0, 0, 0, 1, 1, 1, niente);
    return testa;
}

// Only the result stays, in the corner of a sheet of its size.
void soloRisultato(Meta& m) {
    Elem(3) = Elem(indElem);   // its source's place: with the pictures between given up
    indElem = 3;
    auto& p = Elem(3).pict;
    m.X0 += p.x * m.perUnita;
    m.Y1 -= p.y * m.perUnita;
    p.x = p.y = 0;
    FoglioPer(p.larghezza, p.altezza);
    Elem(2).att.quattroPunti = 0;
    registraMeta(m);
}

// Through the mapping of the points, onto the sheet whose similarity is `m`'s.
bool perMolti(const elemento& pict, std::int32_t poligono, const std::vector<PuntoDato>& punti, const MappaPunti& mappa,
              const Meta& m) {
    registraMeta(m);
    MappaFoglio molti(mappa, Noti(punti), true);
    return molti && RettificaPictMolti(pict, poligono, molti);
}

constexpr GenereFile soloImmagine{"", nullptr, [] {
                                      theItem = rPictSel;
                                      archivia();
                                  }};

const GenereFile& come(const GenereFile& forma, const std::string& a) {
    if (!SuffissoImmagine(FSMakeFSSpec(a))) return forma;
    Puntosel.indice = 3;
    Puntosel.oggetto = oPict;
    Elem(3).selezionato = 1;
    RistabilisciSelezione();
    return soloImmagine;
}

}   // namespace

Esito ComandoRaddrizza(const Chiamata& c) {
    const std::string &da = c.file[0], &elenco = c.file[1], &a = c.file[2];
    if (StessoFile(da, a)) return Rifiuta(c, Esito::uso, a, Testo(Frase::stessoFile));
    const GenereFile* forma = FormaUscita(c, a);
    double dpi = 0, limite = std::numeric_limits<double>::infinity();
    if (forma == nullptr || !Numero(c, "dpi", 49, 999, dpi) || !Numero(c, "max-residual", 0, 1e9, limite)
        || !ScegliMisure(c))
        return Esito::uso;
    const bool conMetodo = c.ha("method");
    Metodo metodo = Metodo::helmert;
    if (!ScegliMetodo(c, metodo)) return Esito::uso;
    for (const std::string_view altro :
         {"plain", "max-residual"})   // the first is without a method, the other with one
        if (c.ha(altro) && conMetodo == (altro == "plain"))
            return Rifiuta(c, Esito::uso, "", Testo(Frase::opzioneIgnota, "--" + std::string(altro)));
    const double scalaVoluta = c.ha("scale") ? Scaladis : 0;
    std::vector<PuntoDato> punti;
    Posti posti{};
    const std::size_t minimo = conMetodo ? static_cast<std::size_t>(PuntiMinimi(metodo)) : vertici;
    if (const Esito e = LeggiPunti(c, elenco, minimo, punti, posti); e != Esito::fatto) return e;
    if (!conMetodo) punti.resize(vertici);
    if (const Esito e = ApriIngresso(c, da, false); e != Esito::fatto) return e;
    const std::int32_t n = PrimaImmagine();
    if (n == 0) return Rifiuta(c, Esito::nonFatto, da, Testo(Frase::senzaImmagine));
    if (n != 3) CopiaRecord(3, n, 1);
    indElem = 3;
    if (posti != Posti::foglio) InFoglio(punti, 3);
    SoluzionePunti simile, s;
    if (const Esito e = Adatta(c, elenco, punti, Metodo::helmert, simile); e != Esito::fatto) return e;
    if (!conMetodo && !ordina(punti)) return Rifiuta(c, Esito::nonFatto, elenco, Testo(Frase::quadrilatero));
    Residui residui;
    if (conMetodo) {
        if (const Esito e = Adatta(c, elenco, punti, metodo, s); e != Esito::fatto) return e;
        residui = StampaResidui(c, punti, s);
        if (const Esito e = EntroLimite(c, elenco, residui, limite); e != Esito::fatto) return e;
    }
    const elemento pict = Elem(3);
    const PictInPixel pixel(PictBytes(pict.pict.maniglia));
    const double ingrandimento = Ingrandimento(simile.mappa);
    Meta m = metaDi(punti, scalaVoluta > 0 ? scalaVoluta / decimiUnita : ingrandimento);
    // As many pixels to a metre as the picture has in the mean, unless it is told.
    const double sua = pixel.width() / (pict.pict.larghezza / DecPollice) * m.perUnita / ingrandimento;
    risoluzione = std::round(std::clamp(dpi > 0 ? dpi : sua, 49.0, 999.0));
    tipoTrasformazione = c.ha("plain") ? 1 : 2;
    tipoTaglio = 1;
    morbida = 1;
    detto = {};
    std::int32_t poligono = 0;
    if (!conMetodo) preparaPunti(punti, m);
    if (c.ha("crop")) poligono = cornice(contorno(punti));
    const bool fatta = conMetodo ? perMolti(pict, poligono, punti, s.mappa, m) : RettificaPict(pict, poligono);
    if (!fatta || !detto.guasti.empty())
        return Rifiuta(c, Esito::nonFatto, da, detto.guasti.empty() ? Testo(Frase::nulla) : detto.guasti.front());
    soloRisultato(m);
    const PictInPixel nuova(PictBytes(Elem(3).pict.maniglia));
    if (const Esito e = ScriviUscita(c, come(*forma, a), a); e != Esito::fatto) return e;
    const auto& p = Elem(3).pict;
    Rigo r(c);
    r.testo("input", da).testo("output", a).intero("width_px", nuova.width()).intero("height_px", nuova.height());
    r.numero("pixel" + Unita(), p.larghezza / nuova.width() * m.perUnita).numero("scale_denominator", Scaladis);
    r.numero("x_min" + Unita(), m.X0).numero("y_max" + Unita(), m.Y1);
    r.numero("x_max" + Unita(), m.X0 + p.larghezza * m.perUnita);
    r.numero("y_min" + Unita(), m.Y1 - p.altezza * m.perUnita);
    if (conMetodo) AggiungiResidui(r, residui, s, punti.size());
    conMetodo ? r.stampaRiga() : r.stampa();
    return Esito::fatto;
}

}   // namespace tessaro
