// Texts of a script's faults from their string list.
#include "script/Messaggi.h"

#include "platform/Resources.h"

namespace tessaro {

std::string TestoAvviso(Avviso quale, const std::string& p0, const std::string& p1) {
    const std::string modello = MacToUtf8(GetIndString(listaCopione, static_cast<std::int16_t>(quale)));
    std::string out;
    for (std::size_t i = 0; i < modello.size(); ++i) {
        const char dopo = i + 1 < modello.size() ? modello[i + 1] : '\0';
        if (modello[i] != '^' || (dopo != '0' && dopo != '1')) {
            out += modello[i];
            continue;
        }
        out += dopo == '0' ? p0 : p1;
        ++i;
    }
    return out;
}

void sbaglia(Avviso quale, const std::string& p0, const std::string& p1) {
    throw ErroreCopione{quale == Avviso::nonCostruito ? 3 : 1, TestoAvviso(quale, p0, p1)};
}

}   // namespace tessaro
