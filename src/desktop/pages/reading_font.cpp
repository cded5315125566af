#include "desktop/pages/reading_font.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <algorithm>

#include "desktop/kit/qt_text.h"
#include "link/reading_items.h"

namespace counter {

namespace {

constexpr std::size_t kReadingCharacters = 8;  // a sign, six digits and a point
constexpr int kTallest = 13, kSmallest = 8;    // pixels of the font; taller where all letters are
constexpr int kSmallestInARow = 10;            // of several values in a row
constexpr int kClosest = 75;                   // percent of the font's own width

int WidthOf(const QFont& font, std::size_t characters) {
    return QFontMetrics(font).horizontalAdvance(
        QString(static_cast<qsizetype>(characters), QLatin1Char('0')));
}

// Characters are set closer together, and smaller only when that is not enough.
QFont FitLine(std::size_t characters, int room) {
    QFont font = FixedPitchFont();
    font.setPixelSize(std::max(kTallest, QFontInfo(QFont()).pixelSize()));
    for (; WidthOf(font, characters) > room && font.pixelSize() > kSmallest;
         font.setPixelSize(font.pixelSize() - 1)) {
        QFont closer = font;
        closer.setStretch(std::max(100 * room / WidthOf(font, characters), kClosest));
        if (WidthOf(closer, characters) <= room) return closer;
    }
    if (WidthOf(font, characters) > room) font.setStretch(kClosest);
    return font;
}

std::size_t LongestOf(const std::vector<std::string_view>& lines) {
    std::size_t longest = kReadingCharacters;
    for (const std::string_view line : lines) longest = std::max(longest, line.size());
    return longest;
}

void AddLine(std::vector<std::string_view>& lines, std::string_view text) {
    lines.push_back(text.substr(0, text.find_last_not_of(' ') + 1));
}

ReadingFit FitLayout(const std::string& reading, int room, ReadingLayout layout) {
    const std::vector<std::string_view> lines = ReadingLines(reading, layout);
    ReadingFit fit{FitLine(LongestOf(lines), room), layout, std::max(1, static_cast<int>(lines.size())), 0};
    fit.Characters = 10 * room / std::max(1, WidthOf(fit.Font, 10));
    return fit;
}

bool ReadsWell(const ReadingFit& fit, const std::string& reading) {
    const bool small = fit.Font.pixelSize() < kSmallestInARow && ItemTextsOf(reading).size() > 1;
    if (fit.Layout == ReadingLayout::Row && small) return false;
    return static_cast<std::size_t>(fit.Characters) >= LongestOf(ReadingLines(reading, fit.Layout));
}

}  // namespace

std::vector<std::string_view> ReadingLines(std::string_view reading, ReadingLayout layout) {
    std::vector<std::string_view> lines;
    if (layout == ReadingLayout::Row) {
        AddLine(lines, reading);
        return lines;
    }
    for (const std::string_view item : ItemTextsOf(reading)) {
        const std::size_t behind = item.find_first_not_of(" +-.0123456789");
        const bool apart = layout == ReadingLayout::Apart && behind != std::string_view::npos && behind > 0;
        AddLine(lines, apart ? item.substr(0, behind) : item);
        if (apart) AddLine(lines, item.substr(behind));
    }
    return lines;
}

ReadingFit FitReading(const std::string& reading, int room, const ReadingFit* kept) {
    if (kept) {
        ReadingFit fit = FitLayout(reading, room, kept->Layout);
        fit.Lines = kept->Lines;
        return fit;
    }
    for (const ReadingLayout layout : {ReadingLayout::Row, ReadingLayout::Stacked}) {
        const ReadingFit fit = FitLayout(reading, room, layout);
        if (ReadsWell(fit, reading)) return fit;
    }
    return FitLayout(reading, room, ReadingLayout::Apart);
}

}  // namespace counter
