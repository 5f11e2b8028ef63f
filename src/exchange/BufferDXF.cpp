// The groups that take more than a line.
#include "exchange/BufferDXF.h"

#include "text/Conversione.h"

namespace tessaro {

void BufferDXF::intero(std::string_view codice, std::int32_t n, std::int16_t larghezza) {
    righe2(codice, FormatInt(n, larghezza).view());
}

void BufferDXF::punto(char indice, const double& x, const double& y, const double& z) {
    char codice[] = {' ', '1', indice};
    const std::string_view c(codice, sizeof codice);
    reale(c, x);
    codice[1] = '2';
    reale(c, y);
    codice[1] = '3';
    reale(c, z);
}

}   // namespace tessaro
