// Text of the raster port: a coverage mask laid over the pixels in the text's mode.
#include "platform/Fonts.h"
#include "platform/paint/Device.h"

namespace tessaro {

namespace {

enum : std::int16_t { srcXor = 2, srcBic = 3 };

// Half and more covered counts as covered where coverage cannot be mixed.
constexpr std::uint32_t meta = 128;

std::uint32_t mixed(std::uint32_t below, std::uint32_t above, std::uint32_t coverage) {
    const std::uint32_t part = coverage + (coverage >> 7U);   // 0..256
    const std::uint32_t redBlue = (below & 0xFF00FFU) * (256 - part) + (above & 0xFF00FFU) * part;
    const std::uint32_t green = (below & 0x00FF00U) * (256 - part) + (above & 0x00FF00U) * part;
    return 0xFF000000U | ((redBlue >> 8U) & 0xFF00FFU) | ((green >> 8U) & 0x00FF00U);
}

void coverRow(std::uint32_t* out, const std::uint8_t* coverage, std::int32_t count, std::uint32_t colour) {
    for (std::int32_t i = 0; i < count; ++i)
        if (coverage[i] != 0) out[i] = mixed(out[i], colour, coverage[i]);
}

void flipRow(std::uint32_t* out, const std::uint8_t* coverage, std::int32_t count, std::uint32_t mask) {
    for (std::int32_t i = 0; i < count; ++i)
        if (coverage[i] >= meta) out[i] ^= mask;
}

}   // namespace

void RasterPort::stdText(std::string_view macRoman) {
    const Point at0 = pen.pnLoc;
    const std::int32_t width = TextWidth(text.txFont, text.txSize, text.txFace, macRoman);
    pen.pnLoc.h = avanti(at0.h, width);
    if (penHidden > 0) return;

    if (text.txMode == srcCopy) {
        const FontMetrics m = GetFontInfo(text.txFont, text.txSize, text.txFace);
        const std::int64_t baseLine = at0.v, start = at0.h;
        paintRect(WideRect{deviceX(start), deviceY(baseLine - m.ascent), deviceX(start + width),
                           deviceY(baseLine + m.descent)},
                  verbBrush(GrafVerb::erase, qdWhite));
    }
    mask(TextMask(text.txFont, text.txSize, text.txFace, ratio, macRoman), at0);
}

void RasterPort::mask(const MascheraTesto& m, Point at0) {
    const std::int64_t left = deviceX(at0.h) + m.left, top = deviceY(at0.v) + m.top;
    const bool flips = text.txMode == srcXor || text.txMode == patXor;
    const bool erases = text.txMode == srcBic || text.txMode == patBic;
    const std::uint32_t colour = pixelOf(erases ? background : foreground);
    perParti(WideRect{left, top, left + m.width, top + m.height}, [&](const DeviceRect& area) {
        for (std::int32_t y = area.top; y < area.bottom; ++y) {
            const std::uint8_t* coverage = m.coverage.data() + (y - top) * m.width + (area.left - left);
            if (flips)
                flipRow(at(area.left, y), coverage, area.right - area.left, ~colour & 0x00FFFFFFU);
            else
                coverRow(at(area.left, y), coverage, area.right - area.left, colour);
        }
    });
}

}   // namespace tessaro
