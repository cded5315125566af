// A chart's record as lines of text, to be read and compared.
#pragma once

#include "readings_bench.h"

namespace counter::test {

struct EntryText {
    std::ostringstream Out;
    void operator()(const ChartLine& line) {
        Out << "line " << line.X1 << "," << line.Y1 << " " << line.X2 << "," << line.Y2 << " width "
            << line.Width << (line.Style == LineStyle::Dotted ? " dotted" : "");
    }
    void operator()(const ChartPoint& point) {
        Out << "point " << point.X << "," << point.Y << " width " << point.Width;
    }
    void operator()(const ChartBox& box) {
        Out << (box.Fill == BoxFill::Black ? "black " : "white ") << box.X1 << "," << box.Y1 << " " << box.X2
            << "," << box.Y2;
    }
    void operator()(const ChartText& text) {
        constexpr const char* kAnchors[] = {"left", "center", "right"};
        Out << "text \"" << text.Text << "\" " << kAnchors[static_cast<int>(text.Anchor)] << " " << text.X
            << " top " << text.Y << " halves " << text.HalfHeights;
    }
};

// The entries from number `first` on.
inline Lines RecordFrom(const ChartSurface& chart, std::size_t first = 0) {
    Lines lines;
    for (std::size_t i = first; i < chart.Record().size(); ++i) {
        EntryText text;
        std::visit(text, chart.Record()[i]);
        lines.push_back(text.Out.str());
    }
    return lines;
}

// The record and the reviewed one in the file `name`. Another record is left in the temporary folder, to be
// reviewed.
inline void ExpectGolden(const ChartSurface& chart, const std::string& name) {
    std::ifstream file(TEST_FOLDER "/" + name);
    Lines golden;
    for (std::string line; std::getline(file, line);) golden.push_back(line);
    const Lines lines = RecordFrom(chart);
    EXPECT_EQ(lines, golden);
    if (lines == golden) return;
    std::ofstream changed(testing::TempDir() + name);
    for (const std::string& line : lines) changed << line << "\n";
}

}  // namespace counter::test
