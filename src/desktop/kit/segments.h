// Segments: how the meter's display spells characters in seven segments and a point, and the painter of one
// digit. No font draws a digit.
#pragma once

#include <QColor>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

class QPainter;

namespace counter {

// Segments as bits: a at the top, then clockwise b to f, g in the middle. The sign's upright crosses g and
// makes a plus of it.
using SegmentSet = std::uint8_t;
enum Segment : SegmentSet {
    SegA = 1,
    SegB = 2,
    SegC = 4,
    SegD = 8,
    SegE = 16,
    SegF = 32,
    SegG = 64,
    SegUpright = 128
};

inline constexpr SegmentSet kAllSegments = 0x7F;  // of a digit, without the sign's upright

// What a character lights; nothing where the display has no pattern for it. A blank lights no segment.
std::optional<SegmentSet> SegmentsOf(char character);

// One place of the display: a character and the point after it.
struct SegmentGlyph {
    char Character = ' ';
    bool Point = false;

    friend bool operator==(const SegmentGlyph&, const SegmentGlyph&) = default;
};

// "12.3" is three places, the second with a point. A point with no character in front is in a blank
// place.
std::vector<SegmentGlyph> GlyphsOf(std::string_view text);

// Sizes of a digit, all in proportion to its height and in the units of the painter.
struct SegmentSize {
    double Height = 0;

    double Thickness() const { return Height * 0.13; }
    double Width() const { return Height * 0.58; }
    double Pitch() const { return Height * 0.84; }  // from one digit to the next, with room for the point
};

struct SegmentLook {
    QColor Lit;
    QColor Unlit;                     // without a valid colour they aren't drawn
    SegmentSet Ghost = kAllSegments;  // the segments that the place has
    bool HasPoint = true;
};

// Draws one digit with its upper left corner at `corner`. Edges fall on pixels of the device, whatever its
// scale. A character without a pattern is drawn as a small text.
void PaintGlyph(QPainter& painter, QPointF corner, SegmentSize size, const SegmentGlyph& glyph,
                const SegmentLook& look);

// The places of a text from `corner` on, to the right.
void PaintGlyphs(QPainter& painter, QPointF corner, SegmentSize size, std::string_view text,
                 const SegmentLook& look);

}  // namespace counter
