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

Rapporto residui(const Chiamata& c, const std::vector<PuntoDato>& punti, const Similitudine& s, bool scrivi) {
    Rapporto r;
    double quadrati = 0;
    for (const PuntoDato& p : punti) {
        const Coppia dove = s.reale(p.foglio.x, p.foglio.y);
        const double dx = dove.x - p.reale.x, dy = dove.y - p.reale.y, d = std::hypot(dx, dy);
        quadrati += d * d;
        if (d >= r.massimo) {
            r.massimo = d;
            r.peggiore = p.nome;
        }
        if (!scrivi) continue;
        Rigo riga(c);
        riga.testo("point", p.nome).numero("sheet_x_mm", p.foglio.x / 10).numero("sheet_y_mm", p.foglio.y / 10);
        riga.numero("x" + Unita(), p.reale.x).numero("y" + Unita(), p.reale.y);
        riga.numero("residual_x" + Unita(), dx).numero("residual_y" + Unita(), dy).numero("residual" + Unita(), d);
        riga.stampaRiga();
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
    Similitudine s;
    if (!MinimiQuadrati(punti, s)) return Rifiuta(c, Esito::nonFatto, elenco, Testo(Frase::puntiFermi));
    RegistraFoglio(s);
    const Rapporto r = residui(c, punti, s, true);
    if (r.massimo > limite)
        return Rifiuta(c, Esito::nonFatto, elenco,
                       Testo(Frase::oltreResiduo, r.peggiore + " " + Decimali(r.massimo, 4), Decimali(limite, 4)));
    if (const Esito e = ScriviUscita(c, *forma, a); e != Esito::fatto) return e;
    constexpr double gradi = 57.29577951308232;
    Rigo riga(c);
    riga.testo("input", da).testo("output", a).intero("points", static_cast<std::int64_t>(punti.size()));
    riga.numero("scale_denominator", Scaladis).numero("rotation_deg", std::atan2(s.b, s.a) * gradi);
    riga.numero("residual_rms" + Unita(), r.medio).numero("residual_max" + Unita(), r.massimo);
    riga.testo("worst_point", r.peggiore).stampaRiga();
    return Esito::fatto;
}

}   // namespace tessaro
