// Which events may change the drawing, and what the menu calls the step that one of them made.
#include "shell/Passi.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "editing/AnnullaComando.h"
#include "model/Annulla.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/Giornale.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "shell/FinestraAttacchi.h"
#include "shell/Proprieta.h"

namespace tessaro {

namespace {

constexpr EventKind mutanti[] = {
    EventKind::mouseDown, EventKind::keyDown,   EventKind::autoKey, EventKind::menuChoice,
    EventKind::goAway,    EventKind::highLevel, EventKind::drop,    EventKind::dialogItem,
    EventKind::button,    EventKind::tablet,    EventKind::pen,
};

// An item of the bar's menus names its command; in a submenu of values (colours, pens, sizes) the menu does.
// What is typed in a window goes by the item that opens it.
std::string nomeComando(const EventRecord& e) {
    const auto menu = static_cast<std::int16_t>(e.message >> 16), item = static_cast<std::int16_t>(e.message & 0xFFFF);
    const bool dialogo = e.what == EventKind::dialogItem;
    const bool proprieta = dialogo && menu == dialogoProprieta, attacchi = dialogo && menu == dialogoAttacchi;
    if (!proprieta && !attacchi && e.what != EventKind::menuChoice) return {};
    constexpr std::int16_t ultimoDellaBarra = 6;
    std::string nome = proprieta                  ? GetMenuItemText(menuModifica, voci::modifica::proprieta)
                       : attacchi                 ? GetMenuItemText(menuTrasforma, voci::trasforma::attacchi)
                       : menu <= ultimoDellaBarra ? GetMenuItemText(menu, item)
                                                  : GetMenuTitle(menu);
    constexpr char puntini = static_cast<char>(0xC9);   // Mac Roman
    while (!nome.empty() && (nome.back() == puntini || nome.back() == '.' || nome.back() == ' ')) nome.pop_back();
    return nome;
}

}   // namespace

bool PuoCambiare(EventKind what) {
    return std::find(std::begin(mutanti), std::end(mutanti), what) != std::end(mutanti);
}

void FinePasso(const EventRecord& e) {
    NomePasso nome;
    nome.tipo = TipoArmato();
    nome.comando = nomeComando(e);
    nome.segue = e.what == EventKind::autoKey;
    if (!noWindow) ChiudiPasso(nome);
    AvvisaEstensioni();
    AggiornaVociAnnulla();
}

}   // namespace tessaro
