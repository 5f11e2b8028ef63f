// From a world file to the sheet's registration.
#include "digitising/RiferimentoImmagine.h"

#include <cmath>
#include <string>

#include "bitmap/PictInPixel.h"
#include "dialogs/Errori.h"
#include "digitising/Attacchi.h"
#include "display/Zoom.h"
#include "editing/AttacchiCambiati.h"
#include "files/FileMondo.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoMondo = 9123;   // ^0 the file, ^1 what is lost
constexpr std::int16_t listaMotivi = 9102, motivoMondo = 7, avvertenzaAttacchi = 8;
constexpr std::int16_t si = 1;

bool leggi(const FSSpec& file, Mondo& m) {
    constexpr std::int32_t massimo = 4096;
    std::int16_t ref = 0;
    if (FSpOpenDF(file, fsRdPerm, ref) != noErr) return false;
    std::string testo(massimo, '\0');
    std::int32_t conto = massimo;
    const OSErr e = FSRead(ref, conto, testo.data());
    FSClose(ref);
    testo.resize(static_cast<std::size_t>(conto));
    return (e == noErr || e == eofErr) && LeggiMondo(testo, m);
}

}   // namespace

void OffriMondo(const FSSpec& immagine, std::int32_t n) {
    const std::string dove = TrovaMondo(immagine.percorso);
    if (dove.empty()) return;
    const FSSpec file = FSMakeFSSpec(dove);
    Mondo m;
    if (!leggi(file, m)) return MostraGuasto({noErr, GetIndString(listaMotivi, motivoMondo), file.nome, -1});
    OffriMondo(file.nome, m, n);
}

void OffriMondo(const std::string& nome, const Mondo& m, std::int32_t n) {
    if (n < 3 || n > indElem || Elem(n).tipo != tPict) return;
    const bool registrato = Elem(2).att.coordReali != 0;
    ParamText(nome, registrato ? GetIndString(listaMotivi, avvertenzaAttacchi) : "", "", "");
    if (CautionAlert(avvisoMondo) != si) return;

    auto& p = Elem(n).pict;
    const PictInPixel pixel(PictBytes(p.maniglia));
    const double w = pixel.width(), h = pixel.height();
    if (w < 1 || h < 1) return;
    const double largo = std::hypot(m.a, m.d), alto = std::hypot(m.b, m.e);   // real units of a pixel
    p.altezza = p.larghezza / w * h * (alto / largo);
    const double x = p.x, y = p.y;
    AssegnaAttacco(1, x, y + p.altezza);
    AssegnaAttacco(2, x + p.larghezza, y);
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    m.pixel(-0.5, h - 0.5, X1, Y1);   // corners of pixels, half a pixel from their middles
    m.pixel(w - 0.5, -0.5, X2, Y2);
    auto& secondo = Elem(2).att;
    secondo.x1 = X1;
    secondo.y1 = Y1;
    secondo.x2 = X2;
    secondo.y2 = Y2;
    secondo.coordReali = 1;
    AttacchiCambiati();
    CalcolaRapporti();
    InvalFinestra();
}

}   // namespace tessaro
