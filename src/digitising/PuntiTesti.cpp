// Sentences of list 9300, and numbers as text.
#include "digitising/PuntiTesti.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "model/Unita.h"
#include "platform/Resources.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

enum : std::int16_t {   // strings of the list
    testata = 1,
    esito,         // ^0 points, ^1 degrees of freedom, ^2 standard error, ^3 the largest residual
    esitoLastra,   // ^0 points, ^1 root mean square without each
    esitoEsatto,   // ^0 points: no degrees of freedom
    robusta,       // ^0 robust standard error, behind the esito
    parametri,     // ^0 scale, ^1 rotation, ^2 shear
    ritiro,        // ^0 along x, ^1 along y, ^2 the round scale
    assi,          // ^0, ^1 scales along both axes, without a round one
    nessunPunto,
    primoRifiuto = 10,   // by Rifiuto, from pochi: ^0 needed, ^1 there are, or ^0 the points
    tuttoBene = 20,      // ^0 longest residual
    nonGiudicabile,
    tuttiScambiati,
    sbagliato,               // ^0 point, ^1 by how much, ^2 how many others, ^3 within
    unitaSospetta,           // ^0 the scale by the points, ^1 the drawing's
    debole,                  // ^0 per cent of slips that are named, ^1 points from which on all but one in twenty
    deboleSenzaNumero,       // ^0 per cent
    scoperti,                // ^0 points
    daQuanti,                // ^0 points from which on they are judged
    piegaComeSbaglio,        // of a thin plate
    primoSlittamento = 30,   // by Slittamento: ^0 factor or point, ^1 proposed value
    asseX = 40,
    asseY,
};

std::string numero(double v, std::int16_t decimali) {
    PStr255 s;
    RToStr(v, decimali, s);
    return s.str();
}

// Digits of real coordinates: a tenth of a sheet unit, three decimals at least.
std::int16_t decimaliReali(const StatoPunti& s) {
    if (!s.esito) return 3;
    const double scala = ParametriDi(s.soluzione.mappa, {0, 0}).scala;
    const double servono = scala > 0 ? 1 - std::floor(std::log10(scala)) : 3;
    return static_cast<std::int16_t>(std::clamp(servono, 3.0, 8.0));
}

double lungo(const Coppia& c) { return std::hypot(c.x, c.y); }

std::string nomePunto(const TabellaPunti& t, std::size_t riga) {
    const std::string& nome = t.righe[riga].nome;
    return std::to_string(riga + 1) + (nome.empty() ? "" : " (" + nome + ")");
}

Coppia centroDi(const TabellaPunti& t) {
    Coppia c;
    double n = 0;
    for (const PuntoNoto& p : PuntiDellaTabella(t, true)) {
        c.x += p.foglio.x;
        c.y += p.foglio.y;
        ++n;
    }
    return n > 0 ? Coppia{c.x / n, c.y / n} : c;
}

std::string rapporto(double perCento) { return numero(perCento, 3) + "%"; }

}   // namespace

std::string StringaPunti(std::int16_t n, std::string_view p0, std::string_view p1, std::string_view p2,
                         std::string_view p3) {
    constexpr std::int16_t lista = 9300;
    std::string s = GetIndString(lista, n);
    const std::string_view parametri[] = {p0, p1, p2, p3};
    for (std::size_t i = 0; i < std::size(parametri); ++i) {
        const std::string segno = "^" + std::to_string(i);
        if (const auto dove = s.find(segno); dove != std::string::npos) s.replace(dove, segno.size(), parametri[i]);
    }
    return s;
}

std::string TestataTabella() {
    std::string s = StringaPunti(testata);
    std::replace(s.begin(), s.end(), '|', '\t');
    return s;
}

std::vector<std::string> RigheTabella(const TabellaPunti& t, const StatoPunti& s) {
    const std::int16_t reali = decimaliReali(s);
    std::vector<std::string> righe;
    std::size_t k = 0;
    for (std::size_t i = 0; i < t.righe.size(); ++i) {
        const RigaPunto& r = t.righe[i];
        const auto coppia = [](bool data, const Coppia& c, std::int16_t decimali) {
            return data ? '\t' + numero(c.x, decimali) + '\t' + numero(c.y, decimali) : std::string("\t\t");
        };
        std::string riga = std::to_string(i + 1) + (r.inUso ? "\t1\t" : "\t0\t") + r.nome
                           + coppia(r.conFoglio, r.foglio, 2) + coppia(r.conReale, r.reale, reali);
        const bool suo = k < s.righe.size() && s.righe[k] == i;
        if (suo && s.esito && k < s.soluzione.punti.size()) {
            const ResiduoPunto& p = s.soluzione.punti[k];
            riga += coppia(true, p.residuo, reali) + '\t' + numero(lungo(p.residuo), reali) + '\t'
                    + numero(lungo(p.senza), reali);
        } else {
            riga += "\t\t\t\t";
        }
        k += suo;
        righe.push_back(std::move(riga));
    }
    return righe;
}

namespace {

// Numbers of the first of these rows.
std::string elenco(const std::vector<std::size_t>& righe) {
    constexpr std::size_t mostrati = 8;
    std::string punti;
    for (std::size_t i = 0; i < righe.size() && i < mostrati; ++i)
        punti += (i == 0 ? "" : ", ") + std::to_string(righe[i] + 1);
    return righe.size() > mostrati ? punti + ", ..." : punti;
}

std::string rifiutato(const EsitoPunti& e) {
    const auto n = static_cast<std::int16_t>(primoRifiuto + static_cast<int>(e.rifiuto) - 1);
    if (e.rifiuto == Rifiuto::pochi || e.rifiuto == Rifiuto::troppi)
        return StringaPunti(n, std::to_string(e.servono), std::to_string(e.dati));
    return StringaPunti(n, elenco(e.punti));
}

}   // namespace

std::string TestoEsito(const TabellaPunti& t, const StatoPunti& s) {
    if (t.righe.empty()) return StringaPunti(nessunPunto);
    if (!s.esito) return rifiutato(s.esito);
    const SoluzionePunti& q = s.soluzione;
    const std::int16_t d = static_cast<std::int16_t>(decimaliReali(s) + 1);
    const std::string usati = std::to_string(q.usati);
    if (t.metodo == Metodo::lastra) return StringaPunti(esitoLastra, usati, numero(q.medioSenza, d));
    if (q.gradi == 0) return StringaPunti(esitoEsatto, usati);
    double massimo = 0;
    for (std::size_t i = 0; i < q.punti.size(); ++i)
        if (s.pesi[i] > 0) massimo = std::max(massimo, lungo(q.punti[i].residuo));
    std::string testo = StringaPunti(esito, usati, std::to_string(q.gradi), numero(q.errore, d), numero(massimo, d));
    if (s.scalaRobusta > 0) testo += StringaPunti(robusta, numero(s.scalaRobusta, d));
    return testo;
}

std::string TestoParametri(const TabellaPunti& t, const StatoPunti& s) {
    if (!s.esito) return {};
    constexpr double gradi = 180 / 3.14159265358979323846;
    // What bends has other parameters at each place: those of the affine mapping that fits best are the sheet's.
    SoluzionePunti affine;
    const bool piegata =
        t.metodo >= Metodo::secondo && RisolviPunti(PuntiDellaTabella(t, false), Metodo::affine, affine, s.pesi);
    const ParametriMappa p = ParametriDi(piegata ? affine.mappa : s.soluzione.mappa, centroDi(t));
    const double scala = p.scala * decimiUnita, tonda = ScalaTonda(scala);
    std::string testo = StringaPunti(parametri, numero(scala, scala < 100 ? 4 : 2), numero(p.rotazione * gradi, 5),
                                     numero(p.taglio * gradi * 60, 3));
    if (tonda > 0) {
        // Paper that has shrunk stands for more ground a sheet unit than the round scale.
        testo += StringaPunti(ritiro, rapporto((1 - tonda / (p.scalaX * decimiUnita)) * 100),
                              rapporto((1 - tonda / (p.scalaY * decimiUnita)) * 100), numero(tonda, 0));
    } else {
        testo += StringaPunti(assi, numero(p.scalaX * decimiUnita, 2), numero(p.scalaY * decimiUnita, 2));
    }
    return testo;
}

namespace {

std::string causa(const TabellaPunti& t, const std::vector<std::size_t>& righe, const PuntoSbagliato& p,
                  std::int16_t decimali) {
    const auto n = static_cast<std::int16_t>(primoSlittamento + static_cast<int>(p.causa));
    const std::string asse = StringaPunti(p.inX ? asseX : asseY);
    const std::string valore = numero(p.inX ? p.proposta.x : p.proposta.y, decimali);
    switch (p.causa) {
    case Slittamento::ignoto: return StringaPunti(n);
    case Slittamento::puntiScambiati: return StringaPunti(n, nomePunto(t, righe[p.altro]));
    case Slittamento::unita: return StringaPunti(n, numero(p.fattore, p.fattore < 10 ? 4 : 0));
    default: return StringaPunti(n, asse, valore);
    }
}

// How much the search for slips can see with these points: nothing is said where it sees nearly all.
void dicePotenza(Metodo metodo, const EsameSbagli& e, const std::vector<std::size_t>& righe,
                 std::vector<std::string>& testi) {
    constexpr double basta = 0.95;
    const std::string perCento = numero(std::floor(e.potenza * 100), 0), quanti = std::to_string(e.bastano);
    if (!e.fatto) {
        testi.push_back(e.bastano > 0 ? StringaPunti(daQuanti, quanti) : StringaPunti(nonGiudicabile));
        return;
    }
    // Points enough for any plain sheet: it is the sheet that hides the slip, not their number.
    constexpr int diFoglioPiano = 20;
    if (e.potenza < basta && metodo == Metodo::lastra && e.buona.usati >= diFoglioPiano) {
        testi.push_back(StringaPunti(piegaComeSbaglio));
        return;
    }
    if (e.potenza < basta)
        testi.push_back(e.bastano > 0 ? StringaPunti(debole, perCento, quanti)
                                      : StringaPunti(deboleSenzaNumero, perCento));
    // A few that stand alone; where it is most of them, the sentence above says it.
    if (e.scoperti.empty() || e.scoperti.size() * 3 > righe.size()) return;
    std::vector<std::size_t> quali;
    for (const std::size_t i : e.scoperti) quali.push_back(righe[i]);
    testi.push_back(StringaPunti(scoperti, elenco(quali)));
}

}   // namespace

std::vector<std::string> TestiSbagli(const TabellaPunti& t, const StatoPunti& s) {
    std::vector<std::string> testi;
    if (!s.esito) return testi;
    std::vector<std::size_t> righe;
    const std::vector<PuntoNoto> punti = PuntiDellaTabella(t, true, &righe);
    const EsameSbagli e = CercaSbagli(punti, t.metodo);
    const std::int16_t d = decimaliReali(s);
    // Metres for kilometres or millimetres throughout: the fit does not tell, the scale of the drawing does.
    const double scala = ParametriDi(s.soluzione.mappa, centroDi(t)).scala / rappvid;
    for (const double f : {1000.0, 0.001})
        if (std::fabs(scala / f - 1) < 0.05)
            testi.push_back(StringaPunti(unitaSospetta, numero(scala * Scaladis, 0), numero(Scaladis, 0)));
    if (e.tuttiScambiati) {
        testi.push_back(StringaPunti(tuttiScambiati));
    } else if (e.fatto && e.punti.empty() && testi.empty()) {
        testi.push_back(StringaPunti(tuttoBene, numero(e.accordo, d)));
    }
    for (const PuntoSbagliato& p : e.punti)
        testi.push_back(StringaPunti(sbagliato, nomePunto(t, righe[p.punto]), numero(p.lungo, d),
                                     std::to_string(punti.size() - e.punti.size()), numero(e.accordo, d))
                        + causa(t, righe, p, d));
    if (!e.tuttiScambiati) dicePotenza(t.metodo, e, righe, testi);
    return testi;
}

}   // namespace tessaro
