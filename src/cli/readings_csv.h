// Readings of the stream as a table, row by row while they come.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace counter {

// The first line names the columns: "time", then "item1" and on, as many as the first reading has. A row with
// less has its last cells empty; one with more, after a change at the meter, is longer than the first line.
class ReadingsCsv {
  public:
    // An empty path: no table is wanted, and nothing is done.
    ReadingsCsv(Files& store, std::string path) : store_(store), path_(std::move(path)) {}

    // Whether the file can be written, before anything is sent; what it holds stays.
    Status Try();
    // Takes back what Try made: there was no such file.
    void GiveUp();
    // A row, which Flush writes.
    void Add(const std::string& time, const std::vector<std::string>& items);
    // Rows that came together go out together. What the file held is given up with the first of them, and
    // with the end of a table that has none.
    Status Flush();
    // A table without a reading has its first line all the same.
    Status End();

  private:
    bool Wanted() const { return !path_.empty(); }
    void NameColumns(std::size_t items);

    Files& store_;
    std::string path_;
    bool fresh_ = false;                 // Try made the file
    std::unique_ptr<GrowingFile> file_;  // once the first rows are in it
    std::string waiting_;
    std::size_t columns_ = 0;  // items of a row; 0 before the first line is written
};

}  // namespace counter
