// Any arguments of counterctl, a line each: it ends with one of its statuses, tells what it refuses, and a
// file that was there is whole afterwards.
#include <nlohmann/json.hpp>

#include "fuzz_cli.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FuzzCli cli;
    cli.Store.Contents["p"] = "0123456789ABCDEF,FEDCBA9876543210\r\n";
    test::Words words;
    std::istringstream lines{std::string(fuzz::TextOf(data, size))};
    for (std::string word; std::getline(lines, word);) words.push_back(word.substr(0, word.find('\0')));
    const int status = cli.Run(words, "select cboMode #1\n");
    constexpr int kStatuses[] = {kDone, kUsage, kFileOrPort, kLinkFailed, kDifferent, kInterrupted};
    fuzz::Require(std::find(std::begin(kStatuses), std::end(kStatuses), status) != std::end(kStatuses));
    fuzz::Require(status == kDone || status == kDifferent || !cli.Err.empty());
    const bool json = std::find(words.begin(), words.end(), "--json") != words.end();
    const bool shown = cli.Out.starts_with('{') || cli.Out.starts_with('[');
    if (status == kDone && json && shown) fuzz::Require(nlohmann::json::accept(cli.Out));
    fuzz::Require(cli.Store.Contents.count("d") == 1 && !cli.Store.Contents["d"].empty());
    return 0;
}
