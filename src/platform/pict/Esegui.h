// The player of a stored picture: its opcodes turned into calls of a port's bottlenecks, mapped into a rectangle.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/pict/Bits.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Compressa.h"
#include "platform/pict/Pict.h"
#include "platform/Quickdraw.h"

namespace tessaro {

// Picture coordinates to port coordinates.
struct Mappa {
    Rect da, a;
    double sx = 1, sy = 1;
    Mappa(const Rect& from, const Rect& to);
    [[nodiscard]] std::int32_t x(double h) const;
    [[nodiscard]] std::int32_t y(double v) const;
    [[nodiscard]] Rect rett(const Rect& r) const { return Rect{y(r.top), x(r.left), y(r.bottom), x(r.right)}; }
    [[nodiscard]] Point punto(const Point& p) const { return Point{y(p.v), x(p.h)}; }
};

class EsecutorePict {
public:
    EsecutorePict(GrafPort& port, std::string_view bytes, const Rect& dst);
    ~EsecutorePict();
    EsecutorePict(const EsecutorePict&) = delete;
    EsecutorePict& operator=(const EsecutorePict&) = delete;
    bool esegui(EsitoPict& esito);   // true when all could be drawn

private:
    static constexpr RGBColor evidenzaUsuale{0xB4B4, 0xD5D5, 0xFEFE};
    bool tutte(EsitoPict& esito);   // the opcodes in their order; false where they make no sense
    // A pattern in the picture's terms: bits in the colours of the moment, or with colours of its own.
    struct Retino {
        Pattern bit;
        bool propri = false;
        RGBColor fronte, fondo;
    };
    bool voce(const Voce& v);
    void figura(const Voce& v);
    void stato(const Voce& v);
    void statoPenna(const Voce& v);
    void statoTesto(const Voce& v);
    void statoColore(const Voce& v);
    void linea(const Voce& v);
    void testo(const Voce& v);
    void rettangoli(const Voce& v, GrafVerb verbo, bool stesso);
    void arco(const Voce& v, GrafVerb verbo, bool stesso);
    void poligono(const Voce& v, GrafVerb verbo, bool stesso);
    void regione(const Voce& v, GrafVerb verbo, bool stesso);
    bool bits(std::uint16_t op, std::string_view dati);
    bool righeBits(Lettore& l, const BitsTesta& t);
    bool compressa(const Voce& v);
    bool nonCompressa(const Voce& v);
    void commento(const Voce& v);
    void retinoColore(const Voce& v);
    void ritaglia(std::string_view regione);
    void disegnaRRett(GrafVerb verbo, const Rect& r, const Pattern& p);
    void crociata(const Rect& r);
    void spendi(const Rect& r);   // work done so far, in pixels: hostile files end too
    // Runs `disegna(verb, pattern)` with the pen, area or background pattern that the verb takes.
    template <class F>
    void conRetino(GrafVerb verbo, const F& disegna);

    GrafPort& porto;
    VociPict voci;
    Mappa mappa;
    // The port as it was found.
    PenState pennaPrima;
    TextState testoPrima;
    RGBColor frontePrima, fondoPrima;
    Region clipPrima;
    // The picture's own state.
    Retino penna, area, fondo;
    std::int16_t modoPenna = patCopy;
    Point misuraPenna{1, 1};
    RGBColor fronte, sfondo{65535, 65535, 65535};
    Rect ultimo;              // the one that `same` means, of rectangles, rounded ones, ovals and arcs alike
    bool evidenzia = false;   // the next inverted figure is highlighted instead
    RGBColor evidenza = evidenzaUsuale;
    Polygon ultimoPoligono;
    Region ultimaRegione;
    Point ovale, pennaQui, testoQui;
    std::int16_t corpo = 12, modoTesto = srcOr;
    double rapportoTesto = 1;
    double speso = 0;
    bool tuttoBene = true;
    // An image came that could be decoded: text or pixels right behind it are what older readers show in its place.
    bool sostituita = false;
};

// Copies what is not of alpha 0, as runs: a port knows only the plain copy.
void CopiaConBuchi(GrafPort& port, const PixMap& bits, const Rect& src, const Rect& dst);

// A port that takes stored pixels as they are, so that a picture within a picture loses nothing: the recorder.
struct PortaDiPassaggio {
    virtual ~PortaDiPassaggio() = default;
    // `dati` of a bits opcode, its rectangles moved to `dst`; `dati` of the compressed opcode, with the new matrix.
    virtual void passa(std::uint16_t op, std::string_view dati) = 0;
};

}   // namespace tessaro
