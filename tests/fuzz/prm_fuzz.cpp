// A .PRM file of any bytes: two items of bearable length, or none.
#include "curve/prm_file.h"
#include "fuzz_input.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view content = fuzz::TextOf(data, size);
    const auto items = ParsePrm(content);
    if (!items) return 0;
    for (const std::string& item : {items->First, items->Second}) {
        fuzz::Require(item.size() <= kMostItemLength);
        fuzz::Require(content.find(item) != std::string_view::npos);
    }
    // Items of digits, as a curve has them, are read again as they are.
    if ((items->First + items->Second).find_first_not_of("0123456789ABCDEF") != std::string::npos) return 0;
    if (items->First.empty() || items->Second.empty()) return 0;
    const auto again = ParsePrm(items->First + "," + items->Second + "\r\n");
    fuzz::Require(again && again->First == items->First && again->Second == items->Second);
    return 0;
}
