// The cursor's globals with their start values.
#include "model/Cursore.h"

#include "model/TabellaStato.h"

namespace tessaro {

constinit double xcurs = 1000;
constinit double ycurs = 1000;
constinit double zcurs = 0;
constinit Point EventPoint{};
constinit std::uint8_t TabAbilit = 0;
constinit std::uint8_t RifTablet = 1;
constinit std::int16_t XtabFin = 0;
constinit std::int16_t YtabFin = 0;

namespace {

const VoceStato righe[] = {
    voce<xcurs>("xcurs"),           voce<ycurs>("ycurs"),         voce<zcurs>("zcurs"),
    voce<EventPoint>("EventPoint"), voce<TabAbilit>("TabAbilit"), voce<RifTablet>("RifTablet"),
    voce<XtabFin>("XtabFin"),       voce<YtabFin>("YtabFin"),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
