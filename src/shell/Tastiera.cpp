// The keyboard table: single keys for pens, markers, control points, constraints and zoom.
#include <algorithm>

#include "digitising/Attacchi.h"
#include "digitising/Tavoletta.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "editing/Cancella.h"
#include "editing/Scelta.h"
#include "editing/Sposta.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Windows.h"
#include "shell/Comandi.h"
#include "shell/Modi.h"
#include "shell/Rinuncia.h"
#include "tools/CursoreVincolato.h"
#include "tools/FiguraInMano.h"

namespace tessaro {

namespace {

void riferimento() {
    if (RifTablet == 1) {
        RiferimentoVista();
    } else {
        RiferimentoFoglio();
    }
}

template <std::int16_t forma>
void marker() {
    markerCorrente = forma;
}

template <std::int16_t numero>
void penna() {
    PatCorrente = PatAttuale = GetIndPattern(numero);
    NumPat = numero;
    DrawPallette();
}

template <std::int16_t n>
void attacco() {
    Attacco(n);
}

template <void (*azione)()>
void vincolo() {
    azione();
    DrawPallette();
    scriviSempreCoord = 1;
    SetDrawCoordCorr();
}

// Between selecting and digitising; any other mode goes to digitising.
void cambiaModo() {
    CambiaModo(Modalita == mDigitazione ? mSelezione : mDigitazione);
    if (Modalita != mDigitazione) SetCursor(arrowCursor);
    DrawPallette();
}

bool nienteInCorso() { return Azione == sFermo && !CalcWindow && !Sposta2ndClick; }

// Moves the selection by a pixel of the screen, with Shift by ten.
template <std::int32_t dh, std::int32_t dv>
void spinta() {
    constexpr std::int32_t conShift = 10;
    if (!nienteInCorso()) return;
    const std::int32_t pixel = (KeyModifiers() & shiftKey) != 0 ? conShift : 1;
    SpostaDiPixel(dh * pixel, dv * pixel);
}

// Goes through what lies under the pointer.
void sottoIlPuntatore() {
    const Point dove = GetMouse();
    if (Modalita != mSelezione || CalcWindow || !PtInRect(dove, myViewRect)) return;
    puntot p;
    VidToReal(dove, p);
    ScegliSotto(p, (KeyModifiers() & shiftKey) != 0);
}

template <std::int16_t tipo>
void zoom() {
    ZoomAlPuntatore(tipo);
}

struct VoceTasto {
    char tasto;   // letters in lower case; both cases act
    void (*azione)();
};
// Keys without a character of their own.
enum : char {
    invioNumerico = 3,
    indietro = 8,
    tabulatore = 9,
    invio = 13,
    fuga = 27,
    sinistra,
    destra,
    su,
    giu,
    canc = 127
};
constexpr VoceTasto tasti[] = {
    {indietro, CancellaSelezione},
    {canc, CancellaSelezione},
    {invio, TerminaFigura},
    {invioNumerico, TerminaFigura},
    {fuga, [] { Rinuncia(); }},
    {tabulatore, sottoIlPuntatore},
    {sinistra, spinta<-1, 0>},
    {destra, spinta<1, 0>},
    {su, spinta<0, -1>},
    {giu, spinta<0, 1>},
    {' ', riferimento},
    {'*', marker<1>},
    {'+', zoom<voci::zoom::ingrandisci>},
    {'-', zoom<voci::zoom::riduci>},
    {'0', marker<5>},
    {'=', vincolo<MettiParallelo>},
    {'c', penna<23>},
    {'e', cambiaModo},
    {'g', penna<4>},
    {'i', attacco<4>},
    {'j', attacco<1>},
    {'k', attacco<2>},
    {'l', vincolo<MettiPerpendicolare>},
    {'m', vincolo<MettiAttaccoZ>},
    {'n', penna<1>},
    {'o', vincolo<MettiOrizzontale>},
    {'p', vincolo<MettiAttaccoPt>},
    {'q', marker<3>},
    {'s', penna<3>},
    {'t', marker<2>},
    {'u', attacco<3>},
    {'v', vincolo<MettiVerticale>},
    {'x', ChiudiPolilinea},
    {'y', attacco<5>},
    {'z', PoniZeta},
};

}   // namespace

void Tasto(std::uint8_t c) {
    if (c >= '1' && c <= '9') {
        spessore = static_cast<std::int16_t>(c - '0');
        spess = static_cast<std::int16_t>(spessore / 2);
        ChkOnOffItem(menuSpessore, spessore, 1, 9);
        DrawPallette();
        return;
    }
    const char minuscolo = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    const auto* voce =
        std::find_if(std::begin(tasti), std::end(tasti), [&](const VoceTasto& v) { return v.tasto == minuscolo; });
    if (voce != std::end(tasti)) voce->azione();
}

}   // namespace tessaro
