// The drag of a vertex: rubber lines from the pointer to its neighbours while the button is held.
#include <algorithm>
#include <array>
#include <span>

#include "display/Lettura.h"
#include "display/Sovrapposto.h"
#include "editing/Vertici.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Stato.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

namespace {

// The readout follows the drag and the cursor tells of it; put right again at the end.
class Trascinamento {
    std::uint32_t inizio = TickCount();
    Point pixel = EventPoint;

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
        xcurs = q.x;
        ycurs = q.y;
        leggi();
    }

public:
    Trascinamento(std::span<const puntot> fissi, double x, double y) {
        xcurs = x;
        ycurs = y;
        leggi();
        SetCursor(spostaCursor);
        const std::size_t quanti = std::min(fissi.size(), latiElastici.fissi.size());
        std::copy_n(fissi.begin(), quanti, latiElastici.fissi.begin());
        latiElastici.quanti = static_cast<std::int32_t>(quanti);
        for (Point p; TrackMouseLocation(p);) segui(p);
        segui(GetMouse());
    }
    ~Trascinamento() {
        latiElastici = {};
        SetCursor(arrowCursor);
        scriviSempreCoord = 0;
        SetDrawCoordCorr();
    }
    Trascinamento(const Trascinamento&) = delete;
    Trascinamento& operator=(const Trascinamento&) = delete;

    [[nodiscard]] bool tenuto() const { return !DragGivenUp() && TickCount() - inizio > GetDblTime() >> 1; }
};

void arriva(double& x, double& y) {
    x = xcurs;
    y = ycurs;
}

}   // namespace

void TrascinaPunto(std::span<const puntot> neighbours, double& movedX, double& movedY) {
    const Trascinamento t(neighbours, movedX, movedY);
    const bool tenuto = t.tenuto();
    if (!tenuto) return;
    arriva(movedX, movedY);
    double z = zcurs;
    AttaccaCursore(movedX, movedY, z);
}

void SpostaLinea(const double& fixedX, const double& fixedY, double& movedX, double& movedY) {
    const std::array fissi{puntot{fixedX, fixedY, 0}};
    const Trascinamento t(fissi, movedX, movedY);
    if (!t.tenuto()) return;
    AttaccaCursore(xcurs, ycurs, zcurs);
    arriva(movedX, movedY);
}

void SpostaVertice(const double& prevX, const double& prevY, const double& nextX, const double& nextY, double& movedX,
                   double& movedY) {
    const std::array fissi{puntot{prevX, prevY, 0}, puntot{nextX, nextY, 0}};
    const Trascinamento t(fissi, movedX, movedY);
    const bool tenuto = t.tenuto();        // before the attachment, whose flash takes time
    AttaccaCursore(xcurs, ycurs, zcurs);   // Kept: also when the point stays
    if (tenuto) arriva(movedX, movedY);
}

}   // namespace tessaro
