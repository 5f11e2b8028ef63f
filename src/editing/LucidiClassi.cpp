// Sheet, category and set of the selection.
#include "editing/LucidiClassi.h"

#include "display/Ridisegno.h"
#include "editing/Domanda.h"
#include "editing/Selezionati.h"
#include "model/Penna.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {
constexpr std::int16_t dialogoLucido = 133, dialogoClasse = 132;
constexpr std::int16_t listaTesti = 129, piuLucido = 32, piuClasse = 49;
constexpr std::int16_t ultimoLucido = 99, minClasse = 1, maxClasse = 255;
constexpr std::int16_t categoria = 1, stringaCategoria = 27, stringaInsieme = 28;
}   // namespace

void CambiaLucido(std::int16_t lucido) {
    // Kept: a polyline's vertices stay on their sheet unless they are flagged themselves.
    const auto cambia = [lucido](std::int32_t n) {
        Elem(n).lucido = lucido;
        return true;
    };
    if (!PerSelezionati(cambia)) {
        SysBeep(30);
        return;
    }
    RifaiRettSel();
    InvalFinestra();
}

void PoniLucido() {
    const bool uno = UnSoloElemento();
    if (!uno && !(Puntosel.attiva && Puntosel.multipla)) {
        SysBeep(30);
        return;
    }
    std::int16_t lucido = uno ? std::int16_t{Elem(Puntosel.indice).lucido} : std::int16_t{0};
    ParamText(Invito(true, NomeSelezione(piuLucido)), "", "", "");
    if (DomandaIntero(dialogoLucido, !uno, 0, ultimoLucido, lucido)) CambiaLucido(lucido);
}

void PoniCateg_Insieme(std::int16_t quale) {
    const bool scelto = Puntosel.attiva != 0, uno = UnSoloElemento();
    const bool unTesto = uno && Elem(Puntosel.indice).tipo == tTesto;
    if (unTesto || (scelto && !uno && !Puntosel.multipla)) {   // texts and grids have no classes
        SysBeep(30);
        return;
    }
    std::int16_t& corrente = quale == categoria ? CategoriaCorrente : InsiemeCorrente;
    std::int16_t valore = corrente;
    if (uno) {
        const auto& t = Elem(Puntosel.indice).testa;
        valore = quale == categoria ? t.categoria : t.insieme;
    }
    const std::string titolo = GetIndString(listaTesti, quale == categoria ? stringaCategoria : stringaInsieme);
    ParamText(Invito(scelto, scelto ? NomeSelezione(piuClasse) : std::string()), titolo + ":", titolo, "");
    if (!DomandaIntero(dialogoClasse, scelto && !uno, minClasse, maxClasse, valore)) return;
    if (scelto) {
        CambiaClass(quale, valore);
    } else {
        corrente = valore;
    }
}

void CambiaClass(std::int16_t quale, std::int16_t valore) {
    const auto cambia = [=](std::int32_t n) {
        elemento& e = Elem(n);
        if (e.tipo == tTesto) return false;   // these two places of a text hold other data
        (quale == categoria ? e.testa.categoria : e.testa.insieme) = valore;
        return true;
    };
    if (!PerSelezionati(cambia)) SysBeep(30);
}

}   // namespace tessaro
