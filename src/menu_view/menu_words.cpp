#include "menu_view/menu_words.h"

#include <algorithm>
#include <optional>
#include <span>

#include "menu_view/menu_items.h"
#include "meter/field_code.h"
#include "meter/field_value.h"
#include "meter/field_words.h"
#include "meter/mode_tables.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr std::string_view kNoEntry = "not in its list";

std::string Named(Field field) {
    const bool lockout = field >= Field::Lockout12 && field <= Field::Lockout3;
    return (lockout ? "Lockout " : "") + std::string(Trimmed(FieldName(field)));
}

std::string Lit(const MenuCell& cell) {
    return std::string(Trimmed(cell));
}

template <typename Cells>
std::string LitTogether(const Cells& cells) {
    std::string text;
    for (const MenuCell& cell : cells) text += cell.View().substr(cell.View().size() > 1 ? 1 : 0);
    return std::string(Trimmed(text));
}

// What a code means that the panel shows, which needn't be the stored one.
std::string MeaningOf(const SetupImage& image, Field field, int shown) {
    const FieldRow& row = RowOf(field);
    const bool stored = shown == CodeOf(image, field);
    const FieldValue value = ValueOfField(image, field);
    if (stored && !value.IsNumber) return WithCommas(value.Text);
    const std::string_view entry = Trimmed(EntryOfCode(row, shown));
    if (!stored && !entry.empty()) return std::string(entry) + ", stored is " + std::to_string(value.Number);
    if (row.HiBit > row.LoBit) return std::string(kNoEntry);
    if (field >= Field::Lockout12 && field <= Field::Lockout3) return shown == 0 ? "free" : "locked";
    return shown == 0 ? "off" : "on";
}

// The whole fields that a digit is made of, that of the lowest bits first. None where a field takes more than
// this digit.
std::vector<Field> FieldsIn(const MenuBits& bits) {
    std::vector<Field> fields;
    for (const FieldRow& row : FieldTable()) {
        const bool within = row.Pos == bits.Pos && row.HiBit <= bits.HiBit && row.LoBit >= bits.LoBit;
        // The high bit of the deviation code is no field to a user: it is told by the types.
        if (!within || row.Kind != Mark::None || row.Handle == Field::DeviationCodeHighBit) continue;
        fields.insert(fields.begin(), row.Handle);
    }
    return fields;
}

// The field that a digit is only a part of.
Field FieldAround(const MenuBits& bits) {
    const auto rows = FieldTable();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const FieldRow& row) {
        return row.Pos == bits.Pos && row.HiBit >= bits.HiBit && row.LoBit <= bits.LoBit;
    });
    return found == rows.end() ? Field::Count : found->Handle;
}

std::string OfSeveral(const MenuView& view, const SetupImage& image, const std::vector<Field>& fields) {
    std::string text;
    for (const Field field : fields) {
        text +=
            (text.empty() ? "" : ", ") + Named(field) + " " + MeaningOf(image, field, CodeOf(image, field));
    }
    const MenuFacts& facts = view.Facts;
    const bool ofDeviations = std::find(fields.begin(), fields.end(), Field::Deviation1Type) != fields.end();
    if (ofDeviations && DeviationFromCode(facts.DeviationCode, facts.FirmwareVersion).NotInMenu)
        text += ", no deviation in the menu";
    return text;
}

// A field that takes several digits is told once, at all of them.
std::vector<MenuWords> OfDigits(const MenuView& view, const SetupImage& image, const MenuItem& item,
                                const MenuCells& cells) {
    const MenuDigits digits = DigitsOfItem(image, view.Facts, item);
    std::vector<MenuWords> words;
    Field lastPart = Field::Count;
    for (int column = 1; column <= 6; ++column) {
        const auto i = static_cast<std::size_t>(column) - 1;
        if (digits[i] == kBlankDigit) continue;
        const std::vector<Field> fields = FieldsIn(item.Digits[i]);
        const std::string lit = Lit(cells[i + 1]);
        const Field part = fields.empty() ? FieldAround(item.Digits[i]) : Field::Count;
        if (fields.size() == 1) {
            words.push_back({column, column,
                             Named(fields[0]) + ", " + lit + " = " + MeaningOf(image, fields[0], digits[i])});
        } else if (!fields.empty()) {
            words.push_back({column, column, lit + " = " + OfSeveral(view, image, fields)});
        } else if (part != lastPart) {
            words.push_back(
                {column, column, Named(part) + ", " + MeaningOf(image, part, CodeOf(image, part))});
        } else {
            words.back().Last = column;
        }
        lastPart = part;
    }
    return words;
}

bool IsLit(const MenuCell& cell) {
    return !Trimmed(cell).empty();
}

// One text over all columns that are lit.
MenuWords OverAll(const MenuCells& cells, Field field, const std::string& meaning) {
    const auto first = std::find_if(cells.begin(), cells.end(), IsLit);
    const auto last = std::find_if(cells.rbegin(), cells.rend(), IsLit);
    const bool blank = first == cells.end();
    return {blank ? 1 : static_cast<int>(first - cells.begin()),
            blank ? 6 : static_cast<int>(cells.rend() - last) - 1, Named(field) + ", " + meaning};
}

std::string ValueIn(const MenuCells& cells, Field field) {
    const std::string lit = LitTogether(cells);
    const std::string_view unit = UnitOf(field);
    if (lit.empty()) return std::string(kNoEntry);
    return unit.empty() ? lit : lit + " " + std::string(unit);
}

std::optional<MenuWords> Beside(const MenuView& view, int row) {
    const auto words = [](Field field, const std::string& text) {
        return MenuWords{kBesideRow, kBesideRow,
                         Named(field) + ", " + (text.empty() ? std::string(kNoEntry) : text)};
    };
    if (row == view.Scale1Place.Row) return words(Field::Multiplier1, LitTogether(view.grdScale1));
    if (row == view.Scale2Place.Row) return words(Field::Multiplier2, LitTogether(view.grdScale2));
    if (row != view.InputPlace.Row) return std::nullopt;
    const std::string_view name = FunctionName(view.Facts.Mode(), view.Facts.Function());
    return words(Field::Function, std::string(Trimmed(name)));
}

}  // namespace

std::vector<MenuWords> WordsOfRow(const MenuView& view, const SetupImage& image, int row) {
    if (row < 1 || row > view.MenuRowCount) return {};
    const auto place = static_cast<std::size_t>(row);
    const MenuItem& item = MenuItems()[static_cast<std::size_t>(view.MenuRowItems[place])];
    const MenuCells& cells = view.grdMain[place].Cells;
    if (item.By == MenuCellsBy::Digits) return OfDigits(view, image, item, cells);
    const Field field = item.Value.Of;
    std::vector<MenuWords> words{OverAll(
        cells, field,
        item.By == MenuCellsBy::Text ? MeaningOf(image, field, view.Facts.Mode()) : ValueIn(cells, field))};
    if (const auto beside = Beside(view, row)) words.push_back(*beside);
    return words;
}

std::vector<MenuWords> WordsOfSetpoint(const MenuView& view, int row) {
    if (row < 1 || row > view.SetPtRowCount) return {};
    const auto place = static_cast<std::size_t>(row);
    const Field field = SetpointItems()[static_cast<std::size_t>(view.SetPtItems[place])].Value.Of;
    const MenuCells& cells = view.grdSetPt[place].Cells;
    return {OverAll(cells, field, LitTogether(cells))};
}

std::string LineOf(const MenuWords& words) {
    const auto column = [](int number) { return number == 0 ? std::string("S") : std::to_string(number); };
    if (words.First == kBesideRow) return "beside: " + words.Text;
    std::string where = "digit " + column(words.First);
    if (words.First == 0) where = "S to digit " + column(words.Last);
    if (words.First > 0 && words.Last == words.First + 1)
        where = "digits " + column(words.First) + " and " + column(words.Last);
    if (words.First > 0 && words.Last > words.First + 1)
        where = "digits " + column(words.First) + " to " + column(words.Last);
    return where + ": " + words.Text;
}

}  // namespace counter
