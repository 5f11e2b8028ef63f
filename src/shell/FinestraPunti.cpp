// Opens, fills and closes the table of control points, and takes what is typed in it.
#include "shell/FinestraPunti.h"

#include <charconv>
#include <cmath>
#include <memory>
#include <string>

#include "digitising/PuntiApplica.h"
#include "digitising/PuntiTesti.h"
#include "display/FrecceResidui.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Zoom.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/Figura.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Quickdraw.h"
#include "shell/Calcolatrice.h"
#include "shell/Comandi.h"
#include "shell/Modi.h"
#include "shell/PuntiAzioni.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

constinit DialogPtr puntiDialog = nullptr;

namespace {

enum : std::int16_t {   // items
    vChiusura = 0,
    vChiudi = 2,
    vMetodo = 3,
    vRobusta = 4,
    vEsito = 5,
    vParametri = 6,
    vTabella = 7,
    vSbagli = 8,
    vAggiungi = 9,
    vTogli = 10,
    vClic = 11,
    vMarker = 12,
    vAbbina = 13,
    vApri = 14,
    vSalva = 15,
    vCroci = 16,
    vFrecce = 17,
    vEsagerazione = 18,
    vAnteprima = 19,
    vTutta = 22,
    vImposta = 23,
    vCopie = 24,
    vRaddrizza = 25,
};
enum : std::int16_t { cUso = 2, cNome, cFoglioX, cFoglioY, cRealeX, cRealeY };   // columns

// What stands in the window was made from these.
struct Mostrato {
    std::uint32_t numero = 0;
    double unita = 0, scala = 0;
    std::array<double, 8> firma{};
    std::uint8_t reali = 0;
    bool operator==(const Mostrato&) const = default;
};
Mostrato mostrato;
std::unique_ptr<MappaFoglio> anteprima;   // shown while mappaMolti names it
bool anteprimaChiesta = false;            // the box is checked
bool tuttaChiesta = true;                 // the read-out is to follow the whole mapping

Mostrato adesso() { return {NumeroEstensione(estPunti), decimiUnita, rappvid, FirmaAttuale(), Elem(2).att.coordReali}; }

void spegniAnteprima() {
    if (anteprima && mappaMolti == anteprima.get()) mappaMolti = nullptr;
    anteprima.reset();
}

void rifaiAnteprima() {
    const bool prima = anteprima != nullptr;
    spegniAnteprima();
    if (anteprimaChiesta) anteprima = MappaDellaTabella();
    mappaMolti = anteprima.get();
    if (prima || anteprima) InvalWind();
}

void tabella(std::int16_t item, const std::vector<std::string>& righe) {
    SetDialogItemRows(puntiDialog, item, static_cast<std::int16_t>(righe.size()));
    for (std::size_t i = 0; i < righe.size(); ++i)
        SetDialogItemRow(puntiDialog, item, static_cast<std::int16_t>(i + 1), righe[i], {});
}

std::string fattore() {
    std::array<char, 32> b{};
    const double v = EsagerazioneFrecce();
    return {b.data(), std::to_chars(b.data(), b.data() + b.size(), v, std::chars_format::general, 6).ptr};
}

// While a point is dragged slips are left as they were: they are looked for when it rests.
void rifai(bool conSbagli = true) {
    mostrato = adesso();
    const TabellaPunti& t = LaTabella();
    const StatoPunti& s = StatoTabella();
    SetDialogItemText(puntiDialog, vTabella, TestataTabella());
    tabella(vTabella, RigheTabella(t, s));
    SetDialogItemValue(puntiDialog, vMetodo, static_cast<std::int32_t>(t.metodo) + 1);
    SetDialogItemValue(puntiDialog, vRobusta, t.robusta);
    HiliteDialogItem(puntiDialog, vRobusta, t.metodo == Metodo::lastra ? 255 : 0);
    SetDialogItemText(puntiDialog, vEsito, TestoEsito(t, s));
    SetDialogItemText(puntiDialog, vParametri, TestoParametri(t, s));
    if (conSbagli) tabella(vSbagli, TestiSbagli(t, s));
    SetDialogItemValue(puntiDialog, vFrecce, t.frecce);
    SetDialogItemText(puntiDialog, vEsagerazione, fattore());
    SetDialogItemValue(puntiDialog, vAnteprima, anteprimaChiesta);
    if (t.inVigore && t.metodo != Metodo::helmert) tuttaChiesta = MappaInVigore() != nullptr;
    SetDialogItemValue(puntiDialog, vTutta, tuttaChiesta);
    for (const std::int16_t v : {vImposta, vCopie, vRaddrizza})
        HiliteDialogItem(puntiDialog, v, s.esito && !t.righe.empty() ? 0 : 255);
    for (const std::int16_t v : {vTogli, vSalva, vAbbina}) HiliteDialogItem(puntiDialog, v, t.righe.empty() ? 255 : 0);
    rifaiAnteprima();
    InvalWind();
}

// A decimal comma is one too. Empty takes the coordinate back.
bool numero(const std::string& testo, double& v) {
    std::string s;
    for (const char c : testo)
        if (c != ' ') s += c == ',' ? '.' : c;
    double letto = 0;
    const auto e = std::from_chars(s.data() + (s.starts_with('+') ? 1 : 0), s.data() + s.size(), letto);
    if (e.ec != std::errc{} || e.ptr != s.data() + s.size() || !(std::fabs(letto) <= 1e9)) return false;
    v = letto;
    return true;
}

void scriviCella(RigaPunto& r, const GridHit& c) {
    if (c.column == cUso) r.inUso = c.text == "1";
    if (c.column == cNome) r.nome = c.text.substr(0, massimoNomePunto);
    if (c.column < cFoglioX || c.column > cRealeY) return;
    const bool foglio = c.column <= cFoglioY;
    Coppia& p = foglio ? r.foglio : r.reale;
    double& v = c.column == cFoglioX || c.column == cRealeX ? p.x : p.y;
    bool& dato = foglio ? r.conFoglio : r.conReale;
    if (c.text.find_first_not_of(' ') == std::string::npos) {
        dato = false;
        p = {};
    } else if (numero(c.text, v)) {
        dato = true;
    } else {
        SysBeep(30);
    }
}

void celleScritte() {
    TabellaPunti t = LaTabella();
    GridHit c;
    while (GetGridHit(puntiDialog, vTabella, c)) {
        const auto i = static_cast<std::size_t>(c.row - 1), a = static_cast<std::size_t>(c.to - 1);
        if (c.row < 1 || i >= t.righe.size()) continue;
        if (c.column > 0) {
            scriviCella(t.righe[i], c);
        } else if (c.to >= 1 && a < t.righe.size()) {
            RigaPunto r = std::move(t.righe[i]);
            t.righe.erase(t.righe.begin() + static_cast<std::ptrdiff_t>(i));
            t.righe.insert(t.righe.begin() + static_cast<std::ptrdiff_t>(a), std::move(r));
        }
    }
    PoniTabella(t);
    rifai();   // also where nothing came of it: the cell shows what holds
}

std::size_t rigaScelta() { return static_cast<std::size_t>(std::max(GetDialogItemValue(puntiDialog, vTabella), 0)); }

void cambia(void (*come)(TabellaPunti&)) {
    TabellaPunti t = LaTabella();
    come(t);
    PoniTabella(t);
}

void togli() {
    TabellaPunti t = LaTabella();
    const std::size_t n = rigaScelta();
    if (n < 1 || n > t.righe.size()) {
        SysBeep(30);
        return;
    }
    t.righe.erase(t.righe.begin() + static_cast<std::ptrdiff_t>(n - 1));
    PoniTabella(t);
}

void aggiungi() {
    TabellaPunti t = LaTabella();
    if (t.righe.size() >= massimoPuntiTabella) {
        SysBeep(30);
        return;
    }
    t.righe.emplace_back();
    PoniTabella(t);
    rifai();
    SetDialogItemValue(puntiDialog, vTabella, static_cast<std::int32_t>(t.righe.size()));
}

void prendiClic() {
    FineFigura();
    LasciaCalcolatrice();
    operazCorrente = opPuntoTabella;
    attaccoCursor = origineCursor[0];
    SetCursor(attaccoCursor);
    CambiaModo(mAttacco);
    DrawPallette();
    const std::size_t prima = PrimoSenzaFoglio(LaTabella(), 0);   // rows are filled from the first one
    SetDialogItemValue(puntiDialog, vTabella,
                       prima < LaTabella().righe.size() ? static_cast<std::int32_t>(prima + 1) : 0);
}

void esagera() {
    double v = 0;
    const std::string testo = GetDialogItemText(puntiDialog, vEsagerazione);
    if (testo.empty() || !numero(testo, v) || !(v > 0)) v = 0;
    TabellaPunti t = LaTabella();
    t.esagerazione = v;
    if (PoniTabella(t)) mostrato = adesso();   // the field is being typed in: only the drawing follows
    InvalWind();
}

void commuta(std::int16_t item) {
    switch (item) {
    case vRobusta: cambia([](TabellaPunti& t) { t.robusta = !t.robusta; }); break;
    case vFrecce: cambia([](TabellaPunti& t) { t.frecce = !t.frecce; }); break;
    case vAnteprima:
        anteprimaChiesta = !anteprimaChiesta;
        rifai();
        break;
    default:
        tuttaChiesta = !tuttaChiesta;
        if (LaTabella().inVigore) ImpostaDaPunti(tuttaChiesta);
        rifai();
        break;
    }
}

struct AzioneVoce {
    std::int16_t item;
    void (*fai)();
};
constexpr AzioneVoce azioni[] = {
    {vTabella, celleScritte},
    {vAggiungi, aggiungi},
    {vTogli, togli},
    {vClic, prendiClic},
    {vMarker, PuntiDaMarker},
    {vAbbina, AbbinaListaPunti},
    {vApri, ApriFilePunti},
    {vSalva, SalvaFilePunti},
    {vCroci, TrovaCrociTabella},
    {vEsagerazione, esagera},
    {vImposta, [] { ImpostaDaPunti(tuttaChiesta); }},
    {vCopie, CopieDaPunti},
    {vRaddrizza, RaddrizzaDaPunti},
    {vRobusta, [] { commuta(vRobusta); }},
    {vFrecce, [] { commuta(vFrecce); }},
    {vAnteprima, [] { commuta(vAnteprima); }},
    {vTutta, [] { commuta(vTutta); }},
};

}   // namespace

void ApriPunti() {
    if (puntiDialog) {
        SelectDialogWindow(puntiDialog);
        return;
    }
    puntiDialog = GetNewDialog(dialogoPunti);
    if (!puntiDialog) return;
    constexpr std::int16_t menuMetodi = 9300;
    SetDialogItemMenu(puntiDialog, vMetodo, menuMetodi);
    puntiInVista = true;
    rifai();
    CheckMenuItem(menuTrasforma, voci::trasforma::puntiControllo, true);
}

void AggiornaPunti() {
    if (!puntiDialog) return;
    if (noWindow) return ChiudiPunti();
    if (!(adesso() == mostrato)) rifai();
}

void ChiudiPunti() {
    if (!puntiDialog) return;
    DisposeDialog(puntiDialog);
    puntiDialog = nullptr;
    puntiInVista = false;
    anteprimaChiesta = false;
    spegniAnteprima();
    CheckMenuItem(menuTrasforma, voci::trasforma::puntiControllo, false);
    if (Modalita == mAttacco && operazCorrente == opPuntoTabella) {
        operazCorrente = opSegmento;
        CambiaModo(mSelezione);
    }
    if (!noWindow) InvalWind();
}

void ColpoPunti(std::int16_t item) {
    if (!puntiDialog) return;   // a click that was still queued when it closed
    if (item == vChiudi || item == vChiusura) return ChiudiPunti();
    if (noWindow) return;
    if (item == vMetodo) {
        TabellaPunti t = LaTabella();
        t.metodo = static_cast<Metodo>(GetDialogItemValue(puntiDialog, vMetodo) - 1);
        PoniTabella(t);
    }
    for (const AzioneVoce& a : azioni)
        if (a.item == item) a.fai();
    AggiornaPunti();
}

void PuntoCliccato() {
    if (!puntiDialog) return;
    if (const std::size_t n = TrascinaPuntoTabella([] { rifai(false); }); n > 0) {
        rifai();
        SetDialogItemValue(puntiDialog, vTabella, static_cast<std::int32_t>(n));
        return;
    }
    double x = xcurs, y = ycurs;
    AttaccaCursore(x, y, zcurs);
    TabellaPunti t = LaTabella();
    const std::size_t scelta = rigaScelta();
    std::size_t i =
        scelta >= 1 && scelta <= t.righe.size() && !t.righe[scelta - 1].conFoglio ? scelta - 1 : PrimoSenzaFoglio(t, 0);
    if (i >= t.righe.size()) {
        if (t.righe.size() >= massimoPuntiTabella) {
            SysBeep(30);
            return;
        }
        t.righe.emplace_back();
        i = t.righe.size() - 1;
    }
    t.righe[i].foglio = {x, y};
    t.righe[i].conFoglio = true;
    PoniTabella(t);
    rifai();
    const std::size_t prossima = PrimoSenzaFoglio(t, i);
    SetDialogItemValue(puntiDialog, vTabella, static_cast<std::int32_t>(std::min(prossima, t.righe.size() - 1) + 1));
}

namespace {

const VoceStato righe[] = {
    {"puntiDialog",
     [] {
         if (puntiDialog) DisposeDialog(puntiDialog);
         puntiDialog = nullptr;
         puntiInVista = false;
         anteprimaChiesta = false;
         tuttaChiesta = true;
         spegniAnteprima();
     },
     nullptr},
};
const TabellaStato tabellaStato(righe);

}   // namespace

}   // namespace tessaro
