// The command `register`: control points from a file give a picture or a drawing its real coordinates.
#include <limits>
#include <string>

#include "batch/Comandi.h"
#include "batch/Misure.h"
#include "batch/Motore.h"
#include "batch/PuntiFile.h"
#include "batch/Rigo.h"
#include "digitising/PuntiApplica.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr double gradi = 57.29577951308232;

// In the middle of the points: what bends is turned otherwise at each place.
double rotazione(const std::vector<PuntoDato>& punti, const MappaPunti& m) {
    Coppia c;
    for (const PuntoDato& p : punti) {
        c.x += p.foglio.x / static_cast<double>(punti.size());
        c.y += p.foglio.y / static_cast<double>(punti.size());
    }
    return ParametriDi(m, c).rotazione;
}

// A similarity is what control points 1 and 2 say; the other methods go with the drawing as its table, which coordinates
// follow. What forbids it is given back, empty when it was done.
std::string registra(const std::vector<PuntoDato>& punti, const MappaPunti& m) {
    if (m.metodo() == Metodo::helmert) {
        RegistraFoglio(m);
        return {};
    }
    if (punti.size() > massimoPuntiTabella || !PoniTabella(TabellaDi(punti, m.metodo()))) return Testo(Frase::pieno);
    return MacToUtf8(ApplicaPunti(true));
}

}   // namespace

Esito ComandoRegistra(const Chiamata& c) {
    const std::string &da = c.file[0], &elenco = c.file[1], &a = c.file[2];
    double limite = std::numeric_limits<double>::infinity();
    if (StessoFile(da, a)) return Rifiuta(c, Esito::uso, a, Testo(Frase::stessoFile));
    const GenereFile* forma = FormaUscita(c, a);
    if (forma == nullptr || !Numero(c, "max-residual", 0, 1e9, limite) || !ScegliMisure(c)) return Esito::uso;
    Metodo metodo = Metodo::helmert;
    if (!ScegliMetodo(c, metodo)) return Esito::uso;
    std::vector<PuntoDato> punti;
    Posti posti{};
    if (const Esito e = LeggiPunti(c, elenco, static_cast<std::size_t>(PuntiMinimi(metodo)), punti, posti);
        e != Esito::fatto)
        return e;
    if (const Esito e = ApriIngresso(c, da, false); e != Esito::fatto) return e;
    const std::int32_t immagine = PrimaImmagine();
    const bool diCasa = GenereDi(da)->diCasa;
    const bool inPixel = posti == Posti::pixel || (posti == Posti::comeSiDice && !c.ha("sheet"));
    if (inPixel && (!diCasa || c.ha("pixels") || posti == Posti::pixel)) {
        if (immagine == 0) return Rifiuta(c, Esito::nonFatto, da, Testo(Frase::senzaImmagine));
        InFoglio(punti, immagine);
    }
    if (!diCasa && immagine != 0) FoglioPer(Elem(immagine).pict.larghezza, Elem(immagine).pict.altezza);
    SoluzionePunti s;
    if (const Esito e = Adatta(c, elenco, punti, metodo, s); e != Esito::fatto) return e;
    if (const std::string guasto = registra(punti, s.mappa); !guasto.empty())
        return Rifiuta(c, Esito::nonFatto, elenco, guasto);
    const Residui r = StampaResidui(c, punti, s);
    if (const Esito e = EntroLimite(c, elenco, r, limite); e != Esito::fatto) return e;
    if (const Esito e = ScriviUscita(c, *forma, a); e != Esito::fatto) return e;
    Rigo riga(c);
    riga.testo("input", da).testo("output", a);
    riga.numero("scale_denominator", Scaladis).numero("rotation_deg", rotazione(punti, s.mappa) * gradi);
    AggiungiResidui(riga, r, s, punti.size());
    riga.stampaRiga();
    return Esito::fatto;
}

}   // namespace tessaro
