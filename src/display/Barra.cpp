// The thirty controls of the toolbar from left to right, with rules between the groups.
#include "display/Barra.h"

#include <memory>

#include "display/Disposizione.h"
#include "display/palette.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

constinit BottoniToolbar bottoneToolbar{};

namespace {

constexpr RGBColor GrigioMedio{32000, 32000, 32000};
constexpr std::int32_t primaIcona = 4096;
constexpr std::int16_t listaNomi = 1100, listaAiuti = 1101, listaTitoli = 9140;
constexpr std::int16_t listaAltri = 9434, titoloAltri = 1, nomeAltri = 2, aiutoAltri = 3;
constexpr std::int16_t spento = 255, acceso = 7, normale = 0;
constexpr std::int32_t cima = 4, fondo = 26, largo = 22, largoTitolato = 66;   // pixels
constexpr std::size_t primoTitolato = 28, primoValore = 23, ultimoValore = 26;

bool mai() { return false; }

// A button can be used when its menu command can, and is lit while its state is on.
struct Bottone {
    ComandoMenu comando;
    bool (*acceso)() = mai;
    bool spazioDietro = false;   // a rule stands behind it
};
constexpr std::array<Bottone, numBottoni> tabella{{
    {{menuArchivio, voci::archivio::nuovo}},   // new
    {{menuArchivio, voci::archivio::apri}},
    {{menuArchivio, voci::archivio::salva}, mai, true},
    {{menuModifica, voci::modifica::taglia}},   // cut
    {{menuModifica, voci::modifica::copia}},
    {{menuModifica, voci::modifica::incolla}},
    {{menuArchivio, voci::archivio::stampa}, mai, true},   // print
    {{menuZoom, voci::zoom::rilievo}},                     // zooms
    {{menuZoom, voci::zoom::foglio}},
    {{menuZoom, voci::zoom::reale}},
    {{menuZoom, voci::zoom::riduci}},
    {{menuZoom, voci::zoom::ingrandisci}},
    {{menuZoom, voci::zoom::rettangolo}},
    {{menuStrumenti, voci::strumenti::georeferenzia}},   // move the sheet: ends in the georeferencing dialog
    {{}, mai, true},                                     // redraw
    {{menuModifica, voci::modifica::immagineDaSelezione}, mai, true},
    {{menuVincoli, voci::vincoli::punto}, [] { return statoCursore.attaccoPunto != 0; }},
    {{menuVincoli, voci::vincoli::quota}, [] { return statoCursore.attaccoPunto != 0 && statoCursore.attaccoZ != 0; }},
    {{menuVincoli, voci::vincoli::parallelo}, [] { return statoCursore.parallelo != 0; }},
    {{menuVincoli, voci::vincoli::perpendicolare}, [] { return statoCursore.perpendicolare != 0; }},
    {{menuVincoli, voci::vincoli::orizzontale}, [] { return statoCursore.bloccaY != 0; }},
    {{menuVincoli, voci::vincoli::verticale}, [] { return statoCursore.bloccaX != 0; }},
    {{menuVincoli, voci::vincoli::griglia}, [] { return griglia.attiva != 0; }, true},
    {{}},   // values: colour, thickness, pen pattern, area pattern
    {{}},
    {{}},
    {{}, mai, true},
    {{}},                                      // help
    {{menuDisegna, voci::disegna::vertice}},   // typed points
    {{menuDisegna, voci::disegna::vertice}},
}};

constinit bool guidaPresente = false;   // found when the controls are made

bool usabile(std::size_t i) {
    constexpr std::size_t nuovo = 0, taglia = 3, foglio = 13, aiuto = 27;
    const ComandoMenu& c = tabella[i].comando;
    switch (i) {
    case nuovo: return noWindow && IsMenuItemEnabled(c.menu, c.voce);
    case taglia:
        return IsMenuItemEnabled(menuModifica, voci::modifica::copia)
               && IsMenuItemEnabled(menuModifica, voci::modifica::cancella);   // a copy, then a clearing
    case foglio: return MenuItemBuilt(c.menu, c.voce);
    case aiuto: return guidaPresente;
    default: return c.menu == 0 || IsMenuItemEnabled(c.menu, c.voce);
    }
}

std::int32_t sinistra(std::size_t i) {
    const auto n = static_cast<std::int32_t>(i);
    std::int32_t base = latoCella;
    for (std::size_t j = 0; j < i && j < primoTitolato; ++j)
        if (tabella[j].spazioDietro) base += 10;
    if (i >= primoTitolato) return 130 + 71 * (n - 27) + base + 578;
    return 27 * n + base + 6;
}

// --- what the value buttons show, in a raster of the screen's density

constexpr std::int32_t lato = 18;   // the button inset by 2

Rect quadro() { return SetRect(0, 0, lato, lato); }

void DrawColorCtrl() {
    const std::int16_t n = colorCorrente;
    if (n < 1 || n > maxColori) return;
    RGBForeColor(arrColori[static_cast<std::size_t>(n - 1)].rgb);
    PaintRect(quadro());
}

void DrawSpessoreCtrl() {
    const std::int32_t alto = (lato - spessore) / 2;
    PaintRect(SetRect(2, alto, lato - 2, alto + spessore));
}

void DrawRetinoPennaCtrl() { FillRect(quadro(), GetIndPattern(NumPat)); }

// No filling shows as an empty square with a stroke through it.
void DrawRetinoAreaCtrl() {
    if (NumAreaPat > 0) {
        FillRect(quadro(), GetIndPattern(NumAreaPat));
        return;
    }
    RGBForeColor(GrigioMedio);
    MoveTo(1, lato - 2);
    LineTo(lato - 2, 1);
}

void mostraValore(std::size_t bottone, void (*disegna)(), std::int32_t ratio) {
    const std::unique_ptr<GrafPort> figura = NewGWorld(lato, lato, ratio);
    {
        const PortaCorrente porta(figura.get());
        disegna();
        ForeColor(blackColor);
        FrameRect(quadro());
    }
    SetControlPicture(bottoneToolbar.bottoni[bottone], *figura);
}

// What the four buttons show now: they are drawn again only when it changes.
struct Mostrati {
    RGBColor colore;
    std::int32_t spessore = 0, penna = 0, area = 0, ratio = 0;
    friend bool operator==(const Mostrati&, const Mostrati&) = default;
};
constinit Mostrati mostrati{};

Mostrati correnti() {
    const bool noto = colorCorrente >= 1 && colorCorrente <= maxColori;
    return {noto ? arrColori[static_cast<std::size_t>(colorCorrente - 1)].rgb : RGBColor{}, spessore, NumPat,
            NumAreaPat, static_cast<std::int32_t>(ScreenRatio())};
}

}   // namespace

ComandoMenu ComandoDelBottone(std::size_t indice) {
    return indice < numBottoni ? tabella[indice].comando : ComandoMenu{};
}

Rect RettangoloBottone(std::size_t indice) {
    const std::int32_t da = sinistra(indice);
    return SetRect(da, cima, da + (indice < primoTitolato ? largo : largoTitolato), fondo);
}

namespace {

// Where the strip ends: the scroll bar stands beside it.
std::int32_t fineBarra() { return theWindow ? GetPortBounds(theWindow).right - barraScorrimento : 0; }

}   // namespace

Rect RettangoloAltri() {
    const std::int32_t a = fineBarra();
    return SetRect(a - largo - 2, cima, a - 2, fondo);
}

std::size_t PrimoNascosto() {
    if (RettangoloBottone(numBottoni - 1).right <= fineBarra()) return numBottoni;
    std::size_t primo = numBottoni - 1;
    while (primo > 0 && RettangoloBottone(primo - 1).right > RettangoloAltri().left) --primo;
    return primo;
}

std::string NomeBottone(std::size_t indice) { return GetIndString(listaNomi, static_cast<std::int16_t>(indice + 1)); }

void CreaBarra() {
    for (std::size_t i = 0; i < numBottoni; ++i) {
        const auto voce = static_cast<std::int16_t>(i + 1);
        BottoneNuovo b;
        b.indice = static_cast<std::int16_t>(i);
        b.nome = NomeBottone(i);
        const ComandoMenu& c = tabella[i].comando;
        if (const std::string tasti = c.menu != 0 ? MenuItemKeys(c.menu, c.voce) : std::string(); !tasti.empty())
            b.nome += " (" + tasti + ")";
        b.aiuto = GetIndString(listaAiuti, voce);
        if (i >= primoTitolato) {
            b.titolo = GetIndString(listaTitoli, static_cast<std::int16_t>(i - primoTitolato + 1));
        } else if (i < primoValore || i > ultimoValore) {
            b.icona = primaIcona + static_cast<std::int32_t>(i);
        }
        bottoneToolbar.bottoni[i] = NewToolbarButton(theWindow, b);
    }
    BottoneNuovo altri;
    altri.indice = numBottoni;
    altri.titolo = GetIndString(listaAltri, titoloAltri);
    altri.nome = GetIndString(listaAltri, nomeAltri);
    altri.aiuto = GetIndString(listaAltri, aiutoAltri);
    bottoneToolbar.altri = NewToolbarButton(theWindow, altri);
    for (ControlHandle& s : bottoneToolbar.separatori) s = NewSeparator(theWindow);
    mostrati = {};
    guidaPresente = HelpPageExists(GetIndString(129, 67));
    DisponiBarra();
    AggiornaValori();
    AggiustaStatoBottoni();
}

void DisponiBarra() {
    const std::size_t nascosti = PrimoNascosto();
    const auto mostra = [nascosti](ControlHandle c, std::size_t i) { (i < nascosti ? ShowControl : HideControl)(c); };
    std::size_t separatore = 0;
    for (std::size_t i = 0; i < numBottoni; ++i) {
        MoveSizeControl(bottoneToolbar.bottoni[i], RettangoloBottone(i));
        mostra(bottoneToolbar.bottoni[i], i);
        if (!tabella[i].spazioDietro) continue;
        const std::int32_t mezzo = (RettangoloBottone(i).right + RettangoloBottone(i + 1).left) / 2;
        MoveSizeControl(bottoneToolbar.separatori[separatore], SetRect(mezzo - 1, cima, mezzo + 1, fondo));
        mostra(bottoneToolbar.separatori[separatore++], i + 1);
    }
    MoveSizeControl(bottoneToolbar.altri, RettangoloAltri());
    (nascosti < numBottoni ? ShowControl : HideControl)(bottoneToolbar.altri);
}

void AggiornaValori() {
    static constexpr void (*disegni[])() = {DrawColorCtrl, DrawSpessoreCtrl, DrawRetinoPennaCtrl, DrawRetinoAreaCtrl};
    const Mostrati ora = correnti();
    if (!bottoneToolbar.bottoni[primoValore] || ora == mostrati) return;
    mostrati = ora;
    for (std::size_t i = primoValore; i <= ultimoValore; ++i) mostraValore(i, disegni[i - primoValore], ora.ratio);
}

void AggiustaStatoBottoni() {
    for (std::size_t i = 0; i < numBottoni; ++i) {
        ControlHandle b = bottoneToolbar.bottoni[i];
        if (b) HiliteControl(b, !usabile(i) ? spento : tabella[i].acceso() ? acceso : normale);
    }
}

namespace {

const VoceStato righe[] = {{"bottoneToolbar",
                            [] {
                                bottoneToolbar = {};
                                mostrati = {};
                            },
                            nullptr}};
const TabellaStato registro(righe);

}   // namespace

}   // namespace tessaro
