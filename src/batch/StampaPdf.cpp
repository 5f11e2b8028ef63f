// The command `print`: paper, margins and what else the print dialog offers, from options.
#include "batch/StampaPdf.h"

#include <algorithm>
#include <array>

#include "batch/Comandi.h"
#include "batch/Motore.h"
#include "batch/Rigo.h"
#include "display/Stampa.h"
#include "display/StampaPiastrelle.h"
#include "model/Unita.h"
#include "platform/Printing.h"

namespace tessaro {

namespace {

constexpr double mmPollice = 25.4, puntiPollice = 72;

struct Foglio {
    std::string_view nome;
    double corto, lungo;   // mm
};
constexpr Foglio fogli[] = {{"A0", 841, 1189}, {"A1", 594, 841}, {"A2", 420, 594},        {"A3", 297, 420},
                            {"A4", 210, 297},  {"A5", 148, 210}, {"letter", 215.9, 279.4}};

// A sheet that fits its page exactly would get a second row and column: sides are whole points, and 1 added.
PMPageFormat cartaDelFoglio() {
    constexpr double unPunto = mmPollice / puntiPollice;
    PMPageFormat f;
    f.larghezza = Xfoglio * 10 + 2 * unPunto;
    f.altezza = yfoglio * 10 + 2 * unPunto;
    return f;
}

void stampaSu(const PMPageFormat& carta, const std::string& percorso, std::int32_t prima, std::int32_t ultima) {
    PMPrintSettings s;
    s.luogo = percorso;
    s.prima = prima;
    s.ultima = ultima;
    PMFlattenPageFormat(carta, hPageFormat);
    PMFlattenPrintSettings(s, hPrintSettings);
    DoPrint();
    DopoStampa();
}

// "A3", "210x297" in millimetres, "sheet" for the drawing's own. False: none of them.
bool leggiCarta(const std::string& s, PMPageFormat& f) {
    if (s == "sheet") {
        f = cartaDelFoglio();
        return true;
    }
    const auto* nome = std::find_if(std::begin(fogli), std::end(fogli), [&s](const Foglio& x) { return x.nome == s; });
    if (nome != std::end(fogli)) {
        f.larghezza = nome->corto;
        f.altezza = nome->lungo;
        return true;
    }
    const auto per = s.find('x');
    constexpr double minimo = 10, massimo = 20000;
    return per != std::string::npos && LeggiNumero(s.substr(0, per), minimo, massimo, f.larghezza)
           && LeggiNumero(s.substr(per + 1), minimo, massimo, f.altezza);
}

// "3" or "2-5".
bool leggiPagine(const std::string& s, std::int32_t& prima, std::int32_t& ultima) {
    const auto tratto = s.find('-');
    double a = 0, b = 0;
    if (!LeggiNumero(s.substr(0, tratto), 1, paginaFinale, a)) return false;
    b = a;
    if (tratto != std::string::npos && !LeggiNumero(s.substr(tratto + 1), a, paginaFinale, b)) return false;
    prima = static_cast<std::int32_t>(a);
    ultima = static_cast<std::int32_t>(b);
    return true;
}

struct Interruttore {
    std::string_view nome;
    std::uint8_t ScelteStampa::*quale;
};
constexpr Interruttore interruttori[] = {{"marks", &ScelteStampa::crocini},
                                         {"numbers", &ScelteStampa::numeri},
                                         {"ruler", &ScelteStampa::righello},
                                         {"skip-empty", &ScelteStampa::saltaVuote},
                                         {"one-page", &ScelteStampa::unaPagina}};

// What the page formats of this print are; they wait for the drawing, whose sheet may be one.
PMPageFormat cartaDiStampa;
std::int32_t primaPagina = 1, ultimaPagina = paginaFinale;

constexpr GenereFile stampato{".pdf", nullptr, [] {
                                  FSSpec file;
                                  if (NavPutFile("", "", file))
                                      stampaSu(cartaDiStampa, file.percorso, primaPagina, ultimaPagina);
                              }};

bool leggiScelte(const Chiamata& c) {
    const auto nonBuona = [&c](std::string_view nome) {
        Rifiuta(c, Esito::uso, "", Testo(Frase::valore, "--" + std::string(nome), c.valore(nome)));
        return false;
    };
    if (c.ha("paper") && !leggiCarta(c.valore("paper"), cartaDiStampa)) return nonBuona("paper");
    if (c.ha("pages") && !leggiPagine(c.valore("pages"), primaPagina, ultimaPagina)) return nonBuona("pages");
    double margine = 0;
    if (!Numero(c, "margin", 0, 100, margine)) return false;
    if (c.ha("landscape")) std::swap(cartaDiStampa.larghezza, cartaDiStampa.altezza);
    cartaDiStampa.sinistra = cartaDiStampa.sopra = cartaDiStampa.destra = cartaDiStampa.sotto = margine;
    for (const Interruttore& i : interruttori)
        if (c.ha(i.nome)) scelteStampa.*i.quale = 1;
    scelteStampa.sovrapposte = c.ha("overlap");
    return Numero(c, "overlap", 1, 100, scelteStampa.strisciaMm);
}

}   // namespace

void StampaFoglio() {
    FSSpec file;
    if (NavPutFile("", "", file)) stampaSu(cartaDelFoglio(), file.percorso, 1, 1);
}

Esito ComandoStampa(const Chiamata& c) {
    const std::string &da = c.file[0], &a = c.file[1];
    cartaDiStampa = {};
    if (const Esito e = ApriIngresso(c, da, true); e != Esito::fatto) return e;
    if (!leggiScelte(c)) return Esito::uso;
    if (const Esito e = ScriviUscita(c, stampato, a); e != Esito::fatto) return e;
    const Piastrelle p = PiastrelleDi(rectgr, scelteStampa);
    Rigo r(c);
    r.testo("input", da)
        .testo("output", a)
        .intero("tiles", p.pagine())
        .numero("paper_width_mm", cartaDiStampa.larghezza);
    r.numero("paper_height_mm", cartaDiStampa.altezza).numero("size_ratio", p.scala).intero("bytes", ByteDi(a));
    r.stampa();
    return Esito::fatto;
}

}   // namespace tessaro
