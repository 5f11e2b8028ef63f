// Numbers into the buffer, and the buffer into the file.
#include "exchange/BufferRighe.h"

#include <algorithm>

#include "text/Conversione.h"
#include "text/Decimale.h"
#include "text/FileDati.h"

namespace tessaro {

// Without a string in between for all ordinary numbers.
void BufferRighe::numero(const double& v, std::int16_t larghezza, std::int16_t decimali) {
    constexpr std::size_t numeroLungo = 64;
    constexpr std::int16_t massima = 20;   // widest field that is filled here
    prepara(numeroLungo);
    char* const fine = larghezza <= massima ? TestoDaReale(dopo, v, decimali) : nullptr;
    if (fine == nullptr) {
        aggiungi(FormatReal(v, larghezza, decimali).view());
        return;
    }
    const std::ptrdiff_t mancano = larghezza - (fine - dopo);
    if (mancano > 0) {
        std::move_backward(dopo, fine, fine + mancano);
        std::fill_n(dopo, mancano, ' ');
    }
    dopo = mancano > 0 ? fine + mancano : fine;
}

void BufferRighe::svuota() {
    scriviBlocco(byte.data(), static_cast<std::int32_t>(dopo - byte.data()));
    dopo = byte.data();
}

}   // namespace tessaro
