// Tablet samples: from counts to the cursor, and the sixteen buttons.
#include "digitising/Tavoletta.h"

#include "digitising/Attacchi.h"
#include "digitising/TavolettaImpostazioni.h"
#include "display/Lettura.h"
#include "display/Sovrapposto.h"
#include "editing/TestoSelezione.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Percorso.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "tools/Costruzione.h"
#include "tools/CursoreVincolato.h"
#include "tools/Marker.h"

namespace tessaro {

constinit std::int32_t xtab = 0, ytab = 0;
constinit double frazioneXt = 0, frazioneYt = 0;
void (*apriCalcolatrice)() = nullptr;
void (*mostraMisura)(const double&, std::string_view) = nullptr;

namespace {

constexpr std::int16_t nomiMisure = 131;   // string list: what stands in the calculator's display

void punto() {
    switch (operazCorrente) {
    case opSegmento:
    case opPolilinea:
    case opCalcolatrice: PuntoDiLinea(); break;
    case opTesto: PoniTesti(0); break;
    case opMarker: FaiMarker(); break;
    case opCerchio:
    case opArco: PuntoDiCurva(); break;
    default: break;
    }
}

void termina() {
    if (Azione == sPrimoPunto || Azione == sPercorso) FineSegm();
}

template <double Risultati::*misura, std::int16_t nome>
void mostra() {
    if (CalcWindow && mostraMisura) mostraMisura(RisCalc.*misura * RisCalc.fattore, GetIndString(nomiMisure, nome));
}

constexpr void (*bottoni[])() = {
    [] {},
    punto,
    termina,
    FaiMarker,
    [] { Attacco(1); },
    [] { Attacco(2); },
    [] {
        if (apriCalcolatrice) apriCalcolatrice();
    },
    mostra<&Risultati::area, 18>,
    mostra<&Risultati::perimetro, 2>,
    mostra<&Risultati::sviluppo, 3>,
    mostra<&Risultati::baricentroX, 4>,
    mostra<&Risultati::baricentroY, 5>,
    mostra<&Risultati::momentoX, 6>,
    mostra<&Risultati::momentoY, 7>,
    RiferimentoVista,
    RiferimentoFoglio,
};
static_assert(std::size(bottoni) == 16);

void riferimento(bool foglio, std::int16_t x, std::int16_t y) {
    XtabFin = x;
    YtabFin = y;
    RifTablet = foglio;
    CheckMenuItem(menuStrumenti, voci::strumenti::tavolettaSulFoglio, foglio);
    CheckMenuItem(menuStrumenti, voci::strumenti::tavolettaSullaVista, !foglio);
}

}   // namespace

void RiferimentoVista() { riferimento(false, arrotonda16(OrigX / scalavid), arrotonda16(OrigY / scalavid)); }
void RiferimentoFoglio() { riferimento(true, 0, 0); }

void Agg_cursore(std::int32_t xt, std::int32_t yt) {
    double x = statoCursore.bloccaX ? xcurs : XtabFin + (xt + frazioneXt) * scalaXt;
    // The tablet's Y runs up, the sheet's down; the turn is made against the tablet's height.
    double y = statoCursore.bloccaY ? ycurs : YtabFin + (htav1 - scalaYt * (yt + frazioneYt));
    if (griglia.attiva) AttaccaGriglia(x, y);
    if (x == xcurs && y == ycurs) return;
    Croce();
    xcurs = x;
    ycurs = y;
    MuoviElastico();
    Croce();
}

void CheckTablet() {
    Agg_cursore(xtab, ytab);
    scriviSempreCoord = 0;
    SetDrawCoordCorr();
    if (tabButton >= bNessuno && static_cast<std::size_t>(tabButton) < std::size(bottoni)) bottoni[tabButton]();
}

namespace {
const VoceStato righe[] = {
    voce<xtab>("xtab"),
    voce<ytab>("ytab"),
    voce<frazioneXt>("frazioneXt"),
    voce<frazioneYt>("frazioneYt"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
