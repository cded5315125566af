#include "setup_view/source_list.h"

#include <array>

namespace counter {

namespace {

constexpr int kLastOwnDisplay = 5;
constexpr int kItem3 = 3;

// By the number of the item that is filtered.
constexpr std::array<std::string_view, 4> kFilteredItem = {"", "Filtered Item1", "Filtered Item2",
                                                           "Filtered Item3"};
constexpr std::array<std::string_view, 4> kItem = {"", "Item 1", "Item 2", "Item 3"};

}  // namespace

int RefreshSources(const Page& page, Control& list, Field field) {
    const DerivedValues& values = page.Values();
    list.Entries.clear();
    list.ListIndex = -1;
    if (values.DisplayType > kLastOwnDisplay) {
        list.Entries.push_back(kItem[kItem3]);
        page.Controls().SetIndex(list, 0);
        return kItem3;
    }
    bool filtered = values.FilteredItem != 0;
    if (filtered) list.Entries.push_back(kFilteredItem[static_cast<std::size_t>(values.FilteredItem)]);
    list.Entries.push_back(kItem[1]);
    if (values.SourceItems > 1) list.Entries.push_back(kItem[2]);
    if (values.SourceItems == 3) list.Entries.push_back(kItem[3]);

    int stored = page.Stored(field);
    int code = SourceInForce(values, stored);
    if (code != stored) page.Put(field, code);
    page.Controls().SetIndex(list, filtered ? code : code - 1);
    return code;
}

int SourceOfEntry(const DerivedValues& values, int index) {
    if (values.DisplayType > kLastOwnDisplay) return kItem3;
    return values.FilteredItem == 0 ? index + 1 : index;
}

}  // namespace counter
