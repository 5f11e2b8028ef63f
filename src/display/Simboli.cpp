// The small marks of fixed pixel size: marker shapes, tags, meshes and the sheet's frame.
#include <algorithm>

#include "display/Disegno.h"
#include "display/Pixel.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/Unita.h"

namespace tessaro {

namespace {

void tratto(std::int32_t h1, std::int32_t v1, std::int32_t h2, std::int32_t v2) {
    MoveTo(h1, v1);
    LineTo(h2, v2);
}

void DisAsterisco(std::int32_t h, std::int32_t v) {
    tratto(h - 2, v, h + 2, v);
    tratto(h, v - 2, h, v + 2);
    tratto(h - 2, v - 2, h + 2, v + 2);
    tratto(h - 2, v + 2, h + 2, v - 2);
}

void DisTriangolo(std::int32_t h, std::int32_t v) {
    MoveTo(h, v - 4);
    Line(3, 6);
    Line(-6, 0);
    Line(3, -6);
}

void DisQuadrato(std::int32_t h, std::int32_t v) { FrameRect(SetRect(h - 2, v - 2, h + 3, v + 3)); }

void DisCroce(std::int32_t h, std::int32_t v) {
    // Kept: the horizontal stroke is not centred in Y when the pen is thick.
    tratto(h - 2, v + spess, h + 2, v + spess);
    tratto(h, v - 2, h, v + 2);
}

void DisCerchietto(std::int32_t h, std::int32_t v) {
    static constexpr std::int32_t punti[][2] = {{-2, 0}, {0, -2}, {1, -2}, {3, 0}, {3, 1}, {1, 3}, {0, 3}, {-2, 1}};
    MoveTo(h - 2, v + 1);
    for (const auto& p : punti) LineTo(h + p[0], v + p[1]);
}

void quadratoPieno(std::int32_t h, std::int32_t v) {
    PenNormal();
    PenMode(patXor);
    ForeColor(blackColor);
    PaintRect(SetRect(h - 3, v - 3, h + 4, v + 4));
    PennaAttuale();
}

// A tag beside a place of the sheet; one that lies far from the view is passed over.
void etichetta(const Aref& aref, double x, double y, std::int32_t dh, std::int32_t dv, const Rect& area) {
    const std::size_t lunga = aref[0] < aref.size() ? aref[0] : aref.size() - 1;
    Point p;
    if (lunga == 0 || !PuntoIntero(x, y, p)) return;
    constexpr std::int32_t contorno = 300;   // pixels: wider than the longest tag
    if (!PtInRect(p, InsetRect(area, -contorno, -contorno))) return;
    MoveTo(p.h + dh, p.v + dv);
    DrawString({reinterpret_cast<const char*>(aref.data()) + 1, lunga});
}

void etichettaLato(const Aref& aref, double x1, double y1, double x2, double y2, const Rect& area) {
    etichetta(aref, (x1 + x2) / 2, (y1 + y2) / 2, -10, 4, area);
}

void disegnaRete(const Mesh& m, std::int32_t colore) {
    if (m.nx < 2 || m.ny < 2) return;
    ForeColor(colore);
    DisegnaRete(m);
}

}   // namespace

void DisegnaMarker(std::int16_t forma, std::int32_t h, std::int32_t v) {
    h -= spess;
    v -= spess;
    switch (forma) {
    case 1: DisAsterisco(h, v); break;
    case 2: DisTriangolo(h, v); break;
    case 3: DisQuadrato(h, v); break;
    case 4: DisCroce(h, v); break;
    case 5: DisCerchietto(h, v); break;
    case 6: quadratoPieno(h, v); break;
    default: break;
    }
}

void DisegnaAref() {
    TextFont(4);
    TextSize(9);
    TextFace(0);
    ForeColor(redColor);
    TextMode(srcCopy);
    const Rect area = AreaDisegnabile();
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const elemento& e = Elem(i);
        if (!LucidoVisibile(e.lucido)) continue;
        if (e.tipo == tMarker) {
            etichetta(e.testa.aref, e.mark.x, e.mark.y, 4, 4, area);
        } else if (e.tipo == tSegmento) {
            etichettaLato(e.testa.aref, e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2, area);
        } else if (e.tipo == tVertice && i < maxElementi) {
            // Kept: the side runs to the next record whatever it is; the last vertex looks towards the next element.
            etichettaLato(e.testa.aref, e.vert.x, e.vert.y, Elem(i + 1).vert.x, Elem(i + 1).vert.y, area);
        }
    }
    TextMode(srcOr);
}

void DisegnaRete(const Mesh& m) {
    const int colonne = std::min<int>(m.nx, 100), righe = std::min<int>(m.ny, 100);
    for (int r = 0; r < righe; ++r)
        for (int c = 1; c < colonne; ++c) LineaFoglio(m.x[r][c - 1], m.y[r][c - 1], m.x[r][c], m.y[r][c]);
    for (int c = 0; c < colonne; ++c)
        for (int r = 1; r < righe; ++r) LineaFoglio(m.x[r - 1][c], m.y[r - 1][c], m.x[r][c], m.y[r][c]);
}

void DisegnaMesh() {
    PenSize(1, 1);
    disegnaRete(meshOrigine, redColor);
    disegnaRete(meshDestinazione, blueColor);
}

void faiFoglio() {
    const Pattern prima = GetPenState().pnPat;
    PenSize(2, 2);
    PenPat(PatternVista(qdGray));
    PenMode(patOr);
    ForeColor(redColor);
    const double larghezza = XFDecimi, altezza = YFDecimi;
    FrameRect(Rect{PixelTenuto(YVidD(0) - 1), PixelTenuto(XVidD(0) - 1), PixelTenuto(YVidD(altezza) - 1),
                   PixelTenuto(XVidD(larghezza) - 1)});
    PenPat(prima);
}

}   // namespace tessaro
