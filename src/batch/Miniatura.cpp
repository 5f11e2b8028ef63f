// The command `thumbnail`: a small picture of a drawing, for the desktop's file manager.
#include <algorithm>
#include <cmath>

#include "batch/Comandi.h"
#include "batch/Motore.h"
#include "batch/Rigo.h"
#include "display/Disegno.h"
#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Unita.h"
#include "platform/Images.h"
#include "platform/paint/RasterPort.h"
#include "raster/VistaPict.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

struct Parte {
    double x1 = 1e300, y1 = 1e300, x2 = -1e300, y2 = -1e300;   // sheet units
};

// What there is on the sheet with a little room round it; the whole sheet when there is nothing.
Parte daMostrare() {
    constexpr double margine = 0.03;
    Parte p;
    const auto prendi = [&p](double x, double y) {
        p = {std::min(p.x1, x), std::min(p.y1, y), std::max(p.x2, x), std::max(p.y2, y)};
    };
    for (std::int32_t n = 3; n <= indElem; n = UltimoRecord(n) + 1) {
        PerEstremi(n, prendi);
        if (Elem(n).tipo == tTesto) prendi(Elem(n).test.x, Elem(n).test.y);
    }
    p = {std::max(p.x1, 0.0), std::max(p.y1, 0.0), std::min<double>(p.x2, XFDecimi), std::min<double>(p.y2, YFDecimi)};
    if (!(p.x2 - p.x1 > 1) || !(p.y2 - p.y1 > 1)) return {0, 0, double(XFDecimi), double(YFDecimi)};
    const double bordo = margine * std::max(p.x2 - p.x1, p.y2 - p.y1);
    return {p.x1 - bordo, p.y1 - bordo, p.x2 + bordo, p.y2 + bordo};
}

double latoVoluto = 256;

bool disegna(std::string& png) {
    const Parte p = daMostrare();
    const double scala = latoVoluto / std::max(p.x2 - p.x1, p.y2 - p.y1);
    const auto pixel = [scala](double unita) {
        return std::max(1, static_cast<std::int32_t>(std::lround(unita * scala)));
    };
    RasterPort porto(pixel(p.x2 - p.x1), pixel(p.y2 - p.y1), 1);
    const GrafPtr prima = GetPort();
    {
        const VistaPict vista(scala);
        OrigX = static_cast<std::int32_t>(std::lround(p.x1 * scala));
        OrigY = static_cast<std::int32_t>(std::lround(p.y1 * scala));
        SetPort(&porto);
        Disegna();
    }
    SetPort(prima);
    const double dpi = scala * DecPollice;
    return EncodeImage(FormatoImmagine::png, porto.pixMap(), dpi, dpi, png);
}

// Whatever the file is called: the desktop's names have no suffix.
constexpr GenereFile miniatura{"", nullptr, [] {
                                   FSSpec file;
                                   std::string png;
                                   if (!NavPutFile("", "", file) || !disegna(png)) return;
                                   std::int16_t ref = 0;
                                   IOERR2(FSpOpenReplacing(file, 0, 0, ref));
                                   if (uscita) return;
                                   auto conto = static_cast<std::int32_t>(png.size());
                                   IOERR2(FSWrite(ref, conto, png.data()));
                                   if (uscita)
                                       FSAbandon(ref);
                                   else
                                       IOERR2(FSClose(ref));
                               }};

}   // namespace

Esito ComandoMiniatura(const Chiamata& c) {
    const std::string &da = c.file[0], &a = c.file[1];
    if (StessoFile(da, a)) return Rifiuta(c, Esito::uso, a, Testo(Frase::stessoFile));
    if (!Numero(c, "size", 16, 2048, latoVoluto)) return Esito::uso;
    if (const Esito e = ApriIngresso(c, da, true); e != Esito::fatto) return e;
    if (const Esito e = ScriviUscita(c, miniatura, a); e != Esito::fatto) return e;
    Rigo(c).testo("input", da).testo("output", a).intero("bytes", ByteDi(a)).stampa();
    return Esito::fatto;
}

}   // namespace tessaro
