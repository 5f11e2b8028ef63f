// The drawing operations of the toolbox: a port holds pen, text and clip state, and the free functions draw on the
// current port. Ports differ only in their bottlenecks: window and off-screen rasters, the picture recorder, the page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"

namespace tessaro {

// Transfer modes of the pen: what a set and a clear bit of the pattern do to the pixel below.
enum : std::int16_t {
    srcCopy = 0,      // text: glyphs on a white ground
    srcOr = 1,        // text: glyphs only
    patCopy = 8,      // set: foreground, clear: background
    patOr = 9,        // set: foreground, clear: nothing
    patXor = 10,      // set: the pixel is xored with the complement of the foreground, so black inverts
    patBic = 11,      // set: background, clear: nothing
    notPatBic = 15,   // clear: background, set: nothing; with a light grey pattern this is the veil
};

// The eight fixed colours of ForeColor and BackColor, by their historical numbers.
enum : std::int32_t {
    blackColor = 33,
    whiteColor = 30,
    redColor = 205,
    greenColor = 341,
    blueColor = 409,
    cyanColor = 273,
    magentaColor = 137,
    yellowColor = 69,
};
RGBColor ColoreFisso(std::int32_t number);   // an unknown number gives black

// Text faces, bits of a face byte.
enum : std::uint8_t {
    bold = 1,
    italic = 2,
    underline = 4,
    outlineFace = 8,
    shadowFace = 16,
    condense = 32,
    extend = 64
};

enum class GrafVerb : std::uint8_t { frame, paint, erase, invert, fill };

// A recorded polygon: vertices in port coordinates; it is not closed by itself.
struct Polygon {
    std::vector<Point> punti;
};

// Pixels to copy from: 32 bits each, 0xFFRRGGBB in native order, rows of rowPixels.
// The area behind bounds must stay alive for the call.
struct PixMap {
    const std::uint32_t* base = nullptr;
    std::ptrdiff_t rowPixels = 0;
    Rect bounds;   // the pixels that base covers; base points at (bounds.left, bounds.top)
};

struct PenState {
    Point pnLoc;
    Point pnSize{1, 1};
    std::int16_t pnMode = patCopy;
    Pattern pnPat{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
};

struct TextState {
    std::int16_t txFont = 0;   // classic number: 0 system, 3 Geneva, 4 Monaco ... (Fonts.h)
    std::uint8_t txFace = 0;
    std::int16_t txMode = srcOr;
    std::int16_t txSize = 12;   // points, one a logical pixel; 0 means 12
};

// The state that every port has, and the bottlenecks that it implements. Coordinates are logical pixels.
// The pen hangs below and to the right of its point: a pen of 3 by 3 at (h, v) covers h..h+2, v..v+2.
class GrafPort {
public:
    GrafPort() = default;
    GrafPort(const GrafPort&) = delete;
    GrafPort& operator=(const GrafPort&) = delete;
    virtual ~GrafPort() = default;

    Rect portRect;            // the port's extent
    Point origin;             // SetOrigin's: logical coordinates of the top left pixel
    Region clip;              // only pixels in it are touched; at start the whole port
    std::int32_t ratio = 1;   // device pixels per logical pixel, 1 or more
    PenState pen;
    TextState text;
    RGBColor foreground;   // black
    RGBColor background{65535, 65535, 65535};
    std::int32_t penHidden = 0;    // HidePen depth: above 0 nothing is drawn by pen verbs
    bool poligonoAperto = false;   // between OpenPoly and ClosePoly the line bottleneck is not called
    Polygon poligono;

    // Bottlenecks. A verb `fill` uses fillPattern in mode patCopy; `paint` and `frame` use the pen.
    virtual void stdLine(Point from, Point to) = 0;
    virtual void stdRect(GrafVerb verb, const Rect& r, const Pattern& fillPattern) = 0;
    virtual void stdOval(GrafVerb verb, const Rect& r, const Pattern& fillPattern) = 0;
    // Angles in degrees, 0 straight up, clockwise; a negative sweep runs the other way.
    virtual void stdArc(GrafVerb verb, const Rect& r, std::int32_t start, std::int32_t sweep,
                        const Pattern& fillPattern) = 0;
    virtual void stdPoly(GrafVerb verb, const Polygon& p, const Pattern& fillPattern) = 0;   // even-odd inside
    virtual void stdRgn(GrafVerb verb, const Region& r, const Pattern& fillPattern) = 0;
    // Copies src's rectangle over dst, scaled when sizes differ; mode srcCopy only.
    virtual void stdBits(const PixMap& bits, const Rect& src, const Rect& dst) = 0;
    virtual void stdText(std::string_view macRoman) = 0;   // at the pen, which moves on by the advance
    virtual void stdComment(std::int16_t kind, std::string_view data) = 0;   // picture comments; rasters ignore them
};

using GrafPtr = GrafPort*;

GrafPtr GetPort();            // never null: without a window a port that draws nowhere
void SetPort(GrafPtr port);   // null gives the port that draws nowhere

// A raster port over memory of its own; the window's port is one too. pixels() is 0xFFRRGGBB, width x ratio a row.
// `sporco` collects, in logical pixels, what was touched since it was last cleared: the window shows just that.
class RasterPort;
std::unique_ptr<GrafPort> NewGWorld(std::int32_t width, std::int32_t height, std::int32_t ratio);   // white

// --- pen
void MoveTo(std::int32_t h, std::int32_t v);
void Move(std::int32_t dh, std::int32_t dv);
void LineTo(std::int32_t h, std::int32_t v);
void Line(std::int32_t dh, std::int32_t dv);
Point GetPen();
void PenNormal();   // size 1, copy, black pattern
void PenSize(std::int32_t width, std::int32_t height);
void PenMode(std::int16_t mode);
void PenPat(const Pattern& p);
void HidePen();
void ShowPen();
PenState GetPenState();
void SetPenState(const PenState& s);
void ForeColor(std::int32_t fixedColour);
void BackColor(std::int32_t fixedColour);
void RGBForeColor(const RGBColor& c);
void RGBBackColor(const RGBColor& c);

// --- figures
void FrameRect(const Rect& r);
void PaintRect(const Rect& r);
void EraseRect(const Rect& r);   // to the background, whatever the pen
void InvertRect(const Rect& r);
void FillRect(const Rect& r, const Pattern& p);
void FrameOval(const Rect& r);
void PaintOval(const Rect& r);
void FillOval(const Rect& r, const Pattern& p);
void FrameArc(const Rect& r, std::int32_t start, std::int32_t sweep);
void PaintArc(const Rect& r, std::int32_t start, std::int32_t sweep);
void FillArc(const Rect& r, std::int32_t start, std::int32_t sweep, const Pattern& p);
void OpenPoly();
Polygon ClosePoly();
void FramePoly(const Polygon& p);
void PaintPoly(const Polygon& p);
void FillPoly(const Polygon& p, const Pattern& pattern);
void OffsetPoly(Polygon& p, std::int32_t dh, std::int32_t dv);
void PaintRgn(const Region& r);
void EraseRgn(const Region& r);

// --- clip and origin
void ClipRect(const Rect& r);
void SetClip(const Region& r);
Region GetClip();
void SetOrigin(std::int32_t h, std::int32_t v);

// --- text
void TextFont(std::int16_t font);
void TextFace(std::uint8_t face);
void TextMode(std::int16_t mode);
void TextSize(std::int16_t size);
void DrawString(std::string_view macRoman);
std::int32_t StringWidth(std::string_view macRoman);   // logical pixels, in the current port's text state

// --- pixels
void CopyBits(const PixMap& bits, const Rect& src, const Rect& dst);   // on the current port
// Moves the pixels of r by (dh, dv); what is uncovered is erased and returned.
Region ScrollRect(const Rect& r, std::int32_t dh, std::int32_t dv);
void PicComment(std::int16_t kind, std::string_view data);

// --- patterns
const Pattern& GetIndPattern(std::int32_t number);   // the 38 system patterns, 1 to 38; any other number is black
inline constexpr Pattern qdBlack{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};    // 1
inline constexpr Pattern qdDkGray{{0xDD, 0x77, 0xDD, 0x77, 0xDD, 0x77, 0xDD, 0x77}};   // 3
inline constexpr Pattern qdGray{{0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55}};     // 4
inline constexpr Pattern qdLtGray{{0x88, 0x22, 0x88, 0x22, 0x88, 0x22, 0x88, 0x22}};   // 23
inline constexpr Pattern qdWhite{};                                                    // 20

}   // namespace tessaro
