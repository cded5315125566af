// Commands on setup files without a meter, run on a default setup "d".
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/cli.h"
#include "meter/default_setup.h"
#include "run_line.h"
#include "support/memory_files.h"
#include "support/virtual_pump.h"

namespace counter::test {

using Json = nlohmann::json;

struct EditBench {
    MemoryFiles Store;
    bool Terminal = false;                    // at both ends
    std::streamsize OutRoom = 1'000'000'000;  // characters until standard output takes no more
    std::string Out, Err;

    EditBench() { SetUp(""); }
    // "d" is the default setup with `digits` at `pos`.
    void SetUp(const std::string& digits, std::size_t pos = 1) {
        SetupImage image;
        BuildDefaultSetup(image);
        Store.Contents["d"] = image.SetupData.replace(pos - 1, digits.size(), digits) + "\r\n";
    }
    int Run(const Words& words, const std::string& input = "") {
        std::istringstream in(input);
        std::ostringstream err;
        LeakyOutput written;
        written.Room = OutRoom;
        std::ostream out(&written);
        const auto home = [] { return std::string("home"); };
        const auto machine = [](const std::string&) -> std::unique_ptr<Machine> {
            ADD_FAILURE() << "a setup file needs no machine";
            return nullptr;
        };
        const auto exit = [](int status) { throw ProcessEnded{status}; };
        const CliWorld world{out, err, Terminal, Store, home, machine, in, exit, Terminal};
        const int status = RunLine(world, words);
        Out = written.str();
        Err = err.str();
        return status;
    }
    int Edit(const std::string& script) { return Run({"edit", "d", "--out", "e", "--json"}, script); }
    std::string Digits(int pos, int count) const {
        const auto found = Store.Contents.find("e");
        if (found == Store.Contents.end()) return "nothing written";
        return found->second.substr(static_cast<std::size_t>(pos) - 1, static_cast<std::size_t>(count));
    }
    Json View() const { return Json::parse(Out); }
    Json Shown(const std::string& control) const { return View()["controls"][control]; }
};

}  // namespace counter::test
