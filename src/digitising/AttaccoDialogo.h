// The dialogs of the live transformation, the present one and the older one.
#pragma once

#include <cstdint>

#include "dialogs/Parametri.h"

namespace tessaro {

// Destination point 1 to 5 at real coordinates, as one that the dialog takes: the transformation is prepared afresh.
void PoniDestinazione(std::int16_t n, const double& X, const double& Y);

class TAttaccoDialogo : public TParametri {
public:
    TAttaccoDialogo() { Poni(1, 2, 0, 17, 137); }
    void Dialogo() override;   // dialog 157
    void DialogoOld();         // dialog 137
    void Display() override;   // the fields, in real coordinates
    void IngGene(std::uint8_t ripristino) override;

private:
    void Riprendi() override;
    void ItemColpito() override;
    void giroDialogo(ModalFilter filtro);
    void mostraScelte();
};

}   // namespace tessaro
