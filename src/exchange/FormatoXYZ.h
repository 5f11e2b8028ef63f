// The layout of point lists: which columns exist, in which order, and how a row stands in the file. Dialog 2027 and the
// settings file "FormParD".
#pragma once

#include <array>
#include <cstdint>

#include "dialogs/Parametri.h"

namespace tessaro {

enum : std::int16_t { rigaPerValore = 11, rigaPerPunto = 13 };                           // TipoForm
enum : std::int16_t { colonnaX = 1, colonnaY, colonnaZ, colonnaAref, colonnaNessuna };   // DatoP

extern std::int16_t TipoForm;               // 11 one value a line, 13 one row a line with tabs; settings, dialog
extern std::array<std::int16_t, 4> DatoP;   // what columns 1 to 4 hold; 1, 2, 3, 5; settings, dialog
extern std::int16_t TipoFormNum;            // the dialog's working copies
extern std::array<std::int16_t, 4> DatoPNum;

std::int16_t ColonneXYZ();   // how many columns exist

class TFormatoXYZ : public TParametri {
public:
    virtual void Form(std::uint8_t nascosto);      // 1: the settings file only, 0: the dialog
    virtual void leggipar();                       // into the working copies; defaults for what cannot be used
    virtual void scrivipar();                      // the working copies into the settings file
    virtual void inggene(std::uint8_t nascosto);   // working copies into force; 0: takes the pop-ups first
    virtual void AggPopItem(std::int16_t item);    // shows the pop-up's working copy
    void Display() override;
    void Dialogo() override;

private:
    void colpito();
};

// 1: what the settings file says comes into force; 0: the dialog.
void FormatoXYZ(std::uint8_t nascosto);

}   // namespace tessaro
