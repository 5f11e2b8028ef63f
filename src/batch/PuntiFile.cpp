// Reading control points, and the registration that fits them best.
#include "batch/PuntiFile.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include "batch/Comandi.h"
#include "bitmap/PictInPixel.h"
#include "dialogs/Parametri.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "registration/Sbagli.h"
#include "shell/Generi.h"

namespace tessaro {

namespace {

constexpr std::size_t campi = 5, primoNumero = 1;
constexpr std::uintmax_t massimoByte = 16 << 20;

std::vector<std::string> parole(const std::string& riga) {
    std::vector<std::string> v;
    bool dentro = false;
    for (const char ch : riga) {
        const bool divide = ch == ' ' || ch == '\t' || ch == ',' || ch == ';' || ch == '\r';
        if (!divide && !dentro) v.emplace_back();
        if (!divide) v.back() += ch;
        dentro = !divide;
    }
    return v;
}

bool punto(const std::vector<std::string>& p, PuntoDato& d) {
    if (p.size() != campi) return false;
    double* const dove[] = {&d.foglio.x, &d.foglio.y, &d.reale.x, &d.reale.y};
    d.nome = p[0];
    for (std::size_t i = 0; i < std::size(dove); ++i)
        if (!LeggiNumero(p[i + primoNumero], -limiteReale, limiteReale, *dove[i])) return false;
    return true;
}

bool senzaNumeri(const std::vector<std::string>& p) {
    double v = 0;
    return std::none_of(p.begin(), p.end(),
                        [&v](const std::string& s) { return LeggiNumero(s, -limiteReale, limiteReale, v); });
}

}   // namespace

Esito LeggiPunti(const Chiamata& c, const std::string& percorso, std::size_t minimo, std::vector<PuntoDato>& punti) {
    std::ifstream in(percorso, std::ios::binary);
    std::string riga;
    std::uintmax_t letti = 0;
    std::int64_t numero = 0;
    while (in && letti < massimoByte && std::getline(in, riga)) {
        letti += riga.size() + 1;
        ++numero;
        const std::vector<std::string> p = parole(riga);
        if (p.empty() || p[0][0] == '#') continue;
        PuntoDato d;
        if (!punto(p, d)) {
            if (punti.empty() && senzaNumeri(p)) continue;   // names of the columns
            return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::rigaPunto, std::to_string(numero)));
        }
        if (std::any_of(punti.begin(), punti.end(), [&d](const PuntoDato& x) { return x.nome == d.nome; }))
            return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::nomePunto, d.nome));
        punti.push_back(d);
    }
    if (numero == 0 && !in.eof()) return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::assente));
    if (punti.size() < minimo)
        return Rifiuta(c, Esito::nonLetto, percorso,
                       Testo(Frase::pochiPunti, std::to_string(minimo), std::to_string(punti.size())));
    return Esito::fatto;
}

void InFoglio(std::vector<PuntoDato>& punti, std::int32_t n) {
    const auto& p = Elem(n).pict;
    const PictInPixel pixel(PictBytes(p.maniglia));
    const double kx = p.larghezza / std::max(pixel.width(), 1), ky = p.altezza / std::max(pixel.height(), 1);
    for (PuntoDato& d : punti) d.foglio = {p.x + kx * d.foglio.x, p.y + ky * d.foglio.y};
}

std::int32_t PrimaImmagine() {
    for (std::int32_t n = 3; n <= indElem; ++n)
        if (Elem(n).tipo == tPict) return n;
    return 0;
}

namespace {

std::vector<PuntoNoto> noti(const std::vector<PuntoDato>& punti) {
    std::vector<PuntoNoto> v;
    for (const PuntoDato& p : punti) v.push_back({p.foglio, p.reale});
    return v;
}

}   // namespace

std::vector<std::string> Sospetti(const std::vector<PuntoDato>& punti) {
    std::vector<std::string> nomi;
    for (const PuntoSbagliato& s : CercaSbagli(noti(punti), Metodo::helmert).punti) nomi.push_back(punti[s.punto].nome);
    return nomi;
}

Esito Adatta(const Chiamata& c, const std::string& percorso, const std::vector<PuntoDato>& punti, SoluzionePunti& s) {
    if (RisolviPunti(noti(punti), Metodo::helmert, s) && Ingrandimento(s.mappa) > 0) return Esito::fatto;
    return Rifiuta(c, Esito::nonFatto, percorso, Testo(Frase::puntiFermi));
}

double Ingrandimento(const MappaPunti& m) {
    const std::array<double, 4> d = m.Derivate({0, 0});
    return std::hypot(d[0], d[2]);
}

void RegistraFoglio(const MappaPunti& m) {
    const auto [primo, secondo] = SegniFoglio();
    RegistraSegni(m(primo), m(secondo));
}

void FoglioPer(double larghezza, double altezza) {
    const auto lato = [](double v) { return std::clamp(std::ceil(v / 10) / 10, 10.0, 200.0); };
    Xfoglio = lato(larghezza);
    yfoglio = lato(altezza);
    XFDecimi = arrotonda16(100 * Xfoglio);
    YFDecimi = arrotonda16(100 * yfoglio);
}

}   // namespace tessaro
