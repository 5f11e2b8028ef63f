// The pen's globals with their start values.
#include "model/Penna.h"

#include "model/TabellaStato.h"
#include "platform/Quickdraw.h"

namespace tessaro {

constinit std::int16_t colorCorrente = 1;
constinit std::int16_t colorAttuale = 1;
constinit std::int16_t NumPat = 1;
constinit Pattern PatCorrente = qdBlack;
constinit Pattern PatAttuale = qdBlack;
constinit std::int16_t NumAreaPat = 0;
constinit Pattern PatAreaCorrente = qdWhite;
constinit Pattern PatAreaAttuale = qdWhite;
constinit std::int16_t spessore = 1;
constinit thread_local std::int16_t spess = 0;
constinit std::int16_t ModoCorrente = 10;
constinit std::int16_t ModoAttuale = 10;
constinit std::int16_t markerCorrente = 1;
constinit std::int16_t LineaCorrente = 1;
constinit std::int16_t CategoriaCorrente = 1;
constinit std::int16_t InsiemeCorrente = 1;
constinit double ZetaCorrente = 1.0;
constinit Aref ArefSegmDef{};
constinit Aref ArefMarkerDef{};
constinit Aref ArefPolyDef{};
constinit Aref ArefCerchiDef{};
constinit Aref ArefArchiDef{};

namespace {

const VoceStato righe[] = {
    voce<colorCorrente>("colorCorrente"),
    voce<colorAttuale>("colorAttuale"),
    voce<NumPat>("NumPat"),
    voce<PatCorrente>("PatCorrente"),
    voce<PatAttuale>("PatAttuale"),
    voce<NumAreaPat>("NumAreaPat"),
    voce<PatAreaCorrente>("PatAreaCorrente"),
    voce<PatAreaAttuale>("PatAreaAttuale"),
    voce<spessore>("spessore"),
    {"spess", [] { spess = 0; }, [] { return std::to_string(spess); }},
    voce<ModoCorrente>("ModoCorrente"),
    voce<ModoAttuale>("ModoAttuale"),
    voce<markerCorrente>("markerCorrente"),
    voce<LineaCorrente>("LineaCorrente"),
    voce<CategoriaCorrente>("CategoriaCorrente"),
    voce<InsiemeCorrente>("InsiemeCorrente"),
    voce<ZetaCorrente>("ZetaCorrente"),
    voce<ArefSegmDef>("ArefSegmDef"),
    voce<ArefMarkerDef>("ArefMarkerDef"),
    voce<ArefPolyDef>("ArefPolyDef"),
    voce<ArefCerchiDef>("ArefCerchiDef"),
    voce<ArefArchiDef>("ArefArchiDef"),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
