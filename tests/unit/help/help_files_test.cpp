// The help files as built, read by a reader of the test's own: each number that a view can set has a text,
// and the text is about what has the number.
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>
#include <set>
#include <span>
#include <sstream>

#include "help/help_screens.h"
#include "menu_view/menu_items.h"
#include "menu_view/menu_view.h"
#include "meter/field_lists.h"
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

// "Relay" of "Relay1 Alrm State".
std::string LongestWord(std::string_view caption) {
    std::string longest, word;
    for (char c : std::string(caption) + " ") {
        if (std::isalpha(static_cast<unsigned char>(c))) {
            word += c;
        } else {
            if (word.size() > longest.size()) longest = word;
            word.clear();
        }
    }
    return longest;
}

TEST(HelpFiles, EveryControlOfTheSetupViewIsTold) {
    test::BenchMeter bench;
    SetupView view(bench.Program);
    std::set<std::pair<int, std::string>> told;
    for (const Control& control : view.Controls) {
        const bool passive = control.Kind == ControlKind::Frame || control.Kind == ControlKind::Label;
        EXPECT_TRUE(passive || control.HelpNumber != 0) << control.FullName();
        if (control.HelpNumber != 0) told.emplace(control.HelpNumber, LongestWord(control.Caption));
    }
    EXPECT_GT(told.size(), 90U) << "the view was walked";
    for (const auto& [number, word] : told) {
        EXPECT_TRUE(Tells(WordsOf(number), word)) << word << " " << number;
        EXPECT_GE(CountWords(TextOf(number)), 40) << number;
    }
}

// The numbers of all rows that any meter can have, each with the row's name.
std::set<std::pair<int, std::string_view>> MenuNumbers() {
    constexpr int kDualBoard = 4;
    std::set<std::pair<int, std::string_view>> numbers;
    for (const MenuItem& item : MenuItems()) {
        const bool dualOnly = item.Code == 37 || item.Code == 38;  // An Lo 2, An Hi 2
        for (int board = dualOnly ? kDualBoard : 0; board <= kDualBoard; ++board) {
            for (int protocol : {0, 1, 2}) {
                for (PointerEvent event : {PointerEvent::Primary, PointerEvent::Secondary}) {
                    numbers.emplace(MenuHelpId(item.Code, event, board, protocol), item.Name);
                }
            }
        }
    }
    return numbers;
}

TEST(HelpFiles, EveryMenuRowIsToldByItsName) {
    for (const auto& [number, name] : MenuNumbers()) {
        EXPECT_TRUE(Tells(WordsOf(number), name)) << name << " " << number;
        EXPECT_GE(CountWords(TextOf(number)), 40) << number;
    }
    EXPECT_TRUE(Tells(WordsOf(kScale1HelpId), "multiplier"));
    EXPECT_TRUE(Tells(WordsOf(kScale2HelpId), "multiplier"));
}

TEST(HelpFiles, HeadingsAndScreensHaveTheirTexts) {
    const std::pair<int, const char*> titles[] = {
        // clang-format off
        {3101, "Main menu"}, {3102, "File"}, {3103, "Help"},    {3104, "Commands"},    {3105, "Readings"},
        {3115, "Counter"},   {3116, "View"}, {3117, "Jumpers"}, {1210, "Calibration"},
        {1375, "Power supply jumpers"},      {1383, "RS232 board, revision G"},
        {1384, "RS485 board, revision G"},   {1393, "Modbus board, revision G"},
        // clang-format on
    };
    for (const auto& [number, title] : titles) {
        EXPECT_EQ(TextOf(number).rfind("$" + std::string(title) + "$\r\n", 0), 0U) << number;
        EXPECT_GE(CountWords(TextOf(number)), 40) << number;
    }
    for (const JumperScreen& screen : kJumperScreens) {
        EXPECT_EQ(TextOf(screen.HelpId).empty(), screen.HelpId == 0) << screen.Form;
    }
}

TEST(HelpFiles, ListsAreToldEntryByEntry) {
    const std::pair<int, std::span<const std::string_view>> cases[] = {
        // clang-format off
        {1104, lists::kInputOption}, {1111, lists::kCutoffEnable}, {1112, lists::kPowerOnTotal},
        {1115, lists::kFiltered}, {1116, lists::kLeadingZeros}, {1117, lists::kDisplayItem},
        {1118, lists::kPeakKeyAction}, {1121, lists::kRelayOption}, {1122, lists::kCommOption},
        {1123, lists::kAnalogOption}, {1135, lists::kEntryForm}, {1152, lists::kSlope},
        {1154, lists::kBatchReset}, {1155, lists::kBatchItem2}, {1157, lists::kBatchStart},
        {1159, lists::kTimeConstant}, {1160, lists::kThreshold}, {1161, lists::kFiltered},
        {1162, lists::kFilterType}, {1165, lists::kAlarmState}, {1166, lists::kAlarmType},
        {1167, lists::kRelayState}, {1169, lists::kDeviationType}, {1174, lists::kProtocol},
        {1175, lists::kBaudRate}, {1176, lists::kParity}, {1178, lists::kModbusTimeout},
        {1179, lists::kDuplex}, {1180, lists::kOutputItems}, {1181, lists::kOutputFilter},
        {1182, lists::kOutputRate}, {1183, lists::kOutputMode}, {1186, lists::kCr}, {1187, lists::kRtsType},
        {1188, lists::kRecognition}, {1189, lists::kTransmission}, {1193, lists::kSource},
        {1194, lists::kAnalogRange}, {1199, lists::kLockoutJumper},
        // clang-format on
    };
    for (const auto& [number, entries] : cases) {
        const std::string words = WordsOf(number);
        for (std::string_view entry : entries) EXPECT_TRUE(Tells(words, entry)) << number << entry;
    }
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
