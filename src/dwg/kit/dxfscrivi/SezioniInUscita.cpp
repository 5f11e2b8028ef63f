// A DXF file as a whole: its sections in their order.
#include "dwg/kit/dxfscrivi/GruppiInUscita.h"

namespace tessaro {

OdError ScriviDxf(const OdDbDatabase& db, const OdDbDwgVersion& versione, OdWrFileBuf& file,
                  OdDbHostAppProgressMeter& meter) {
    GruppiInUscita s(db, versione, file);
    meter.setLimit(static_cast<std::int32_t>(db.spazioModello().entita.size()));
    ScriviIntestazioneDxf(s);
    ScriviClassiDxf(s);
    ScriviTabelleDxf(s);
    ScriviBlocchiDxf(s);
    if (OdError e = ScriviEntitaDxf(s, db.spazioModello(), meter); e.codice != eOk) return e;
    ScriviOggettiDxf(s);
    s.g(0, "EOF");
    return {};
}

}   // namespace tessaro
