// The repaint of 100,000 segments with smooth lines, against plain ones and against the toolkit's own painter in the same run.
#include <QImage>
#include <QPainter>

#include <cmath>
#include <random>

#include "bitmap/PerRighe.h"
#include "display/Disegno.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"

using namespace tessaro;
using misure::millisecondi;

int main() {
    constexpr std::int32_t larga = 1600, alta = 1000, quanti = 100000;
    constexpr int giri = 9;
    if (!AllocaElementi(quanti + 2)) misure::fallito("the store");
    AzzeraStato();
    AzzeraArchivio();
    filiRaster = 1;
    scalavid = 1;
    OrigX = OrigY = 0;
    AggiornaTolleranze();
    RasterPort porta(larga, alta, 1);
    SetPort(&porta);
    ClipRect(porta.portRect);
    std::mt19937 caso(7);
    std::uniform_real_distribution<double> px(41, larga - 42), py(41, alta - 42), lungo(10, 40), giro(0, 6.28318);
    while (indElem < quanti) {
        const double x = std::floor(px(caso)), y = std::floor(py(caso)), l = lungo(caso), g = giro(caso);
        Memorizza(tSegmento, x, y, 0, x + std::floor(l * std::cos(g)), y + std::floor(l * std::sin(g)), 0, 1, 1, 1, "");
    }
    QImage immagine(larga, alta, QImage::Format_RGB32);
    std::vector<double> morbide, piane, loro;
    for (int i = 0; i < giri; ++i) {
        porta.smooth = true;
        morbide.push_back(millisecondi(Disegna));
        porta.smooth = false;
        piane.push_back(millisecondi(Disegna));
        loro.push_back(millisecondi([&] {
            QPainter p(&immagine);
            p.setRenderHint(QPainter::Antialiasing);
            p.setPen(QPen(Qt::black, 1));
            for (std::int32_t n = 3; n <= indElem; ++n) {
                const auto& s = Elem(n).segm;
                p.drawLine(QPointF(s.x1 + 0.5, s.y1 + 0.5), QPointF(s.x2 + 0.5, s.y2 + 0.5));
            }
        }));
    }
    misure::riga("smooth lines", morbide, "plain lines", piane, 16);
    misure::riga("smooth lines", morbide, "the toolkit's", loro, 1.5);
    SetPort(nullptr);
    return 0;
}
