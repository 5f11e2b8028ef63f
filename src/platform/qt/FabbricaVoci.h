// The items of a dialog, made one by one. For the files of platform/qt only.
#pragma once

#include <cstdint>
#include <string>

#include "platform/qt/Dialogo.h"
#include "platform/qt/TestiQt.h"

class QAbstractButton;
class QLabel;
class QPushButton;

namespace tessaro {

// An item as a row of the resource tells it.
struct Cella {
    std::string tipo;
    std::string nome;          // item number or a name
    const RigaRisorsa* riga;   // its options
    std::size_t posto = 0;     // in the row, from 0

    [[nodiscard]] std::int16_t item() const { return static_cast<std::int16_t>(numeroDi(nome, 0)); }   // 0: a name
};

class FabbricaVoci {
public:
    // finestra: null without an application object; items are data alone then.
    FabbricaVoci(FinestraDialogo& dialogo, QuadroDialogo* finestra) : d(dialogo), quadro(finestra) {}

    int blocco = 0;   // radio buttons of one block are one group

    // Makes the item, and its widget when there is a window; null for what has none.
    QWidget* crea(const Cella& c);
    QPushButton* bottone(const Cella& c);
    [[nodiscard]] std::string chiave(const std::string& nome) const;   // of its text

private:
    VoceDialogo& voce(const Cella& c, TipoVoce tipo);
    QWidget* registra(VoceDialogo& v, QWidget* w);
    QWidget* conNome(VoceDialogo& v, QWidget* w);
    void conEtichetta(QWidget& w);   // the label before it names it, and leads to it by its letter
    QWidget* fisso(const Cella& c);
    QWidget* tela(const Cella& c);
    QWidget* campo(const Cella& c);
    QWidget* acceso(const Cella& c, TipoVoce tipo, QAbstractButton* w);
    QWidget* scelta(const Cella& c);
    QWidget* elenco(const Cella& c);
    QWidget* griglia(const Cella& c);
    QWidget* tabella(const Cella& c);
    QWidget* cursore(const Cella& c);
    QWidget* campione(const Cella& c);
    QWidget* immagine(const Cella& c) const;

    FinestraDialogo& d;
    QuadroDialogo* quadro;
    QLabel* ultimaEtichetta = nullptr;
};

}   // namespace tessaro
