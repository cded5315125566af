// A setup file of any bytes on its way out: every form of text and JSON, and what a stream of these bytes
// leaves in a CSV file. One byte in front chooses the form.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "fuzz_cli.h"

using namespace counter;

namespace {

const test::Words kForms[] = {
    {"show", "f", "--as", "fields"},
    {"show", "f", "--as", "menu"},
    {"show", "f", "--as", "setup"},
    {"fields", "f"},
    {"diff", "f", "d"},
    {"diff", "d", "f"},
    {"edit", "f", "--out", "e"},
    {"fields", "f", "Setpoint 1"},
};

void Show(fuzz::FuzzCli& cli, test::Words words, bool json) {
    if (json) words.emplace_back("--json");
    const std::string before = cli.Store.Contents["f"];
    const int status = cli.Run(words);
    fuzz::Require(status == kDone || (words[0] == "diff" && status == kDifferent));
    fuzz::Require(cli.Store.Contents["f"] == before);
    if (json) fuzz::Require(nlohmann::json::accept(cli.Out));
}

void Stream(fuzz::FuzzCli& cli, const std::string& bytes) {
    cli.Line.Unplug();
    for (int second = 2; second < 9; ++second) cli.Line.InjectAfter(second * 1000, bytes);
    const int status = cli.Run({"stream", "--count", "5", "--seconds", "20", "--csv", "f"});
    fuzz::Require(status == kDone || (status == kLinkFailed && !cli.Err.empty()));
    const std::string& rows = cli.Store.Contents["f"];
    fuzz::Require(rows.empty() || rows.ends_with('\n'));
    // 29 characters of time, and behind it only what cells of numbers are made of.
    std::istringstream lines(rows);
    std::getline(lines, cli.Out);
    while (std::getline(lines, cli.Out))
        fuzz::Require(cli.Out.find_first_not_of("0123456789.-E,", 29) == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    fuzz::FuzzCli cli;
    const std::string bytes(fuzz::TextOf(data + 1, size - 1));
    const std::size_t form = data[0] / 2 % (std::size(kForms) + 1);
    if (form == std::size(kForms)) {
        Stream(cli, bytes);
        return 0;
    }
    cli.Store.Contents["f"] = bytes;
    Show(cli, kForms[form], data[0] % 2 != 0);
    return 0;
}
