// The repaint: the sheet, the control points' marks, the elements, and what stands by them.
#include "display/Disegno.h"

#include "display/AttacchiMarche.h"
#include "display/FrecceResidui.h"
#include "display/Pixel.h"
#include "display/Scansione.h"
#include "display/Strisce.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Percorso.h"
#include "model/Registrazione.h"
#include "model/Strumento.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"

namespace tessaro {

void (*anteprimaImmagine)() = nullptr;

namespace {

void pennaNera(std::int16_t mode) {
    PenNormal();
    PenMode(mode);
    ForeColor(blackColor);
}

// The sides that the calculator's path has so far: no record holds them, and a repaint would lose them.
void disegnaPercorso() {
    if (!CalcWindow || Azione != sPercorso) return;
    pennaNera(patCopy);
    ColoreDaTabella(colorCorrente);
    PenPat(PatternVista(PatCorrente));
    PenSize(spessore, spessore);
    spess = static_cast<std::int16_t>(spessore / 2);
    Coppia da;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(RisCalc.numPunti) && i < Xspezz.size(); ++i) {
        Coppia a;
        RealToDigi(Xspezz[i], Yspezz[i], a.x, a.y);
        if (i > 1) LineaFoglio(da.x, da.y, a.x, a.y);
        da = a;
    }
    spess = 0;
}

void puntiDiControllo() {
    pennaNera(patCopy);
    ForeColor(redColor);
    static constexpr void (*marche[])() = {DisAttacco1, DisAttacco2, DisAttacco3, DisAttacco4, DisAttacco5};
    for (std::int16_t n = 1; n <= 5; ++n)
        if (AttaccoDato(n)) marche[n - 1]();
    DisPuntiTabella();
}

}   // namespace

void DisegnaElementiSelezionati() {
    if (!ArrElementi) return;
    const std::int16_t spessPrima = spess;
    CommBegin();
    pennaNera(patCopy);
    Scandisci(true);
    PenSize(1, 1);
    CommEnd();
    spess = spessPrima;
}

void Disegna() {
    if (!ArrElementi) return;
    const std::int16_t spessPrima = spess;
    CommBegin();
    faiFoglio();
    pennaNera(patCopy);
    pennaNera(patCopy);
    if (!ScandisciAStrisce()) Scandisci(false);
    pennaNera(patCopy);
    PenSize(GetPort()->finezza, GetPort()->finezza);
    spess = 0;
    if (VisioneGraf.mostraAref) DisegnaAref();
    if (!DisegnaPict) {
        if (anteprimaImmagine) anteprimaImmagine();
        DisegnaMesh();
        disegnaPercorso();
        DisAttacchiDin();   // over everything, as scans would cover them; paper and pictures show none
        puntiDiControllo();
    }
    CommEnd();
    spess = spessPrima;
}

}   // namespace tessaro
