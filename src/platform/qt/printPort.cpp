// Figures on a printed page.
#include <QPainterPath>

#include <algorithm>
#include <cmath>

#include "platform/Printing.h"
#include "platform/qt/PortaPagina.h"

namespace tessaro {

namespace {

constexpr Pattern pieno{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
constexpr Pattern vuoto{};

QColor coloreQt(const RGBColor& c) { return QColor::fromRgba64(c.red, c.green, c.blue); }

Pattern rovescio(Pattern p) {
    for (auto& r : p.pat) r = static_cast<std::uint8_t>(~r);
    return p;
}

}   // namespace

PortaPagina::PortaPagina(QPainter& painter, const Rect& pagina, Point da, bool perdita)
    : pittore(painter), radice(da), conPerdita(perdita) {
    finezza = finezzaPagina;
    giraTesti = true;
    pittore.setRenderHint(
        QPainter::LosslessImageRendering);   // of patterns always, of pictures unless the person says otherwise
    portRect = pagina;
    clip = Region::of(pagina);
    pen.pnSize = Point{finezza, finezza};
    text.txSize = static_cast<std::int16_t>(12 * finezza);
}

PortaPagina::~PortaPagina() {
    if (GetPort() == this) SetPort(nullptr);
}

// --- colours and patterns

// Paper takes no xor: what would have inverted is painted.
PortaPagina::Tinte PortaPagina::tinteDi(GrafVerb verb, const Pattern& fillPattern) const {
    Tinte t;
    const auto strato = [&t](const Pattern& bit, const RGBColor& colore) {
        if (bit != vuoto) t.strati[static_cast<std::size_t>(t.quante++)] = {bit, colore};
    };
    const auto opaco = [&](const Pattern& bit) {
        if (bit != pieno) strato(pieno, background);
        strato(bit, foreground);
    };
    if (verb == GrafVerb::erase) {
        strato(pieno, background);
    } else if (verb == GrafVerb::fill) {
        opaco(fillPattern);
    } else if (verb == GrafVerb::invert || pen.pnMode == patOr || pen.pnMode == patXor) {
        strato(pen.pnPat, foreground);
    } else if (pen.pnMode == patBic) {
        strato(pen.pnPat, background);
    } else if (pen.pnMode == notPatBic) {
        strato(rovescio(pen.pnPat), background);
    } else {
        opaco(pen.pnPat);
    }
    return t;
}

// A pattern's dot is a point of the paper: what is a grey on the screen at actual size stays one on any printer.
QBrush PortaPagina::pennello(const Tinta& t) {
    if (t.bit == pieno) return coloreQt(t.colore);
    QImage& cella = retini[{t.bit.pat, coloreQt(t.colore).rgb()}];
    if (cella.isNull()) {
        // One colour throughout, seen where the bits are set: viewers differ about patterns that have no colour.
        cella = QImage(8, 8, QImage::Format_ARGB32);
        const QRgb colore = coloreQt(t.colore).rgb() & RGB_MASK;
        for (int v = 0; v < 8; ++v)
            for (int h = 0; h < 8; ++h) {
                const bool acceso = (t.bit.pat[static_cast<std::size_t>(v)] >> (7 - h) & 1) != 0;
                cella.setPixel(h, v, colore | (acceso ? 0xFF000000U : 0U));
            }
    }
    QBrush b(cella);
    b.setTransform(QTransform::fromTranslate(-radice.h, -radice.v).scale(finezza, finezza));
    return b;
}

bool PortaPagina::pronta() {
    if (inBitmap > 0 || penHidden > 0) return false;
    const Region& voluta = inTestoGirato ? clipTesto : clip;
    if (voluta.empty()) return false;
    if (!clipIgnota && voluta.parti == clipMessa.parti) return true;
    clipMessa = voluta;
    clipIgnota = false;
    QPainterPath p;
    for (const Rect& r : voluta.parti) p.addRect(QRectF(QPointF(r.left, r.top), QPointF(r.right, r.bottom)));
    if (voluta.parti.size() == 1)
        pittore.setClipRect(p.boundingRect());
    else
        pittore.setClipPath(p);
    return true;
}

double PortaPagina::larghezza() const { return std::max(pen.pnSize.h, pen.pnSize.v) * puntiPixel; }

// Ends are flat where the pen is thin, so that a line is as long as it is; thick ones are round, so that corners close.
void PortaPagina::poniPenna(const Tinta& t, bool tonda) {
    const double w = larghezza();
    if (w != larghezzaPenna || t.bit != tintaPenna.bit || t.colore != tintaPenna.colore || tonda != tondaPenna) {
        penna = QPen(pennello(t), w, Qt::SolidLine, tonda ? Qt::RoundCap : Qt::FlatCap, Qt::RoundJoin);
        larghezzaPenna = w;
        tintaPenna = t;
        tondaPenna = tonda;
        pittore.setPen(penna);
    } else if (pittore.pen().style() == Qt::NoPen) {
        pittore.setPen(penna);
    }
}

template <class F>
void PortaPagina::aStrati(GrafVerb verb, const Pattern& fillPattern, const F& disegna) {
    if (!pronta()) return;
    const bool cornice = verb == GrafVerb::frame;
    if (cornice && larghezza() <= 0) return;
    const Tinte t = tinteDi(verb, fillPattern);
    for (int i = 0; i < t.quante; ++i) {
        const Tinta& strato = t.strati[static_cast<std::size_t>(i)];
        if (cornice) {
            poniPenna(strato, std::max(pen.pnSize.h, pen.pnSize.v) > finezza);
            pittore.setBrush(Qt::NoBrush);
        } else {
            pittore.setPen(Qt::NoPen);
            pittore.setBrush(pennello(strato));
        }
        disegna();
    }
}

// --- figures

void PortaPagina::stdLine(Point from, Point to) {
    const QPointF a = sottoPenna(from), b = sottoPenna(to);
    if (a == b) {   // a dot
        const double w = larghezza();
        const QRectF punto(a.x() - w / 2, a.y() - w / 2, w, w);
        return aStrati(GrafVerb::paint, {}, [&] { pittore.drawRect(punto); });
    }
    aStrati(GrafVerb::frame, {}, [&] { pittore.drawLine(a, b); });
}

QRectF PortaPagina::mezzeria(const Rect& r) const {
    const double dh = pen.pnSize.h / 2, dv = pen.pnSize.v / 2;
    return rett(r).adjusted(dh, dv, -dh, -dv);
}

void PortaPagina::stdRect(GrafVerb verb, const Rect& r, const Pattern& fillPattern) {
    if (EmptyRect(r)) return;
    const QRectF f = verb == GrafVerb::frame ? mezzeria(r) : rett(r);
    aStrati(verb, fillPattern, [&] { pittore.drawRect(f); });
}

void PortaPagina::stdOval(GrafVerb verb, const Rect& r, const Pattern& fillPattern) {
    if (EmptyRect(r)) return;
    const QRectF f = verb == GrafVerb::frame ? mezzeria(r) : rett(r);
    aStrati(verb, fillPattern, [&] { pittore.drawEllipse(f); });
}

void PortaPagina::stdArc(GrafVerb verb, const Rect& r, std::int32_t start, std::int32_t sweep,
                         const Pattern& fillPattern) {
    if (EmptyRect(r) || sweep == 0) return;
    const bool cornice = verb == GrafVerb::frame;
    const QRectF f = cornice ? mezzeria(r) : rett(r);
    QPainterPath p;
    if (cornice)
        p.arcMoveTo(f, 90 - start);
    else
        p.moveTo(f.center());
    p.arcTo(f, 90 - start, -std::clamp(sweep, -360, 360));
    if (!cornice) p.closeSubpath();
    aStrati(verb, fillPattern, [&] { pittore.drawPath(p); });
}

void PortaPagina::stdPoly(GrafVerb verb, const Polygon& p, const Pattern& fillPattern) {
    if (p.punti.size() < 2) return;
    const bool cornice = verb == GrafVerb::frame;
    QPolygonF q;
    q.reserve(static_cast<qsizetype>(p.punti.size()));
    for (const Point& v : p.punti) q << (cornice ? sottoPenna(v) : QPointF(x(v.h), y(v.v)));
    const bool chiuso = p.punti.front() == p.punti.back();
    aStrati(verb, fillPattern, [&] {
        if (cornice && !chiuso)
            pittore.drawPolyline(q);
        else
            pittore.drawPolygon(q, Qt::OddEvenFill);
    });
}

void PortaPagina::stdRgn(GrafVerb verb, const Region& r, const Pattern& fillPattern) {
    if (r.empty()) return;
    QPainterPath p;
    p.setFillRule(Qt::WindingFill);
    for (const Rect& parte : r.parti) p.addRect(rett(parte));
    aStrati(verb, fillPattern, [&] { pittore.drawPath(verb == GrafVerb::frame ? p.simplified() : p); });
}

}   // namespace tessaro
