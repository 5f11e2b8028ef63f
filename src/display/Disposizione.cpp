// The one table of the palette and the rectangles at the window's foot.
#include "display/Disposizione.h"

#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/Quickdraw.h"

namespace tessaro {

constinit std::int16_t hToolbar = 32;

namespace {

bool conModo(std::int32_t m) { return Modalita == m; }
bool conStrumento(std::int32_t n) { return operazCorrente == n; }
constexpr bool mai() { return false; }

struct Cella {
    std::int32_t icona;
    bool perPunti;   // with CurvePerPunti the icon 100 further stands here
    bool (*accesa)();
};
// By CellaPalette.
constexpr std::array<Cella, numCelle> celle{{
    {13, false, [] { return conModo(mSelezione); }},
    {14, false, [] { return conModo(mDigitazione); }},
    {15, false, [] { return conModo(mSpostamento); }},
    {16, false, mai},
    {17, false, [] { return conStrumento(opSegmento); }},
    {18, false, [] { return conStrumento(opPolilinea); }},
    {19, true, [] { return conStrumento(opCerchio); }},
    {20, true, [] { return conStrumento(opArco); }},
    {21, false, [] { return conStrumento(opTesto); }},
    {22, false, [] { return conStrumento(opMarker); }},
    {23, false, [] { return conStrumento(opCalcolatrice); }},
    {24, false, mai},
    {25, false, mai},
}};

Rect piede(std::int32_t da, std::int32_t a) {
    return theWindow ? SetRect(da, myViewRect.bottom + 1, a, GetPortBounds(theWindow).bottom) : Rect{};
}

}   // namespace

CellaPalette CellaSotto(Point p) {
    const bool nella = p.h >= 0 && p.h < latoCella && p.v >= 0 && p.v < fondoCelle;
    return nella ? static_cast<CellaPalette>(p.v / latoCella) : numCelle;
}

Rect RettangoloCella(CellaPalette c) {
    const std::int32_t alto = c * latoCella;
    return SetRect(0, alto, latoCella, alto + latoCella);
}

std::int32_t IconaCella(CellaPalette c) { return celle[c].icona + (celle[c].perPunti && CurvePerPunti ? 100 : 0); }
std::int32_t IconaAccesa(std::int32_t icona) { return icona + 10000; }
bool CellaAccesa(CellaPalette c) { return celle[c].accesa(); }

std::int16_t PercheSpenta(CellaPalette c) {
    constexpr std::int16_t nessunaSelezione = 1, nessunaImmagine = 2, senzaMesh = 3;
    const auto immagine = [] {
        const bool una = UnSoloElemento() && Elem(Puntosel.indice).tipo == tPict;
        return una || (Puntosel.attiva && Puntosel.multipla);   // with the polyline that bounds it
    };
    if (noWindow) return 0;
    switch (c) {
    case cellaMuovi: return Puntosel.attiva ? std::int16_t{0} : nessunaSelezione;
    case cellaImmagineAttacchi: return immagine() ? std::int16_t{0} : nessunaImmagine;
    case cellaImmagineMesh:
        if (!immagine()) return nessunaImmagine;
        return meshOrigine.nx > 0 && meshDestinazione.nx > 0 ? std::int16_t{0} : senzaMesh;
    default: return 0;
    }
}

std::int32_t MetaLucido(Point p) {
    const Rect r = RettangoloCella(cellaLucido);
    const std::int32_t mezzo = (r.top + r.bottom) / 2 - 1;
    return p.v < mezzo ? 1 : p.v > mezzo ? -1 : 0;
}

Rect RigaCoordinate() { return piede(fineOperazione, fineRiga); }
Rect RigaOperazione() { return piede(0, fineOperazione); }

bool NellaRigaCoordinate(Point p) {
    const Rect r = RigaCoordinate();
    return p.h >= r.left && p.h <= r.right && p.v >= r.top - 1 && p.v < r.bottom;
}

namespace {
const VoceStato righe[] = {voce<hToolbar>("hToolbar")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
