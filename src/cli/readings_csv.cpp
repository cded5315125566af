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

void ReadingsCsv::Add(const std::string& time, const std::vector<std::string>& items) {
    if (!Wanted()) return;
    if (columns_ == 0) NameColumns(items.size());
    waiting_ += time;
    for (std::size_t i = 0; i < std::max(items.size(), columns_); ++i) {
        waiting_ += ',';
        if (i < items.size()) waiting_ += items[i];
    }
    waiting_ += '\n';
}

Status ReadingsCsv::Flush() {
    if (waiting_.empty()) return {};
    const std::string rows = std::exchange(waiting_, {});
    if (file_) return file_->Add(rows);
    Status status = store_.Write(path_, rows);
    return status.Ok() ? store_.Grow(path_, file_) : status;
}

Status ReadingsCsv::End() {
    if (Wanted() && columns_ == 0) NameColumns(1);
    return Flush();
}

void ReadingsCsv::NameColumns(std::size_t items) {
    columns_ = std::max<std::size_t>(items, 1);
    waiting_ += "time";
    for (std::size_t i = 1; i <= columns_; ++i) waiting_ += ",item" + std::to_string(i);
    waiting_ += '\n';
}

}  // namespace counter
