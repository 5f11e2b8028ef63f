// What must hold of a drawing whatever command ran last. Each check gives the first fault in words, empty when there is
// none.
#pragma once

#include <cmath>
#include <string>

#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"

namespace prova {

using namespace tessaro;

// Each head is followed by exactly its own vertices, and no vertex is anybody else's.
// A store that was full once may hold a head whose vertices found no room.
inline std::string guastoFigure(bool testeSole = false) {
    const auto dice = [](std::int32_t n, const char* che) { return "record " + std::to_string(n) + ": " + che; };
    for (std::int32_t n = 3; n <= indElem;) {
        const elemento& e = Elem(n);
        if (e.tipo == tVertice) return dice(n, "a vertex without a head");
        if (OggettoDi(e.tipo) < 0) return dice(n, "a type that is none");
        if (e.tipo != tPoligono) {
            ++n;
            continue;
        }
        const std::int32_t vertici = e.poli.numVertici;
        if (vertici < 0 || n + vertici > indElem) return dice(n, "a head that counts beyond the drawing");
        if (vertici == 0 && !testeSole) return dice(n, "a head without vertices");
        for (std::int32_t k = 1; k <= vertici; ++k) {
            if (Elem(n + k).tipo != tVertice) return dice(n + k, "stands among somebody's vertices");
            if (Elem(n + k).vert.distanzaTesta != k) return dice(n + k, "a vertex that names another head");
        }
        n += vertici + 1;
    }
    return {};
}

// The selection's state as model/Selezione.h tells it.
inline std::string guastoSelezione() {
    std::int32_t record = 0, cose = 0, ultima = 0;
    for (std::int32_t n = 3; n <= indElem;) {
        const std::int32_t fine = UltimoRecord(n);
        if (Elem(n).selezionato) {
            ++record;
            ++cose;
            ultima = n;
        }
        for (std::int32_t i = n + 1; i <= fine; ++i) {
            if (!Elem(i).selezionato) continue;
            if (!Elem(n).selezionato) return "a selected vertex of a polyline that is not";
            ++record;
        }
        n = fine + 1;
    }
    const PuntoselT& p = Puntosel;
    std::string conti = std::to_string(record) + " flagged, numSel " + std::to_string(p.numSel);
    if (p.attiva && p.oggetto >= oMeshOrigine) return record || p.multipla ? "a mesh and records are selected" : "";
    if ((p.attiva != 0) != (record > 0)) return "attiva " + std::to_string(p.attiva) + ", " + conti;
    if ((p.multipla != 0) != (p.numSel > 1)) return "multipla " + std::to_string(p.multipla) + ", " + conti;
    // An option-click counts a record that is selected already once more.
    if (p.numSel < record || (record == 0 && p.numSel != 0)) return conti;
    if (cose == 1 && (p.indice != ultima || p.oggetto != OggettoDi(Elem(ultima).tipo)))
        return "record " + std::to_string(ultima) + " alone is selected, " + std::to_string(p.indice) + " named";
    const RettSel detta = rettSel;
    if (record == 0) return detta.xmin == 1e99 && detta.ymax == -1e99 ? "" : "a box without a selection";
    RifaiRettSel();
    const RettSel vera = rettSel;
    rettSel = detta;
    const auto vicini = [](double a, double b) { return a == b || std::fabs(a - b) < 1e-6 * (1 + std::fabs(a)); };
    const bool uguali = vicini(detta.xmin, vera.xmin) && vicini(detta.ymin, vera.ymin) && vicini(detta.xmax, vera.xmax)
                        && vicini(detta.ymax, vera.ymax);
    return uguali ? "" : "the box is not that of what is selected";
}

}   // namespace prova
