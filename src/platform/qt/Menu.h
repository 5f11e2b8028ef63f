// The menus as data: what the files in resources/menus say and what the program changed since. Widgets hang on them when
// an application object lives. For the files of platform/qt only.
#pragma once

#include <QPointer>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

class QAction;
class QIcon;
class QMenu;

namespace tessaro {

enum class FiguraVoce : std::uint8_t { nessuna, retino, riga, colore };

struct VoceMenu {
    std::string testo;            // UTF-8
    std::string tasto;            // "Ctrl+N", several with commas; empty for none
    std::string cenno;            // a key of the drawing's own, shown only: "P"; as the person reads it, empty for none
    std::int16_t sottomenu = 0;   // number of the menu that hangs here
    std::int16_t figuraNumero = 0;   // pattern, thickness or colour that the icon shows
    FiguraVoce figura = FiguraVoce::nessuna;
    bool separatore = false;
    bool unica = false;        // marked like a radio button
    bool spuntabile = false;   // can carry a mark
    bool costruita = true;
    bool accesa = true;
    bool spuntata = false;
    bool nascosta = false;
    QAction* azione = nullptr;
};

struct MenuDati {
    std::int16_t numero = 0;
    std::string titolo;                      // UTF-8, with its mnemonic
    std::map<std::int16_t, VoceMenu> voci;   // by item number
    std::vector<std::int16_t> ordine;        // as shown; 0 a separator without a number
    std::int16_t specchioDi = 0;             // shows the items of that menu, under its own number
    bool inBarra = false;
    bool ultimo = false;   // at the right end of the bar
    bool acceso = true;
    bool costruito = true;
    bool griglia = false;    // shows its patterns as a grid of cells
    bool campioni = false;   // shows its colours as rows of swatches
    bool adatto = false;     // a pop-up that shows only what is on
    VoceMenu modello;        // what AppendMenu's items are like
    QPointer<QMenu> menu;
};

MenuDati leggiMenu(const std::string& file);                // what one file of the resources tells; number 0: none
MenuDati* menuDi(std::int16_t numero);                      // null when there is no such menu
MenuDati* menuDelleVoci(std::int16_t numero);               // the same, through a mirror
void preparaMenu(MenuDati& m);                              // builds or renews the widgets of a menu before it shows
QIcon figuraVoce(FiguraVoce figura, std::int16_t numero);   // a small picture of what the item sets
std::int16_t retinoCorrente(std::int16_t menu);             // the item of pattern menu 20 or 105 that is in force
void sceltaVoce(std::int16_t menu, std::int16_t item);      // a person chose it
// A menu that is a picture gets its one widget anew, with `voci`'s items; where the item in force lies in it.
void riempiGrafico(MenuDati& m, const MenuDati& voci);
QPoint centroGrafico(const MenuDati& m);
std::string senzaMnemonico(std::string_view titolo);
void daiMnemonici(QMenu& q);   // a letter each, by which an open menu is worked from the keyboard

// While a pop-up is open its choices go here and not to the event queue. 0 when none is open.
extern std::int16_t popupAperto;
extern std::int16_t sceltaPopup;

}   // namespace tessaro
