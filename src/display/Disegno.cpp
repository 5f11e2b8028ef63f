// The repaint: one scan of the records in their order. A record whose box cannot touch the clip is passed over before
// anything is drawn, and the pen is set only where it differs from the last element's.
#include "display/Disegno.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>

#include "display/AttacchiMarche.h"
#include "display/Pixel.h"
#include "display/Testi.h"
#include "display/Tratteggi.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Percorso.h"
#include "model/Registrazione.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

// --- which records can touch the clip

// Where a type keeps the numbers that bound it, as byte offsets into the record.
struct Campi {
    enum Classe : std::uint8_t { mai = 0, riquadro = 1, aParte = 2 };   // aParte: its own routine judges
    std::uint8_t x1, y1, x2, y2, raggio, spessore, classe;
    std::uint64_t mascheraRaggio;   // keeps a radius without its sign, or makes it 0 where the type has none
};

constexpr std::uint64_t conRaggio = 0x7FFFFFFFFFFFFFFF, senzaRaggio = 0;

constexpr Campi campiDi(std::size_t tipo) {
    switch (tipo) {
    case tSegmento: return {28, 36, 52, 60, 28, 76, Campi::riquadro, senzaRaggio};
    case tMarker: return {28, 36, 28, 36, 28, 54, Campi::riquadro, senzaRaggio};
    case tCerchio: return {28, 36, 28, 36, 44, 52, Campi::riquadro, conRaggio};
    case tArco: return {28, 36, 28, 36, 44, 68, Campi::riquadro, conRaggio};
    case tPoligono:
    case tTesto:
    case tPict: return {28, 36, 28, 36, 28, 52, Campi::aParte, senzaRaggio};
    default: return {28, 36, 28, 36, 28, 52, Campi::mai, senzaRaggio};   // vertices come with their head
    }
}
static_assert(offsetof(elemento, arco.raggio) == 44 && offsetof(elemento, arco.spessore) == 68
              && offsetof(elemento, mark.spessore) == 54 && offsetof(elemento, segm.spessore) == 76
              && offsetof(elemento, cerc.spessore) == 52);

constexpr auto campi = [] {
    std::array<Campi, 256> t{};
    for (std::size_t i = 0; i < t.size(); ++i) t[i] = campiDi(i);
    return t;
}();

template <class T>
T leggi(const elemento& e, std::uint8_t dove) {
    T v;
    std::memcpy(&v, reinterpret_cast<const unsigned char*>(&e) + dove, sizeof v);
    return v;
}

// Everything drawn around a record's points without its pen's width: the largest marker.
constexpr double bordoPixel = 12;

class Filtro {
    RettD area;                                 // what can be drawn on, sheet units
    double perPixel;                            // sheet units a pixel
    bool tutto;                                 // the preview moves figures anywhere: nothing is passed over
    std::array<std::uint8_t, 101> visibile{};   // by sheet; the last entry stands for numbers that are none

public:
    Filtro() : perPixel(1 / scalavid), tutto(AnteprimaAttiva()) {
        const Rect r = AreaDisegnabile();
        area = {(static_cast<double>(r.left) + OrigX) * perPixel, (static_cast<double>(r.top) + OrigY) * perPixel,
                (static_cast<double>(r.right) + OrigX) * perPixel, (static_cast<double>(r.bottom) + OrigY) * perPixel};
        if (EmptyRect(r)) area = {1, 1, -1e300, -1e300};
        for (std::int16_t i = 0; i < 100; ++i) visibile[static_cast<std::size_t>(i)] = LucidoVisibile(i);
    }

    [[nodiscard]] bool anteprima() const { return tutto; }
    [[nodiscard]] bool tocca(double x1, double y1, double x2, double y2, double margine) const {
        const bool dentro = (std::max(x1, x2) + margine >= area.left) & (std::min(x1, x2) - margine <= area.right)
                            & (std::max(y1, y2) + margine >= area.top) & (std::min(y1, y2) - margine <= area.bottom);
        return dentro | tutto;
    }
    [[nodiscard]] double margine(std::int16_t spessorePenna) const {
        return (std::max<int>(spessorePenna, 0) + bordoPixel) * perPixel;
    }

    // The quick judgement: no branch hangs on the record's contents.
    [[nodiscard]] bool passa(const elemento& e) const {
        const Campi& c = campi[e.tipo];
        const auto lucido = static_cast<std::uint16_t>(static_cast<std::int16_t>(e.lucido));
        const double raggio = std::bit_cast<double>(leggi<std::uint64_t>(e, c.raggio) & c.mascheraRaggio);
        const double m = margine(leggi<std::int16_t>(e, c.spessore)) + raggio;
        const bool dentro =
            tocca(leggi<double>(e, c.x1), leggi<double>(e, c.y1), leggi<double>(e, c.x2), leggi<double>(e, c.y2), m);
        const bool disegnabile = (c.classe == Campi::aParte) | ((c.classe == Campi::riquadro) & dentro);
        return disegnabile & (visibile[std::min<std::size_t>(lucido, 100)] != 0);
    }

    [[nodiscard]] bool passaPoligono(std::int32_t testa, std::int32_t ultimo) const {
        double sx = Elem(testa).poli.x, sy = Elem(testa).poli.y, dx = sx, dy = sy;
        for (std::int32_t i = testa + 1; i <= ultimo; ++i) {
            const double x = Elem(i).vert.x, y = Elem(i).vert.y;
            sx = std::min(sx, x);
            dx = std::max(dx, x);
            sy = std::min(sy, y);
            dy = std::max(dy, y);
        }
        return tocca(sx, sy, dx, dy, margine(Elem(testa).poli.spessore));
    }
    // Round the anchor, whatever the angle: as far as the string was measured or as its letters may reach, since the
    // smallest size and the fonts of another machine widen it.
    [[nodiscard]] bool passaTesto(const elemento& e) const {
        const double corpo = std::fabs(e.test.dimensione * ScalaTesto) + 2;
        const double lungo =
            std::max(std::fabs(e.test.larghezza * ScalaTesto), 1.5 * corpo * static_cast<double>(ScrittaDi(e).size()));
        const double x = e.test.x, y = e.test.y;
        return tocca(x, y, x, y, (lungo + 2 * corpo) * perPixel);
    }
    [[nodiscard]] bool passaPict(const elemento& e) const {
        const double x = e.pict.x, y = e.pict.y;
        return tocca(x, y, x + e.pict.larghezza, y + e.pict.altezza, margine(0));
    }
};

// --- the pen as the last element left it

class Penna {
    static constexpr std::int32_t ignoto = 1 << 20, grigio = 1 << 21;
    std::int32_t colore = ignoto, pattern = ignoto, larghezza = ignoto;

public:
    void dimentica() { colore = pattern = larghezza = ignoto; }

    void poni(std::int16_t coloreElem, std::int16_t patternElem, std::int16_t spessoreElem, bool velato) {
        if (colore != coloreElem) {
            colore = coloreElem;
            ColoreDaTabella(coloreElem);
        }
        const std::int32_t voluto = velato ? grigio : patternElem;
        if (pattern != voluto) {
            pattern = voluto;
            PenPat(PatternVista(velato ? qdLtGray : GetIndPattern(patternElem)));
        }
        if (larghezza != spessoreElem) {
            larghezza = spessoreElem;
            // A width from a damaged record is held to what a view can show.
            const auto pixel = std::clamp<std::int16_t>(spessoreElem, 0, 1000);
            PenSize(pixel, pixel);
            PenSizeLaser(static_cast<std::int16_t>(pixel - 1));
            spess = static_cast<std::int16_t>(pixel / 2);
        }
    }
};

class Scansione {
    Filtro filtro;
    Penna penna;

    void segmento(const elemento& e) {
        // A segment goes onto paper in its own pattern, whatever sheet is the current one.
        const bool velato = !DisegnaPict && LucidoGrigio(e.lucido);
        penna.poni(e.segm.colore, e.segm.pattern, e.segm.spessore, velato);
        if (filtro.anteprima()) {
            fai(tSegmento, e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2, 0);
        } else {
            LineaFoglio(e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2);
        }
    }
    void marker(const elemento& e) {
        penna.poni(e.mark.colore, e.mark.pattern, e.mark.spessore, LucidoGrigio(e.lucido));
        const std::int16_t forma = e.mark.forma;
        fai(tMarker, e.mark.x, e.mark.y, forma, 0, 0);
        if (forma != 6) return;
        PenMode(patCopy);   // the painted square leaves the rubber band's pen behind
        penna.dimentica();
    }
    void poligono(std::int32_t i) {
        const elemento& e = Elem(i);
        const std::int32_t ultimo = std::min(i + std::max<std::int32_t>(e.poli.numVertici, 0), indElem);
        if (!filtro.passaPoligono(i, ultimo)) return;
        penna.poni(e.poli.colore, e.poli.pattern, e.poli.spessore, LucidoGrigio(e.lucido));
        FaiPoly(i);
        if (!VisioneGraf.mostraTratteggi || !e.poli.tratteggio) return;
        PenSize(1, 1);
        Hatch_Poligon(i);
        penna.dimentica();
    }
    void cerchio(std::int32_t i) {
        const elemento& e = Elem(i);
        penna.poni(e.cerc.colore, e.cerc.pattern, e.cerc.spessore, LucidoGrigio(e.lucido));
        const double cx = e.cerc.cx, cy = e.cerc.cy, r = e.cerc.raggio;
        FillCerchio(i, cx, cy, r, 0, 0);
        fai(tCerchio, cx, cy, r, 0, 0);
    }
    void arco(std::int32_t i) {
        const elemento& e = Elem(i);
        penna.poni(e.arco.colore, e.arco.pattern, e.arco.spessore, LucidoGrigio(e.lucido));
        const double cx = e.arco.cx, cy = e.arco.cy, r = e.arco.raggio;
        const double inizio = e.arco.angoloInizio, ampiezza = e.arco.ampiezza;
        FillArco(i, cx, cy, r, inizio, ampiezza);
        fai(tArco, cx, cy, r, inizio, ampiezza);
    }
    // Out of line: texts are rare, and their code inside the scan slows every segment down.
    [[gnu::noinline]] void testo(std::int32_t i) {
        if (!VisioneGraf.mostraTesti || !filtro.passaTesto(Elem(i))) return;
        FaiT(i);
        penna.dimentica();
    }
    void immagine(std::int32_t i) {
        if (!filtro.passaPict(Elem(i))) return;
        DisPict(i);
        PenMode(patCopy);
        penna.dimentica();
    }

public:
    template <bool soloSelezionati>
    void esegui() {
        for (std::int32_t i = 3; i <= indElem; ++i) {
            const elemento& e = Elem(i);
            if (soloSelezionati && !e.selezionato) continue;
            if (!filtro.passa(e)) continue;
            switch (e.tipo) {
            case tSegmento: segmento(e); break;
            case tMarker: marker(e); break;
            case tPoligono: poligono(i); break;
            case tTesto: testo(i); break;
            case tPict: immagine(i); break;
            case tCerchio: cerchio(i); break;
            case tArco: arco(i); break;
            default: break;
            }
        }
    }
};

void pennaNera(std::int16_t mode) {
    PenNormal();
    PenMode(mode);
    ForeColor(blackColor);
}

// The sides that the calculator's path has so far: no record holds them, and a repaint would lose them.
void percorsoMisurato() {
    constexpr std::int32_t inPercorso = 5;
    if (!CalcWindow || Azione != inPercorso) return;
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
    const auto& p = Elem(1).att;
    pennaNera(patCopy);
    ForeColor(redColor);
    if (p.x1 != 0 || p.y1 != 0 || p.x2 != 0 || p.y2 != 0) {
        DisAttacco1();
        DisAttacco2();
    }
    if (Elem(2).att.quattroPunti) {
        DisAttacco3();
        DisAttacco4();
    }
    if (OKAttacco5) DisAttacco5();
}

}   // namespace

void DisegnaElementiSelezionati() {
    if (!ArrElementi) return;
    const std::int16_t spessPrima = spess;
    CommBegin();
    pennaNera(patCopy);
    Scansione().esegui<true>();
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
    if (OKAttacco5) DisAttacco5();
    DisAttacchiDin();
    pennaNera(patCopy);
    Scansione().esegui<false>();
    PenSize(1, 1);
    spess = 0;
    if (VisioneGraf.mostraAref) DisegnaAref();
    if (!DisegnaPict) {
        DisegnaMesh();
        percorsoMisurato();
        puntiDiControllo();
    }
    CommEnd();
    spess = spessPrima;
}

}   // namespace tessaro
