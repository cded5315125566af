#include "sim/options.h"

#include <gtest/gtest.h>

#include <cctype>
#include <sstream>

#include "sim/memory.h"

namespace sim {
namespace {

TEST(Options, HelpListsEveryFaultAsItIsSpelled) {
    std::istringstream help(FaultHelp());
    int kind = 0;
    for (std::string line; std::getline(help, line); ++kind) {
        std::string spelling = line.substr(2, line.find(' ', 2) - 2);
        for (char& c : spelling) c = std::isupper(c) ? '1' : c;  // "=AT,MS" takes two numbers
        Fault fault;
        EXPECT_EQ(ParseFault("*:" + spelling, fault), "");
        EXPECT_EQ(fault.Kind, static_cast<FaultKind>(kind)) << line;
    }
    EXPECT_EQ(kind, static_cast<int>(FaultKind::Twice) + 1);
}

TEST(Options, IllegalTextsChangeNothingAndSayWhatIsLegal) {
    for (const char* text :
         {"", "XR35", ":noreply", "XR35:", "XR35:silence", "XR35:cut", "XR35:cut=", "XR35:cut=x",
          "XR35:cut=-1", "XR35:cut=1,2", "XR35:noreply=1", "XR35:pause=5", "XR35:pause=5,", "XR35#0:extra",
          "XR35#:extra", "XR35#x:extra", "XR35:late=99999999999"}) {
        Fault fault{"kept"};
        EXPECT_NE(ParseFault(text, fault).find("noreply, cut=N"), std::string::npos) << text;
        EXPECT_EQ(fault.Command, "kept") << text;
    }
    for (const char* text : {"", "=00", "0=00", "261=0", "260=00", "x=00", "5=", "5=0g", "5=0a", "5"}) {
        ImagePatch patch{7, "kept"};
        EXPECT_NE(ParsePatch(text, patch), "") << text;
        EXPECT_EQ(patch.Digits, "kept") << text;
    }
    std::map<int, int> bytes;
    for (const char* text : {"", "30", "30=", "3=49", "30=049", "30=4g"})
        EXPECT_NE(ParseLiveByte(text, bytes), "") << text;
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(ParseLiveByte("2B=04", bytes), "");
    EXPECT_EQ(bytes.at(0x2B), 4);
}

TEST(Options, AnAnalogBoardIsInTheMemoryOrRefusedWithTheReason) {
    const auto why = [](int board, int version, LineProtocol protocol = LineProtocol::CustomAscii) {
        MeterOptions options;
        options.AnalogBoard = board;
        options.Version = version;
        options.Protocol = protocol;
        Memory memory;
        EXPECT_TRUE(memory.LoadImage(StartImage(options)));
        EXPECT_EQ(memory.Bits(143, 7, 0), board);
        return WhyNotAnalog(options);
    };
    for (const auto& [board, first] : {std::pair(1, 0), {2, 74}, {3, 78}, {4, 78}}) {
        EXPECT_EQ(why(board, first), "") << board;
        if (first == 0) continue;
        const std::string from = " from firmware version " + std::to_string(first) + " on";
        EXPECT_EQ(why(board, first - 1), "there is analog board " + std::to_string(board) + from);
    }
    EXPECT_NE(why(1, 75, LineProtocol::ModbusRtu), "");
    EXPECT_EQ(why(1, 76, LineProtocol::ModbusRtu) + why(0, 50, LineProtocol::ModbusRtu), "");
}

TEST(Options, Rates) {
    std::optional<double> rate = 20;
    for (const char* text : {"", "0", "-1", "1001", "nan", "5x", "fast"}) {
        EXPECT_NE(ParseRate(text, rate).find("or max"), std::string::npos) << text;
        EXPECT_EQ(rate, 20) << text;
    }
    EXPECT_EQ(ParseRate("0.5", rate), "");
    EXPECT_EQ(rate, 0.5);
}

}  // namespace
}  // namespace sim
