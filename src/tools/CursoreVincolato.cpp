// The constraints of the cursor: their switches, and what each does to a point.
#include "tools/CursoreVincolato.h"

#include <algorithm>
#include <cmath>

#include "display/palette.h"
#include "display/Ridisegno.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/Windows.h"
#include "tools/Aggancio.h"

namespace tessaro {

constinit std::uint8_t debug = 0;

namespace {

std::uint8_t invertito(std::uint8_t v) { return v ? 0 : 1; }

void vincoloCambiato() {
    SpuntaVincoli();
    AggiustaStatoBottoni();
}

// A locked axis takes the cursor onto the first point's; the cross of before goes with the repaint.
void spostaCursore(double& coordinata, double nuova) {
    if (coordinata == nuova) return;
    coordinata = nuova;
    InvalWind();
}

// One axis of the pair: a lock on the other one changes over, else this one flips.
void bloccaAsse(std::uint8_t& questo, std::uint8_t& altro) {
    questo = altro ? std::uint8_t{1} : invertito(questo);
    altro = 0;
}

}   // namespace

void SpuntaVincoli() {
    const auto& s = statoCursore;
    CheckMenuItem(menuVincoli, voci::vincoli::punto, s.attaccoPunto != 0);
    // While attaching is off, item 2 keeps its tick: attaching again then takes Z again.
    if (s.attaccoPunto) CheckMenuItem(menuVincoli, voci::vincoli::quota, s.attaccoZ != 0);
    CheckMenuItem(menuVincoli, voci::vincoli::parallelo, s.parallelo != 0);
    CheckMenuItem(menuVincoli, voci::vincoli::perpendicolare, s.perpendicolare != 0);
    CheckMenuItem(menuVincoli, voci::vincoli::orizzontale, s.bloccaY != 0);
    CheckMenuItem(menuVincoli, voci::vincoli::verticale, s.bloccaX != 0);
    CheckMenuItem(menuVincoli, voci::vincoli::griglia, griglia.attiva != 0);
    for (std::int16_t t = agEstremo; t < numAgganci; ++t)
        CheckMenuItem(menuAgganci, t, (agganciAttivi & BitAggancio(static_cast<TipoAggancio>(t))) != 0);
}

void MettiPerpendicolare() {
    statoCursore.perpendicolare = invertito(statoCursore.perpendicolare);
    statoCursore.parallelo = 0;
    vincoloCambiato();
}

void MettiParallelo() {
    statoCursore.parallelo = invertito(statoCursore.parallelo);
    statoCursore.perpendicolare = 0;
    vincoloCambiato();
}

void MettiOrizzontale() {
    bloccaAsse(statoCursore.bloccaY, statoCursore.bloccaX);
    if (Azione == sPrimoPunto && statoCursore.bloccaY) spostaCursore(ycurs, Yini);
    vincoloCambiato();
}

void MettiVerticale() {
    bloccaAsse(statoCursore.bloccaX, statoCursore.bloccaY);
    if (Azione == sPrimoPunto && statoCursore.bloccaX) spostaCursore(xcurs, Xini);
    vincoloCambiato();
}

void MettiAttaccoPt() {
    statoCursore.attaccoPunto = invertito(statoCursore.attaccoPunto);
    debug = statoCursore.attaccoPunto;
    if (statoCursore.attaccoPunto) {
        if (IsMenuItemChecked(menuVincoli, voci::vincoli::quota)) statoCursore.attaccoZ = 1;
        EnableMenuItem(menuVincoli, voci::vincoli::quota);
    } else {
        statoCursore.attaccoZ = 0;
        DisableMenuItem(menuVincoli, voci::vincoli::quota);
    }
    vincoloCambiato();
}

void MettiAttaccoZ() {
    statoCursore.attaccoZ = invertito(statoCursore.attaccoZ);
    if (statoCursore.attaccoZ) {
        EnableMenuItem(menuVincoli, voci::vincoli::quota);
        statoCursore.attaccoPunto = 1;
    }
    vincoloCambiato();
}

void CambiaAggancio(TipoAggancio tipo) {
    if (tipo <= agNessuno || tipo >= numAgganci) return;
    agganciAttivi ^= BitAggancio(tipo);
    SpuntaVincoli();
}

void AttivaGriglia() {
    griglia.attiva = invertito(griglia.attiva);
    SpuntaVincoli();
}

// --- directions

void Perpendicolare() {
    const auto& s = statoCursore;
    if (s.verticale) {
        Yfine = Yini;
        return;
    }
    const double x = Xfine, y = Yfine;
    Xfine = s.kPendenza * (s.pendenza2 * x + Xini + (Yini - y) * s.pendenza);
    Yfine = s.kPendenza * (s.pendenza2 * Yini + y + (Xini - x) * s.pendenza);
}

void Parallelo() {
    const auto& s = statoCursore;
    if (s.verticale) {
        Xfine = Xini;
        return;
    }
    const double x = Xfine, y = Yfine;
    Xfine = s.kPendenza * (s.pendenza2 * Xini + x + (y - Yini) * s.pendenza);
    Yfine = s.kPendenza * (s.pendenza2 * y + Yini + (x - Xini) * s.pendenza);
}

// --- grid and points

void AttaccaGriglia(double& x, double& y) {
    griglia.grezzoX = x;
    griglia.grezzoY = y;
    x = griglia.passoX * std::round(x / griglia.passoX);
    y = griglia.passoY * std::round(y / griglia.passoY);
}

namespace {

void lampoCursore() {
    const std::int16_t prima = CurrentCursor();
    SetCursor(statoCursore.attaccoZ ? AttaccaCursorZ : AttaccaCursor);
    Delay(static_cast<std::int32_t>(GetDblTime() / 3));
    SetCursor(prima);
}

}   // namespace

void AttaccaCursore(double& x, double& y, double& z) {
    z = ZetaCorrente;
    if (!statoCursore.attaccoPunto) return;
    const Aggancio a = CercaAggancio(x, y);
    if (a.tipo == agNessuno) return;
    x = a.punto.x;
    y = a.punto.y;
    if (statoCursore.attaccoZ) z = a.punto.z;
    lampoCursore();
}

void RaddrizzaSegm(double& x1, double& y1, double& x2, double& y2) {
    constexpr double verticale = 0.0004;   // sheet units
    if (std::fabs(x1 - x2) < verticale) {
        if (y1 > y2) std::swap(y1, y2);
    } else if (x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
}

namespace {
const VoceStato righe[] = {
    voce<debug>("debug"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
