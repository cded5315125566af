#include "menu_view/menu_view.h"

#include <string>

#include "menu_view/menu_facts.h"
#include "menu_view/menu_items.h"
#include "menu_view/menu_mnemonics.h"
#include "meter/field_code.h"
#include "meter/value_codec.h"

namespace counter {

namespace {

// Rows that something is shown beside.
constexpr int kInputCode = 1;
constexpr int kScale1Code = 13;
constexpr int kScale2Code = 19;
constexpr int kCalibrationCode = 43;

constexpr std::array<std::string_view, 4> kInputOptions = {" None", " Dual Signal Conditioner",
                                                           " V-to-F Converter", " Quadrature"};

ShortText<12> NameOf(std::string_view name, std::string_view end = {}) {
    ShortText<12> text(" ");
    text.Append(name);
    text.Append(end);
    return text;
}

MenuRow HeaderRow(std::string_view name) {
    return {name, {"S", "1", "2", "3", "4", "5", "6"}};
}

// In the menu's form of the value, whose type codes are those of the field table and ten more.
std::string TextOf(const SetupImage& image, const MenuFacts& facts, const MenuValue& value, bool clock) {
    constexpr int kMenuForm = 10;
    const FieldRow& row = RowOf(value.Of);
    ValueContext context{facts.Values.InputOption, facts.Values.ModeIndex,
                         clock ? TimeEntry::Seconds : TimeEntry::None};
    return ValueText(image, context, row.ValueCode + kMenuForm, row.Pos,
                     PointCode(image, facts.Values, row, PointOfSource::AsStored));
}

bool ShowsClock(const MenuFacts& facts) {
    return facts.Values.ClockMode == DisplayType::Clock;
}

MenuCells ValueCells(const SetupImage& image, const MenuFacts& facts, const MenuValue& value) {
    bool clock = value.Form == ValueForm::Clock;
    std::string text = TextOf(image, facts, value, clock && ShowsClock(facts));
    if (value.Form == ValueForm::BlanksInFront) text.insert(0, "  ");
    if (value.Form == ValueForm::BlanksBehind) text.append("  ");
    // Any Mode with a clock display has its points, not only a stopwatch whose value is one.
    bool clockPoints = clock && facts.Values.DisplayType == DisplayType::Clock;
    return CellsOfValue(text, clockPoints ? CellPoints::Clock : CellPoints::Inside);
}

MenuCells CellsOf(const SetupImage& image, const MenuFacts& facts, const MenuItem& item) {
    switch (item.By) {
        case MenuCellsBy::Value:
            return ValueCells(image, facts, item.Value);
        case MenuCellsBy::Digits:
            return CellsOfDigits(DigitsOfItem(image, facts, item));
        case MenuCellsBy::Text:
            return CellsOfText(item.Text(image, facts));
        case MenuCellsBy::Points:
            return CellsOfValue(item.Text(image, facts), CellPoints::Last);
        case MenuCellsBy::Multiplier:
            return WithBlankSign(DigitCellsOfMultiplier(item.Text(image, facts)));
    }
    return {};
}

DigitCells MultiplierCells(const SetupImage& image, Field multiplier) {
    return DigitCellsOfMultiplier(EntryOrBlank(kMultipliers, CodeOf(image, multiplier)));
}

// What is shown beside a row that has just been added.
void PlaceBeside(MenuView& view, int code, const SetupImage& image, const MenuFacts& facts) {
    int row = view.MenuRowCount;
    if (code == kInputCode) {
        view.InputPlace.Row = row;
        view.grdInput = DigitCellsOfText(FunctionMnemonic(facts.Mode(), facts.Function()));
    } else if (code == kScale1Code) {
        view.Scale1Place.Row = row;
        view.grdScale1 = MultiplierCells(image, Field::Multiplier1);
    } else if (code == kScale2Code) {
        view.Scale2Place.Row = row;
        view.grdScale2 = MultiplierCells(image, Field::Multiplier2);
    } else if (code == kCalibrationCode) {
        view.NoChangePlace.Row = row;
    }
}

void AddMenuRow(MenuView& view, const SetupImage& image, const MenuFacts& facts, const MenuItem& item) {
    auto row = static_cast<std::size_t>(++view.MenuRowCount);
    std::string_view end = item.NameEnd == nullptr ? "" : item.NameEnd(image, facts);
    view.grdMain[row] = {NameOf(item.Name, end), CellsOf(image, facts, item)};
    view.MenuRowCodes[row] = static_cast<std::int16_t>(item.Code);
    view.MenuRowItems[row] = static_cast<std::int16_t>(item.Order - 1);
    PlaceBeside(view, item.Code, image, facts);
}

// A disabled alarm has no setpoint at the alarm key. State 3, which no list offers, counts as disabled.
bool HasSetpoint(const SetupImage& image, const MenuFacts& facts, const SetpointItem& item) {
    constexpr int kDisabled = 2;
    return facts.Values.RelayOption >= item.LeastRelayOption && CodeOf(image, item.AlarmState) < kDisabled;
}

void AddSetpoints(MenuView& view, const SetupImage& image, const MenuFacts& facts) {
    view.SetPtHeight = facts.Values.RelayOption == RelayBoard::FourRelays ? 4 : 2;
    std::int16_t place = -1;
    for (const SetpointItem& item : SetpointItems()) {
        ++place;
        if (!HasSetpoint(image, facts, item)) continue;
        auto row = static_cast<std::size_t>(++view.SetPtRowCount);
        std::string text = TextOf(image, facts, item.Value, ShowsClock(facts));
        view.grdSetPt[row] = {NameOf(item.Name), CellsOfSetpoint(text)};
        view.SetPtItems[row] = place;
    }
}

void Follow(Overlay& overlay, int firstVisibleRow) {
    constexpr int kRowHeight = 270;
    constexpr int kFirstRowTop = 440;
    overlay.Visible = overlay.Row > 0 && overlay.Row >= firstVisibleRow;
    overlay.Top = (overlay.Row - firstVisibleRow) * kRowHeight + kFirstRowTop;
}

}  // namespace

void MenuView::ScrollTo(int firstVisibleRow) {
    FirstVisibleRow = firstVisibleRow;
    for (Overlay* overlay : {&InputPlace, &Scale1Place, &Scale2Place, &NoChangePlace}) {
        Follow(*overlay, firstVisibleRow);
    }
}

int MenuView::HelpIdOfRow(int row, PointerEvent event) const {
    if (row < 1 || row > MenuRowCount) return 0;
    return MenuHelpId(MenuRowCodes[static_cast<std::size_t>(row)], event, AnalogOption, ProtocolCode);
}

MenuView BuildMenuView(SetupImage& image, const MeterIdentity& meter, const DerivedValues& shared) {
    const MenuFacts facts = ReadMenuFacts(image, meter, shared);
    MenuView view;
    view.Facts = facts;
    view.AnalogOption = facts.Values.AnalogOption;
    view.ProtocolCode = facts.Values.ProtocolCode;
    view.lblSigCond = EntryOrBlank(kInputOptions, facts.Values.InputOption);
    view.grdMain[0] = HeaderRow("    Dig. No.");
    for (const MenuItem& item : MenuItems()) {
        if (item.Shown(facts)) AddMenuRow(view, image, facts, item);
    }
    view.grdSetPt[0] = HeaderRow(" ALARM KEY  ");
    AddSetpoints(view, image, facts);
    view.ScrollTo(1);
    return view;
}

int MenuHelpId(int code, PointerEvent event, int analogOption, int protocolCode) {
    // Codes 49 to 52 belong to no row today; their help would be apart, on the primary event alone.
    bool apart = event == PointerEvent::Primary && code >= 49 && code <= 52;
    int number = code + (apart ? 2093 : 2200);
    if (analogOption == AnalogBoard::Dual16Bit && code >= 37)
        number -= 2;  // the second output has the help of the first
    if (protocolCode == Protocol::CustomAscii && code >= 43) number += 1;
    return number;
}

MenuRow Row41(const SetupImage& image) {
    std::string number = "00" + std::to_string(CodeOf(image, Field::ModbusAddress));
    return {NameOf("Addr"), CellsOfValue("    " + number.substr(number.size() - 3), CellPoints::Inside)};
}

}  // namespace counter
