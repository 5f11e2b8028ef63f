// The elements that a command on the selection reaches, and where each type keeps its attributes.
#pragma once

#include "model/Archivio.h"
#include "model/CampiElemento.h"
#include "model/Selezione.h"

namespace tessaro {

// Calls cambia(n) for every selected record. True when one of them said that it took the change.
template <class Cambia>
bool PerSelezionati(Cambia cambia) {
    bool preso = false;
    if (Puntosel.attiva && Puntosel.multipla) {
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).selezionato && cambia(n)) preso = true;
    } else if (UnSoloElemento()) {
        preso = cambia(Puntosel.indice);
    }
    return preso;
}

// A field of a record, null where its type has none: texts have a colour alone; segments and markers no area pattern;
// pictures and vertices nothing.
f16* SpessoreDi(elemento& e);
f16* PatternDi(elemento& e);
f16* PatternAreaDi(elemento& e);

}   // namespace tessaro
