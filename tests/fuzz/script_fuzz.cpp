// An edit script of any bytes: done whole and written, or refused at a line and nothing written. One byte in
// front says whether the setup counts as read from the meter, and which of two setups is edited.
#include <nlohmann/json.hpp>

#include "fuzz_cli.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    fuzz::FuzzCli cli;
    std::string& setup = cli.Store.Contents["d"];
    // Extended, two relay boards and Batch: most frames of the view are there.
    if ((data[0] & 2) != 0) setup.replace(192, 2, "61").replace(198, 2, "42");
    const std::string before = setup;
    test::Words words = {"edit", "d", "--out", "e", "--json"};
    if ((data[0] & 1) != 0) words.emplace_back("--from-meter");
    const int status = cli.Run(words, std::string(fuzz::TextOf(data + 1, size - 1)));
    fuzz::Require(status == kDone || status == kUsage);
    fuzz::Require(cli.Store.Contents["d"] == before);
    const auto written = cli.Store.Contents.find("e");
    if (status == kUsage) {
        fuzz::Require(written == cli.Store.Contents.end() && !cli.Err.empty());
        return 0;
    }
    const auto view = nlohmann::json::parse(cli.Out);
    fuzz::Require(view["ended"].get<bool>() == (written == cli.Store.Contents.end()));
    if (written == cli.Store.Contents.end()) return 0;
    fuzz::Require(written->second == view["setup"].get<std::string>() + "\r\n");
    fuzz::Require(written->second.size() == kImageDigits + 2);
    fuzz::Require(written->second.find_first_not_of("0123456789ABCDEF") == kImageDigits);
    return 0;
}
