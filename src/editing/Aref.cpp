// The dialog of tags and their change on the selection.
#include "editing/Aref.h"

#include <algorithm>

#include "dialogs/Parametri.h"
#include "display/Ridisegno.h"
#include "editing/Domanda.h"
#include "editing/Selezionati.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 130, listaTesti = 129, troppoLungo = -3;
constexpr std::int32_t maxAref = 13;

struct TipoAref {
    std::int16_t tipo;
    std::int16_t stringa;   // the type's name in list 129
    Aref* predefinito;
};
const TipoAref tipi[] = {
    {tSegmento, 24, &ArefSegmDef}, {tPoligono, 25, &ArefPolyDef}, {tCerchio, 44, &ArefCerchiDef},
    {tArco, 45, &ArefArchiDef},    {tMarker, 26, &ArefMarkerDef},
};

std::string_view vista(const Aref& a) {
    return {reinterpret_cast<const char*>(a.data()) + 1, std::min<std::size_t>(a[0], maxAref)};
}

Aref daTesto(std::string_view s) {
    Aref a{};
    a[0] = static_cast<std::uint8_t>(s.size());
    std::copy(s.begin(), s.end(), a.begin() + 1);
    return a;
}

// The single selected element may be of another type; a text has no tag at all.
std::string iniziale(const TipoAref& t) {
    if (!Puntosel.attiva) return std::string(vista(*t.predefinito));
    if (!UnSoloElemento() || Elem(Puntosel.indice).tipo == tTesto) return {};
    return std::string(vista(Elem(Puntosel.indice).testa.aref));
}

}   // namespace

void PoniAREF(std::int16_t tipo) {
    const auto* t =
        std::find_if(std::begin(tipi), std::end(tipi), [tipo](const TipoAref& v) { return v.tipo == tipo; });
    if (t == std::end(tipi)) return;
    Aref scritta{};
    const auto accetta = [&scritta] {
        const std::string s = GetDialogItemText(theDialog, campoDomanda);
        if (s.size() > maxAref) {
            err_ = troppoLungo;
            SysBeep(30);
            SelectDialogItemText(theDialog, campoDomanda, maxAref, 255);
            return false;
        }
        scritta = daTesto(s);
        return true;
    };
    ParamText(Invito(Puntosel.attiva != 0, GetIndString(listaTesti, t->stringa)), "", "", "");
    if (!Domanda(dialogo, iniziale(*t), accetta)) return;
    if (Puntosel.attiva) {
        CambiaAREF(tipo, scritta);
    } else {
        *t->predefinito = scritta;
    }
}

void CambiaAREF(std::int16_t tipo, const Aref& testo) {
    const auto cambia = [&](std::int32_t n) {
        if (Elem(n).tipo != tipo) return false;
        Elem(n).testa.aref = testo;
        return true;
    };
    if (!PerSelezionati(cambia)) {
        SysBeep(30);
    } else if (VisioneGraf.mostraAref) {
        InvalFinestra();
    }
}

}   // namespace tessaro
