// Any bytes as a point list, in both layouts: no record lies outside the drawing or leads out of it.
#include "exchange/XYZ.h"
#include "exchange/FormatoXYZ.h"
#include "TestoInMemoria.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const std::int16_t tipo : {rigaPerValore, rigaPerPunto}) {
        const prova::TestoInMemoria file(data, size);
        TipoForm = tipo;
        DatoP = {colonnaAref, colonnaX, colonnaY, colonnaZ};
        LeggiXYZ();
        if (indElem < 2 || indElem > maxElementi) std::abort();
        for (std::int32_t n = 3; n < indElem; ++n)
            if (Elem(n).testa.aref[0] > 13) std::abort();
    }
    return 0;
}
