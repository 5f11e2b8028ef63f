// Any bytes as a cadastral map: no record lies outside the drawing, every polyline has the vertices that it counts.
#include "exchange/CXF.h"
#include "TestoInMemoria.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const prova::TestoInMemoria file(data, size);
    LeggiCXF();
    if (indElem < 2 || indElem > maxElementi) std::abort();
    for (std::int32_t n = 3; n <= indElem; ++n)
        if (Elem(n).tipo == tPoligono && n + Elem(n).poli.numVertici > indElem) std::abort();
    return 0;
}
