#include "desktop/pages/reading_font.h"

#include <QFontMetrics>
#include <algorithm>

#include "desktop/kit/qt_text.h"
#include "link/reading_items.h"

namespace counter {

namespace {

constexpr std::size_t kReadingCharacters = 8;  // a sign, six digits and a point
constexpr int kTallest = 13, kSmallest = 8;    // pixels of the font
constexpr int kSmallestInARow = 10;            // of several values in a row
constexpr int kClosest = 75;                   // percent of the font's own width

int WidthOf(const QFont& font, std::size_t characters) {
    return QFontMetrics(font).horizontalAdvance(
        QString(static_cast<qsizetype>(characters), QLatin1Char('0')));
}

// Characters are set closer together, and smaller only when that is not enough.
QFont FitLine(std::size_t characters, int room) {
    QFont font = FixedPitchFont();
    font.setPixelSize(kTallest);
    for (; WidthOf(font, characters) > room && font.pixelSize() > kSmallest;
         font.setPixelSize(font.pixelSize() - 1)) {
        QFont closer = font;
        closer.setStretch(std::max(100 * room / WidthOf(font, characters), kClosest));
        if (WidthOf(closer, characters) <= room) return closer;
    }
    if (WidthOf(font, characters) > room) font.setStretch(kClosest);
    return font;
}

std::size_t LongestOf(const std::vector<std::string_view>& texts) {
    std::size_t longest = kReadingCharacters;
    for (const std::string_view text : texts) longest = std::max(longest, text.size());
    return longest;
}

}  // namespace

ReadingFit FitReading(const std::string& reading, int room, int lines) {
    const std::vector<std::string_view> texts = ItemTextsOf(reading);
    const std::size_t whole = std::max(reading.size(), kReadingCharacters);
    ReadingFit fit{FitLine(whole, room), 1, 0};
    const bool small = fit.Font.pixelSize() < kSmallestInARow || WidthOf(fit.Font, whole) > room;
    if (lines > 1 || (lines == 0 && texts.size() > 1 && small))
        fit = {FitLine(LongestOf(texts), room), std::max(lines, static_cast<int>(texts.size())), 0};
    if (lines > 0) fit.Lines = lines;
    fit.Characters = 10 * room / std::max(1, WidthOf(fit.Font, 10));
    return fit;
}

}  // namespace counter
