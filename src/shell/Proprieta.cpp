// A row of the window a field: shown where the selection has it, empty where its elements differ, dimmed where it follows
// from others. A value goes only to what the window showed when it was typed.
#include "shell/Proprieta.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "dialogs/Parametri.h"
#include "editing/CampiSelezione.h"
#include "editing/Selezionati.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/NomiLucidi.h"
#include "model/PuntiElemento.h"
#include "model/Registrazione.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Voci.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

constinit DialogPtr proprietaDialog = nullptr;

namespace {

enum : std::int16_t {   // items; those of field n stand at campo + 2 n, its label before it
    vChiusura = 0,
    vTitolo = 1,
    vPrimoPunto = 71,
    vSecondoPunto = 72,
    vVertice = 74,
    vQuantiVertici = 76,
    vPrecedente = 77,
    vSeguente = 78,
    vUnita = 79,
    vAvviso = 80,
    vCampo = 4,
};
constexpr std::int16_t lista = 9481;   // its words
enum : std::int16_t {
    pNiente = 1,
    pSenzaDisegno,
    pElementi,
    pDiversi,
    pNoNumero,
    pFuori,
    pTroppoLungo,
    pNonPuo,
    pUnitaLunghezza,
    pDiVertici,
    pMesh,
    pUno = 11,     // and by ObjetT
    pPiu = 21,     // and by ObjetT
    pUnita = 31,   // and by UnitaMCorrente
    pGradi = 41,   // gons, 42 degrees, 43 degrees with minutes and seconds as digits
    pNord = 44,    // 45 for the mathematical sense
    pPrimo = 51,   // what the first point is, by ObjetT
    pSecondo = 58,
    pLucido = 62,
    pLucidoNominato = 63,
    pTotale = 59,   // before the name of a sum
};
constexpr std::int16_t decimali = 3;

std::int16_t itemDi(Campo c) { return static_cast<std::int16_t>(vCampo + 2 * static_cast<int>(c)); }

bool eScelta(Campo c) {
    return c == Campo::lucido || c == Campo::colore || c == Campo::spessore || c == Campo::retino
           || c == Campo::retinoArea || c == Campo::forma;
}
// Popups count from 1; sheets and area patterns from 0.
std::int16_t primoDi(Campo c) { return c == Campo::lucido || c == Campo::retinoArea ? 0 : 1; }

// --- what the window shows was made from these

struct Mostrato {
    bool disegno = false;
    PuntoselT selezione;
    std::uint64_t impronta = 0;   // of the selected records with their numbers
    std::int32_t vertice = 0;
    std::array<double, 6> misure{};   // units and registration
    std::array<std::int32_t, 4> angoli{};
    std::uint64_t colori = 0, lucidi = 0;   // of the colour table and of the layers' names
    bool operator==(const Mostrato& m) const {
        return disegno == m.disegno && selezione.attiva == m.selezione.attiva
               && selezione.multipla == m.selezione.multipla && selezione.indice == m.selezione.indice
               && selezione.oggetto == m.selezione.oggetto && impronta == m.impronta && vertice == m.vertice
               && misure == m.misure && angoli == m.angoli && colori == m.colori && lucidi == m.lucidi;
    }
};
Mostrato mostrato;
CampiSelezione campi;
std::int32_t vertice = 0;   // of the polyline that is selected alone, from 0

std::uint64_t mescola(std::uint64_t h, const void* p, std::size_t n) {
    const auto* b = static_cast<const unsigned char*>(p);
    for (; n >= 8; n -= 8, b += 8) {
        std::uint64_t v = 0;
        std::memcpy(&v, b, 8);
        h = (h ^ v) * 0xD6E8FEB86659FD93;
        h ^= h >> 32;
    }
    for (; n > 0; --n) h = (h ^ *b++) * 0x100000001B3;
    return h;
}

std::uint64_t improntaSelezione() {
    std::uint64_t h = 0x9E3779B97F4A7C15;
    PerSelezionati([&h](std::int32_t n) {
        const std::int32_t ultimo = UltimoRecord(n);
        h = mescola(h, &n, sizeof n);
        h = mescola(h, &Elem(n), static_cast<std::size_t>(ultimo - n + 1) * sizeof(elemento));
        return true;
    });
    return h;
}

Mostrato adesso() {
    Mostrato m;
    m.disegno = !noWindow;
    if (noWindow) return m;
    m.selezione = Puntosel;
    m.impronta = Puntosel.attiva ? improntaSelezione() : 0;
    m.vertice = vertice;
    const TransfRec& t = TransfCoord;
    m.misure = {rappvid,           static_cast<double>(Elem(2).att.coordReali), t.x1, t.y1, t.deltaX + t.rot11,
                t.deltaY + t.rot12};
    m.angoli = {gradCorrente, orientCorrente, tipoAngolo, UnitaMCorrente};
    m.colori = mescola(static_cast<std::uint64_t>(coloriPresenti), arrColori.data(),
                       static_cast<std::size_t>(coloriPresenti) * sizeof(Colore));
    for (std::int16_t l = 0; l < quantiLucidi; ++l) {
        const std::string nome = NomeLucido(l);
        m.lucidi = mescola(m.lucidi + 1, nome.data(), nome.size());
    }
    return m;
}

// --- its texts

std::string parola(int n) { return GetIndString(lista, static_cast<std::int16_t>(n)); }

std::string con(int n, std::string_view p0, std::string_view p1 = {}) {
    std::string s = parola(n);
    for (const auto& [segno, valore] : {std::pair<const char*, std::string_view>{"^0", p0}, {"^1", p1}})
        if (const auto dove = s.find(segno); dove != std::string::npos) s.replace(dove, 2, valore);
    return s;
}

std::string numero(double v, std::int16_t d) {
    PStr255 s;
    RToStr(v, d, s);
    return s.str();
}

std::string titolo() {
    if (noWindow) return parola(pSenzaDisegno);
    if (campi.elementi == 0) return parola(Puntosel.attiva ? pMesh : pNiente);
    std::string generi;
    for (std::size_t i = 0; i < campi.quanti.size(); ++i) {
        if (campi.quanti[i] == 0) continue;
        if (campi.elementi == 1) return parola(pUno + static_cast<int>(i));
        generi += (generi.empty() ? "" : ", ") + con(pPiu + static_cast<int>(i), std::to_string(campi.quanti[i]));
    }
    return con(pElementi, std::to_string(campi.elementi), generi);
}

// The free unit is called by the known one that is as long.
int unitaMostrata() {
    constexpr int libera = 6;
    constexpr double lunghe[] = {10, 100, 10000, 10000000, 254.00508, 3048.06096};   // sheet units, in their order
    if (UnitaMCorrente >= 0 && UnitaMCorrente < libera) return UnitaMCorrente;
    return static_cast<int>(std::find(std::begin(lunghe), std::end(lunghe), decimiUnita) - std::begin(lunghe));
}

std::string unita() {
    const int grado = tipoAngolo == 1 ? gradSessadecimali : gradCorrente;
    return con(pUnitaLunghezza, parola(pUnita + unitaMostrata()),
               parola(pGradi + std::clamp(grado, 0, 2)) + " "
                   + parola(orientCorrente == orientAzimut ? pNord : pNord + 1));
}

void vedi(std::int16_t item, bool si) { (si ? ShowDialogItem : HideDialogItem)(proprietaDialog, item); }

void scrivi(std::int16_t item, std::string_view testo) { SetDialogItemText(proprietaDialog, item, testo); }

// --- one field

void mostraCampo(Campo c) {
    const ValoreCampo& v = campi[c];
    const std::int16_t item = itemDi(c);
    const bool c_e = v.presenza != Presenza::manca;
    vedi(static_cast<std::int16_t>(item - 1), c_e);
    vedi(item, c_e);
    if (!c_e) return;
    HiliteDialogItem(proprietaDialog, item, v.fisso ? 255 : 0);
    const bool diversi = v.presenza == Presenza::diversi;
    SetDialogItemHint(proprietaDialog, item, diversi ? parola(pDiversi) : std::string());
    if (eScelta(c)) {
        SetDialogItemValue(proprietaDialog, item, diversi ? 0 : static_cast<std::int32_t>(v.numero) + 1 - primoDi(c));
        return;
    }
    const std::int16_t d = LimitiDi(c).intero ? std::int16_t{0} : decimali;
    scrivi(item, diversi ? std::string() : CampoDiTesto(c) ? v.testo : numero(v.numero, d));
}

// The sums of several elements say that they are sums.
void nominaSomme() {
    for (const Campo c : {Campo::lunghezza, Campo::area}) {
        const std::int16_t etichetta = static_cast<std::int16_t>(itemDi(c) - 1);
        const std::string nome = parola(pTotale + (c == Campo::lunghezza ? 1 : 2));
        scrivi(etichetta, campi[c].presenza == Presenza::somma ? con(pTotale, nome) : nome);
    }
}

void mostraPunti() {
    const bool primo = campi[Campo::x].presenza != Presenza::manca;
    vedi(vPrimoPunto, primo);
    vedi(vSecondoPunto, campi[Campo::x2].presenza != Presenza::manca);
    std::size_t genere = 0;
    while (genere + 1 < campi.quanti.size() && campi.quanti[genere] == 0) ++genere;
    const bool uno = primo && campi.quanti[genere] == campi.elementi;
    scrivi(vPrimoPunto, parola(uno ? pPrimo + static_cast<int>(genere) : pPrimo));
    scrivi(vSecondoPunto, parola(pSecondo));
    const bool vertici = campi.vertici > 0;
    for (const std::int16_t i : {std::int16_t{vVertice - 1}, std::int16_t{vVertice}, std::int16_t{vQuantiVertici},
                                 std::int16_t{vPrecedente}, std::int16_t{vSeguente}})
        vedi(i, vertici);
    if (!vertici) return;
    scrivi(vVertice, std::to_string(vertice + 1));
    scrivi(vQuantiVertici, con(pDiVertici, std::to_string(campi.vertici)));
    HiliteDialogItem(proprietaDialog, vPrecedente, vertice > 0 ? 0 : 255);
    HiliteDialogItem(proprietaDialog, vSeguente, vertice + 1 < campi.vertici ? 0 : 255);
}

// A layer by its number, and by its name where it has one.
void riempiLucidi() {
    for (std::int16_t l = 0; l < quantiLucidi; ++l) {
        const std::string nome = NomeLucido(l), cifre = std::to_string(l);
        SetMenuItemText(menuLucidi, static_cast<std::int16_t>(l + 1),
                        nome.empty() ? con(pLucido, cifre) : con(pLucidoNominato, cifre, nome));
    }
    SetDialogItemMenu(proprietaDialog, itemDi(Campo::lucido), menuLucidi);
}

void avvisa(const std::string& testo) {
    scrivi(vAvviso, testo);
    vedi(vAvviso, !testo.empty());
}

void rifai() {
    campi = noWindow ? CampiSelezione{} : LeggiCampi(vertice);
    vertice = std::clamp(vertice, 0, std::max(campi.vertici - 1, 0));
    const Mostrato nuovo = adesso();
    if (nuovo.colori != mostrato.colori) SetDialogItemMenu(proprietaDialog, itemDi(Campo::colore), menuNomiColori);
    if (nuovo.lucidi != mostrato.lucidi) riempiLucidi();
    mostrato = nuovo;
    scrivi(vTitolo, titolo());
    for (std::size_t i = 0; i < numCampi; ++i) mostraCampo(static_cast<Campo>(i));
    nominaSomme();
    mostraPunti();
    vedi(vUnita, campi.elementi > 0);
    if (!noWindow) scrivi(vUnita, unita());
    avvisa({});
}

// --- what is typed

void rifiuta(std::int16_t item, const std::string& perche) {
    SysBeep(30);
    avvisa(perche);
    SelectDialogItemText(proprietaDialog, item, 0, 255);
}

// Empty: it can be taken.
std::string letto(std::int16_t item, const LimitiCampo& l, double& valore) {
    const std::string scritto = GetDialogItemText(proprietaDialog, item);
    std::int16_t posto = 0;
    const std::uint8_t prima = uscita;
    const std::int16_t codice = STRtoFP(l.min, l.max, PStr255(std::string_view(scritto)), valore, posto, 0);
    uscita = prima;
    if (codice == -3 || codice == 0 || scritto.empty()) return con(pNoNumero, scritto);
    const std::int16_t d = l.intero ? std::int16_t{0} : decimali;
    if (codice < 1 || !(valore >= l.min && valore <= l.max)) return con(pFuori, numero(l.min, d), numero(l.max, d));
    if (l.intero) valore = arrotonda32(valore);
    return {};
}

void scegliVertice(std::int32_t nuovo) {
    vertice = std::clamp(nuovo, 0, std::max(campi.vertici - 1, 0));
    rifai();
}

void verticeScritto() {
    double v = 0;
    const LimitiCampo limiti{1, static_cast<double>(std::max(campi.vertici, 1)), true};
    if (const std::string perche = letto(vVertice, limiti, v); !perche.empty()) return rifiuta(vVertice, perche);
    scegliVertice(static_cast<std::int32_t>(v) - 1);
}

void applica(Campo c) {
    const std::int16_t item = itemDi(c);
    if (campi[c].presenza == Presenza::manca || campi[c].fisso) return;
    if (CampoDiTesto(c)) {
        if (!PoniCampo(c, GetDialogItemText(proprietaDialog, item)))
            return rifiuta(item, con(pTroppoLungo, c == Campo::testo ? "40" : "13"));
        return rifai();
    }
    double v = 0;
    if (eScelta(c)) {
        const std::int32_t scelta = GetDialogItemValue(proprietaDialog, item);
        if (scelta < 1) return;
        v = scelta - 1 + primoDi(c);
    } else if (const std::string perche = letto(item, LimitiDi(c), v); !perche.empty()) {
        return rifiuta(item, perche);
    }
    if (!PoniCampo(c, v, vertice)) return rifiuta(item, parola(pNonPuo));
    rifai();
}

void mettiMenu() {
    struct MenuDelCampo {
        Campo campo;
        std::int16_t menu;
    };
    constexpr MenuDelCampo menu[] = {{Campo::spessore, menuSpessore},
                                     {Campo::retino, menuPatternPenna},
                                     {Campo::retinoArea, menuPatternArea},
                                     {Campo::forma, menuForme}};
    for (const MenuDelCampo& m : menu) SetDialogItemMenu(proprietaDialog, itemDi(m.campo), m.menu);
    SetDialogItemMenu(proprietaDialog, itemDi(Campo::colore), menuNomiColori);
    riempiLucidi();
}

}   // namespace

void ApriProprieta() {
    if (proprietaDialog) {
        SelectDialogWindow(proprietaDialog);
        return;
    }
    proprietaDialog = GetNewDialog(dialogoProprieta);
    if (!proprietaDialog) return;
    mettiMenu();
    rifai();
    CheckMenuItem(menuModifica, voci::modifica::proprieta, true);
}

void ChiudiProprieta() {
    if (!proprietaDialog) return;
    DisposeDialog(proprietaDialog);
    proprietaDialog = nullptr;
    CheckMenuItem(menuModifica, voci::modifica::proprieta, false);
}

void AggiornaProprieta(bool forse) {
    if (!proprietaDialog || (!forse && mostrato.disegno == !noWindow)) return;
    const Mostrato ora = adesso();
    if (ora == mostrato) return;
    // Another thing: its vertices are counted from the first.
    if (ora.selezione.indice != mostrato.selezione.indice) vertice = 0;
    rifai();
}

void ColpoProprieta(std::int16_t item) {
    if (!proprietaDialog) return;   // a click that was still queued when it closed
    if (item == vChiusura) return ChiudiProprieta();
    // What was typed was meant for what the window showed: another selection does not get it.
    if (noWindow || !(adesso() == mostrato)) return rifai();
    if (item == vVertice) return verticeScritto();
    if (item == vPrecedente) return scegliVertice(vertice - 1);
    if (item == vSeguente) return scegliVertice(vertice + 1);
    const int n = (item - vCampo) / 2;
    if (item >= vCampo && (item - vCampo) % 2 == 0 && n < static_cast<int>(numCampi)) applica(static_cast<Campo>(n));
}

namespace {

const VoceStato righe[] = {
    {"proprietaDialog",
     [] {
         if (proprietaDialog) DisposeDialog(proprietaDialog);
         proprietaDialog = nullptr;
         mostrato = Mostrato{};
         campi = CampiSelezione{};
         vertice = 0;
     },
     nullptr},
};
const TabellaStato tabellaStato(righe);

}   // namespace

}   // namespace tessaro
