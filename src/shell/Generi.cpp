// Files by their suffix, and the sheet under what came with real coordinates alone.
#include "shell/Generi.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "display/Zoom.h"
#include "dwg/DbDumper.h"
#include "dwg/dwgdxf.h"
#include "dwg/EsportaDWG.h"
#include "exchange/DXF.h"
#include "exchange/MiniCad.h"
#include "exchange/XYZ.h"
#include "files/Richieste.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Giornale.h"
#include "model/PuntiElemento.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "shell/Archivia.h"
#include "shell/Modificato.h"

namespace tessaro {

namespace {

void archiviaCome(std::int16_t richiesta) {
    theItem = richiesta;
    archivia();
}

// A picture that is a drawing of its own lies in the sheet's corner.
void leggiImmagine(const FSSpec& file) {
    xcurs = ycurs = 0;
    LeggiDropPict(file);
}

void leggiDisegno(const FSSpec& file) {
    myFSS = file;
    archiviaCome(rApriDato);
}

// The target that the export's dialog stands on when it is the program's own DXF, else the version in force.
void scriviDXF() {
    constexpr std::int16_t dxf = 2, proprio = 3;
    if (tipoFileEsportato == proprio)
        FaiDXF();
    else
        SaveDWGDXF(dxf, outVer);
}

constexpr auto scriviDisegno = [] { archiviaCome(rSalvaCome); };
constexpr auto scriviImmagine = [] { archiviaCome(rPict); };

constexpr GenereFile generi[] = {
    {".ts3d", leggiDisegno, scriviDisegno, false, true},
    {".ts5", nullptr, [] { archiviaCome(rEsporta); }},
    {".dxf", ImportaDWGFile, scriviDXF, true},
    {".dwg", ImportaDWGFile, [] { SaveDWGDXF(1, outVer); }, true},
    {".xyz", LeggiDropText, FaiXYZAsci, true},
    {".cxf", LeggiDropText, nullptr, true},
    {".mcad", nullptr, [] { FaiMiniCad(due_D); }},
    {".pict", leggiImmagine, scriviImmagine},
    {".pct", leggiImmagine, scriviImmagine},
    {".png", leggiImmagine, scriviImmagine},
    {".tif", leggiImmagine, scriviImmagine},
    {".tiff", leggiImmagine, scriviImmagine},
    {".jpg", leggiImmagine, scriviImmagine},
    {".jpeg", leggiImmagine, scriviImmagine},
    {".bmp", leggiImmagine},
    {".gif", leggiImmagine},
    {".webp", leggiImmagine},
};

// --- laying on the sheet

struct Estensione {
    double x1 = 1e300, y1 = 1e300, x2 = -1e300, y2 = -1e300;
    void prendi(double x, double y) {
        if (!std::isfinite(x) || !std::isfinite(y)) return;
        x1 = std::min(x1, x);
        y1 = std::min(y1, y);
        x2 = std::max(x2, x);
        y2 = std::max(y2, y);
    }
    [[nodiscard]] bool vuota() const { return x1 > x2; }
};

Estensione delDisegno() {
    Estensione e;
    for (std::int32_t n = 3; n <= indElem; n = UltimoRecord(n) + 1) {
        PerEstremi(n, [&e](double x, double y) { e.prendi(x, y); });
        if (Elem(n).tipo == tTesto) e.prendi(Elem(n).test.x, Elem(n).test.y);
    }
    return e;
}

bool sulFoglio(const Estensione& e) { return e.x1 >= 0 && e.y1 >= 0 && e.x2 <= XFDecimi && e.y2 <= YFDecimi; }

// The part of the sheet's sides that the drawing may fill.
constexpr double pieno = 0.9;

// The smallest denominator of the series at which `voluto` is reached.
double scalaTonda(double voluto) {
    const double decina = std::pow(10, std::floor(std::log10(voluto)));
    for (const double passo : {1.0, 2.0, 2.5, 5.0})
        if (passo * decina >= voluto * (1 - 1e-12)) return passo * decina;
    return 10 * decina;
}

// Texts have whole points, at least one.
void scalaScritta(elemento& e, double k) {
    const auto dimensione = static_cast<std::int16_t>(std::max<std::int32_t>(1, arrotonda16(e.test.dimensione * k)));
    e.test.dimensione = e.test.altezza = dimensione;
}

void sposta(const TransfRec& t) {
    for (std::int32_t n = 3; n <= indElem; ++n) {
        elemento& e = Elem(n);
        TrasformaElemento(e, t);
        if (e.tipo == tTesto) scalaScritta(e, t.ingr);
        if (e.tipo == tPoligono) e.poli.passoTratt = e.poli.passoTratt * t.ingr;
    }
}

}   // namespace

std::span<const GenereFile> GeneriDiFile() { return generi; }

const GenereFile* GenereDi(std::string_view percorso) {
    const std::string nome = Minuscole(percorso);
    const auto* f = std::find_if(std::begin(generi), std::end(generi),
                                 [&nome](const GenereFile& x) { return nome.ends_with(x.suffisso); });
    return f == std::end(generi) ? nullptr : f;
}

std::array<Coppia, 2> SegniFoglio() {
    constexpr double dentro = 100;
    return {Coppia{dentro, YFDecimi - dentro}, Coppia{XFDecimi - dentro, dentro}};
}

void RegistraSegni(const Coppia& primo, const Coppia& secondo) {
    const auto [basso, alto] = SegniFoglio();
    AssegnaAttacco(1, basso.x, basso.y);
    AssegnaAttacco(2, alto.x, alto.y);
    auto& reali = Elem(2).att;
    reali.x1 = primo.x;
    reali.y1 = primo.y;
    reali.x2 = secondo.x;
    reali.y2 = secondo.y;
    reali.coordReali = 1;
    CopiePunti12();
    CalcTransfC();
    CalcolaRapporti();
}

void PosaSulFoglio() {
    const Estensione e = delDisegno();
    if (e.vuota() || Elem(2).att.coordReali != 0 || sulFoglio(e)) return;
    const double prima = rappvid;
    const double serve = prima * std::max((e.x2 - e.x1) / (pieno * XFDecimi), (e.y2 - e.y1) / (pieno * YFDecimi));
    const double perUnita = serve <= prima ? prima : scalaTonda(serve * decimiUnita) / decimiUnita;
    // The middle of what there is on the sheet's, its corner on a whole centimetre of paper.
    const double tondo = 100 * perUnita;
    const auto inGiu = [tondo](double v) { return std::floor(v / tondo) * tondo; };
    const double X0 = inGiu(prima * (e.x1 + e.x2) / 2 - perUnita * XFDecimi / 2);
    const double Y0 = inGiu(prima * (YFDecimi - (e.y1 + e.y2) / 2) - perUnita * YFDecimi / 2);
    TransfRec t;
    t.rot11 = t.rot22 = 1;
    t.ingr = prima / perUnita;
    t.y1 = YFDecimi;
    t.x2 = XFDecimi;
    t.deltaX = -X0 / perUnita;
    t.deltaY = Y0 / perUnita;
    sposta(t);
    const auto reale = [&](const Coppia& p) { return Coppia{X0 + p.x * perUnita, Y0 + (YFDecimi - p.y) * perUnita}; };
    const auto [primo, secondo] = SegniFoglio();
    RegistraSegni(reale(primo), reale(secondo));
}

bool ApriConGenere(const GenereFile& formato, const FSSpec& file, bool posa) {
    if (!TuttoChiuso()) return false;
    SetUpWindow();
    formato.leggi(file);
    if (noWindow) return true;
    if (posa && formato.soloReali) PosaSulFoglio();
    GiornaleNuovo();   // what came in is where the drawing begins
    InvalFinestra();
    return true;
}

}   // namespace tessaro
