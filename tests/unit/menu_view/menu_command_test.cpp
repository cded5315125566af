// counterctl show --as menu: the document and the text.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/run_line.h"
#include "meter/default_setup.h"
#include "shell/setup_files.h"

namespace counter::test {
namespace {

using Json = nlohmann::json;

struct MenuCommand : CliBench {
    // Puts digits into the default setup and shows the file.
    int Show(int pos, std::string_view digits, const Words& more) {
        SetupImage image;
        BuildDefaultSetup(image);
        DigitsPut(image, pos, digits);
        Store.Contents["a.CT2"] = TextOfImage(image);
        Words words = {"show", "a.CT2", "--as", "menu"};
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }
};

TEST(MenuCommand, WritesTheDefaultSetupAsJson) {
    MenuCommand command;
    EXPECT_EQ(command.Show(1, "002710", {"--json"}), 0);
    Json menu = Json::parse(command.Out);
    EXPECT_EQ(menu["main"].size(), 30U);
    EXPECT_EQ(menu["main"][4],
              Json::parse(R"({"name":"GAtE t","code":6,"cells":[" 0"," 0"," 0."," 1"," 0","  ","  "]})"));
    EXPECT_EQ(menu["setpoints"][1],
              Json::parse(R"({"name":"SETPT2","cells":["+"," 0"," 2"," 0"," 0"," 0"," 0"]})"));
    menu.erase("main"), menu.erase("setpoints"), menu.erase("setup");
    EXPECT_EQ(menu, Json::parse(R"({"input":[" A","  ","  "," b","  ","  "],"noChangeRow":26,
        "scale1":["  ","  ","  ","  ","  "," 1"],"scale2":["  ","  ","  ","  ","  "," 1"],
        "inputOption":" Dual Signal Conditioner"})"));
    EXPECT_EQ(command.Err, "");
}

TEST(MenuCommand, TellsWhatIsntThereAndWhatWasRepaired) {
    MenuCommand command;
    command.Show(151, "00", {"--json"});
    EXPECT_EQ(Json::parse(command.Out)["setup"].get<std::string>().substr(150, 2), "11");
    command.Show(197, "30", {"--json"});
    EXPECT_TRUE(Json::parse(command.Out)["scale1"].is_null());
    EXPECT_TRUE(Json::parse(command.Out)["scale2"].is_null());
    command.Show(141, "\xFF", {"--json"});
    EXPECT_EQ(Json::parse(command.Out)["setup"].get<std::string>().substr(140, 2), "\xC3\xBF") << "as UTF-8";
}

TEST(MenuCommand, TakesTheMeterFromSettingsOrElseFromTheImage) {
    // The span mark of a deviation: from version 82 on.
    MenuCommand command;
    command.Show(201, "28", {"--json"});
    EXPECT_NE(command.Out.find("dEUn1h"), std::string::npos) << "version 83 of the image";
    command.Store.Contents["home/Settings.SSS"] = "3501000100100811010000\r\n";
    command.Show(201, "28", {"--json"});
    EXPECT_NE(command.Out.find("dEUn1H"), std::string::npos) << "version 81 of the settings";
}

TEST(MenuCommand, WritesATableForPeople) {
    MenuCommand command;
    EXPECT_EQ(command.Show(1, "002710", {}), 0);
    for (const char* line : {"    Dig. No.  S  1  2  3  4  5  6\n InPut                 r  A  t  E    A  b\n",
                             " SCALE1          1. 0  0  0  0  0    x 1\n",
                             " CALib        -     0  0  1  0  0    Do Not Change Calib\n",
                             " SETPT2       +  0  2  0  0  0  0\n"}) {
        EXPECT_NE(command.Out.find(line), std::string::npos) << line << command.Out;
    }
}

}  // namespace
}  // namespace counter::test
