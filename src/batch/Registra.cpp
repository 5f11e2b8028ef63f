// The command `register`: control points from a file give a picture or a drawing its real coordinates.
#include <algorithm>
#include <cmath>
#include <string>

#include "batch/Comandi.h"
#include "batch/Misure.h"
#include "batch/Motore.h"
#include "batch/PuntiFile.h"
#include "batch/Rigo.h"
#include "model/Archivio.h"
#include "model/Unita.h"

namespace tessaro {

namespace {

struct Rapporto {
    double medio = 0, massimo = 0;   // residuals, the user's unit
    std::string peggiore;
};

Rapporto residui(const Chiamata& c, const std::vector<PuntoDato>& punti, const SoluzionePunti& s) {
    Rapporto r;
    double quadrati = 0;
    for (std::size_t i = 0; i < punti.size(); ++i) {
        const PuntoDato& p = punti[i];
        const Coppia d = s.punti[i].residuo;
        const double lungo = std::hypot(d.x, d.y);
        quadrati += lungo * lungo;
        if (lungo >= r.massimo) {
            r.massimo = lungo;
            r.peggiore = p.nome;
        }
        Rigo riga(c);
        riga.testo("point", p.nome).numero("sheet_x_mm", p.foglio.x / 10).numero("sheet_y_mm", p.foglio.y / 10);
        riga.numero("x" + Unita(), p.reale.x).numero("y" + Unita(), p.reale.y);
        riga.numero("residual_x" + Unita(), d.x).numero("residual_y" + Unita(), d.y);
        riga.numero("residual" + Unita(), lungo).stampaRiga();
    }
    r.medio = std::sqrt(quadrati / static_cast<double>(punti.size()));
    return r;
}

}   // namespace

Esito ComandoRegistra(const Chiamata& c) {
    const std::string &da = c.file[0], &elenco = c.file[1], &a = c.file[2];
    double limite = std::numeric_limits<double>::infinity();
    if (StessoFile(da, a)) return Rifiuta(c, Esito::uso, a, Testo(Frase::stessoFile));
    const GenereFile* forma = FormaUscita(c, a);
    if (forma == nullptr || !Numero(c, "max-residual", 0, 1e9, limite) || !ScegliMisure(c)) return Esito::uso;
    std::vector<PuntoDato> punti;
    if (const Esito e = LeggiPunti(c, elenco, 2, punti); e != Esito::fatto) return e;
    if (const Esito e = ApriIngresso(c, da, false); e != Esito::fatto) return e;
    const std::int32_t immagine = PrimaImmagine();
    const bool diCasa = GenereDi(da)->diCasa;
    if (!c.ha("sheet") && (!diCasa || c.ha("pixels"))) {
        if (immagine == 0) return Rifiuta(c, Esito::nonFatto, da, Testo(Frase::senzaImmagine));
        InFoglio(punti, immagine);
    }
    if (!diCasa && immagine != 0) FoglioPer(Elem(immagine).pict.larghezza, Elem(immagine).pict.altezza);
    SoluzionePunti s;
    if (const Esito e = Adatta(c, elenco, punti, s); e != Esito::fatto) return e;
    RegistraFoglio(s.mappa);
    const Rapporto r = residui(c, punti, s);
    const std::vector<std::string> sospetti = Sospetti(punti);
    if (r.massimo > limite)
        return Rifiuta(
            c, Esito::nonFatto, elenco,
            Testo(Frase::oltreResiduo, sospetti.empty() ? r.peggiore : sospetti.front(), Decimali(limite, 4)));
    if (const Esito e = ScriviUscita(c, *forma, a); e != Esito::fatto) return e;
    constexpr double gradi = 57.29577951308232;
    Rigo riga(c);
    riga.testo("input", da).testo("output", a).intero("points", static_cast<std::int64_t>(punti.size()));
    riga.numero("scale_denominator", Scaladis).numero("rotation_deg", ParametriDi(s.mappa, {0, 0}).rotazione * gradi);
    riga.numero("residual_rms" + Unita(), r.medio).numero("residual_max" + Unita(), r.massimo);
    riga.testo("worst_point", r.peggiore).elenco("suspect_points", sospetti).stampaRiga();
    return Esito::fatto;
}

}   // namespace tessaro
