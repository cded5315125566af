// ChartSurface: what a chart shows, as a record of what was drawn on it.
//
// Everything is in the chart's own units, y pointing up; whoever paints maps them to a screen, a page or a
// bitmap and draws the record in its order, later entries over earlier ones. The record only grows, so a
// painter that keeps a picture adds the entries that are new; when Generation has changed it starts over.
#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace counter {

enum class LineStyle { Solid, Dotted, Dashed };
enum class BoxFill { Black, White };
enum class ChartInk { Plain, Second, Setpoint };  // the chart itself, a second trace, a limit of the meter
enum class TextAnchor { Left, Center, Right };    // which part of the text is at X

struct ChartLine {
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    int Width = 2;  // 1 or 2, in the painter's thin lines
    LineStyle Style = LineStyle::Solid;
    ChartInk Ink = ChartInk::Plain;
    friend bool operator==(const ChartLine&, const ChartLine&) = default;
};

struct ChartPoint {
    double X = 0, Y = 0;
    int Width = 2;
    ChartInk Ink = ChartInk::Plain;
    friend bool operator==(const ChartPoint&, const ChartPoint&) = default;
};

struct ChartBox {
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;  // two opposite corners
    BoxFill Fill = BoxFill::Black;
    friend bool operator==(const ChartBox&, const ChartBox&) = default;
};

// The top of the text is HalfHeights times half its height below Y; a negative number is above it.
struct ChartText {
    std::string Text;
    TextAnchor Anchor = TextAnchor::Left;
    double X = 0, Y = 0;
    int HalfHeights = 0;
    ChartInk Ink = ChartInk::Plain;
    bool Wipes = false;  // what is below the text
    friend bool operator==(const ChartText&, const ChartText&) = default;
};

using ChartEntry = std::variant<ChartLine, ChartPoint, ChartBox, ChartText>;

struct ChartScale {
    double Left = 0, Top = 1, Right = 1, Bottom = 0;  // the edges of the surface
    friend bool operator==(const ChartScale&, const ChartScale&) = default;
};

class ChartSurface {
  public:
    void SetScale(double left, double top, double right, double bottom) {
        scale_ = {left, top, right, bottom};
        Clear();
    }
    void Clear() {
        record_.clear();
        ++generation_;
    }
    void Draw(ChartEntry entry) { record_.push_back(std::move(entry)); }

    const ChartScale& Scale() const { return scale_; }
    const std::vector<ChartEntry>& Record() const { return record_; }
    int Generation() const { return generation_; }

  private:
    ChartScale scale_;
    std::vector<ChartEntry> record_;
    int generation_ = 0;
};

}  // namespace counter
