// The steps of writing a DWG: tables, entities, then the file round them.
#include "dwg/kit/scrividwg/ScriviDwg.h"

#include "dwg/kit/scrividwg/FileDwg.h"

namespace tessaro {

namespace {

FormatoDwg formatoDi(std::string_view sigla) {
    if (sigla == "AC1014") return FormatoDwg::r14;
    if (sigla == "AC1015") return FormatoDwg::r2000;
    if (sigla == "AC1018") return FormatoDwg::r2004;
    if (sigla == "AC1021") return FormatoDwg::r2007;
    return FormatoDwg::r2010;
}

}   // namespace

OdError ScriviDwg(const OdDbDatabase& db, const OdDbDwgVersion& versione, OdWrFileBuf& file,
                  OdDbHostAppProgressMeter& meter) {
    StesuraDwg s{db, formatoDi(versione.sigla), {}, {}};
    std::size_t entita = 0;
    for (const OdDbBlockTableRecord& b : db.blocks.record) entita += b.entita.size();
    meter.setLimit(static_cast<std::int32_t>(entita));
    scriviTabelleDwg(s);
    if (!scriviEntitaDwg(s, meter)) return {eUserBreak, 0, {}};
    if (s.formato <= FormatoDwg::r2000) return FileDwg2000(s, versione.sigla, file);
    return s.formato == FormatoDwg::r2007 ? FileDwg2007(s, versione.sigla, file) : FileDwg2004(s, versione.sigla, file);
}

}   // namespace tessaro
