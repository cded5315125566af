// The help files as built, read by a reader of the test's own: each number that a view can set has a text,
// and the text is about what has the number.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <span>
#include <sstream>
#include <utility>

#include "help/help_screens.h"
#include "menu_view/menu_items.h"
#include "menu_view/menu_view.h"
#include "meter/field_lists.h"
#include "meter/field_table.h"
#include "meter/mode_tables.h"
#include "meter/text.h"
#include "setup_view/setup_view.h"
#include "support/bench_meter.h"

namespace counter {
namespace {

std::string FileText(const std::string& name) {
    std::ifstream file(std::string(HELP_FOLDER) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string TextOf(int number) {
    const std::string n = std::to_string(number / 100);
    std::istringstream index(FileText("Help" + n + ".R10"));
    unsigned char record[6] = {};
    for (int i = 0; i < number % 100; ++i) index.read(reinterpret_cast<char*>(record), 6);
    if (!index || number % 100 == 0) return {};
    const std::size_t position = record[0] + 256U * record[1] + 65536U * record[2];
    return FileText("Help" + n + ".S10").substr(position - 1, record[4] + 256U * record[5]);
}

// Without the marks of emphasis.
std::string WordsOf(int number) {
    std::string text = TextOf(number);
    std::erase(text, '$');
    return text;
}

bool Tells(const std::string& text, std::string_view what) {
    const std::size_t first = what.find_first_not_of(' ');
    if (first == std::string_view::npos) return true;
    return text.find(what.substr(first, what.find_last_not_of(' ') - first + 1)) != std::string::npos;
}

int CountWords(const std::string& text) {
    std::istringstream words(text);
    return static_cast<int>(std::distance(std::istream_iterator<std::string>(words), {}));
}

// "Relay", "Alrm", "State" of "Relay1 Alrm State".
std::set<std::string> WordsIn(std::string_view caption) {
    std::set<std::string> words;
    std::string word;
    for (char c : std::string(caption) + " ") {
        if (std::isalpha(static_cast<unsigned char>(c))) {
            word += c;
        } else {
            words.insert(std::exchange(word, ""));
        }
    }
    return words;
}

// "MeterReset,FuncReset,MeterReset" of "Meter Reset       Func Reset          Meter Reset": columns are told
// with commas between them.
std::string Squashed(std::string_view text) {
    std::string squashed;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != ' ' && text[at] != '\r' && text[at] != '\n') squashed += text[at];
        const bool column = text.substr(at, 3) == "   " && !squashed.empty() && squashed.back() != ',';
        if (column && text.find_first_not_of(' ', at) != std::string_view::npos) squashed += ',';
    }
    return squashed;
}

// What can be typed into a value, as digit entry and the meter's display have it.
std::string RangeOf(const FieldRow& row) {
    if (row.Handle == Field::GateTime || row.Handle == Field::TimeOut) return "0.00 to 199.99";
    if (row.Handle == Field::CutoffValue) return "0 to 59999";
    if (row.Handle == Field::ModbusAddress) return "1 to 255";
    switch (row.ValueCode) {
        case 0:
            return "0 to 19999";
        case 1:
            return "-29999 to +29999";
        case 3:
            return "-9.99999 to +9.99999";
        case 7:
            return "0 to 255";
        default:
            return "-999999 to +999999";
    }
}

// Of a list its entries, or where they are a row of like ones the first and the last.
std::vector<std::string> EntriesOf(const FieldRow& row) {
    std::vector<std::string> entries;
    const bool ends = row.Handle == Field::Address || row.Entries.data() == lists::kDecPt1 ||
                      row.Entries.data() == lists::kDecPt2;
    for (std::size_t i = 0; i < row.Entries.size(); ++i) {
        if (!ends || i == 0 || i + 1 == row.Entries.size()) entries.push_back(Squashed(row.Entries[i]));
    }
    return entries;
}

TEST(HelpFiles, EveryControlOfTheSetupViewIsTold) {
    test::BenchMeter bench;
    SetupView view(bench.Program);
    std::map<int, std::set<std::string>> captions;
    for (const Control& control : view.Controls) {
        const bool passive = control.Kind == ControlKind::Frame || control.Kind == ControlKind::Label;
        EXPECT_TRUE(passive || control.HelpNumber != 0) << control.FullName();
        if (control.HelpNumber != 0) captions[control.HelpNumber].merge(WordsIn(control.Caption));
    }
    EXPECT_GT(captions.size(), 80U) << "the view was walked";
    for (const auto& [number, caption] : captions) {
        const std::string words = WordsOf(number);
        for (const std::string& word : caption) EXPECT_TRUE(Tells(words, word)) << word << " " << number;
        EXPECT_GE(CountWords(words), 40) << number;
    }
}

// The numbers of all rows that any meter can have, each with the row's name.
std::set<std::pair<int, const MenuItem*>> MenuNumbers() {
    constexpr int kDualBoard = 4;
    std::set<std::pair<int, const MenuItem*>> numbers;
    for (const MenuItem& item : MenuItems()) {
        const bool dualOnly = item.Code == 37 || item.Code == 38;  // An Lo 2, An Hi 2
        for (int board = dualOnly ? kDualBoard : 0; board <= kDualBoard; ++board) {
            for (int protocol : {0, 1, 2}) {
                for (PointerEvent event : {PointerEvent::Primary, PointerEvent::Secondary}) {
                    numbers.emplace(MenuHelpId(item.Code, event, board, protocol), &item);
                }
            }
        }
    }
    return numbers;
}

// The fields of a menu row: its value, or what each of its digits shows alone.
std::vector<const FieldRow*> FieldsOf(const MenuItem& item) {
    std::vector<const FieldRow*> rows;
    for (const FieldRow& row : FieldTable()) {
        const bool digit = std::any_of(item.Digits.begin(), item.Digits.end(), [&](const MenuBits& bits) {
            return bits.Pos == row.Pos && bits.HiBit == row.HiBit && bits.LoBit == row.LoBit;
        });
        const bool value = item.By == MenuCellsBy::Value && row.Handle == item.Value.Of;
        if (digit || value) rows.push_back(&row);
    }
    return rows;
}

TEST(HelpFiles, EveryMenuRowIsToldWithWhatItShows) {
    constexpr std::size_t kToldWhole = 3;  // longer lists are told in short
    for (const auto& [number, item] : MenuNumbers()) {
        const std::string words = WordsOf(number), squashed = Squashed(words);
        const std::string where = std::string(item->Name) + " " + std::to_string(number) + ": ";
        EXPECT_TRUE(Tells(words, item->Name)) << where;
        EXPECT_GE(CountWords(words), 40) << where;
        for (const FieldRow* row : FieldsOf(*item)) {
            EXPECT_TRUE(!row->IsValue() || Tells(words, RangeOf(*row))) << where << RangeOf(*row);
            if (row->Entries.size() > kToldWhole) continue;
            for (const std::string& entry : EntriesOf(*row))
                EXPECT_TRUE(Tells(squashed, entry)) << where << entry;
        }
    }
    EXPECT_TRUE(Tells(WordsOf(kScale1HelpId), "multiplier"));
    EXPECT_TRUE(Tells(WordsOf(kScale2HelpId), "multiplier"));
}

TEST(HelpFiles, HeadingsAndScreensHaveTheirTexts) {
    const std::pair<int, const char*> titles[] = {
        // clang-format off
        {3101, "Main menu"}, {3102, "File"}, {3103, "Help"},    {3104, "Commands"},    {3105, "Readings"},
        {3115, "Counter"},   {3116, "View"}, {3117, "Jumpers"}, {1210, "Calibration"},
        {3118, "Typing a value"}, {3119, "Send .PRM File"}, {3120, "Waiting for the Ethernet node"},
        {3121, "Glossary"}, {3125, "Compare"}, {3126, "Setup sheet"},
        // clang-format on
    };
    for (const auto& [number, title] : titles) {
        EXPECT_EQ(TextOf(number).rfind("$" + std::string(title) + "$\r\n", 0), 0U) << number;
        EXPECT_GE(CountWords(TextOf(number)), 40) << number;
    }
    for (const JumperScreen& screen : kJumperScreens) {
        const std::string text = TextOf(screen.HelpId);
        EXPECT_EQ(text.empty(), screen.HelpId == 0) << screen.Form;
        EXPECT_TRUE(text.empty() || CountWords(text) >= 40) << screen.Form;
        EXPECT_FALSE(Tells(text, "$")) << "the label would show a stray blank: " << screen.Form;
    }
}

// What the meter can hold in a field is told where the field is changed, and so is how a value is typed.
TEST(HelpFiles, EveryFieldIsToldWithItsEntriesOrItsRange) {
    test::BenchMeter bench;
    SetupView view(bench.Program);
    int lists = 0, values = 0;
    for (const Binding& binding : view.Bindings) {
        const FieldRow& row = RowOf(binding.Of);
        const int number = binding.Shown.HelpNumber;
        const std::string words = WordsOf(number), squashed = Squashed(words);
        for (const std::string& entry : EntriesOf(row))
            EXPECT_TRUE(Tells(squashed, entry)) << row.Name << " " << number << ": " << entry;
        lists += row.Entries.empty() ? 0 : 1;
        if (row.ValueCode == kNoValueCode) continue;
        EXPECT_TRUE(Tells(words, RangeOf(row))) << row.Name << " " << number;
        EXPECT_TRUE(Tells(words, "Enter stores the value")) << row.Name << " " << number;
        ++values;
    }
    EXPECT_GT(lists, 50);
    EXPECT_GT(values, 50);
    // Lists that rules fill, or that are no list in the view.
    const std::pair<int, std::span<const std::string_view>> others[] = {
        {1104, lists::kInputOption}, {1105, ModeNames},
        {1121, lists::kRelayOption}, {1123, lists::kAnalogOption},
        {1135, lists::kEntryForm},   {1169, lists::kDeviationType},
        {1193, lists::kSource},      {1199, lists::kLockoutJumper}};
    for (const auto& [number, entries] : others) {
        const std::string words = WordsOf(number);
        for (std::string_view entry : entries) EXPECT_TRUE(Tells(words, entry)) << number << entry;
    }
    for (const auto& names : FunctionNames) {
        for (std::string_view name : names)
            EXPECT_TRUE(Tells(Squashed(WordsOf(1106)), Squashed(name))) << name;
    }
}

// The glossary of the help menu and that of the docs.
TEST(HelpFiles, BothGlossariesSayTheSame) {
    std::ifstream page(SOURCE_FOLDER "/docs/glossary.md");
    std::string told, line;
    while (std::getline(page, line)) {
        if (line.starts_with("- **")) told += "\r\n" + std::regex_replace(line, std::regex("\\*\\*"), "");
    }
    ASSERT_GT(told.size(), 2000U);
    EXPECT_TRUE(WordsOf(3121).ends_with("\r\n" + told)) << WordsOf(3121) << told;
}

// Each of the 128 codes is in its column with its hexadecimal form and its character or name.
TEST(HelpFiles, CharacterTableKeepsItsColumns) {
    constexpr std::size_t kColumns[] = {0, 34, 47, 60};
    std::vector<std::string> lines;
    std::istringstream text(TextOf(1138));
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line.substr(0, line.find('\r')));
        EXPECT_LE(lines.back().size(), 78U) << line;
    }
    constexpr std::size_t kFirst = 4;
    ASSERT_GT(lines.size(), kFirst + 32);
    EXPECT_EQ(lines[kFirst + 4], "  4 04 eot end of transmission     36 24 $      68 44 D     100 64 d");
    EXPECT_EQ(lines[kFirst + 10].substr(34), " 42 2A *      74 4A J     106 6A j")
        << "no mark was made of it";
    for (int code = 0; code < 128; ++code) {
        char cell[8];
        std::snprintf(cell, sizeof cell, "%3d %02X ", code, static_cast<unsigned>(code));
        const std::string& line = lines[kFirst + static_cast<std::size_t>(code % 32)];
        const std::size_t column = kColumns[code / 32];
        EXPECT_EQ(line.substr(column, 7), cell);
        const std::string name = code == 127 ? "del" : AsciiName(code);
        EXPECT_EQ((line + "  ").substr(column + 7, name.size()), name) << code;
    }
}

}  // namespace
}  // namespace counter
