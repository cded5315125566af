// Settings.SSS: what each digit means, what becomes of lines that are too short, too long or strange.
#include "settings/settings.h"

#include <gtest/gtest.h>

#include <utility>

#include "settings/settings_keys.h"

namespace counter {
namespace {

TEST(Normalise, Lines) {
    const struct {
        const char *Name, *Line, *Expected;
    } cases[] = {
        {"old format of 17", "35010001001008310", "3501000100100831010000"},
        {"20 characters", "35010001001008310123", "3501000100100831012300"},
        {"25 characters are cut", "3501000100100831012345678", "3501000100100831012345"},
        {"short stays short", "350", "35000000"},
        {"empty", "", "00000"},
    };
    for (const auto& c : cases) EXPECT_EQ(NormaliseLine1(c.Line), c.Expected) << c.Name;
}

TEST(Split, LineEndsAndCommas) {
    const struct {
        const char *Name, *Text, *Line1, *Line2;
    } cases[] = {
        {"as written", "abc\r\ndef\r\n", "abc", "def"},
        {"without CR", "abc\ndef", "abc", "def"},
        {"a comma ends a field", "abc,def\r\nghi\r\n", "abc", "def"},
        {"one line", "abc", "abc", ""},
        {"empty first line", "\r\ndef\r\n", "", "def"},
        {"nothing", "", "", ""},
    };
    for (const auto& c : cases) {
        const SettingsLines lines = SplitSettings(c.Text);
        EXPECT_EQ(lines.SettingsLine1, c.Line1) << c.Name;
        EXPECT_EQ(lines.SettingsLine2, c.Line2) << c.Name;
    }
}

Settings Parsed(const std::string& line1, const std::string& line2 = "2711000000000000F6CB00000000") {
    Settings settings;
    ParseSettings({line1, line2}, settings);
    return settings;
}

// The keys of the file are read in cli_tests, each with a value of its own.
TEST(Parse, WhatIsMadeOfTheLine) {
    const Settings s = Parsed("3612120K247107925_____");
    EXPECT_EQ(s.ModbusLink, 1);
    EXPECT_EQ(s.MeterAddressChar, 'K');
    EXPECT_EQ(s.MeterAddressLabel, "4.");
    EXPECT_EQ(s.ModbusAddressHex, "F7");
}

TEST(Parse, SingleCharacters) {
    const struct {
        const char *Name, *Line;
        int Settings::*Member;
        int Expected;
    } cases[] = {
        {"type 4 is none", "4501000100100831010000", &Settings::MeterType, 0},
        {"type 9 is none", "9501000100100831010000", &Settings::MeterType, 0},
        {"type 8 stays", "8501000100100831010000", &Settings::MeterType, 8},
        {"baud 7", "3701000100100831010000", &Settings::BaudIndex, -1},
        {"baud is no digit", "3x01000100100831010000", &Settings::BaudIndex, -1},
        {"line ends before baud", "", &Settings::BaudIndex, 0},
        {"Modbus address 0 is 1", "3501000100000831010000", &Settings::ModbusAddress, 1},
        {"port with a blank", "35 7000100100831010000", &Settings::CommPortNumber, 7},
        {"address A", "3501000A00100831010000", &Settings::MeterAddressValue, 10},
        {"address : is 10 too", "3501000:00100831010000", &Settings::MeterAddressValue, 10},
        {"address V", "3501000V00100831010000", &Settings::MeterAddressValue, 31},
        {"version is no number", "350100010010ab31010000", &Settings::FirmwareVersion, 0},
    };
    for (const auto& c : cases) EXPECT_EQ(Parsed(c.Line).*c.Member, c.Expected) << c.Name;
}

TEST(Parse, AddressAbove31KeepsCharAndLabel) {
    Settings settings;
    ParseSettings({"3501000G00100831010000", ""}, settings);
    ParseSettings({"3501000~00100831010000", ""}, settings);
    EXPECT_EQ(settings.MeterAddressChar, 'G');
    EXPECT_EQ(settings.MeterAddressLabel, "0.");
}

TEST(Parse, NodeMeansEthernetUnlessAllZeroOrAllF) {
    const std::pair<const char*, int> cases[] = {{"2711000000000000F6CB00000000", 0},
                                                 {"2711FFFFFFFFFFFFF6CB00000000", 0},
                                                 {"27110000000000FFF6CBC0A80105", 1},
                                                 {"", 0}};
    for (const auto& [line2, mode] : cases)
        EXPECT_EQ(Parsed("3501000100100831010000", line2).EthernetMode, mode) << line2;
    EXPECT_EQ(Parsed("3501000100100831010000", "27110000000000FFF6CBC0A80105").NodeIp, "192.168.1.5");
}

TEST(Keys, LegalValuesLandAtTheirPositions) {
    const struct {
        const char *Key, *Value, *Line1, *Line2;
    } cases[] = {
        {"BaudIndex", "0", "3001000100100831010000", "2711000000000000F6CB00000000"},
        {"CommPortNumber", "7", "3507000100100831010000", "2711000000000000F6CB00000000"},
        {"MeterAddressValue", "31", "3501000V00100831010000", "2711000000000000F6CB00000000"},
        {"ModbusAddress", "20", "3501000102000831010000", "2711000000000000F6CB00000000"},
        {"FirmwareVersion", "78", "3501000100100781010000", "2711000000000000F6CB00000000"},
        {"TcpPort", "255", "3501000100100831010000", "00FF000000000000F6CB00000000"},
        {"NodeAddress", "0080a3010203", "3501000100100831010000", "27110080A3010203F6CB00000000"},
        {"NodeIp", "10.0.0.255", "3501000100100831010000", "2711000000000000F6CB0A0000FF"},
    };
    for (const auto& c : cases) {
        SettingsLines lines = NewSettingsLines();
        EXPECT_EQ(SetSettingsKey(lines, *FindSettingsKey(c.Key), c.Value), "") << c.Key;
        EXPECT_EQ(lines.SettingsLine1, c.Line1) << c.Key;
        EXPECT_EQ(lines.SettingsLine2, c.Line2) << c.Key;
    }
}

TEST(Keys, IllegalValuesChangeNothingAndSayWhatIsLegal) {
    const struct {
        const char *Key, *Value, *Expected;
    } cases[] = {
        {"BaudIndex", "7", "BaudIndex is a number 0 to 6"},
        {"BaudIndex", "", "BaudIndex is a number 0 to 6"},
        {"TcpPort", "0", "TcpPort is a number 1 to 65535"},
        {"BaudIndex", "5x", "BaudIndex is a number 0 to 6"},
        {"MeterType", "4", "MeterType is a number 0 to 8 other than 4"},
        {"CommPortNumber", "100", "CommPortNumber is a number 1 to 99"},
        {"ModbusAddress", "0", "ModbusAddress is a number 1 to 255"},
        {"NodeAddress", "12345", "NodeAddress is 12 hexadecimal digits"},
        {"NodeIp", "1.2.3", "NodeIp is four numbers 0 to 255 with points between them"},
        {"NodeIp", "1.2.3.256", "NodeIp is four numbers 0 to 255 with points between them"},
    };
    for (const auto& c : cases) {
        SettingsLines lines = NewSettingsLines();
        EXPECT_EQ(SetSettingsKey(lines, *FindSettingsKey(c.Key), c.Value), c.Expected);
        EXPECT_EQ(lines.SettingsLine1, "3501000100100831010000");
        EXPECT_EQ(lines.SettingsLine2, "2711000000000000F6CB00000000");
    }
    EXPECT_EQ(FindSettingsKey("Baud"), nullptr);
}

}  // namespace
}  // namespace counter
