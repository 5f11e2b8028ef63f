// The table of a script's commands and what each does, all of it through the toolbox's own doors.
#include "script/Esecuzione.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include "digitising/TavolettaLettori.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/Automation.h"
#include "platform/Menus.h"
#include "registration/Coordinate.h"
#include "script/Json.h"
#include "script/Messaggi.h"
#include "script/Parole.h"
#include "script/Rapporti.h"
#include "script/Risposte.h"

namespace tessaro {

namespace {

constexpr std::uint32_t ticksPrimaDelClic = 60;
constexpr std::int32_t latoMassimo = 16384;

struct Riga {
    std::vector<Parola> parole;   // behind the command's name
    std::uint16_t modificatori = 0;
    std::int32_t numero = 0;
    [[nodiscard]] const std::string& operator[](std::size_t i) const { return parole[i].testo; }
    [[nodiscard]] std::size_t quante() const { return parole.size(); }
};

struct Sospeso {
    std::int16_t dialogo = 0;
    PassoDialogo passo;
};
std::deque<Sospeso> sospesi;

Point luogo(const std::string& s) {
    const Luogo l = LeggiLuogo(s);
    if (!l.foglio) return Point{static_cast<std::int32_t>(l.y), static_cast<std::int32_t>(l.x)};
    if (noWindow) sbaglia(Avviso::disegnoAssente);
    const double h = XVidD(l.x);
    const double v = YVidD(l.y);
    constexpr double oltre = 1e9;
    if (!(std::fabs(h) < oltre && std::fabs(v) < oltre)) sbaglia(Avviso::luogo, s);
    return Point{arrotonda32(v), arrotonda32(h)};
}

std::int16_t corto(const std::string& s) { return static_cast<std::int16_t>(Intero(s, 0, INT16_MAX)); }

std::vector<std::string> assoluti(const Riga& r, std::size_t da) {
    std::vector<std::string> v;
    for (std::size_t i = da; i < r.quante(); ++i) {
        std::error_code guasto;
        const auto p = std::filesystem::absolute(r[i], guasto);
        v.push_back(guasto ? r[i] : p.string());
    }
    return v;
}

// --- input

void menu(const Riga& r) {
    const std::int16_t m = corto(r[0]);
    const std::int16_t i = corto(r[1]);
    if (AutoMenu(m, i, r.modificatori)) return;
    std::string_view voce;
    if (JsonSotto(AutoMenuJson(m), r[1], voce) && !MenuItemBuilt(m, i))
        sbaglia(Avviso::nonCostruito, "menu " + r[0] + " " + r[1]);
    sbaglia(Avviso::vocesenzaEffetto, r[0], r[1]);
}

void tasto(const Riga& r) { AutoKey(LeggiTasto(r[0]), r.modificatori); }
void muovi(const Riga& r) { AutoMove(luogo(r[0]), r.modificatori); }

void premi(Point p, std::uint16_t modificatori) {
    AutoMove(p, modificatori);
    AutoPress(p, modificatori);
}

void clic(const Riga& r) {
    const Point p = luogo(r[0]);
    AutoAdvance(ticksPrimaDelClic);
    premi(p, r.modificatori);
    AutoRelease(p, r.modificatori);
}

void doppioClic(const Riga& r) {
    clic(r);
    const Point p = luogo(r[0]);
    AutoPress(p, r.modificatori);
    AutoRelease(p, r.modificatori);
}

constinit std::uint16_t modificatoriTenuti = 0;   // of the press under way

void premuto(const Riga& r) {
    const Point p = luogo(r[0]);
    AutoAdvance(ticksPrimaDelClic);
    modificatoriTenuti = r.modificatori;
    premi(p, r.modificatori);
}

void trascina(const Riga& r) { AutoMove(luogo(r[0]), modificatoriTenuti); }

void rilascia(const Riga& r) {
    const Point p = luogo(r[0]);
    AutoMove(p, modificatoriTenuti);
    AutoRelease(p, modificatoriTenuti);
    modificatoriTenuti = 0;
}

void rotella(const Riga& r) {
    if (r[0] != "v" && r[0] != "h") sbaglia(Avviso::parole, "wheel");
    AutoWheel(r[0] == "v" ? 0 : 1, Intero(r[1], -1000, 1000), r.modificatori);
}

void aspetta(const Riga& r) { AutoAdvance(static_cast<std::uint32_t>(Intero(r[0], 0, 1'000'000'000))); }

void tavoletta(const Riga& r) {
    if (!TabAbilit) AccendiTavoletta(LettoreTavoletta::copione);
    EventRecord e;
    e.what = EventKind::tablet;
    e.where = Point{Intero(r[1]), Intero(r[0])};
    e.message = static_cast<std::uint32_t>(Intero(r[2], 0, 255));
    e.modifiers = r.modificatori;
    AutoPost(e);
}

void lasciaCadere(const Riga& r) {
    const Point p = luogo(r[0]);
    if (noWindow) sbaglia(Avviso::disegnoAssente);
    AutoMove(p, r.modificatori);
    EventRecord e;
    e.what = EventKind::drop;
    e.where = p;
    e.percorsi = assoluti(r, 1);
    e.modifiers = r.modificatori;
    AutoPost(e);
}

void chiediDalDesktop(const char* classe, std::vector<std::string> percorsi) {
    EventRecord e;
    e.what = EventKind::highLevel;
    e.classe = classe;
    e.percorsi = std::move(percorsi);
    AutoPost(e);
}

void apri(const Riga& r) { chiediDalDesktop("odoc", assoluti(r, 0)); }
void esci(const Riga&) { chiediDalDesktop("quit", {}); }
void chiudi(const Riga&) { AutoGoAway(); }
void ridimensiona(const Riga& r) { AutoResize(Intero(r[0], 16, latoMassimo), Intero(r[1], 16, latoMassimo)); }
void avanti(const Riga&) { AutoActivate(true); }
void dietro(const Riga&) { AutoActivate(false); }

void voce(const Riga& r) {
    const std::int16_t id = corto(r[0]);
    if (AutoModeless(id) == nullptr) sbaglia(Avviso::dialogoAssente, r[0]);
    for (std::size_t i = 1; i < r.quante(); ++i) sospesi.push_back({id, LeggiPasso(r[i])});
}

void risposta(const Riga& r) { AccodaRisposta(r.parole, r.numero); }

// --- output

std::int32_t numeroRecord(const std::string& s) {
    const std::int32_t n = Intero(s);
    if (n < 1 || n > maxElementi) sbaglia(Avviso::recordIgnoto, s);
    return n;
}

void mostraRecord(const Riga& r) {
    constexpr std::int32_t primoDelDisegno = 3;
    const std::int32_t da = r.quante() > 0 ? numeroRecord(r[0]) : primoDelDisegno;
    const std::int32_t a = r.quante() > 1 ? numeroRecord(r[1]) : indElem;
    for (std::int32_t n = da; n <= a; ++n) Stampa(RecordJson(n));
}

void mostraStato(const Riga& r) {
    std::vector<std::string> nomi;
    for (const Parola& p : r.parole) nomi.push_back(p.testo);
    Stampa(StatoJson(nomi));
}

void mostraMenu(const Riga& r) {
    const std::int16_t m = corto(r[0]);
    if (CountMenuItems(m) < 0) sbaglia(Avviso::menuIgnoto, r[0]);
    Stampa(AutoMenuJson(m));
}

void mostraReali(const Riga& r) {
    double x = 0;
    double y = 0;
    DigiToReal(Reale(r[0]), Reale(r[1]), x, y);
    Stampa("{\"x\":" + NumeroJson(x) + ",\"y\":" + NumeroJson(y) + "}");
}

void fotografa(const Riga& r) {
    if (!AutoScreenshot(r[0])) sbaglia(Avviso::figura, r[0]);
}

void ripeti(const Riga& r) {
    std::string testo;
    for (const Parola& p : r.parole) testo.append(testo.empty() ? "" : " ").append(p.testo);
    Stampa(testo);
}

void pretendi(const Riga& r) {
    const std::string valore = ValoreDi(r[0]);
    const double tolleranza = r.quante() > 2 ? Reale(r[2]) : 0;
    if (!JsonUguale(valore, r[1], tolleranza)) sbaglia(Avviso::diverso, r[0] + " = " + valore, r[1]);
}

struct Comando {
    std::string_view nome;
    void (*fai)(const Riga& r);
    std::size_t minimo, massimo;   // words behind the name, modifiers not counted
    bool conModificatori = false;
};
constexpr std::size_t quanteVuoi = SIZE_MAX;
constexpr Comando comandi[] = {
    {"menu", menu, 2, 2, true},
    {"key", tasto, 1, 1, true},
    {"move", muovi, 1, 1, true},
    {"click", clic, 1, 1, true},
    {"doubleclick", doppioClic, 1, 1, true},
    {"press", premuto, 1, 1, true},
    {"drag", trascina, 1, 1},
    {"release", rilascia, 1, 1},
    {"wheel", rotella, 2, 2, true},
    {"wait", aspetta, 1, 1},
    {"tablet", tavoletta, 3, 3, true},
    {"drop", lasciaCadere, 2, quanteVuoi, true},
    {"open", apri, 1, quanteVuoi},
    {"resize", ridimensiona, 2, 2},
    {"item", voce, 2, quanteVuoi},
    {"activate", avanti, 0, 0},
    {"deactivate", dietro, 0, 0},
    {"close", chiudi, 0, 0},
    {"quit", esci, 0, 0},
    {"answer", risposta, 1, quanteVuoi},
    {"dump", mostraRecord, 0, 2},
    {"state", mostraStato, 0, quanteVuoi},
    {"menus", mostraMenu, 1, 1},
    {"real", mostraReali, 2, 2},
    {"screenshot", fotografa, 1, 1},
    {"echo", ripeti, 0, quanteVuoi},
    {"expect", pretendi, 2, 3},
};

}   // namespace

bool EseguiRiga(std::string_view testo, std::int32_t numero) {
    Riga r;
    r.numero = numero;
    r.parole = Spezza(testo);
    if (r.parole.empty()) return false;
    const std::string nome = r.parole.front().testo;
    const auto* c =
        std::find_if(std::begin(comandi), std::end(comandi), [&](const Comando& x) { return x.nome == nome; });
    if (c == std::end(comandi)) sbaglia(Avviso::comandoIgnoto, nome);
    if (c->conModificatori) r.modificatori = TogliModificatori(r.parole);
    r.parole.erase(r.parole.begin());
    if (r.quante() < c->minimo || r.quante() > c->massimo) sbaglia(Avviso::parole, nome);
    c->fai(r);
    return true;
}

bool EseguiSospeso() {
    if (sospesi.empty()) return false;
    const Sospeso s = std::move(sospesi.front());
    sospesi.pop_front();
    const DialogPtr d = AutoModeless(s.dialogo);
    if (d == nullptr) sbaglia(Avviso::dialogoAssente, std::to_string(s.dialogo));
    EseguiPasso(d, s.passo);
    return true;
}

}   // namespace tessaro
