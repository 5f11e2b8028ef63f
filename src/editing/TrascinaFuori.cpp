// The picture is made before the drag: nothing of the drawing is touched while another program asks for it.
#include "editing/TrascinaFuori.h"

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

}   // namespace tessaro
