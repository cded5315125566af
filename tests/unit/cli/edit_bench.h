// Commands on setup files without a meter, run on a default setup "d".
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "meter/default_setup.h"
#include "run_line.h"

namespace counter::test {

using Json = nlohmann::json;

struct EditBench : CliBench {
    EditBench() { SetUp(""); }
    // "d" is the default setup with `digits` at `pos`.
    void SetUp(const std::string& digits, std::size_t pos = 1) {
        SetupImage image;
        BuildDefaultSetup(image);
        Store.Contents["d"] = image.SetupData.replace(pos - 1, digits.size(), digits) + "\r\n";
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
