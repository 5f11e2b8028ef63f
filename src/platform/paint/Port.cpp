// The current port and the pen, text and clip operations on it; figures stand in Figures.cpp.

#include <bit>
#include <new>

#include "platform/Fonts.h"
#include "platform/paint/RasterPort.h"
#include "platform/Quickdraw.h"

namespace tessaro {

namespace {

// Stands in while no window is open: keeps state, draws nowhere.
class PortaNulla final : public GrafPort {
public:
    void stdLine(Point, Point) override {}
    void stdRect(GrafVerb, const Rect&, const Pattern&) override {}
    void stdOval(GrafVerb, const Rect&, const Pattern&) override {}
    void stdArc(GrafVerb, const Rect&, std::int32_t, std::int32_t, const Pattern&) override {}
    void stdPoly(GrafVerb, const Polygon&, const Pattern&) override {}
    void stdRgn(GrafVerb, const Region&, const Pattern&) override {}
    void stdBits(const PixMap&, const Rect&, const Rect&) override {}
    void stdText(std::string_view) override {}
    void stdComment(std::int16_t, std::string_view) override {}
};

GrafPort& portaNulla() {
    static PortaNulla nowhere;
    return nowhere;
}

constinit thread_local GrafPtr corrente = nullptr;   // one a thread; null stands for portaNulla()

inline GrafPort& current() { return corrente != nullptr ? *corrente : portaNulla(); }

// A point stored in one piece. LineTo reads the pen back at once, as a whole; from two halves stored just before it, the
// processor has to wait, which cost a short line a sixth of its time.
inline Point intero(std::int32_t h, std::int32_t v) {
    const std::uint64_t first = static_cast<std::uint32_t>(v), second = static_cast<std::uint32_t>(h);
    const bool little = std::endian::native == std::endian::little;
    return std::bit_cast<Point>(little ? first | second << 32U : first << 32U | second);
}

struct NumeroColore {
    std::int32_t number;
    RGBColor colour;
};
constexpr std::array<NumeroColore, 8> fissi{{
    {blackColor, {0, 0, 0}},
    {whiteColor, {0xFFFF, 0xFFFF, 0xFFFF}},
    {redColor, {0xDD6B, 0x08C2, 0x06A2}},
    {greenColor, {0x0000, 0x8000, 0x11B0}},
    {blueColor, {0x0000, 0x0000, 0xD400}},
    {cyanColor, {0x0241, 0xAB54, 0xEAFF}},
    {magentaColor, {0xF2D7, 0x0856, 0x84EC}},
    {yellowColor, {0xFC00, 0xF37D, 0x052F}},
}};

}   // namespace

RGBColor ColoreFisso(std::int32_t number) {
    for (const NumeroColore& row : fissi)
        if (row.number == number) return row.colour;
    return RGBColor{};
}

GrafPtr GetPort() { return &current(); }
void SetPort(GrafPtr port) { corrente = port; }

// Null when memory lacks.
std::unique_ptr<GrafPort> NewGWorld(std::int32_t width, std::int32_t height, std::int32_t ratio) {
    try {
        return std::make_unique<RasterPort>(width, height, ratio);
    } catch (const std::bad_alloc&) { return nullptr; }
}

// --- pen

void MoveTo(std::int32_t h, std::int32_t v) { current().pen.pnLoc = intero(h, v); }

void Move(std::int32_t dh, std::int32_t dv) {
    Point& at = current().pen.pnLoc;
    at = Point{avanti(at.v, dv), avanti(at.h, dh)};
}

void LineTo(std::int32_t h, std::int32_t v) {
    GrafPort& port = current();
    const Point from = port.pen.pnLoc;
    const Point to = intero(h, v);
    port.pen.pnLoc = to;
    if (!port.poligonoAperto) return port.stdLine(from, to);
    if (port.poligono.punti.empty()) port.poligono.punti.push_back(from);
    port.poligono.punti.push_back(to);
}

void Line(std::int32_t dh, std::int32_t dv) {
    const Point at = GetPen();
    LineTo(avanti(at.h, dh), avanti(at.v, dv));
}

Point GetPen() { return current().pen.pnLoc; }

void PenNormal() {
    PenState normal;
    normal.pnLoc = GetPen();
    normal.pnSize = Point{current().finezza, current().finezza};
    current().pen = normal;
}

ScalaMarca::ScalaMarca(Point centro) : porto(&current()) {
    porto->marca = porto->finezza > 1;
    porto->centroMarca = centro;
}
ScalaMarca::~ScalaMarca() { porto->marca = false; }

void PenSize(std::int32_t width, std::int32_t height) { current().pen.pnSize = Point{height, width}; }
void PenMode(std::int16_t mode) { current().pen.pnMode = mode; }
void PenPat(const Pattern& p) { current().pen.pnPat = p; }
void HidePen() { ++current().penHidden; }
void ShowPen() { --current().penHidden; }
PenState GetPenState() { return current().pen; }
void SetPenState(const PenState& s) { current().pen = s; }
void ForeColor(std::int32_t fixedColour) { current().foreground = ColoreFisso(fixedColour); }
void BackColor(std::int32_t fixedColour) { current().background = ColoreFisso(fixedColour); }
void RGBForeColor(const RGBColor& c) { current().foreground = c; }
void RGBBackColor(const RGBColor& c) { current().background = c; }

// --- clip and origin

void ClipRect(const Rect& r) { current().clip = Region::of(r); }
void SetClip(const Region& r) { current().clip = r; }
Region GetClip() { return current().clip; }

// The pixels of the port and of its clip stay where they are; only their coordinates change.
void SetOrigin(std::int32_t h, std::int32_t v) {
    GrafPort& port = current();
    const std::int32_t dh = h - port.origin.h;
    const std::int32_t dv = v - port.origin.v;
    port.origin = Point{v, h};
    port.portRect = OffsetRect(port.portRect, dh, dv);
    port.clip.offset(dh, dv);
}

// --- text

void TextFont(std::int16_t font) { current().text.txFont = font; }
void TextFace(std::uint8_t face) { current().text.txFace = face; }
void TextMode(std::int16_t mode) { current().text.txMode = mode; }
void TextSize(std::int16_t size) { current().text.txSize = size; }

void DrawString(std::string_view macRoman) {
    if (!macRoman.empty()) current().stdText(macRoman);
}

std::int32_t StringWidth(std::string_view macRoman) {
    const TextState& text = current().text;
    return TextWidth(text.txFont, text.txSize, text.txFace, macRoman);
}

// --- pixels

void CopyBits(const PixMap& bits, const Rect& src, const Rect& dst) { current().stdBits(bits, src, dst); }

Region ScrollRect(const Rect& r, std::int32_t dh, std::int32_t dv) {
    auto* raster = dynamic_cast<RasterPort*>(&current());
    return raster != nullptr ? raster->scroll(r, dh, dv) : Region{};
}

void PicComment(std::int16_t kind, std::string_view data) { current().stdComment(kind, data); }

}   // namespace tessaro
