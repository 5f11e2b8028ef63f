// The report's sentences, list 9103, and its numbers as text.
#include "digitising/RapportoTesti.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "model/Documento.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

enum : std::int16_t {   // strings of the list
    primoModo = 1,      // to 3
    scalaReali = 4,     // ^0 denominator, ^1 real units per sheet unit
    scalaFoglio,
    rotazione,   // ^0 angle with its unit
    massimo,     // ^0 sheet units, ^1 real units, ^2 point
    medio,
    duePuntiEsatti,
    nessunaMappa,
    elenco,   // ^0 and ^1
    nessunAvviso,
    assente,   // in the place of a number
    testataPunti,
    testataResidui,
    titolo,   // ^0 drawing
    invito,
    testataAvvisi,
    primoDifetto = 20,        // by Difetto: of the control points, ^0 their numbers
    primoDestinazione = 30,   // the same, of the destination points
    verifica = 40,            // a row's number that does not count: ^0
};

std::string stringa(std::int16_t n, std::string_view p0 = {}, std::string_view p1 = {}, std::string_view p2 = {}) {
    constexpr std::int16_t listaRapporto = 9103;
    std::string s = GetIndString(listaRapporto, n);
    const std::string_view parametri[] = {p0, p1, p2};
    for (std::size_t i = 0; i < std::size(parametri); ++i) {
        const std::string segno = "^" + std::to_string(i);
        if (const auto dove = s.find(segno); dove != std::string::npos) s.replace(dove, segno.size(), parametri[i]);
    }
    return s;
}

std::string numero(double v, std::int16_t decimali) {
    PStr255 s;
    RToStr(v, decimali, s);
    return s.str();
}

// Nine digits, as few as say it.
std::string compatto(double v) {
    std::array<char, 32> b;
    const auto fine = std::to_chars(b.data(), b.data() + b.size(), v, std::chars_format::general, 9).ptr;
    return {b.data(), fine};
}

// Sheet units to a ten-thousandth of a millimetre; real ones to a hundredth of a sheet unit, three decimals at least.
class Cifre {
    std::int16_t reali;

public:
    explicit Cifre(double rapporto) : reali(DecimaliReali(rapporto)) {}
    static std::string foglio(double v) { return numero(v, 3); }
    [[nodiscard]] std::string reale(double v) const { return numero(v, reali); }
    [[nodiscard]] std::string scarto(double v) const { return numero(v, static_cast<std::int16_t>(reali + 1)); }
};

std::string riga(std::initializer_list<std::string> celle) {
    std::string s;
    for (const std::string& c : celle) s += (s.empty() ? "" : "\t") + c;
    return s;
}

std::string rigaPunto(const PuntoRapporto& p, std::size_t n, const Cifre& c) {
    const std::string no = stringa(assente);
    const auto dato = [&](const std::string& s) { return p.dato ? s : no; };
    return riga({std::to_string(n), dato(Cifre::foglio(p.foglio.x)), dato(Cifre::foglio(p.foglio.y)),
                 dato(c.reale(p.reale.x)), dato(c.reale(p.reale.y)), Cifre::foglio(p.destinazione.x),
                 Cifre::foglio(p.destinazione.y), c.reale(p.destinazioneReale.x), c.reale(p.destinazioneReale.y)});
}

std::string rigaResiduo(const PuntoRapporto& p, std::size_t n, const Cifre& c) {
    const std::string no = stringa(assente), nome = std::to_string(n);
    if (!p.mappato) return riga({nome, no, no, no, no, no, no});
    return riga({p.contato ? nome : stringa(verifica, nome), Cifre::foglio(p.dove.x), Cifre::foglio(p.dove.y),
                 c.reale(p.doveReale.x), c.reale(p.doveReale.y), Cifre::foglio(p.residuo), c.scarto(p.residuoReale)});
}

// "1, 2, 3 and 4"
std::string numeri(const std::vector<std::int16_t>& punti) {
    std::string s = std::to_string(punti.front());
    for (std::size_t i = 1; i < punti.size(); ++i) {
        const std::string n = std::to_string(punti[i]);
        if (i + 1 == punti.size()) return stringa(elenco, s, n);
        s.append(", ").append(n);
    }
    return s;
}

// The angle in the system in which angles are shown, in gons or degrees.
std::string testoRotazione(double radianti) {
    constexpr std::int16_t listaUnita = 9131;
    constexpr double mezzoGiro = 3.14159265358979323846;
    const bool centesimali = tipoAngolo != 1 && gradCorrente == gradCentesimali;
    const double angolo = radianti / mezzoGiro * (centesimali ? 200 : 180);
    const std::string unita = GetIndString(listaUnita, centesimali ? 1 : 2);
    return stringa(rotazione, numero(angolo, 4) + (centesimali ? " " : "") + unita);
}

std::string testata(std::int16_t n) {
    std::string s = stringa(n);
    std::replace(s.begin(), s.end(), '|', '\t');
    return s;
}

}   // namespace

std::int16_t DecimaliReali(double rapporto) {
    constexpr double almeno = 3, piuFini = 9;
    const double servono = 2 - std::floor(std::log10(std::fabs(rapporto)));
    return static_cast<std::int16_t>(servono > almeno ? std::min(servono, piuFini) : almeno);
}

std::string TestoAvviso(const AvvisoPunti& a) {
    const int primo = a.destinazione ? primoDestinazione : primoDifetto;
    return stringa(static_cast<std::int16_t>(primo + static_cast<int>(a.difetto)), numeri(a.punti));
}

TestiRapporto TestiDi(const RapportoAttacchi& r) {
    constexpr std::int32_t duePunti = 0;
    const Cifre c(r.rapporto);
    TestiRapporto t;
    t.testataPunti = testata(testataPunti);
    t.testataResidui = testata(testataResidui);
    t.testataAvvisi = stringa(testataAvvisi);
    for (std::size_t i = 0; i < r.punti.size(); ++i) {
        t.punti.push_back(rigaPunto(r.punti[i], i + 1, c));
        if (r.modo != duePunti) t.residui.push_back(rigaResiduo(r.punti[i], i + 1, c));
    }
    t.modo = stringa(static_cast<std::int16_t>(primoModo + std::clamp(r.modo, 0, 2)));
    t.scala = stringa(r.coordReali ? scalaReali : scalaFoglio, numero(r.scala, 3), compatto(r.rapporto));
    t.rotazione = testoRotazione(r.rotazione);
    if (r.conResidui) {
        t.massimo = stringa(massimo, Cifre::foglio(r.massimo), c.scarto(r.massimoReale), std::to_string(r.peggiore));
        t.medio = stringa(medio, Cifre::foglio(r.medio), c.scarto(r.medioReale));
    } else {
        t.massimo = stringa(r.modo == duePunti ? duePuntiEsatti : nessunaMappa);
    }
    for (const AvvisoPunti& a : r.avvisi) t.avvisi.push_back(TestoAvviso(a));
    if (t.avvisi.empty()) t.avvisi.push_back(stringa(nessunAvviso));
    return t;
}

std::string InvitoRapporto() { return stringa(invito); }

// --- as a text

namespace {

std::vector<std::string> celle(const std::string& s) {
    std::vector<std::string> v(1);
    for (const char ch : s) {
        if (ch == '\t') {
            v.emplace_back();
        } else {
            v.back() += ch == '\n' ? ' ' : ch;
        }
    }
    return v;
}

// Every column as wide as its widest cell, numbers to the right.
std::string incolonna(const std::string& testata, const std::vector<std::string>& righe) {
    std::vector<std::vector<std::string>> tabella{celle(testata)};
    for (const std::string& r : righe) tabella.push_back(celle(r));
    std::vector<std::size_t> larghe(tabella.front().size());
    for (const auto& r : tabella)
        for (std::size_t i = 0; i < std::min(r.size(), larghe.size()); ++i)
            larghe[i] = std::max(larghe[i], r[i].size());
    std::string s;
    for (const auto& r : tabella) {
        for (std::size_t i = 0; i < std::min(r.size(), larghe.size()); ++i)
            s += std::string(larghe[i] - r[i].size() + (i > 0 ? 2 : 0), ' ') + r[i];
        s += '\n';
    }
    return s;
}

}   // namespace

std::string TestoRapporto(const TestiRapporto& t, std::string_view disegno) {
    std::string s = stringa(titolo, disegno) + "\n\n" + t.scala + '\n' + t.rotazione + '\n' + t.modo + "\n\n";
    s += incolonna(t.testataPunti, t.punti) + '\n';
    if (!t.residui.empty()) s += incolonna(t.testataResidui, t.residui) + '\n';
    s += t.massimo + '\n';
    if (!t.medio.empty()) s += t.medio + '\n';
    s += '\n';
    s += t.testataAvvisi + '\n';
    for (const std::string& a : t.avvisi) s += a + '\n';
    return MacToUtf8(s);
}

}   // namespace tessaro
