// The point list's writer: every point of the drawing in the layout in force.
#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <string_view>

#include "dialogs/Errori.h"
#include "exchange/ApriScrittura.h"
#include "exchange/BufferRighe.h"
#include "exchange/FormatoXYZ.h"
#include "exchange/Operazione.h"
#include "exchange/XYZ.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/TabellaStato.h"
#include "platform/Windows.h"
#include "registration/Coordinate.h"
#include "text/FileDati.h"

namespace tessaro {

PStr255 filexyz("");
std::string vrefrel;

namespace {

constexpr std::int16_t invitoXYZ = 34;
constexpr double nessuna = std::numeric_limits<double>::quiet_NaN();   // a coordinate that equals none

std::string_view testoAref(const Aref& a) {
    const std::size_t lungo = std::min<std::size_t>(a[0], a.size() - 1);
    return {reinterpret_cast<const char*>(a.data()) + 1, lungo};
}

puntot reale(double x, double y, double z) {
    puntot p{0, 0, z};
    DigiToReal(x, y, p.x, p.y);
    return p;
}

bool diversi(const puntot& a, const puntot& b) { return a.x != b.x || a.y != b.y || a.z != b.z; }

class ScrittoreXYZ {
    BufferRighe righe;
    puntot corrente;                                  // the point computed last
    puntot fineSegmento{nessuna, nessuna, nessuna};   // where the segment written last ends

    void colonna(std::int16_t quale, const puntot& p, const Aref& aref) {
        constexpr std::int16_t larghezza = 10, decimali = 3;
        switch (quale) {
        case colonnaX: righe.numero(p.x, larghezza, decimali); break;
        case colonnaY: righe.numero(p.y, larghezza, decimali); break;
        case colonnaZ: righe.numero(p.z, larghezza, decimali); break;
        default: righe.aggiungi(testoAref(aref));
        }
    }

    void riga(const puntot& p, const Aref& aref) {
        const auto ultima =
            std::find_if(DatoP.rbegin(), DatoP.rend(), [](std::int16_t c) { return c != colonnaNessuna; });
        const auto ultimo = static_cast<std::size_t>(DatoP.rend() - ultima);   // columns up to the last used one
        for (std::size_t i = 0; i < ultimo; ++i) {
            if (DatoP[i] == colonnaNessuna) continue;
            colonna(DatoP[i], p, aref);
            if (TipoForm == rigaPerValore || i + 1 == ultimo)
                righe.fineRiga();
            else
                righe.aggiungi("\t");
        }
    }

    void segmento(const elemento& e) {
        corrente = reale(e.segm.x1, e.segm.y1, e.segm.z1);
        if (diversi(corrente, fineSegmento)) riga(corrente, e.testa.aref);
        corrente = fineSegmento = reale(e.segm.x2, e.segm.y2, e.segm.z2);
        riga(corrente, e.testa.aref);
    }

public:
    Scritti conti;

    void scrivi(const elemento& e) {
        const bool conPunti = e.tipo == tSegmento || e.tipo == tMarker || e.tipo == tPoligono || e.tipo == tVertice;
        (conPunti ? conti.scritti : conti.perduti).aggiungi(e.tipo);
        switch (e.tipo) {
        case tTesto: return;
        case tSegmento: segmento(e); return;
        case tMarker:
        case tPoligono:
        case tVertice: corrente = reale(e.mark.x, e.mark.y, e.mark.z); break;   // all hold their point there
        default: break;   // Kept: circles, arcs and pictures give the point before them once more
        }
        riga(corrente, e.testa.aref);
    }
};

}   // namespace

Scritti ScriviXYZ() {
    SetCursor(ClockCursor);
    ScrittoreXYZ scrittore;
    ScritturaLunga lunga;
    for (std::int32_t n = 3; n <= indElem && !uscita; ++n) {
        lunga.passo(n);
        scrittore.scrivi(Elem(n));
    }
    return scrittore.conti;
}

void ApriXYZScr() {
    FSSpec file;
    if (!ApriScrittura(invitoXYZ, "", ".xyz", file)) return;
    filexyz = PStr255(std::string_view(file.nome));
    vrefrel = std::filesystem::path(file.percorso).parent_path().string();
}

void FaiXYZAsci() {
    ApriXYZScr();
    if (!uscita) {
        const Scritti conti = ScriviXYZ();
        ChiudiScrittura();
        SetCursor(arrowCursor);
        if (!uscita) MostraScritti(conti, TestoScambio::nonNegliElenchi);
    }
    SetCursor(arrowCursor);
}

namespace {
const VoceStato righe[] = {
    voce<filexyz>("filexyz"),
    {"vrefrel", [] { vrefrel.clear(); }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
