// Fonts through the toolkit: families and their numbers, widths, and lines of text rendered to coverage masks. Masks
// and widths are kept, the least used ones go first.
#include "platform/Fonts.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <list>
#include <map>
#include <unordered_map>
#include <utility>

#include "platform/qt/PortaPagina.h"
#include "platform/Quickdraw.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

struct Classico {
    std::int16_t number;
    const char* name;
    std::array<const char*, 3> families;   // the first one that is installed stands in
};
constexpr std::array<Classico, 7> classici{{
    {0, "System", {"Liberation Sans", "DejaVu Sans", "Arial"}},
    {3, "Geneva", {"Liberation Sans", "DejaVu Sans", "Arial"}},
    {4, "Monaco", {"DejaVu Sans Mono", "Liberation Mono", "Courier New"}},
    {20, "Times", {"Liberation Serif", "DejaVu Serif", "Times New Roman"}},
    {21, "Helvetica", {"Liberation Sans", "DejaVu Sans", "Arial"}},
    {22, "Courier", {"Liberation Mono", "DejaVu Sans Mono", "Courier New"}},
    {23, "Symbol", {"DejaVu Sans", "Liberation Sans", "Arial"}},
}};

// Text can be set only while there is an application object; benches and fuzzers run without one.
bool toolkitThere() { return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr; }

// --- families

std::int16_t numberOf(std::string_view name) {
    std::uint32_t hash = 2166136261U;   // FNV-1a
    for (const char c : name) hash = (hash ^ static_cast<std::uint8_t>(c)) * 16777619U;
    return static_cast<std::int16_t>(1024 + hash % 15360);
}

// The installed families by name and by number, read once. A number that is taken goes to the name that sorts first;
// the other takes the next free one.
struct Famiglie {
    std::map<std::string, std::int16_t> byName;
    std::map<std::int16_t, std::pair<std::string, QString>> byNumber;

    Famiglie() {
        std::map<std::string, QString> names;
        // The toolkit adds the maker, "Nimbus Sans [urw]", where two of them share a name: one of them serves, and the
        // plain name is the same on every machine.
        for (const QString& family : QFontDatabase::families())
            names.emplace(Utf8ToMac(family.section(" [", 0, 0).toUtf8().toStdString()), family);
        for (const auto& [name, family] : names) {
            std::int16_t number = numberOf(name);
            while (byNumber.contains(number)) number = static_cast<std::int16_t>(number == 16383 ? 1024 : number + 1);
            byName.emplace(name, number);
            byNumber.emplace(number, std::pair{name, family});
        }
    }
};

const Famiglie& famiglie() {
    static const Famiglie installed;
    return installed;
}

const Classico* classicOf(std::int16_t number) {
    const auto row =
        std::find_if(classici.begin(), classici.end(), [=](const Classico& c) { return c.number == number; });
    return row == classici.end() ? nullptr : &*row;
}

QString familyOf(std::int16_t font) {
    const auto& known = famiglie().byNumber;
    if (const auto found = known.find(font); found != known.end()) return found->second.second;
    const Classico* classic = classicOf(font);
    if (classic == nullptr) classic = classici.data();
    for (const char* family : classic->families)
        if (famiglie().byName.contains(family)) return QString::fromLatin1(family);
    return {};   // the toolkit's own choice
}

// --- setting text

struct Stile {
    std::int16_t font;
    std::int16_t size;   // logical pixels, above 0
    std::uint8_t face;
    std::int32_t ratio;   // device pixels per logical pixel; 0 where only the width is asked
};

Stile stileOf(std::int16_t font, std::int16_t size, std::uint8_t face, std::int32_t ratio) {
    return Stile{font, size > 0 ? size : std::int16_t{12}, face, ratio};
}

// Without hinting, widths grow with the size alone and agree between screens and machines.
QFont fontOf(const Stile& style) {
    const std::int32_t scale = std::max(style.ratio, 1);
    QFont font(familyOf(style.font));
    font.setPixelSize(style.size * scale);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setKerning(false);
    font.setBold((style.face & bold) != 0);
    font.setItalic((style.face & italic) != 0);
    font.setUnderline((style.face & underline) != 0);
    if (style.face & condense) font.setLetterSpacing(QFont::AbsoluteSpacing, -scale);
    if (style.face & extend) font.setLetterSpacing(QFont::AbsoluteSpacing, scale);
    return font;
}

std::int32_t whole(double value) { return static_cast<std::int32_t>(std::lround(std::clamp(value, -1e9, 1e9))); }

// Outlined letters are the ring around the letter; shadowed ones drop it once more to the lower right.
void outline(MascheraTesto& mask, std::int32_t reach, bool shadow) {
    const std::vector<std::uint8_t> solid = mask.coverage;
    const auto at = [&](std::int32_t x, std::int32_t y) -> std::uint8_t {
        const bool inside = x >= 0 && y >= 0 && x < mask.width && y < mask.height;
        return inside ? solid[static_cast<std::size_t>(y) * static_cast<std::size_t>(mask.width)
                              + static_cast<std::size_t>(x)]
                      : std::uint8_t{0};
    };
    const std::int32_t back = shadow ? 2 * reach : reach;
    for (std::int32_t y = 0; y < mask.height; ++y) {
        for (std::int32_t x = 0; x < mask.width; ++x) {
            std::uint8_t around = 0;
            for (std::int32_t dy = -back; dy <= reach; ++dy)
                for (std::int32_t dx = -back; dx <= reach; ++dx) around = std::max(around, at(x + dx, y + dy));
            mask.coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(mask.width)
                          + static_cast<std::size_t>(x)] = static_cast<std::uint8_t>(around - at(x, y));
        }
    }
}

// The part of the drawn image that holds ink.
void crop(MascheraTesto& mask, const QImage& image, QPoint corner) {
    std::int32_t left = image.width(), top = image.height(), right = 0, bottom = 0;
    for (std::int32_t y = 0; y < image.height(); ++y) {
        const std::uint8_t* const row = image.constScanLine(y);
        for (std::int32_t x = 0; x < image.width(); ++x) {
            if (row[x] == 0) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = y + 1;
        }
    }
    if (right <= left) return;
    mask.left = corner.x() + left;
    mask.top = corner.y() + top;
    mask.width = right - left;
    mask.height = bottom - top;
    mask.coverage.resize(static_cast<std::size_t>(mask.width) * static_cast<std::size_t>(mask.height));
    for (std::int32_t y = 0; y < mask.height; ++y)
        std::memcpy(mask.coverage.data() + static_cast<std::ptrdiff_t>(y) * mask.width,
                    image.constScanLine(top + y) + left, static_cast<std::size_t>(mask.width));
}

// Room around the mask for its outline, and the outline there.
MascheraTesto outlined(const MascheraTesto& mask, const Stile& style) {
    const bool shadow = (style.face & shadowFace) != 0;
    const std::int32_t reach = style.ratio, back = shadow ? 2 * reach : reach;
    MascheraTesto wide{
        mask.width + reach + back, mask.height + reach + back, mask.left - reach, mask.top - reach, mask.advance, {}};
    wide.coverage.assign(static_cast<std::size_t>(wide.width) * static_cast<std::size_t>(wide.height), 0);
    for (std::int32_t y = 0; y < mask.height; ++y)
        std::memcpy(wide.coverage.data() + static_cast<std::ptrdiff_t>(y + reach) * wide.width + reach,
                    mask.coverage.data() + static_cast<std::ptrdiff_t>(y) * mask.width,
                    static_cast<std::size_t>(mask.width));
    outline(wide, reach, shadow);
    return wide;
}

MascheraTesto setLine(const Stile& style, std::string_view bytes) {
    MascheraTesto mask;
    if (!toolkitThere()) {
        const double perLetter = 0.6 * style.size * std::max(style.ratio, 1);
        mask.advance = whole(perLetter * static_cast<double>(bytes.size()));
        return mask;
    }
    const QFont font = fontOf(style);
    const QFontMetricsF metrics(font);
    const QString line = QString::fromStdString(MacToUtf8(bytes));
    mask.advance = whole(metrics.horizontalAdvance(line));
    if (style.ratio == 0 || line.isEmpty()) return mask;

    const std::int32_t margin = 2 + 3 * style.ratio;
    const QRectF box(0, -metrics.ascent(), metrics.horizontalAdvance(line), metrics.height());
    const QRect room =
        metrics.boundingRect(line).united(box).toAlignedRect().adjusted(-margin, -margin, margin, margin);
    constexpr std::int64_t most = 64 * 1024 * 1024;   // a line larger than any screen is not drawn
    if (static_cast<std::int64_t>(room.width()) * room.height() > most) return mask;
    QImage image(room.size(), QImage::Format_Grayscale8);
    if (image.isNull()) return mask;
    image.fill(0);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QPointF(-room.left(), -room.top()), line);
    painter.end();
    crop(mask, image, room.topLeft());

    return (style.face & (shadowFace | outlineFace)) != 0 && mask.width > 0 ? outlined(mask, style) : mask;
}

// --- the store of set lines

class Deposito {
public:
    const MascheraTesto& line(const Stile& style, std::string_view bytes) {
        key_.assign(reinterpret_cast<const char*>(&style.font), sizeof style.font);
        key_.append(reinterpret_cast<const char*>(&style.size), sizeof style.size);
        key_.append(reinterpret_cast<const char*>(&style.ratio), sizeof style.ratio);
        key_.push_back(static_cast<char>(style.face));
        key_.append(bytes);
        if (const auto found = index_.find(key_); found != index_.end()) {
            voci_.splice(voci_.begin(), voci_, found->second);
            return found->second->mask;
        }
        if (!toolkitThere()) return guess_ = setLine(style, bytes);   // not to be found again once there is one
        voci_.push_front(Voce{key_, setLine(style, bytes)});
        index_.emplace(voci_.front().key, voci_.begin());
        bytes_ += voci_.front().mask.coverage.size();
        while (voci_.size() > 1 && (voci_.size() > mostLines || bytes_ > mostBytes)) dropLast();
        return voci_.front().mask;
    }

private:
    static constexpr std::size_t mostLines = 4096;
    static constexpr std::size_t mostBytes = 32 * 1024 * 1024;
    struct Voce {
        std::string key;
        MascheraTesto mask;
    };
    void dropLast() {
        bytes_ -= voci_.back().mask.coverage.size();
        index_.erase(voci_.back().key);
        voci_.pop_back();
    }
    std::list<Voce> voci_;   // the last used first
    std::unordered_map<std::string_view, std::list<Voce>::iterator> index_;
    std::size_t bytes_ = 0;
    std::string key_;
    MascheraTesto guess_;
};

Deposito& deposito() {
    static Deposito lines;
    return lines;
}

}   // namespace

QFont FontePagina(std::int16_t font, std::uint8_t face, double corpo, std::int32_t finezza) {
    QFont f = fontOf(Stile{font, 12, face, finezza});
    f.setPixelSize(std::max(1, whole(corpo)));
    return f;
}

const MascheraTesto& TextMask(std::int16_t font, std::int16_t size, std::uint8_t face, std::int32_t ratio,
                              std::string_view bytes) {
    return deposito().line(stileOf(font, size, face, std::clamp(ratio, 1, 64)), bytes);
}

std::int32_t TextWidth(std::int16_t font, std::int16_t size, std::uint8_t face, std::string_view bytes) {
    return deposito().line(stileOf(font, size, face, 0), bytes).advance;
}

FontMetrics GetFontInfo(std::int16_t font, std::int16_t size, std::uint8_t face) {
    const Stile style = stileOf(font, size, face, 1);
    if (!toolkitThere()) return FontMetrics{whole(0.9 * style.size), whole(0.25 * style.size), 0};
    const QFontMetricsF metrics(fontOf(style));
    return FontMetrics{whole(metrics.ascent()), whole(metrics.descent()), whole(metrics.leading())};
}

std::vector<std::string> FontFamilies() {
    std::vector<std::string> names;
    if (!toolkitThere()) return names;
    for (const auto& [name, number] : famiglie().byName) names.push_back(name);
    return names;
}

std::int16_t GetFNum(std::string_view macRomanName) {
    for (const Classico& classic : classici)
        if (macRomanName == classic.name) return classic.number;
    if (!toolkitThere()) return 0;
    const auto found = famiglie().byName.find(std::string(macRomanName));
    return found == famiglie().byName.end() ? std::int16_t{0} : found->second;
}

std::string GetFontName(std::int16_t font) {
    if (const Classico* classic = classicOf(font)) return classic->name;
    if (!toolkitThere()) return {};
    const auto found = famiglie().byNumber.find(font);
    return found == famiglie().byNumber.end() ? std::string{} : found->second.first;
}

}   // namespace tessaro
