// The picture is made before the drag: nothing of the drawing is touched while another program asks for it.
#include "shell/TrascinaFuori.h"

#include "editing/Scelta.h"
#include "platform/Drags.h"
#include "platform/Events.h"
#include "raster/CreaPict.h"

namespace tessaro {

bool MyDoStartDrag() {
    FiguraPict p;
    if (!CreaPict(p)) {
        SysBeep(30);
        return false;
    }
    return TrackDrag(SaporiPict(p));
}

namespace {
[[maybe_unused]] const bool legata = (trascinaFuori = MyDoStartDrag, true);
}   // namespace

}   // namespace tessaro
