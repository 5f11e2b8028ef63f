// Queues of answers, one a kind, taken in order; and a stack of the dialogs that are open with the steps left to each.
#include "script/Risposte.h"

#include <cstdio>
#include <deque>
#include <filesystem>

#include "platform/Resources.h"
#include "script/Messaggi.h"

namespace tessaro {

namespace {

struct RispostaDialogo {
    std::int16_t id = 0;
    std::int32_t riga = 0;
    std::deque<PassoDialogo> passi;
};
struct RispostaAvviso {
    std::int16_t id = 0, bottone = 0;
    std::int32_t riga = 0;
};
struct RispostaFile {
    bool annulla = false;
    std::string path;
    std::int32_t riga = 0;
};
struct RispostaPopup {
    std::int16_t voce = 0;   // 0 is a cancel
    std::int32_t riga = 0;
};
struct RispostaColore {
    bool annulla = false;
    std::uint16_t r = 0, g = 0, b = 0;
    std::int32_t riga = 0;
};

struct RispostaStampa {
    bool annulla = false;
    std::string path;
    std::int32_t prima = 0, ultima = 0;   // 0: all pages
    std::int32_t riga = 0;
};
struct RispostaCarta {
    bool annulla = false;
    double larga = 0, alta = 0;   // mm; 0: as it is
    std::int32_t riga = 0;
};

std::deque<RispostaDialogo> dialoghi;
std::vector<RispostaDialogo> aperti;
std::deque<RispostaAvviso> avvisi;
std::deque<RispostaFile> file;
std::deque<RispostaPopup> popup;
std::deque<RispostaColore> colori;
std::deque<RispostaStampa> stampe;
std::deque<RispostaCarta> carte;

template <class T>
T prima(std::deque<T>& coda, Avviso inatteso) {
    if (coda.empty()) sbaglia(inatteso);
    T r = std::move(coda.front());
    coda.pop_front();
    return r;
}

// The button of an alert that no answer waits for.
struct Predefinito {
    std::int16_t id, bottone;
};
constexpr Predefinito predefiniti[] = {{3001, 2}, {1014, 2}, {3003, 1}, {3007, 2}, {3011, 1}};

std::int16_t predefinito(std::int16_t id) {
    for (const auto& p : predefiniti)
        if (p.id == id) return p.bottone;
    return 1;
}

void pretendi(bool bene) {
    if (!bene) sbaglia(Avviso::parole, "answer");
}

std::int16_t corto(const std::string& s) { return static_cast<std::int16_t>(Intero(s, 0, INT16_MAX)); }
std::uint16_t componente(const std::string& s) { return static_cast<std::uint16_t>(Intero(s, 0, UINT16_MAX)); }

using Parole = std::vector<Parola>;
bool annulla(const Parole& p) { return p.size() == 2 && p[1].testo == "cancel" && !p[1].protetta; }

void rispostaDialogo(const Parole& p, std::int32_t riga) {
    pretendi(p.size() >= 2);
    RispostaDialogo r{corto(p[1].testo), riga, {}};
    for (std::size_t i = 2; i < p.size(); ++i) r.passi.push_back(LeggiPasso(p[i].testo));
    dialoghi.push_back(std::move(r));
}

void rispostaAvviso(const Parole& p, std::int32_t riga) {
    pretendi(p.size() == 3);
    avvisi.push_back({corto(p[1].testo), corto(p[2].testo), riga});
}

std::string assoluto(const std::string& path) {
    std::error_code guasto;
    const auto intero = std::filesystem::absolute(path, guasto);
    return guasto ? path : intero.string();
}

void rispostaFile(const Parole& p, std::int32_t riga) {
    pretendi(p.size() == 2);
    const bool via = annulla(p);
    file.push_back({via, via ? p[1].testo : assoluto(p[1].testo), riga});
}

void rispostaPopup(const Parole& p, std::int32_t riga) {
    pretendi(p.size() == 2);
    popup.push_back({annulla(p) ? std::int16_t{0} : corto(p[1].testo), riga});
}

void rispostaColore(const Parole& p, std::int32_t riga) {
    const bool via = annulla(p);
    pretendi(via || p.size() == 4);
    if (via) return void(colori.push_back({true, 0, 0, 0, riga}));
    colori.push_back({false, componente(p[1].testo), componente(p[2].testo), componente(p[3].testo), riga});
}

void rispostaStampa(const Parole& p, std::int32_t riga) {
    if (annulla(p)) return void(stampe.push_back({true, {}, 0, 0, riga}));
    pretendi(p.size() == 2 || p.size() == 4);
    RispostaStampa r{false, assoluto(p[1].testo), 0, 0, riga};
    if (p.size() == 4) {
        r.prima = Intero(p[2].testo, 1, 1000000);
        r.ultima = Intero(p[3].testo, 1, 1000000);
    }
    stampe.push_back(std::move(r));
}

void rispostaCarta(const Parole& p, std::int32_t riga) {
    if (annulla(p)) return void(carte.push_back({true, 0, 0, riga}));
    pretendi(p.size() == 1 || p.size() == 3);
    RispostaCarta r{false, 0, 0, riga};
    if (p.size() == 3) {
        r.larga = Reale(p[1].testo);
        r.alta = Reale(p[2].testo);
        pretendi(r.larga > 0 && r.alta > 0);
    }
    carte.push_back(r);
}

struct Genere {
    std::string_view nome;
    void (*accoda)(const Parole& p, std::int32_t riga);
};
constexpr Genere generi[] = {
    {"dialog", rispostaDialogo}, {"alert", rispostaAvviso}, {"file", rispostaFile},   {"popup", rispostaPopup},
    {"colour", rispostaColore},  {"print", rispostaStampa}, {"setup", rispostaCarta},
};

template <class T>
void piuVecchia(const std::deque<T>& coda, std::int32_t& riga) {
    if (!coda.empty() && (riga == 0 || coda.front().riga < riga)) riga = coda.front().riga;
}

std::string figuraScritta(const std::string& path) {
    if (!AutoScreenshot(path)) sbaglia(Avviso::figura, path);
    return path;
}

}   // namespace

void Stampa(const std::string& riga) {
    std::fwrite(riga.data(), 1, riga.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void AccodaRisposta(const std::vector<Parola>& parole, std::int32_t riga) {
    pretendi(!parole.empty());
    for (const Genere& g : generi)
        if (g.nome == parole[0].testo) return g.accoda(parole, riga);
    sbaglia(Avviso::comandoIgnoto, "answer " + parole[0].testo);
}

std::int32_t RigaRispostaRimasta() {
    std::int32_t riga = 0;
    piuVecchia(dialoghi, riga);
    piuVecchia(avvisi, riga);
    piuVecchia(file, riga);
    piuVecchia(popup, riga);
    piuVecchia(colori, riga);
    piuVecchia(stampe, riga);
    piuVecchia(carte, riga);
    return riga;
}

void EseguiPasso(DialogPtr d, const PassoDialogo& p) {
    const std::string id = std::to_string(AutoDialogId(d));
    bool fatto = false;
    switch (p.tipo) {
    case PassoDialogo::testo: fatto = AutoDialogSetText(d, p.voce, Utf8ToMac(p.scritta)); break;
    case PassoDialogo::valore: fatto = AutoDialogSetValue(d, p.voce, p.numero); break;
    case PassoDialogo::clic: fatto = AutoDialogClick(d, p.voce); break;
    case PassoDialogo::tasto: fatto = AutoDialogKey(d, static_cast<std::uint8_t>(p.numero)); break;
    case PassoDialogo::figura: fatto = !figuraScritta(p.scritta).empty(); break;
    case PassoDialogo::mostra: {
        std::string come;
        fatto = AutoDialogDescribe(d, p.voce, come);
        if (fatto) Stampa("dialog " + id + " item " + std::to_string(p.voce) + " " + come);
        break;
    }
    }
    if (!fatto) sbaglia(Avviso::dialogoVoce, id, p.origine);
}

std::int16_t RispondiAvviso(std::int16_t id, std::string_view testo) {
    Stampa("alert " + std::to_string(id) + " " + TraVirgolette(testo));
    if (avvisi.empty()) return predefinito(id);
    const RispostaAvviso r = avvisi.front();
    avvisi.pop_front();
    if (r.id != id) sbaglia(Avviso::avvisoDiverso, std::to_string(id), std::to_string(r.id));
    return r.bottone;
}

void ApriDialogo(std::int16_t id, std::string_view titolo) {
    Stampa("dialog " + std::to_string(id) + " " + TraVirgolette(titolo));
    if (AutoModeless(id) != nullptr) return;   // it is driven by `item`
    if (dialoghi.empty()) sbaglia(Avviso::dialogoInatteso, std::to_string(id));
    RispostaDialogo r = std::move(dialoghi.front());
    dialoghi.pop_front();
    if (r.id != id) sbaglia(Avviso::dialogoDiverso, std::to_string(id), std::to_string(r.id));
    aperti.push_back(std::move(r));
}

bool DialogoAtteso(std::int16_t id) { return !dialoghi.empty() && dialoghi.front().id == id; }

void PassoDelDialogo(DialogPtr d) {
    const std::int16_t id = AutoDialogId(d);
    if (aperti.empty() || aperti.back().id != id || aperti.back().passi.empty())
        sbaglia(Avviso::dialogoAperto, std::to_string(id));
    const PassoDialogo p = std::move(aperti.back().passi.front());
    aperti.back().passi.pop_front();
    EseguiPasso(d, p);
}

void ChiudiDialogo(std::int16_t id) {
    if (aperti.empty() || aperti.back().id != id) return;   // a modeless one
    const bool rimasti = !aperti.back().passi.empty();
    aperti.pop_back();
    if (rimasti) sbaglia(Avviso::dialogoPassiRimasti, std::to_string(id));
}

bool RispondiFile(std::string& path) {
    const RispostaFile r = prima(file, Avviso::fileInatteso);
    if (!r.annulla) path = r.path;
    return !r.annulla;
}

std::int16_t RispondiPopup() { return prima(popup, Avviso::popupInatteso).voce; }

bool RispondiColore(std::uint16_t& r, std::uint16_t& g, std::uint16_t& b) {
    const RispostaColore c = prima(colori, Avviso::coloreInatteso);
    if (c.annulla) return false;
    r = c.r;
    g = c.g;
    b = c.b;
    return true;
}

bool RispondiStampa(std::string& path, std::int32_t& first, std::int32_t& last) {
    const RispostaStampa r = prima(stampe, Avviso::stampaInattesa);
    if (r.annulla) return false;
    path = r.path;
    if (r.prima > 0) {
        first = r.prima;
        last = r.ultima;
    }
    return true;
}

bool RispondiCarta(double& width, double& height) {
    const RispostaCarta r = prima(carte, Avviso::cartaInattesa);
    if (r.annulla) return false;
    if (r.larga > 0) {
        width = r.larga;
        height = r.alta;
    }
    return true;
}

}   // namespace tessaro
