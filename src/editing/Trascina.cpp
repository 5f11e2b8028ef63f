// The drag of a vertex: rubber lines in xor from the pointer to its neighbours while the button is held.
#include <array>
#include <span>

#include "display/Disegno.h"
#include "display/Lettura.h"
#include "editing/Vertici.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Stato.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

namespace {

using Vicini = std::span<const puntot>;

// The readout follows the drag, the cursor tells of it, the pen is the rubber's; put right again at the end.
class Trascinamento {
    Stato stato;
    Vicini vicini;
    std::uint32_t inizio = TickCount();
    Point pixel = EventPoint;

    void elastico() const {
        for (const puntot& p : vicini) fai(tElastico, p.x, p.y, xcurs, ycurs, 0);
    }

    static void leggi() {
        scriviSempreCoord = 1;
        SetDrawCoordCorr();
    }

    void segui(Point p) {
        puntot q{xcurs, ycurs, 0};
        VidToReal(p, q);
        if (griglia.attiva) {
            AttaccaGriglia(q.x, q.y);
            p = Point{YVid(q.y), XVid(q.x)};
        }
        if (p.h == pixel.h && p.v == pixel.v) return;
        pixel = p;
        elastico();
        xcurs = q.x;
        ycurs = q.y;
        leggi();
        elastico();
    }

public:
    Trascinamento(Vicini v, double x, double y) : vicini(v) {
        xcurs = x;
        ycurs = y;
        leggi();
        SetCursor(spostaCursor);
        ClipRect(myViewRect);
        PenNormal();
        PenMode(patXor);
        ForeColor(blackColor);
        elastico();
        for (Point p; TrackMouseLocation(p);) segui(p);
        segui(GetMouse());
    }
    ~Trascinamento() {
        SetCursor(arrowCursor);
        scriviSempreCoord = 0;
        SetDrawCoordCorr();
    }
    Trascinamento(const Trascinamento&) = delete;
    Trascinamento& operator=(const Trascinamento&) = delete;

    void togli() const { elastico(); }
    [[nodiscard]] bool tenuto() const { return TickCount() - inizio > GetDblTime() >> 1; }
};

void arriva(double& x, double& y) {
    x = xcurs;
    y = ycurs;
}

}   // namespace

void TrascinaPunto(std::span<const puntot> neighbours, double& movedX, double& movedY) {
    const Trascinamento t(neighbours, movedX, movedY);
    const bool tenuto = t.tenuto();
    t.togli();
    if (!tenuto) return;
    arriva(movedX, movedY);
    double z = zcurs;
    AttaccaCursore(movedX, movedY, z);
}

void SpostaLinea(const double& fixedX, const double& fixedY, double& movedX, double& movedY) {
    const std::array vicini{puntot{fixedX, fixedY, 0}};
    const Trascinamento t(vicini, movedX, movedY);
    if (!t.tenuto()) return;   // Kept: the last rubber line stays on the screen
    t.togli();
    AttaccaCursore(xcurs, ycurs, zcurs);
    arriva(movedX, movedY);
}

void SpostaVertice(const double& prevX, const double& prevY, const double& nextX, const double& nextY, double& movedX,
                   double& movedY) {
    const std::array vicini{puntot{prevX, prevY, 0}, puntot{nextX, nextY, 0}};
    const Trascinamento t(vicini, movedX, movedY);
    const bool tenuto = t.tenuto();   // before the attachment, whose flash takes time
    t.togli();
    AttaccaCursore(xcurs, ycurs, zcurs);   // Kept: also when the point stays
    if (tenuto) arriva(movedX, movedY);
}

}   // namespace tessaro
