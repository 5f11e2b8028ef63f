// Pens of the desktop over the drawing: where they digitise they become records with parts of a pixel, elsewhere the
// toolkit turns them into a mouse.
#include <QTabletEvent>

#include <cmath>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/Tablet.h"

namespace tessaro {

namespace {

bool (*vuolePenna)(double h, double v) = nullptr;

// What a press of the pen does: the tip sets a point, the lower side button or the eraser's tip sets the last one, the
// upper side button a marker.
std::uint32_t bottoneDi(const QTabletEvent& e) {
    if (e.pointerType() == QPointingDevice::PointerType::Eraser) return 2;
    switch (e.button()) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 3;
    default: return 0;
    }
}

}   // namespace

void PenListen(bool (*vuole)(double h, double v)) { vuolePenna = vuole; }

void Foglio::tabletEvent(QTabletEvent* e) {
    const QPointF p = e->position();
    const bool pressione = e->type() == QEvent::TabletPress, rilascio = e->type() == QEvent::TabletRelease;
    // Under a dialog or a drag a pen digitises nothing, as a serial line does not; the toolkit keeps only mice from it.
    const bool libera = annidamento() == 0;
    // A press belongs to whoever took it, wherever it is released.
    const bool nostra = premuti == Premuti::penna
                        || (libera && premuti == Premuti::nessuno && vuolePenna != nullptr && vuolePenna(p.x(), p.y()));
    if (pressione && premuti == Premuti::nessuno) premuti = nostra ? Premuti::penna : Premuti::comeTopo;
    if (rilascio && e->buttons() == Qt::NoButton) premuti = Premuti::nessuno;
    if (!nostra) {
        e->ignore();
        return;
    }
    e->accept();
    if (!libera) return;
    EventRecord r;
    r.what = EventKind::pen;
    r.where = Point{static_cast<std::int32_t>(std::floor(p.y())), static_cast<std::int32_t>(std::floor(p.x()))};
    r.frazioneH = p.x() - std::floor(p.x());
    r.frazioneV = p.y() - std::floor(p.y());
    r.message = pressione ? bottoneDi(*e) : 0;
    r.modifiers = modificatori(e->modifiers());
    r.when = tickDi(static_cast<ulong>(e->timestamp()));
    accoda(std::move(r));
}

}   // namespace tessaro
