// A dialog as data, its items by number, and the widgets that show it. For the files of platform/qt only.
#pragma once

#include <QDialog>
#include <QPointer>

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

class QLineEdit;

namespace tessaro {

enum class TipoVoce : std::uint8_t {
    bottone,
    testoFisso,
    campo,
    spunta,
    radio,
    scelta,
    cursore,
    colore,
    elenco,
    tabella,
    griglia,
    figura
};

// What the program set stands here and holds without widgets too; typing and clicks come from the widget.
struct VoceDialogo {
    TipoVoce tipo = TipoVoce::testoFisso;
    std::string grezzo;        // UTF-8, as the resource or the program gave it, ^0 to ^3 not yet filled in
    std::int32_t valore = 0;   // radio, check box 0 or 1; pop-up and list from 1; slider; colour 0xRRGGBB
    bool accesa = true;
    bool nascosta = false;
    QWidget* widget = nullptr;
    std::deque<GridHit> griglia;   // what was done in a grid and not yet asked for
};

class QuadroDialogo;
// Property of a field that is hit when it is done with, and not by each character: its item.
inline constexpr const char* attoDelCampo = "tessaroItem";

struct FinestraDialogo {
    std::int16_t id = 0;
    std::int16_t predefinita = 0;   // item that Return presses; 0 when the resource marks none
    std::int16_t annulla = 2;       // item that Escape and the close box give
    bool nonModale = false;
    bool strumento = false;   // a tool window: the frame keeps its shortcuts, and Escape does not close it
    std::map<char16_t, std::int16_t> tastiVoci;   // characters that press a button, in fields too
    bool mostrata = false;
    std::int16_t inVista = 0;   // item that its scrolling list shows at the opening; 0 when none
    std::string titolo;         // UTF-8, parameters filled in
    std::map<std::int16_t, VoceDialogo> voci;
    std::deque<std::int16_t> colpi;    // items hit and not yet given to ModalDialog
    std::deque<std::uint8_t> tasti;    // Return, Enter, Escape on their way to the filter
    QuadroDialogo* quadro = nullptr;   // null without an application object
};

// Keys on their way to a dialog's filter, as characters.
inline constexpr std::uint8_t tastoEnter = 3, tastoReturn = 13, tastoEscape = 27;

inline constexpr const char* gruppoRadio = "gruppoRadio";   // property of a radio button: the block that it stands in

// The window of a dialog: keys that mean an item, and the close box, become records of the dialog.
class QuadroDialogo : public QDialog {
public:
    QuadroDialogo(FinestraDialogo& dialogo, QWidget* padre);
    void reject() override;

protected:
    bool event(QEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;   // of the fields

private:
    void tasto(std::uint8_t macRoman);               // Return, Enter or Escape
    void fuga();                                     // Escape in a tool window
    [[nodiscard]] QLineEdit* campoToccato() const;   // the field with the focus that was typed into and not handed over
    void consegnaCampo();
    bool premeVoce(const QKeyEvent& e);         // true when the character is a button's own
    bool frecciaRadio(QObject* o, int tasto);   // an arrow key goes to the next of the group, and chooses it

    FinestraDialogo& d;
};

// Reads dialogs/N.dlg: items, and the widgets when an application object lives. False when there is no such resource.
bool leggiDialogo(FinestraDialogo& d);
void colpisci(FinestraDialogo& d, std::int16_t item);   // an item was hit; wakes who waits
void applica(const VoceDialogo& v);                     // the widget shows what the data say
void tabNelGruppo(const QWidget& radio);                // which of a group's radio buttons Tab comes to
void mostra(FinestraDialogo& d);                        // opens the window; once
void guidaDelDialogo(std::int16_t dialogo);             // F1: the guide at the section about it
VoceDialogo* voceDi(DialogPtr d, std::int16_t item);    // null when there is no such item

// --- places of modeless dialogs
void mettiAlPosto(const FinestraDialogo& d, QWidget& quadro,
                  const QList<const FinestraDialogo*>& altri);   // the others that are open
void ricordaPosto(const FinestraDialogo& d);                     // for the next time; nothing under a script

// --- lists
QWidget* creaElenco(FinestraDialogo& d, std::int16_t item, int righe, int caratteri);
void scegliRiga(const VoceDialogo& v);          // the row chosen is the one of the value
int righeElenco(const VoceDialogo& v);          // how many there are
std::string rigaScelta(const VoceDialogo& v);   // its text, UTF-8

// --- tables: heading and rows as UTF-16 text, cells parted by tabs; rows from 0
QWidget* creaTabella(FinestraDialogo& d, int righe, const std::vector<int>& caratteri);   // width of each column
void mostraTestata(const VoceDialogo& v, const QString& testo);
void righeTabella(const VoceDialogo& v, int quante);
void rigaTabella(const VoceDialogo& v, int n, const QString& testo);
std::string testoTabella(const VoceDialogo& v);   // UTF-8, a line a row, cells parted by " | "

// --- grids: the same, with cells that are changed in place
QWidget* creaGriglia(FinestraDialogo& d, std::int16_t item, int righe, const QString& colonne);   // "check:6,edit:20"
void testataGriglia(const VoceDialogo& v, const QString& testo);
void righeGriglia(const VoceDialogo& v, int quante);
void scegliRigaGriglia(const VoceDialogo& v);   // the row of the value, from 1
void rigaGriglia(const VoceDialogo& v, int n, const QString& testo);
std::string testoGriglia(const VoceDialogo& v);                   // UTF-8, as a table's
bool scriviGriglia(const VoceDialogo& v, const QString& testo);   // for scripts: "3,2,text", "3>1"

}   // namespace tessaro
