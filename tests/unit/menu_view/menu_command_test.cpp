// counterctl show --as menu: the document and the text.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/cli.h"
#include "meter/default_setup.h"
#include "shell/setup_files.h"
#include "support/memory_files.h"

namespace counter::test {
namespace {

using Json = nlohmann::json;

struct MenuCommand {
    MemoryFiles Store;
    std::string Out, Err;

    // Puts digits into the default setup and shows the file.
    int Show(int pos, std::string_view digits, const std::vector<const char*>& more) {
        SetupImage image;
        BuildDefaultSetup(image);
        DigitsPut(image, pos, digits);
        Store.Contents["a.CT2"] = TextOfImage(image);
        std::ostringstream out, err;
        auto noMachine = [](const std::string&) -> std::unique_ptr<Machine> {
            throw std::logic_error("a file is shown without a port");
        };
        const CliWorld world{out, err, false, Store, [] { return std::string("home"); }, noMachine};
        std::vector<const char*> argv = {"counterctl", "show", "a.CT2", "--as", "menu"};
        argv.insert(argv.end(), more.begin(), more.end());
        const int status = RunCli(world, static_cast<int>(argv.size()), argv.data());
        Out = out.str();
        Err = err.str();
        return status;
    }
};

// clang-format off
constexpr const char* kDefaultMenu = R"({
"main": [
 {"name": "InPut",  "code": 1,  "cells": ["  ", "  ", "  ", " r", " A", " t", " E"]},    {"name": "SEtuP",  "code": 2,  "cells": [" ", " ", "0", "0", "0", "0", "0"]},
 {"name": "ConFiG", "code": 3,  "cells": [" ", " ", " ", "0", "1", "0", "0"]},           {"name": "dSPyno", "code": 4,  "cells": [" ", " ", " ", " ", " ", "0", "1"]},
 {"name": "GAtE t", "code": 6,  "cells": [" 0", " 0", " 0.", " 1", " 0", "  ", "  "]},   {"name": "ti Out", "code": 7,  "cells": [" 0", " 0", " 3.", " 0", " 0", "  ", "  "]},
 {"name": "FiLtEr", "code": 9,  "cells": [" ", " ", "0", "0", "0", "1", "1"]},           {"name": "SLOPE",  "code": 10, "cells": [" ", " ", " ", " ", " ", "0", "1"]},
 {"name": "DecPt1", "code": 11, "cells": ["  ", " 1", " 1", " 1", " 1", " 1", " 1."]},   {"name": "DecPt2", "code": 12, "cells": ["  ", " 2", " 2", " 2", " 2", " 2", " 2."]},
 {"name": "SCALE1", "code": 13, "cells": ["  ", " 1.", " 0", " 0", " 0", " 0", " 0"]},   {"name": "OFFSt1", "code": 14, "cells": ["  ", " 0", " 0", " 0", " 0", " 0", " 0"]},
 {"name": "SCALE2", "code": 19, "cells": ["  ", " 1.", " 0", " 0", " 0", " 0", " 0"]},   {"name": "OFFSt2", "code": 20, "cells": ["  ", " 0", " 0", " 0", " 0", " 0", " 0"]},
 {"name": "SourcE", "code": 27, "cells": [" ", " ", " ", "0", "0", " ", " "]},           {"name": "AL SEt", "code": 28, "cells": [" ", " ", "0", "0", "0", "0", "0"]},
 {"name": "dEUn1b", "code": 30, "cells": ["  ", " 0", " 0", " 0", " 0", " 0", " 0"]},    {"name": "dEUn2b", "code": 31, "cells": ["  ", " 0", " 0", " 0", " 0", " 0", " 0"]},
 {"name": "An SEt", "code": 34, "cells": [" ", " ", " ", " ", " ", "1", "3"]},           {"name": "An Lo",  "code": 35, "cells": ["  ", " 0", " 0", " 0", " 0", " 0", " 0"]},
 {"name": "An Hi",  "code": 36, "cells": ["  ", " 0", " 1", " 0", " 0", " 0", " 0"]},    {"name": "SEr 1",  "code": 39, "cells": [" ", " ", " ", " ", "0", "5", "0"]},
 {"name": "SEr 2",  "code": 40, "cells": [" ", " ", " ", "0", "0", "1", "1"]},           {"name": "SEr 3",  "code": 41, "cells": [" ", " ", "0", "0", "0", "0", "1"]},
 {"name": "SEr 4",  "code": 42, "cells": [" ", " ", " ", " ", "0", "0", "0"]},           {"name": "CALib",  "code": 43, "cells": [" -", "  ", " 0", " 0", " 1", " 0", " 0"]},
 {"name": "Loc 1",  "code": 44, "cells": [" ", " ", " ", "0", "0", "0", "0"]},           {"name": "Loc 2",  "code": 45, "cells": [" ", " ", " ", "0", "0", "0", "0"]},
 {"name": "Loc 3",  "code": 46, "cells": [" ", " ", " ", "0", "0", "0", "0"]},           {"name": "Loc 4",  "code": 47, "cells": [" ", " ", " ", "0", "0", "0", "0"]}],
"setpoints": [
 {"name": "SETPT1", "cells": ["+", " 0", " 1", " 0", " 0", " 0", " 0"]},                 {"name": "SETPT2", "cells": ["+", " 0", " 2", " 0", " 0", " 0", " 0"]}],
"input": [" A", "  ", "  ", " b", "  ", "  "],
"scale1": ["  ", "  ", "  ", "  ", "  ", " 1"],
"scale2": ["  ", "  ", "  ", "  ", "  ", " 1"],
"inputOption": " Dual Signal Conditioner",
"noChangeRow": 26,
"setup": "0027100000000000000000000000000186A00000000186A0004E20002710002710002710000000000000002710002710000000000000000100000000000000000000000080640002271023112E050101040055070500012C000A000004012150490900000000000000000000000000000000000053030D0008000D00002710000000"
})";
// clang-format on

TEST(MenuCommand, WritesTheDefaultSetupAsJson) {
    MenuCommand command;
    EXPECT_EQ(command.Show(1, "002710", {"--json"}), 0);
    EXPECT_EQ(Json::parse(command.Out), Json::parse(kDefaultMenu));
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
