// What the hand waits for on a drawing of 1.5 million elements, in the program's own window: a step of the wheel until the
// scaled picture stands, the true picture behind it, all selected, the window painted anew. Against the bare repaint of the
// same drawing onto a raster of the window's size, and against the window's pixels copied once, in the same run.
#include <cmath>
#include <cstring>
#include <random>

#include "display/Disegno.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "editing/Scelta.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/Automation.h"
#include "platform/paint/RasterPort.h"
#include "platform/Windows.h"
#include "shell/Inizializza.h"

using namespace tessaro;
using misure::millisecondi;

namespace {

constexpr std::int32_t tanti = 1500000;
constexpr int giri = 7;

Copione nessuno() {
    Copione c{};
    c.passo = [] { return false; };
    c.avviso = [](std::int16_t, std::string_view, std::int16_t predefinito) { return predefinito; };
    c.dialogoAperto = [](std::int16_t, std::string_view) {};
    c.passoDialogo = [](DialogPtr) { return false; };
    c.dialogoChiuso = [](std::int16_t) {};
    c.file = [](bool, std::string&) { return false; };
    c.popup = []() -> std::int16_t { return 0; };
    c.colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; };
    c.stampa = [](std::string&, std::int32_t&, std::int32_t&) { return false; };
    c.carta = [](double&, double&) { return false; };
    c.beep = [](std::int32_t) {};
    return c;
}

// Nine segments of a millimetre or two to a marker, all over the sheet.
void disegno() {
    if (!AllocaElementi(tanti + 2)) misure::fallito("the store");
    AzzeraArchivio();
    std::mt19937 caso(11);
    std::uniform_real_distribution<double> px(0, XFDecimi), py(0, YFDecimi), passo(-20, 20);
    while (indElem < tanti) {
        const double x = px(caso), y = py(caso);
        if (indElem % 10 == 0)
            Memorizza(tMarker, x, y, 0, 1, 0, 0, 1, 1, 1, "");
        else
            Memorizza(tSegmento, x, y, 0, x + passo(caso), y + passo(caso), 0, 1, 1, 1, "");
    }
}

void fineCoda() {
    while (!AutoQueueEmpty()) CheckEvents();
}

struct Misura {
    const char* che;
    const char* base;
    double limite;
    std::vector<double> nostro, altro;
};

}   // namespace

int main(int argc, char** argv) {
    const Copione copione = nessuno();
    SetCopione(&copione);
    Avvio avvio;
    avvio.script = true;
    StartToolbox(argc, argv, avvio);
    Initialize();
    disegno();
    InvalFinestra();
    fineCoda();
    RasterPort& finestra = static_cast<RasterPort&>(*GetWindowPort(theWindow));
    RasterPort nuda(finestra.portRect.right, finestra.portRect.bottom, 1);
    nuda.origin = finestra.origin;
    std::vector<std::uint32_t> pixel(static_cast<std::size_t>(finestra.rowPixels())
                                     * static_cast<std::size_t>(finestra.deviceHeight()));
    const auto soloDisegno = [&] {
        const GrafPtr prima = GetPort();
        SetPort(&nuda);
        ClipRect(myViewRect);
        EraseRect(myViewRect);
        Disegna();
        SetPort(prima);
    };
    const auto copia = [&] { std::memcpy(pixel.data(), finestra.pixels(), pixel.size() * sizeof pixel[0]); };
    Misura rotella{"wheel, scaled picture", "pixels copied", 40, {}, {}},
        vera{"wheel, true picture", "bare repaint", 1.5, {}, {}}, tutta{"whole window", "bare repaint", 1.5, {}, {}},
        scelta{"select all, shown", "bare repaint", 4, {}, {}},
        sciolta{"select none, shown", "bare repaint", 1.5, {}, {}};
    AutoMove({400, 600}, 0);
    fineCoda();
    for (int i = 0; i < giri; ++i) {
        AutoWheel(0, i % 2 == 0 ? 1 : -1, cmdKey);
        rotella.nostro.push_back(millisecondi([] { CheckEvents(); }));
        rotella.altro.push_back(millisecondi(copia));
        vera.nostro.push_back(millisecondi(fineCoda));
        vera.altro.push_back(millisecondi(soloDisegno));
        InvalFinestra();
        tutta.nostro.push_back(millisecondi(fineCoda));
        tutta.altro.push_back(millisecondi(soloDisegno));
        scelta.nostro.push_back(millisecondi([] {
            SelezionaTutto();
            AggiornaVeli();
        }));
        scelta.altro.push_back(millisecondi(soloDisegno));
        sciolta.nostro.push_back(millisecondi([] {
            NessunaSelezione();
            AggiornaVeli();
        }));
        sciolta.altro.push_back(millisecondi(soloDisegno));
    }
    for (const Misura* m : {&rotella, &vera, &tutta, &scelta, &sciolta})
        misure::riga(m->che, m->nostro, m->base, m->altro, m->limite);
    AutoExit(0);
}
