#include "desktop/kit/segments.h"

#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>

namespace counter {

namespace {

struct Spelling {
    char Character;
    SegmentSet Lit;
};

// The panel mixes upper and lower case, as each letter can be drawn at all; "I" is at the left, so that
// it is told from a 1.
// clang-format off
constexpr auto kSpelling = std::to_array<Spelling>({
    {' ', 0},
    {'0', SegA | SegB | SegC | SegD | SegE | SegF},
    {'1', SegB | SegC},
    {'2', SegA | SegB | SegD | SegE | SegG},
    {'3', SegA | SegB | SegC | SegD | SegG},
    {'4', SegB | SegC | SegF | SegG},
    {'5', SegA | SegC | SegD | SegF | SegG},
    {'6', SegA | SegC | SegD | SegE | SegF | SegG},
    {'7', SegA | SegB | SegC},
    {'8', kAllSegments},
    {'9', SegA | SegB | SegC | SegD | SegF | SegG},
    {'-', SegG},
    {'+', SegG | SegUpright},
    {'/', SegB | SegE | SegG},
    {'A', SegA | SegB | SegC | SegE | SegF | SegG},
    {'C', SegA | SegD | SegE | SegF},
    {'D', SegB | SegC | SegD | SegE | SegG},
    {'E', SegA | SegD | SegE | SegF | SegG},
    {'F', SegA | SegE | SegF | SegG},
    {'G', SegA | SegC | SegD | SegE | SegF},
    {'H', SegB | SegC | SegE | SegF | SegG},
    {'I', SegE | SegF},
    {'L', SegD | SegE | SegF},
    {'O', SegA | SegB | SegC | SegD | SegE | SegF},
    {'P', SegA | SegB | SegE | SegF | SegG},
    {'S', SegA | SegC | SegD | SegF | SegG},
    {'T', SegD | SegE | SegF | SegG},
    {'U', SegB | SegC | SegD | SegE | SegF},
    {'a', SegA | SegB | SegC | SegD | SegE | SegG},
    {'b', SegC | SegD | SegE | SegF | SegG},
    {'c', SegD | SegE | SegG},
    {'d', SegB | SegC | SegD | SegE | SegG},
    {'e', SegA | SegB | SegD | SegE | SegF | SegG},
    {'h', SegC | SegE | SegF | SegG},
    {'i', SegC},
    {'n', SegC | SegE | SegG},
    {'o', SegC | SegD | SegE | SegG},
    {'p', SegA | SegB | SegE | SegF | SegG},
    {'q', SegA | SegB | SegC | SegF | SegG},
    {'r', SegE | SegG},
    {'t', SegD | SegE | SegF | SegG},
    {'u', SegC | SegD | SegE},
    {'y', SegB | SegC | SegD | SegF | SegG},
});
// clang-format on

// A digit on the pixels of the device: lines at the middle of the segments.
class Digit {
  public:
    Digit(const QPainter& painter, QPointF corner, SegmentSize size)
        : pixel_(1 / std::max(painter.deviceTransform().m11(), 0.01)),
          thickness_(std::max(Snapped(size.Thickness()), pixel_)),
          gap_(thickness_ * 0.08) {
        const QPointF origin = painter.deviceTransform().map(QPointF(0, 0)) * pixel_;
        const double left = Snapped(corner.x() + origin.x()) - origin.x();
        const double top = Snapped(corner.y() + origin.y()) - origin.y();
        const double half = thickness_ / 2;
        left_ = left + half;
        right_ = left + Snapped(size.Width()) - half;
        top_ = top + half;
        bottom_ = top + Snapped(size.Height) - half;
        middle_ = top + Snapped((Snapped(size.Height) - thickness_) / 2) + half;
    }

    QPolygonF Shape(Segment segment) const {
        switch (segment) {
            case SegA:
                return Lying(top_);
            case SegB:
                return Standing(right_, top_, middle_);
            case SegC:
                return Standing(right_, middle_, bottom_);
            case SegD:
                return Lying(bottom_);
            case SegE:
                return Standing(left_, middle_, bottom_);
            case SegF:
                return Standing(left_, top_, middle_);
            case SegG:
                return Lying(middle_);
            case SegUpright:
                return Upright();
        }
        return {};
    }

    QRectF Point() const {
        const double side = thickness_ * 1.15;
        return {right_ + thickness_, bottom_ + thickness_ / 2 - side, side, side};
    }

  private:
    double Snapped(double length) const { return std::round(length / pixel_) * pixel_; }

    QPolygonF Lying(double y) const {
        const double half = thickness_ / 2;
        const double from = left_ + gap_;
        const double to = right_ - gap_;
        return QPolygonF({{from, y},
                          {from + half, y - half},
                          {to - half, y - half},
                          {to, y},
                          {to - half, y + half},
                          {from + half, y + half}});
    }

    QPolygonF Standing(double x, double upper, double lower) const {
        const double half = thickness_ / 2;
        const double from = upper + gap_;
        const double to = lower - gap_;
        return QPolygonF({{x, from},
                          {x + half, from + half},
                          {x + half, to - half},
                          {x, to},
                          {x - half, to - half},
                          {x - half, from + half}});
    }

    QPolygonF Upright() const {
        const double half = thickness_ / 2;
        const double reach = (right_ - left_) / 2;
        const double x = left_ - half + Snapped(reach) + half;
        return QPolygonF(QRectF(x - half, middle_ - reach, thickness_, 2 * reach));
    }

    double pixel_;  // one pixel of the device in the painter's units
    double thickness_;
    double gap_;
    double left_ = 0, right_ = 0, top_ = 0, middle_ = 0, bottom_ = 0;
};

void Fill(QPainter& painter, const Digit& digit, SegmentSet segments, const QColor& color) {
    if (!color.isValid()) return;
    painter.setBrush(color);
    for (int bit = 0; bit < 8; ++bit) {
        const auto segment = static_cast<Segment>(1 << bit);
        if ((segments & segment) != 0) painter.drawPolygon(digit.Shape(segment));
    }
}

void FillPoint(QPainter& painter, const Digit& digit, const QColor& color) {
    if (!color.isValid()) return;
    painter.setBrush(color);
    painter.drawEllipse(digit.Point());
}

void DrawSmallText(QPainter& painter, QPointF corner, SegmentSize size, char character, const QColor& color) {
    QFont font = painter.font();
    font.setPixelSize(std::max(1, static_cast<int>(size.Height * 0.7)));
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QRectF(corner, QSizeF(size.Width(), size.Height)), Qt::AlignCenter | Qt::TextDontClip,
                     QString(QLatin1Char(character)));
}

}  // namespace

std::optional<SegmentSet> SegmentsOf(char character) {
    for (const Spelling& spelling : kSpelling) {
        if (spelling.Character == character) return spelling.Lit;
    }
    return {};
}

std::vector<SegmentGlyph> GlyphsOf(std::string_view text) {
    std::vector<SegmentGlyph> glyphs;
    for (char character : text) {
        if (character != '.') {
            glyphs.push_back({character, false});
        } else if (glyphs.empty() || glyphs.back().Point) {
            glyphs.push_back({' ', true});
        } else {
            glyphs.back().Point = true;
        }
    }
    return glyphs;
}

void PaintGlyph(QPainter& painter, QPointF corner, SegmentSize size, const SegmentGlyph& glyph,
                const SegmentLook& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const Digit digit(painter, corner, size);
    const std::optional<SegmentSet> lit = SegmentsOf(glyph.Character);
    if (lit) Fill(painter, digit, look.Ghost & ~*lit, look.Unlit);
    if (lit) Fill(painter, digit, *lit, look.Lit);
    if (glyph.Point || look.HasPoint) FillPoint(painter, digit, glyph.Point ? look.Lit : look.Unlit);
    if (!lit) DrawSmallText(painter, corner, size, glyph.Character, look.Lit);
    painter.restore();
}

void PaintGlyphs(QPainter& painter, QPointF corner, SegmentSize size, std::string_view text,
                 const SegmentLook& look) {
    for (const SegmentGlyph& glyph : GlyphsOf(text)) {
        PaintGlyph(painter, corner, size, glyph, look);
        corner.rx() += size.Pitch();
    }
}

}  // namespace counter
