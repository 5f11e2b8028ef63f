// The mapping that fits control points by a method, and what it leaves at each of them.
#include <algorithm>
#include <cmath>

#include "batch/PuntiFile.h"
#include "digitising/PuntiTesti.h"
#include "platform/Resources.h"
#include "registration/Sbagli.h"

namespace tessaro {

namespace {

const std::vector<std::string_view> metodi{"helmert", "affine", "projective", "poly2", "poly3", "tps"};

}   // namespace

bool ScegliMetodo(const Chiamata& c, Metodo& m) {
    auto quale = static_cast<std::size_t>(m);
    const bool bene = Parola(c, "method", metodi, quale);
    m = static_cast<Metodo>(quale);
    return bene;
}

std::string_view NomeMetodo(Metodo m) { return metodi[static_cast<std::size_t>(m)]; }

std::vector<PuntoNoto> Noti(const std::vector<PuntoDato>& punti) {
    std::vector<PuntoNoto> v;
    v.reserve(punti.size());
    for (const PuntoDato& p : punti) v.push_back({p.foglio, p.reale});
    return v;
}

TabellaPunti TabellaDi(const std::vector<PuntoDato>& punti, Metodo m) {
    TabellaPunti t;
    t.metodo = m;
    for (const PuntoDato& p : punti)
        t.righe.push_back({Utf8ToMac(p.nome).substr(0, massimoNomePunto), p.foglio, p.reale, true, true, true});
    return t;
}

Esito Adatta(const Chiamata& c, const std::string& percorso, const std::vector<PuntoDato>& punti, Metodo m,
             SoluzionePunti& s) {
    StatoPunti stato;
    stato.esito = RisolviPunti(Noti(punti), m, s);
    if (stato.esito && Ingrandimento(s.mappa) > 0) return Esito::fatto;
    const std::string perche = m == Metodo::helmert || stato.esito ? Testo(Frase::puntiFermi)
                                                                   : MacToUtf8(TestoEsito(TabellaDi(punti, m), stato));
    return Rifiuta(c, Esito::nonFatto, percorso, perche);
}

Residui StampaResidui(const Chiamata& c, const std::vector<PuntoDato>& punti, const SoluzionePunti& s) {
    Residui r;
    double quadrati = 0;
    const bool lastra = s.mappa.metodo() == Metodo::lastra;
    for (std::size_t i = 0; i < punti.size(); ++i) {
        const PuntoDato& p = punti[i];
        const Coppia d = s.punti[i].residuo, senza = s.punti[i].senza;
        const double lungo = std::hypot(d.x, d.y), manca = lastra ? std::hypot(senza.x, senza.y) : lungo;
        quadrati += lungo * lungo;
        if (manca >= r.massimo) {
            r.massimo = manca;
            r.peggiore = p.nome;
        }
        Rigo riga(c);
        riga.testo("point", p.nome).numero("sheet_x_mm", p.foglio.x / 10).numero("sheet_y_mm", p.foglio.y / 10);
        riga.numero("x" + Unita(), p.reale.x).numero("y" + Unita(), p.reale.y);
        riga.numero("residual_x" + Unita(), d.x).numero("residual_y" + Unita(), d.y);
        riga.numero("residual" + Unita(), lungo);
        riga.numero("left_out" + Unita(), std::hypot(senza.x, senza.y)).stampaRiga();
    }
    r.medio = std::sqrt(quadrati / static_cast<double>(punti.size()));
    r.senza = s.medioSenza;
    for (const PuntoSbagliato& sbagliato : CercaSbagli(Noti(punti), s.mappa.metodo()).punti)
        r.sospetti.push_back(punti[sbagliato.punto].nome);
    return r;
}

void AggiungiResidui(Rigo& riga, const Residui& r, const SoluzionePunti& s, std::size_t quanti) {
    riga.testo("method", NomeMetodo(s.mappa.metodo())).intero("points", static_cast<std::int64_t>(quanti));
    riga.intero("degrees_of_freedom", s.gradi);
    riga.numero("residual_rms" + Unita(), r.medio).numero("residual_max" + Unita(), r.massimo);
    riga.numero("left_out_rms" + Unita(), r.senza);
    riga.testo("worst_point", r.peggiore).elenco("suspect_points", r.sospetti);
}

Esito EntroLimite(const Chiamata& c, const std::string& percorso, const Residui& r, double limite) {
    if (!(r.massimo > limite)) return Esito::fatto;
    return Rifiuta(
        c, Esito::nonFatto, percorso,
        Testo(Frase::oltreResiduo, r.sospetti.empty() ? r.peggiore : r.sospetti.front(), Decimali(limite, 4)));
}

}   // namespace tessaro
