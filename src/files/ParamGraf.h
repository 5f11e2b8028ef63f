// Scale, sheet, units and angle kind: the dialog and its settings file.
#pragma once

#include <cstdint>

#include "dialogs/Parametri.h"

namespace tessaro {

extern std::int16_t ItemUnit;   // radio item of the unit: 12 + UnitaMCorrente, 18

class TParamGraf : public TParametri {
public:
    virtual void leggipar();    // "PGraf56"; what it does not hold takes its default, without a message
    virtual void scrivipar();   // into "PGraf56"; a disk that refuses is told
    virtual void inggene(std::uint8_t ripristino);   // fields into globals; ripristino: all but the fields
    virtual void AzzeraButton();                     // the radio buttons of angle and unit that are on, off
    virtual void Param();   // at start-up the settings file, else the dialog; then the tablet's size
    void Display() override;
    void Dialogo() override;
    [[nodiscard]] bool annullato() const { return itemCorrente == annullaItem; }

private:
    void colpito();
    void ripristina();

    std::uint8_t cambiato = 0;   // a number field was edited
    std::int16_t itemAngolo = 11;
};

extern double LargTav, AltTav;   // tablet size, centimetres

}   // namespace tessaro
