// A port that stores what is drawn on it as elements: segments, polylines and texts. Bits, ovals, arcs and regions have
// no element of their own kind here and leave nothing.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "platform/Quickdraw.h"

namespace tessaro {

// How the port's coordinates lie on the sheet.
struct ScalaSepara {
    double perX = 1, perY = 1;   // sheet units of one coordinate
    double passo = 1;            // coordinates of one pixel of the picture: widths of pens are told in them
    double x = 0, y = 0;         // the picture's corner on the sheet
};

class SeparaPort final : public GrafPort {
public:
    SeparaPort(const Rect& frame, const ScalaSepara& come);
    // True when the store was full before all came.
    [[nodiscard]] bool pieno() const { return senzaPosto; }

    // Kept: elements stand at their places in the picture, and their numbers tell who moves them to the picture's corner;
    // vertices of polylines are there already, their heads are not.
    void stdLine(Point from, Point to) override;
    void stdRect(GrafVerb verb, const Rect& r, const Pattern& fillPattern) override;
    void stdPoly(GrafVerb verb, const Polygon& p, const Pattern& fillPattern) override;
    void stdText(std::string_view macRoman) override;
    void stdComment(std::int16_t kind, std::string_view data) override;
    void stdOval(GrafVerb, const Rect&, const Pattern&) override {}
    void stdArc(GrafVerb, const Rect&, std::int32_t, std::int32_t, const Pattern&) override {}
    void stdRgn(GrafVerb, const Region&, const Pattern&) override {}
    void stdBits(const PixMap&, const Rect&, const Rect&) override {}

private:
    bool posto();   // room for one more record
    [[nodiscard]] puntot foglio(Point p) const { return {p.h * scala.perX, p.v * scala.perY, 0}; }
    void figura(const std::vector<Point>& punti, GrafVerb verb, const Pattern& area);
    [[nodiscard]] std::int16_t grossezza() const;
    ScalaSepara scala;
    bool senzaPosto = false;
    std::int16_t rotazione = 0;   // of the texts that follow, degrees clockwise
};

}   // namespace tessaro
