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

Status ReadingsCsv::Begin() {
    return Wanted() ? store_.Write(path_, "") : Status{};
}

Status ReadingsCsv::Add(const std::string& time, const std::vector<std::string>& items) {
    if (!Wanted()) return {};
    if (columns_ == 0) {
        if (Status status = NameColumns(items.size()); !status.Ok()) return status;
    }
    std::string row = time;
    for (std::size_t i = 0; i < std::max(items.size(), columns_); ++i)
        row += "," + (i < items.size() ? items[i] : std::string());
    return store_.Append(path_, row + "\n");
}

Status ReadingsCsv::End() {
    return Wanted() && columns_ == 0 ? NameColumns(1) : Status{};
}

Status ReadingsCsv::NameColumns(std::size_t items) {
    columns_ = std::max<std::size_t>(items, 1);
    std::string names = "time";
    for (std::size_t i = 1; i <= columns_; ++i) names += ",item" + std::to_string(i);
    return store_.Append(path_, names + "\n");
}

}  // namespace counter
