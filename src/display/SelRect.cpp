// The rubber rectangle.
#include <algorithm>

#include "dialogs/Parametri.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "model/Cursore.h"
#include "model/Stato.h"
#include "model/Vista.h"
#include "platform/Automation.h"

namespace tessaro {

namespace {

enum class Attesa : std::uint8_t { continua, premuto, rinuncia };

// An event while the press is awaited. Another command ends the wait and goes back to the queue.
Attesa giudica(const EventRecord& e) {
    switch (e.what) {
    case EventKind::mouseDown: return Attesa::premuto;
    case EventKind::updateEvt:
        if (ridipingiFinestra) ridipingiFinestra();
        return Attesa::continua;
    case EventKind::keyDown: {
        constexpr std::uint32_t escape = 27;
        return (e.message & 0xFF) == escape ? Attesa::rinuncia : Attesa::continua;
    }
    case EventKind::menuChoice:
    case EventKind::goAway:
    case EventKind::grow:
    case EventKind::highLevel:
    case EventKind::drop:
    case EventKind::button: AutoPost(e); return Attesa::rinuncia;
    default: return Attesa::continua;
    }
}

bool attendiPressione(Point& dove) {
    if (Button()) {   // the click being handled goes on
        dove = EventPoint;
        return true;
    }
    for (;;) {
        EventRecord e;
        const bool qualcosa = WaitNextEvent(e, -1);
        if (quitPending()) return false;
        if (!qualcosa) continue;
        const Attesa a = giudica(e);
        dove = e.where;
        if (a != Attesa::continua) return a == Attesa::premuto;
    }
}

Rect tra(Point a, Point b) {
    return SetRect(std::min(a.h, b.h), std::min(a.v, b.v), std::max(a.h, b.h), std::max(a.v, b.v));
}

}   // namespace

bool SelRect(Rect& out) {
    out = Rect{};
    SetCursor(CroceCursor);
    Point primo;
    const bool premuto = attendiPressione(primo);
    if (premuto) {
        rettangoloElastico = tra(primo, GetMouse());
        for (Point p; TrackMouseLocation(p);) rettangoloElastico = tra(primo, p);
        rettangoloElastico = {};
        out = tra(primo, GetMouse());
    }
    SetCursor(arrowCursor);
    return premuto && !quitPending() && !DragGivenUp();
}

}   // namespace tessaro
