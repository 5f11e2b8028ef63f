// Reading control points, and the registration that fits them best.
#include "batch/PuntiFile.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>

#include "batch/Comandi.h"
#include "bitmap/PictInPixel.h"
#include "dialogs/Parametri.h"
#include "digitising/FilePunti.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "shell/Archivia.h"
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

namespace {

// The whole file; false when it is not there.
bool leggiTesto(const std::string& percorso, std::string& testo) {
    std::ifstream in(percorso, std::ios::binary);
    char blocco[4096];
    while (testo.size() < massimoByte && (in.read(blocco, sizeof blocco) || in.gcount() > 0))
        testo.append(blocco, static_cast<std::size_t>(in.gcount()));
    return in.eof();
}

// Files of QGIS and of the program's own table tell by their heading what they are.
Posti perTestata(std::string_view testo) {
    while (!testo.empty()) {
        const std::size_t fine = std::min(testo.find_first_of("\r\n"), testo.size());
        const std::string riga = Minuscole(testo.substr(0, fine));
        testo.remove_prefix(std::min(fine + 1, testo.size()));
        if (riga.empty() || riga[0] == '#') continue;
        if (riga.find("mapx") != std::string::npos) return Posti::pixel;
        const bool nostra = riga.find("sheet x") != std::string::npos || riga.find("foglio x") != std::string::npos;
        return nostra ? Posti::foglio : Posti::comeSiDice;
    }
    return Posti::comeSiDice;
}

Esito rigaGuasta(const Chiamata& c, const std::string& percorso, std::size_t numero) {
    return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::rigaPunto, std::to_string(numero)));
}

Esito conTestata(const Chiamata& c, const std::string& percorso, const std::string& testo,
                 std::vector<PuntoDato>& punti) {
    const EsitoFilePunti letto = LeggiFilePunti(testo, {});
    if (letto.scartate > 0) return rigaGuasta(c, percorso, letto.primaScartata);
    for (std::size_t i = 0; i < letto.tabella.righe.size(); ++i) {
        const RigaPunto& r = letto.tabella.righe[i];
        if (r.inUso && r.intera())
            punti.push_back({r.nome.empty() ? std::to_string(i + 1) : r.nome, r.foglio, r.reale});
    }
    return Esito::fatto;
}

Esito senzaTestata(const Chiamata& c, const std::string& percorso, const std::string& testo,
                   std::vector<PuntoDato>& punti) {
    std::istringstream in(testo);
    std::string riga;
    for (std::size_t numero = 1; std::getline(in, riga); ++numero) {
        const std::vector<std::string> p = parole(riga);
        if (p.empty() || p[0][0] == '#') continue;
        PuntoDato d;
        if (punto(p, d)) {
            punti.push_back(d);
        } else if (!punti.empty() || !senzaNumeri(p)) {   // else names of the columns
            return rigaGuasta(c, percorso, numero);
        }
    }
    return Esito::fatto;
}

}   // namespace

Esito LeggiPunti(const Chiamata& c, const std::string& percorso, std::size_t minimo, std::vector<PuntoDato>& punti,
                 Posti& posti) {
    std::string testo;
    if (!leggiTesto(percorso, testo)) return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::assente));
    posti = perTestata(testo);
    const Esito e = (posti == Posti::comeSiDice ? senzaTestata : conTestata)(c, percorso, testo, punti);
    if (e != Esito::fatto) return e;
    std::vector<std::string> nomi;
    nomi.reserve(punti.size());
    for (const PuntoDato& p : punti) nomi.push_back(p.nome);
    std::sort(nomi.begin(), nomi.end());
    if (const auto doppio = std::adjacent_find(nomi.begin(), nomi.end()); doppio != nomi.end())
        return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::nomePunto, *doppio));
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
