// The command `rectify`: a picture with four known points becomes a true one, north up, with its real coordinates.
#include <algorithm>
#include <array>
#include <cmath>

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

Meta preparaPunti(const std::vector<PuntoDato>& p, double perUnita) {
    Meta m{1e300, -1e300, perUnita};
    for (const PuntoDato& d : p) m = {std::min(m.X0, d.reale.x), std::max(m.Y1, d.reale.y), perUnita};
    attaccoAttivo.tipo = 1;
    for (std::size_t i = 0; i < vertici; ++i) {
        AssegnaAttacco(static_cast<std::int16_t>(i + 1), p[i].foglio.x, p[i].foglio.y);
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(i), (p[i].reale.x - m.X0) / perUnita,
                               (m.Y1 - p[i].reale.y) / perUnita);
    }
    Elem(2).att.quattroPunti = 1;
    return m;
}

// The quadrilateral of the control points, which cuts the picture at its source.
std::int32_t cornice(const std::vector<PuntoDato>& p) {
    const PStr255 niente("");
    Memorizza(tPoligono, p[0].foglio.x, p[0].foglio.y, 0, 0, 0, 0, 1, 1, 1, niente);
    const std::int32_t testa = indElem;
    for (std::size_t i = 1; i <= vertici; ++i)
        Memorizza(tVertice, p[i % vertici].foglio.x, p[i % vertici].foglio.y, 0, 0, 0, 0, 1, 1, 1, niente);
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
    const auto reale = [&m](const Coppia& q) { return Coppia{m.X0 + q.x * m.perUnita, m.Y1 - q.y * m.perUnita}; };
    const auto [primo, secondo] = SegniFoglio();
    RegistraSegni(reale(primo), reale(secondo));
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
    double dpi = 0;
    if (forma == nullptr || !Numero(c, "dpi", 49, 999, dpi) || !ScegliMisure(c)) return Esito::uso;
    const double scalaVoluta = c.ha("scale") ? Scaladis : 0;
    std::vector<PuntoDato> punti;
    if (const Esito e = LeggiPunti(c, elenco, vertici, punti); e != Esito::fatto) return e;
    punti.resize(vertici);
    if (const Esito e = ApriIngresso(c, da, false); e != Esito::fatto) return e;
    const std::int32_t n = PrimaImmagine();
    if (n == 0) return Rifiuta(c, Esito::nonFatto, da, Testo(Frase::senzaImmagine));
    if (n != 3) CopiaRecord(3, n, 1);
    indElem = 3;
    InFoglio(punti, 3);
    SoluzionePunti s;
    if (const Esito e = Adatta(c, elenco, punti, s); e != Esito::fatto) return e;
    if (!ordina(punti)) return Rifiuta(c, Esito::nonFatto, elenco, Testo(Frase::quadrilatero));
    const elemento pict = Elem(3);
    const PictInPixel pixel(PictBytes(pict.pict.maniglia));
    Meta m = preparaPunti(punti, scalaVoluta > 0 ? scalaVoluta / decimiUnita : Ingrandimento(s.mappa));
    // As many pixels to a metre as the picture has in the mean, unless it is told.
    const double sua = pixel.width() / (pict.pict.larghezza / DecPollice) * m.perUnita / Ingrandimento(s.mappa);
    risoluzione = std::round(std::clamp(dpi > 0 ? dpi : sua, 49.0, 999.0));
    tipoTrasformazione = c.ha("plain") ? 1 : 2;
    tipoTaglio = 1;
    morbida = 1;
    detto = {};
    const std::int32_t poligono = c.ha("crop") ? cornice(punti) : 0;
    const bool fatta = RettificaPict(pict, poligono) && detto.guasti.empty();
    if (!fatta)
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
    r.numero("y_min" + Unita(), m.Y1 - p.altezza * m.perUnita).stampa();
    return Esito::fatto;
}

}   // namespace tessaro
