#include "menu_view/menu_cells.h"

#include <algorithm>
#include <string>

#include "meter/text.h"

namespace counter {

namespace {

// Places are counted from 1, as the columns are; 0 is none.
std::size_t PlaceOfPoint(std::string_view text) {
    return text.find('.') + 1;  // npos + 1 is 0
}

// The character at a place, or nothing beyond the end.
std::string_view CharacterAt(std::string_view text, std::size_t place) {
    return place <= text.size() ? text.substr(place - 1, 1) : std::string_view();
}

// The character at a place of the text without its point at `point`.
std::string_view DigitAt(std::string_view text, std::size_t place, std::size_t point) {
    bool behindPoint = point != 0 && place >= point;
    return CharacterAt(text, behindPoint ? place + 1 : place);
}

MenuCell BlankAnd(std::string_view character, bool point) {
    MenuCell cell = " ";
    cell.Append(character);
    if (point) cell.Append(".");
    return cell;
}

bool LightsPoint(std::size_t place, std::size_t point, CellPoints points) {
    if (points == CellPoints::Clock) return place == 3 || place == 5;
    return place + 1 == point && (place != 7 || points == CellPoints::Last);
}

MenuCell CellOfDigit(int digit) {
    constexpr std::string_view kDigits = "0123456789AbCdEF0123456789AbCdEF";
    if (digit < 0 || digit >= static_cast<int>(kDigits.size())) return " ";
    MenuCell cell(kDigits.substr(static_cast<std::size_t>(digit), 1));
    if (digit > 15) cell.Append(".");
    return cell;
}

}  // namespace

MenuCells CellsOfValue(std::string_view text, CellPoints points) {
    std::size_t point = PlaceOfPoint(text);
    std::size_t removed = point >= 3 ? point : 0;
    MenuCells cells;
    for (std::size_t place = 1; place <= cells.size(); ++place) {
        bool lit = LightsPoint(place, point, points);
        cells[place - 1] = BlankAnd(DigitAt(text, place, removed), lit);
    }
    return cells;
}

MenuCells CellsOfSetpoint(std::string_view text) {
    std::string number(Trimmed(text));
    if (!number.starts_with('-')) number.insert(0, "+");
    MenuCells cells = CellsOfValue(number, CellPoints::Inside);
    cells[0] = MenuCell(CharacterAt(number, 1));
    return cells;
}

MenuCells CellsOfText(std::string_view text) {
    MenuCells cells;
    for (std::size_t place = 1; place <= cells.size(); ++place) {
        cells[place - 1] = BlankAnd(CharacterAt(text, place), false);
    }
    return cells;
}

DigitCells DigitCellsOfText(std::string_view text) {
    DigitCells cells;
    for (std::size_t place = 1; place <= cells.size(); ++place) {
        cells[place - 1] = BlankAnd(CharacterAt(text, place), false);
    }
    return cells;
}

DigitCells DigitCellsOfMultiplier(std::string_view text) {
    std::size_t point = PlaceOfPoint(text);
    DigitCells cells;
    if (point == 0 && text.size() > cells.size()) text.remove_prefix(text.size() - cells.size());
    for (std::size_t place = 1; place <= cells.size(); ++place) {
        bool lit = place + 1 == point && place != cells.size();
        cells[place - 1] = BlankAnd(DigitAt(text, place, point), lit);
    }
    return cells;
}

MenuCells CellsOfDigits(const MenuDigits& digits) {
    MenuCells cells{" "};
    for (std::size_t i = 0; i < digits.size(); ++i) cells[i + 1] = CellOfDigit(digits[i]);
    return cells;
}

MenuCells WithBlankSign(const DigitCells& digits) {
    MenuCells cells{" "};
    std::copy(digits.begin(), digits.end(), cells.begin() + 1);
    return cells;
}

}  // namespace counter
