// The lines of a point list where a block of the file ends.
#include "exchange/RigheElenco.h"

#include "platform/Files.h"

namespace tessaro {

bool RigheElenco::resta() const {
    std::int64_t dimensione = 0;
    return qui != fine || (GetEOF(RefNum, dimensione) == noErr && posizione < dimensione);
}

// Byte by byte.
std::string_view RigheElenco::rigaLenta(std::int32_t& n) {
    while (uscita == 0) {
        std::size_t lunga = 0;
        bool finita = false, iniziata = false;
        while (!finita && (qui != fine || altroBlocco())) {
            const char c = *qui++;
            if (c == lf && lunga == 0) continue;
            iniziata = true;
            finita = fineRiga(c);
            if (!finita && lunga < static_cast<std::size_t>(massima)) raccolta[lunga++] = c;
        }
        if (iniziata) ++n;
        if (lunga == 0 || raccolta[0] != '!') return {raccolta.data(), uscita == 0 ? lunga : 0};
        if (EndFile != 0) break;   // a remark that ends the file never reaches the caller
    }
    return {};
}

}   // namespace tessaro
