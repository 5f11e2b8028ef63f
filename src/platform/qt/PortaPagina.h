// The port of a printed page: figures go to the toolkit's painter as lines and curves, letters as letters, pictures in
// their own pixels. For the files of platform/qt only.
#pragma once

#include <QImage>
#include <QPainter>
#include <QPen>

#include <array>
#include <cstdint>
#include <map>
#include <utility>

#include "platform/Quickdraw.h"

namespace tessaro {

// Coordinates are finezzaPagina a point, as the painter has been told. A pen of n coordinates draws n times as wide as
// the comment 182 says a pen of one pixel is, centred where a hanging pen of that size has its middle.
class PortaPagina final : public GrafPort {
public:
    // `pagina`: its extent from (0, 0). `radice`: what of the drawing lies there; patterns are counted from the drawing.
    // `conPerdita`: pictures of many colours may go out as JPEG.
    PortaPagina(QPainter& painter, const Rect& pagina, Point radice, bool conPerdita);
    ~PortaPagina() override;   // leaves the current port when it is this one

    void stdLine(Point from, Point to) override;
    void stdRect(GrafVerb verb, const Rect& r, const Pattern& fillPattern) override;
    void stdOval(GrafVerb verb, const Rect& r, const Pattern& fillPattern) override;
    void stdArc(GrafVerb verb, const Rect& r, std::int32_t start, std::int32_t sweep,
                const Pattern& fillPattern) override;
    void stdPoly(GrafVerb verb, const Polygon& p, const Pattern& fillPattern) override;
    void stdRgn(GrafVerb verb, const Region& r, const Pattern& fillPattern) override;
    void stdBits(const PixMap& bits, const Rect& src, const Rect& dst) override;
    void stdText(std::string_view macRoman) override;
    void stdComment(std::int16_t kind, std::string_view data) override;

private:
    // One layer of colour: what the set bits of a pattern become.
    struct Tinta {
        Pattern bit;
        RGBColor colore;
    };
    // A figure is painted with one layer or two, the ground of an opaque pattern first.
    struct Tinte {
        std::array<Tinta, 2> strati;
        int quante = 0;
    };
    [[nodiscard]] Tinte tinteDi(GrafVerb verb, const Pattern& fillPattern) const;
    [[nodiscard]] QBrush pennello(const Tinta& t);
    // Runs `disegna` once a layer, with the painter's pen (frames) or brush set.
    template <class F>
    void aStrati(GrafVerb verb, const Pattern& fillPattern, const F& disegna);
    bool pronta();   // the clip is in force; false when nothing may be drawn
    void poniPenna(const Tinta& t, bool tonda);

    [[nodiscard]] double x(std::int32_t h) const { return marca ? centroMarca.h + (h - centroMarca.h) * finezza : h; }
    [[nodiscard]] double y(std::int32_t v) const { return marca ? centroMarca.v + (v - centroMarca.v) * finezza : v; }
    [[nodiscard]] QRectF rett(const Rect& r) const {
        return {QPointF(x(r.left), y(r.top)), QPointF(x(r.right), y(r.bottom))};
    }
    [[nodiscard]] QRectF mezzeria(const Rect& r) const;   // where the middle of a pen inside the frame runs
    [[nodiscard]] QPointF sottoPenna(Point p) const {
        return {x(p.h) + pen.pnSize.h / 2, y(p.v) + pen.pnSize.v / 2};   // whole halves, as the drawing takes them off
    }
    [[nodiscard]] double larghezza() const;
    void scrivi(const QString& scritta, double corpo);

    QPainter& pittore;
    Point radice;
    bool conPerdita;
    double puntiPixel = 1;   // width in points of a pen of one pixel
    Region clipMessa;
    bool clipIgnota = true;
    Region clipTesto;   // in force when a turned text began
    bool inTestoGirato = false;
    double angolo = 0;     // degrees clockwise
    QPointF centroTesto;   // from the pen
    int inBitmap = 0;      // depth of 190 not yet met by 191
    QPen penna;
    Tinta tintaPenna{};
    double larghezzaPenna = -1;
    bool tondaPenna = false;
    std::map<std::pair<std::array<std::uint8_t, 8>, QRgb>, QImage> retini;   // a pattern in a colour
};

// A line of text as the page sets it. `corpo` in the painter's units, `finezza` of them a pixel.
class QFont FontePagina(std::int16_t font, std::uint8_t face, double corpo, std::int32_t finezza);

}   // namespace tessaro
