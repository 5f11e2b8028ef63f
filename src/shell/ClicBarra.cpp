// The toolbar's actions: most are menu commands under another hand, four open the menus of the attributes.
#include "shell/ClicBarra.h"

#include "digitising/PuntiDigitati.h"
#include "display/Barra.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "shell/Comandi.h"
#include "shell/Modi.h"

namespace tessaro {

namespace {

enum : std::uint32_t {
    bTaglia = 3,
    bFoglio = 13,
    bRidisegna = 14,
    bColore = 23,
    bSpessore,
    bPenna,
    bArea,
    bAiuto,
    bPolare = 29
};
constexpr std::int16_t spento = 255;

void comando(std::int16_t menu, std::int16_t voce) {
    DoCommand(static_cast<std::uint32_t>(menu) << 16 | static_cast<std::uint16_t>(voce));
}

// The menu opens at the button's middle with the value in force under the pointer. A choice does what it does from the
// menu bar: it goes to the selection when there is one and nothing is under way, else it is the new value.
void scegli(std::uint32_t bottone, std::int16_t menu, std::int16_t corrente) {
    const Rect r = RettangoloBottone(bottone);
    const Point mezzo{(r.top + r.bottom) / 2, (r.left + r.right) / 2};
    const std::int16_t scelto = PopUpMenuSelect(menu, mezzo, corrente);
    if (scelto == 0) return;
    const bool perSelezione = Puntosel.attiva && Azione == sFermo;
    if (perSelezione || scelto != corrente) comando(menu, scelto);
    InvalFinestra();
}

void spostaFoglio() {
    CambiaModo(mFoglio);
    DrawPallette();
}

}   // namespace

void MenuColori() { scegli(bColore, menuColore, colorCorrente); }
void MenuSpessori() { scegli(bSpessore, menuSpessore, spessore); }
void MenuPatternPenna() { scegli(bPenna, menuPatternPenna, NumPat); }
void MenuPatternArea() { scegli(bArea, menuPatternArea, static_cast<std::int16_t>(NumAreaPat + 1)); }

void ApriGuida() {
    if (!AHGotoPage(GetIndString(129, 67))) SysBeep(30);   // it is not installed
}

void isButtonToolbarPressed(std::uint32_t indice) {
    if (noWindow || indice >= numBottoni) return;
    if (GetControlHilite(bottoneToolbar.bottoni[indice]) == spento) return;   // it went off after the release
    switch (indice) {
    case bTaglia: comando(3, 3); break;
    case bFoglio: spostaFoglio(); break;
    case bRidisegna: InvalFinestra(); break;
    case bColore: MenuColori(); break;
    case bSpessore: MenuSpessori(); break;
    case bPenna: MenuPatternPenna(); break;
    case bArea: MenuPatternArea(); break;
    case bAiuto: ApriGuida(); break;
    case bPolare: IngressoPolare(); break;
    default: {
        const ComandoMenu c = ComandoDelBottone(indice);
        comando(c.menu, c.voce);
        break;
    }
    }
}

}   // namespace tessaro
