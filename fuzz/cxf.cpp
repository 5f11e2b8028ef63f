// Any bytes as a cadastral map: no record lies outside the drawing, every polyline has the vertices that it counts.
#include "exchange/CXF.h"
#include "Controlli.h"
#include "TestoInMemoria.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const prova::TestoInMemoria file(data, size);
    LeggiCXF();
    controllaRecord();
    return 0;
}
