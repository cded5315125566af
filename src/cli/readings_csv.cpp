#include "cli/readings_csv.h"

#include <algorithm>

namespace counter {

Status ReadingsCsv::Try() {
    if (!Wanted()) return {};
    fresh_ = !store_.Exists(path_);
    return store_.Append(path_, "");
}

void ReadingsCsv::GiveUp() {
    if (Wanted() && fresh_) store_.Remove(path_);
}

Status ReadingsCsv::Add(const std::string& time, const std::vector<std::string>& items) {
    if (!Wanted()) return {};
    const bool first = columns_ == 0;
    const std::string names = first ? NameColumns(items.size()) : "";
    std::string row = time;
    for (std::size_t i = 0; i < std::max(items.size(), columns_); ++i)
        row += "," + (i < items.size() ? items[i] : std::string());
    return first ? store_.Write(path_, names + row + "\n") : store_.Append(path_, row + "\n");
}

Status ReadingsCsv::End() {
    return Wanted() && columns_ == 0 ? store_.Write(path_, NameColumns(1)) : Status{};
}

std::string ReadingsCsv::NameColumns(std::size_t items) {
    columns_ = std::max<std::size_t>(items, 1);
    std::string names = "time";
    for (std::size_t i = 1; i <= columns_; ++i) names += ",item" + std::to_string(i);
    return names + "\n";
}

}  // namespace counter
