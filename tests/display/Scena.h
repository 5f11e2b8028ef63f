// A raster to draw on without a window, and a window for what needs one.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "display/Disposizione.h"
#include "display/Zoom.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "platform/Windows.h"
#include "support/Foglio.h"

namespace prova {

constexpr std::uint32_t nero = 0xFF000000, bianco = 0xFFFFFFFF;

// One sheet unit a pixel, the sheet's corner at the raster's corner, nothing stored.
struct Scena {
    RasterPort porta;
    GrafPtr prima = GetPort();

    explicit Scena(std::int32_t larghezza = 100, std::int32_t altezza = 80) : porta(larghezza, altezza, 1) {
        fogliovuoto();
        SetPort(&porta);
        scala(1);
        OrigX = OrigY = 0;
    }
    ~Scena() { SetPort(prima); }
    Scena(const Scena&) = delete;
    Scena& operator=(const Scena&) = delete;

    static void scala(double s) {
        scalavid = s;
        AggiornaTolleranze();
    }
    void pulisci() {
        PenNormal();
        EraseRect(porta.portRect);
    }
    [[nodiscard]] std::vector<std::uint32_t> immagine() const {
        return {porta.pixels(), porta.pixels() + porta.rowPixels() * porta.deviceHeight()};
    }
    [[nodiscard]] bool e(std::int32_t x, std::int32_t y, std::uint32_t colore) const {
        return porta.pixel(x, y) == colore;
    }
    [[nodiscard]] int quanti(std::uint32_t colore) const {
        int n = 0;
        for (const std::uint32_t p : immagine()) n += p == colore;
        return n;
    }
};

// A drawing window whose view is `larghezza` by `altezza` pixels, with its scroll bars and an empty drawing.
struct FinestraProva {
    FinestraProva(std::int32_t larghezza = 1000, std::int32_t altezza = 600) {
        fogliovuoto();
        theWindow = GetNewCWindow(1000);
        SizeWindow(theWindow, larghezza + 32 + 15, altezza + hToolbar + 15);
        noWindow = 0;
        SetPortWindowPort(theWindow);
        VScroll = NewScrollBar(theWindow, true);
        HScroll = NewScrollBar(theWindow, false);
        DisponiVista();
        MoveScrollBars();
        ClipRect(myViewRect);
    }
    ~FinestraProva() {
        SetPort(nullptr);
        DisposeWindow(theWindow);
        theWindow = nullptr;
        VScroll = HScroll = nullptr;
        noWindow = 1;
    }
    FinestraProva(const FinestraProva&) = delete;
    FinestraProva& operator=(const FinestraProva&) = delete;

    // A scale and a scroll position with everything that follows from them.
    static void vedi(double scala, std::int32_t h, std::int32_t v) {
        CambiaScala(scala);
        PageCorner = AngoloPagina{v, h};
        OrigX = h - 32;
        OrigY = v - hToolbar;
        AggiornaBarre();
    }
    RasterPort& porta() { return static_cast<RasterPort&>(*GetWindowPort(theWindow)); }
};

}   // namespace prova
