// Shadow, steps, and the way between them.
#include "model/Giornale.h"

#include <algorithm>
#include <cstring>
#include <deque>

#include "model/Annulla.h"
#include "model/Estensioni.h"
#include "model/Figura.h"
#include "model/GiornaleImmagini.h"
#include "model/GiornaleRecord.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/VociDocumento.h"

namespace tessaro {

constinit std::int32_t memoriaGiornale = 256;
void (*dopoTransizione)(const Transizione&) = nullptr;

namespace {

using Byte = std::vector<unsigned char>;

// The figure in progress at a moment: the bytes of its rows, and whether there is one.
struct StatoFigura {
    bool inCorso = false;
    Byte byte;
};

struct Passo {
    NomePasso nome;
    std::vector<TrattoDiverso> tratti;   // from the state before to the state behind
    std::vector<elemento> altri;         // records of the side that is not in the drawing, stretch by stretch
    std::vector<RigaDiversa> righe;
    Byte altriByte;                        // bytes of the rows, of the same side
    StatoFigura figuraPrima, figuraDopo;   // empty where neither has a figure in progress
    std::int64_t figura = 0;               // the figure that it is a part of, 0 for none
    bool chiusa = false;                   // that figure is finished

    [[nodiscard]] bool vuoto() const { return tratti.empty() && righe.empty(); }
    [[nodiscard]] std::int64_t peso() const {
        return static_cast<std::int64_t>(sizeof *this + tratti.size() * sizeof(TrattoDiverso)
                                         + altri.size() * sizeof(elemento) + righe.size() * sizeof(RigaDiversa)
                                         + altriByte.size() + figuraPrima.byte.size() + figuraDopo.byte.size());
    }
};

// The drawing as it was at the last step's end.
struct Ombra {
    OmbraRecord record;
    Byte righe;   // documento and derivata, one after the other
    StatoFigura figura;
};

struct Giornale {
    bool aperto = false;
    std::vector<VoceDocumento> voci;
    Ombra ombra;
    std::deque<Passo> passi;
    std::size_t fatti = 0;       // steps that lie behind; those from here on can be done again
    std::int64_t peso = 0;       // of the steps' own bytes
    std::int32_t concluse = 0;   // figureConcluse at the last step's end
    std::int64_t figure = 0;     // number of the last figure begun
    ImmaginiTrattenute immagini;
};
Giornale& giornale() {
    static Giornale g;
    return g;
}

bool delDisegno(const VoceDocumento& v) { return v.genere <= VoceDocumento::derivata; }

// --- the figure in progress

StatoFigura leggiFigura(const Giornale& g) {
    StatoFigura s;
    s.inCorso = FiguraInCorso();
    for (const VoceDocumento& v : g.voci) {
        if (delDisegno(v)) continue;
        const auto* p = static_cast<const unsigned char*>(v.dove);
        s.byte.insert(s.byte.end(), p, p + v.byte);
    }
    return s;
}

bool figuraCambiata(const Giornale& g, const StatoFigura& ora) {
    const StatoFigura& prima = g.ombra.figura;
    if (!prima.inCorso && !ora.inCorso) return false;
    if (prima.inCorso != ora.inCorso) return true;
    std::size_t i = 0;
    for (const VoceDocumento& v : g.voci) {
        if (delDisegno(v)) continue;
        if (v.genere == VoceDocumento::figura && std::memcmp(&prima.byte[i], &ora.byte[i], v.byte) != 0) return true;
        i += v.byte;
    }
    return false;
}

// The tool stays the one in hand unless there is a figure that needs its own.
void poniFigura(const Giornale& g, const StatoFigura& s) {
    std::size_t i = 0;
    for (const VoceDocumento& v : g.voci) {
        if (delDisegno(v)) continue;
        if (s.inCorso || v.genere != VoceDocumento::strumento) std::memcpy(v.dove, &s.byte[i], v.byte);
        i += v.byte;
    }
    if (s.inCorso) return;
    Azione = sFermo;
    ContinuaPoligono = 0;
}

// --- rows of the document

Byte leggiRighe(const Giornale& g) {
    Byte b;
    for (const VoceDocumento& v : g.voci) {
        if (!delDisegno(v)) continue;
        const auto* p = static_cast<const unsigned char*>(v.dove);
        b.insert(b.end(), p, p + v.byte);
    }
    return b;
}

// Fills a step with what differs from the shadow. Derived rows come along only where something else is a step.
void confrontaRighe(Giornale& g, Passo& p, bool ancheDerivate) {
    std::size_t i = 0;
    for (std::uint32_t n = 0; n < g.voci.size(); ++n) {
        const VoceDocumento& v = g.voci[n];
        if (!delDisegno(v)) continue;
        const auto* ora = static_cast<const unsigned char*>(v.dove);
        const unsigned char* prima = &g.ombra.righe[i];
        i += v.byte;
        if ((v.genere == VoceDocumento::derivata) != ancheDerivate || std::memcmp(ora, prima, v.byte) == 0) continue;
        std::uint32_t da = 0, a = v.byte;
        while (ora[da] == prima[da]) ++da;
        while (ora[a - 1] == prima[a - 1]) --a;
        p.righe.push_back({n, da, a - da});
        p.altriByte.insert(p.altriByte.end(), prima + da, prima + a);
    }
}

void scambiaRighe(const Giornale& g, Passo& p) {
    std::size_t i = 0;
    for (const RigaDiversa& r : p.righe) {
        auto* dove = static_cast<unsigned char*>(g.voci[r.voce].dove) + r.da;
        std::swap_ranges(dove, dove + r.quanti, p.altriByte.begin() + static_cast<std::ptrdiff_t>(i));
        i += r.quanti;
    }
}

void avvisa(const std::vector<TrattoDiverso>& tratti, const std::vector<RigaDiversa>& righe) {
    if (dopoTransizione && !(tratti.empty() && righe.empty())) dopoTransizione({tratti, righe});
}

// --- steps

void perdi(Giornale& g, Passo& p) {
    g.peso -= p.peso();
    g.immagini.lascia(p.altri);
}

void perdiRipetibili(Giornale& g) {
    while (g.passi.size() > g.fatti) {
        perdi(g, g.passi.back());
        g.passi.pop_back();
    }
}

// The oldest go first, a finished figure as a whole; the last step always stays.
void contieni(Giornale& g) {
    const std::int64_t limite = std::int64_t{memoriaGiornale} * 1024 * 1024;
    while (g.passi.size() > 1 && g.peso + g.immagini.soloPassi() > limite) {
        const std::int64_t figura = g.passi.front().figura;
        do {
            perdi(g, g.passi.front());
            g.passi.pop_front();
            if (g.fatti > 0) --g.fatti;
        } while (figura != 0 && g.passi.size() > 1 && g.passi.front().figura == figura);
    }
}

// A figure is finished: its steps go together from now on. One that has stored nothing leaves no trace.
void chiudiFigura(Giornale& g, std::int64_t figura) {
    const auto primo =
        std::find_if(g.passi.rbegin(), g.passi.rend(), [&](const Passo& p) { return p.figura != figura; }).base();
    if (std::all_of(primo, g.passi.end(), [](const Passo& p) { return p.vuoto(); })) {
        for (auto p = primo; p != g.passi.end(); ++p) perdi(g, *p);
        g.passi.erase(primo, g.passi.end());
        g.fatti = g.passi.size();
        return;
    }
    for (auto p = primo; p != g.passi.end(); ++p) p->chiusa = true;
    Passo& ultimo = g.passi.back();
    ultimo.figuraDopo = g.ombra.figura;   // done again it is finished too
    ultimo.nome.punto = false;
    if (ultimo.nome.tipo == aNiente) ultimo.nome.tipo = aAggiunta;
}

void applica(Giornale& g, Passo& p, bool indietro, EsitoPasso& esito) {
    const std::vector<TrattoDiverso> tratti = indietro ? Rovescio(p.tratti) : p.tratti;
    const StatoFigura& figura = indietro ? p.figuraPrima : p.figuraDopo;
    if (!tratti.empty()) {
        std::vector<elemento> tolti = Sostituisci(tratti, p.altri, esito);
        g.immagini.scambia(tolti, p.altri);
        g.peso += (static_cast<std::int64_t>(tolti.size()) - static_cast<std::int64_t>(p.altri.size()))
                  * static_cast<std::int64_t>(sizeof(elemento));
        p.altri = std::move(tolti);
    }
    scambiaRighe(g, p);
    if (!figura.byte.empty()) poniFigura(g, figura);
    g.ombra.record.Segui(tratti);
    g.ombra.righe = leggiRighe(g);
    g.ombra.figura = leggiFigura(g);
    if (p.figura != 0) g.figure = std::max(g.figure, p.figura);
    esito.fatto = true;
    esito.righe = esito.righe || !p.righe.empty();
    avvisa(tratti, p.righe);
}

// Does p only change once more, in their places, the records that the last step changed?
bool prosegue(const Giornale& g, const Passo& p) {
    if (!p.nome.segue || g.fatti == 0 || g.fatti != g.passi.size()) return false;
    const Passo& ultimo = g.passi.back();
    const bool stessa = ultimo.figura == 0 && p.figura == 0 && ultimo.nome.tipo == p.nome.tipo && ultimo.righe.empty()
                        && p.righe.empty();
    const auto alPosto = [](const TrattoDiverso& a, const TrattoDiverso& b) {
        return a.prima == a.dopo && a.quantiPrima == a.quantiDopo && b.prima == b.dopo && b.quantiPrima == b.quantiDopo
               && a.prima == b.prima && a.quantiPrima == b.quantiPrima;
    };
    return stessa && std::equal(p.tratti.begin(), p.tratti.end(), ultimo.tratti.begin(), ultimo.tratti.end(), alPosto);
}

bool trattieni(PicHandle h) { return giornale().immagini.nominata(h); }

}   // namespace

void GiornaleNuovo() {
    GiornaleFine();
    Giornale& g = giornale();
    for (const VociDocumento* t = VociDocumento::prima; t; t = t->prossima)
        g.voci.insert(g.voci.end(), t->righe.begin(), t->righe.end());
    // By name: the order of start-up of the files says nothing.
    std::sort(g.voci.begin(), g.voci.end(),
              [](const VoceDocumento& a, const VoceDocumento& b) { return std::strcmp(a.nome, b.nome) < 0; });
    AssestaEstensioni();
    g.ombra.record.Copia();
    g.ombra.righe = leggiRighe(g);
    g.ombra.figura = leggiFigura(g);
    g.concluse = figureConcluse;
    g.immagini.entra(g.ombra.record.record);
    g.aperto = true;
    pictTrattenuta = trattieni;
}

void GiornaleFine() {
    Giornale& g = giornale();
    pictTrattenuta = nullptr;
    g.fatti = 0;
    perdiRipetibili(g);
    g = Giornale{};
}

bool GiornaleAperto() { return giornale().aperto; }

namespace {

// The shadow follows the drawing; what the step takes out of it comes to lie in the step.
void prendiDallOmbra(Giornale& g, Passo& p, std::vector<std::uint64_t> pagine, StatoFigura figura) {
    std::size_t quanti = 0;
    for (const TrattoDiverso& t : p.tratti) quanti += static_cast<std::size_t>(t.quantiPrima);
    p.altri.reserve(quanti);
    for (const TrattoDiverso& t : p.tratti) {
        const auto da = g.ombra.record.record.begin() + t.prima;
        p.altri.insert(p.altri.end(), da, da + t.quantiPrima);
        g.immagini.entra({ArrElementi + t.dopo, static_cast<std::size_t>(t.quantiDopo)});
    }
    g.immagini.esce(p.altri);
    g.ombra.record.Segui(p.tratti, std::move(pagine));
    g.ombra.righe = leggiRighe(g);
    g.ombra.figura = std::move(figura);
}

}   // namespace

bool ChiudiPasso(const NomePasso& nome) {
    Giornale& g = giornale();
    if (!g.aperto) return false;
    AssestaEstensioni();
    StatoFigura figura = leggiFigura(g);
    const bool diFigura = figuraCambiata(g, figura);
    std::vector<std::uint64_t> pagine = ImpronteDelDisegno();
    Passo p;
    p.tratti = g.ombra.record.Confronta(pagine);
    confrontaRighe(g, p, false);
    if (p.vuoto() && !diFigura) return false;
    if (!p.vuoto()) confrontaRighe(g, p, true);
    p.nome = nome;
    const bool era = g.ombra.figura.inCorso, c = figura.inCorso;
    // A command that ended the figure before it stored something of its own: a step apart, behind the finished figure.
    const bool altroComando = era && !c && g.concluse != figureConcluse && !p.vuoto();
    g.concluse = figureConcluse;
    if (c && !era) ++g.figure;
    if ((era || c) && !altroComando) {
        p.figura = g.figure;
        p.figuraPrima = g.ombra.figura;
        p.figuraDopo = figura;
        p.nome.punto = c;
    }
    prendiDallOmbra(g, p, std::move(pagine), std::move(figura));
    if (prosegue(g, p)) {   // the step before it already holds what there was
        g.immagini.lascia(p.altri);
        avvisa(p.tratti, p.righe);
        return true;
    }
    perdiRipetibili(g);
    if (altroComando) chiudiFigura(g, g.figure);
    g.peso += p.peso();
    g.passi.push_back(std::move(p));
    g.fatti = g.passi.size();
    avvisa(g.passi.back().tratti, g.passi.back().righe);
    if (era && !c && !altroComando) chiudiFigura(g, g.figure);
    contieni(g);
    return true;
}

const NomePasso* DaAnnullare() {
    const Giornale& g = giornale();
    return g.fatti == 0 ? nullptr : &g.passi[g.fatti - 1].nome;
}

// A finished figure has its name from its last step.
const NomePasso* DaRipetere() {
    const Giornale& g = giornale();
    if (g.fatti == g.passi.size()) return nullptr;
    std::size_t i = g.fatti;
    const Passo& primo = g.passi[i];
    if (primo.chiusa)
        while (i + 1 < g.passi.size() && g.passi[i + 1].figura == primo.figura) ++i;
    return &g.passi[i].nome;
}

EsitoPasso AnnullaPasso() {
    Giornale& g = giornale();
    EsitoPasso esito;
    esito.indice = Puntosel.indice;
    if (g.fatti == 0) return esito;
    const std::int64_t figura = g.passi[g.fatti - 1].chiusa ? g.passi[g.fatti - 1].figura : 0;
    do {
        applica(g, g.passi[--g.fatti], true, esito);
    } while (figura != 0 && g.fatti > 0 && g.passi[g.fatti - 1].figura == figura);
    return esito;
}

EsitoPasso RipetiPasso() {
    Giornale& g = giornale();
    EsitoPasso esito;
    esito.indice = Puntosel.indice;
    if (g.fatti == g.passi.size()) return esito;
    const std::int64_t figura = g.passi[g.fatti].chiusa ? g.passi[g.fatti].figura : 0;
    do {
        applica(g, g.passi[g.fatti++], false, esito);
    } while (figura != 0 && g.fatti < g.passi.size() && g.passi[g.fatti].figura == figura);
    return esito;
}

std::int64_t PesoGiornale() { return giornale().peso + giornale().immagini.soloPassi(); }
std::int32_t PassiGiornale() { return static_cast<std::int32_t>(giornale().fatti); }
std::span<const VoceDocumento> VociGiornale() { return giornale().voci; }

namespace {
const VoceStato righe[] = {
    voce<memoriaGiornale>("memoriaGiornale"),
    {"giornale", GiornaleFine, [] { return NumeroJson(PassiGiornale()); }},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
