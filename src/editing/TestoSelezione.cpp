// What the selected texts hold: string, angle, font, size, style. Whoever changes one of these measures it again.
#include <algorithm>

#include "display/Ridisegno.h"
#include "display/Testi.h"
#include "editing/TestoSelezione.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Lucidi.h"
#include "model/Scritta.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/Voci.h"
#include "platform/Events.h"
#include "platform/Fonts.h"
#include "platform/Menus.h"
#include "text/PasUtils.h"

namespace tessaro {

namespace {

// Changes and measures each selected text. A selection without one beeps; else the view is drawn again.
template <class Cambia>
void perOgniTesto(Cambia cambia) {
    bool cambiato = false;
    const auto uno = [&](std::int32_t n) {
        elemento& e = Elem(n);
        if (e.tipo != tTesto) return;
        cambia(e);
        MisuraTesto(e);
        cambiato = true;
    };
    if (Puntosel.multipla) {
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).selezionato) uno(n);
    } else if (Puntosel.attiva && Puntosel.indice >= 3 && Puntosel.indice <= indElem
               && Puntosel.oggetto < oMeshOrigine) {
        uno(Puntosel.indice);
    }
    if (!cambiato) {
        SysBeep(30);
        return;
    }
    RifaiRettSel();
    if (VisioneGraf.mostraTesti) InvalWind();
}

void sposta(std::int16_t menu, std::int16_t& da, std::int16_t a) {
    CheckMenuItem(menu, da, false);
    CheckMenuItem(menu, a, true);
    da = a;
    DrawMenuBar();
}

// --- styles

struct VoceStile {
    std::int16_t item;
    std::uint8_t bit;
};
constexpr VoceStile stili[] = {{voci::stili::grassetto, bold},
                               {voci::stili::corsivo, italic},
                               {voci::stili::sottolineato, underline},
                               {voci::stili::contornato, outlineFace},
                               {voci::stili::ombreggiato, shadowFace}};

void spuntaStili() {
    const auto face = static_cast<std::uint32_t>(gTxStyle.face);
    for (const VoceStile& v : stili) CheckMenuItem(menuStili, v.item, BITTST(face, v.bit));
    CheckMenuItem(menuStili, voci::stili::normale, face == 0);
}

}   // namespace

void MisuraTesto(elemento& e) {
    const Stato stato;
    TextFace(e.test.stile);
    TextFont(e.test.font);
    TextMode(srcOr);
    TextSize(e.test.dimensione);
    e.test.larghezza = arrotonda16(StringWidth(ScrittaDi(e)));
    e.test.altezza = e.test.dimensione;
}

void CambiaTesti(const PStr255& testo, std::int16_t angolo) {
    perOgniTesto([&](elemento& e) {
        PoniScritta(e, testo);
        e.test.angolo = angolo;
    });
}

void CheckFontMac(std::int16_t item) {
    const std::string nome = GetMenuItemText(menuCaratteri, item);
    const std::int16_t numero = GetFNum(nome);
    if (Puntosel.attiva) {
        PoniAnnulla(aNiente);
        perOgniTesto([&](elemento& e) { e.test.font = numero; });
        return;
    }
    gFontName = PStr255(std::string_view(nome));
    gFontID = numero;
    sposta(menuCaratteri, TheOldFontIt, item);
}

void CheckDimFMac(std::int16_t item) {
    constexpr std::int16_t corpi[] = {7, 9, 10, 12, 14, 18, 24}, altro = 9;
    std::int16_t corpo = 0;
    if (item >= 1 && item <= 7) {
        corpo = corpi[item - 1];
    } else if (item == altro) {
        const bool unTesto = Puntosel.attiva && !Puntosel.multipla && Puntosel.oggetto == oTesto;
        corpo = ScegliDimFMac(100, 0, unTesto ? Elem(Puntosel.indice).test.dimensione : gFontSize);
    }
    if (corpo < 1) return;
    if (Puntosel.attiva) {
        PoniAnnulla(aNiente);
        perOgniTesto([&](elemento& e) { e.test.dimensione = corpo; });
        return;
    }
    gFontSize = corpo;
    gTxStyle.dimensione = corpo;
    sposta(menuCorpi, TheOldDimFIt, item);
}

void CheckStile(std::int16_t item) {
    std::uint8_t bit = 0;
    for (const VoceStile& v : stili)
        if (v.item == item) bit = v.bit;
    if (item != 1 && bit == 0) return;
    const auto nuovo = [&](std::uint32_t face) { return item == 1 ? 0U : face ^ bit; };
    if (Puntosel.attiva) {
        PoniAnnulla(aNiente);
        perOgniTesto([&](elemento& e) { e.test.stile = static_cast<std::uint8_t>(nuovo(e.test.stile)); });
        return;
    }
    gTxStyle.face = static_cast<std::int16_t>(nuovo(static_cast<std::uint8_t>(gTxStyle.face)));
    spuntaStili();
}

}   // namespace tessaro
