#include "sim/bus_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <utility>

#include "sim/csv.h"
#include "sim/device.h"
#include "sim/meter_cli.h"
#include "sim/sim_files.h"

namespace sim {

namespace {

LineSettings LineAtStart(const MeterOptions& options) {
    Memory memory;
    memory.LoadImage(StartImage(options));
    return LineSettingsOf(memory);
}

std::string NameByAddress(const MeterOptions& options) {
    const LineSettings line = LineAtStart(options);
    const bool ascii = line.Protocol == LineProtocol::CustomAscii;
    const std::string digits = std::to_string(ascii ? line.Address : line.ModbusAddress);
    return digits.size() < 2 ? "0" + digits : digits;
}

// Files are called by it.
std::string TakeName(const std::string& text, std::string& name) {
    if (text.find('/') != std::string::npos || text.starts_with('.'))
        return "a name with a slash or a dot in front";
    name = text;
    return "";
}

std::string TakeImage(const std::string& text, const std::string& folder, BusMeter& meter) {
    meter.ImageFile = (std::filesystem::path(folder) / text).string();
    return ReadImageFile(meter.ImageFile, meter.Options.Image);
}

// One row on its way to a meter.
class Row {
  public:
    Row(const BusMeter& defaults, std::string folder) : meter_(defaults), folder_(std::move(folder)) {
        app_.set_help_flag();
        AddMeterOptions(app_, meter_.Options);
        meter_.Options.Shared = true;
        meter_.Name.clear();
    }
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    bool Knows(const std::string& column) const {
        return column == "name" || column == "image" || app_.get_option_no_throw("--" + column) != nullptr;
    }

    // Empty, or what is wrong. The address comes last: which it is, the protocol says.
    std::string Take(const std::string& column, const std::string& text) {
        if (column == "name") return TakeName(text, meter_.Name);
        if (column == "image") return TakeImage(text, folder_, meter_);
        if (column == "fault" || column == "set" || column == "live") return TakeSeveral(column, text);
        const bool modbus = LineAtStart(meter_.Options).Protocol != LineProtocol::CustomAscii;
        return Parse(column == "address" && modbus ? "modbus-address" : column, text);
    }

    BusMeter Done() {
        if (meter_.Name.empty()) meter_.Name = NameByAddress(meter_.Options);
        return meter_;
    }

  private:
    std::string TakeSeveral(const std::string& column, const std::string& text) {
        std::istringstream words(text);
        for (std::string word; words >> word;) {
            if (auto wrong = Parse(column, word); !wrong.empty()) return wrong;
        }
        return "";
    }

    std::string Parse(const std::string& option, const std::string& value) {
        try {
            app_.parse(std::vector<std::string>{"--" + option + "=" + value});
            return "";
        } catch (const CLI::ParseError& error) {
            const std::string text = error.what(), head = "--" + option + ": ";
            return text.starts_with(head) ? text.substr(head.size()) : text;
        }
    }

    CLI::App app_;
    BusMeter meter_;
    std::string folder_;
};

// In the order in which they are to be taken.
std::vector<std::size_t> OrderOf(const std::vector<std::string>& columns) {
    std::vector<std::size_t> order(columns.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    const auto rank = [&](std::size_t i) {
        return columns[i] == "image" ? 0 : columns[i] == "address" ? 2 : 1;
    };
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return rank(a) < rank(b); });
    return order;
}

class Table {
  public:
    Table(const BusMeter& defaults, std::string folder) : defaults_(defaults), folder_(std::move(folder)) {}

    void TakeHeading(const CsvRow& row) {
        columns_ = row.Cells;
        const Row known(defaults_, folder_);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (!known.Knows(columns_[i]))
                Object(row.Line, i, "no column is called so; it is name, image or an option of the meter");
        }
        order_ = OrderOf(columns_);
    }

    void TakeMeter(const CsvRow& row, std::vector<BusMeter>& meters) {
        if (row.Cells.size() > columns_.size()) {
            Wrong.push_back(CsvPlace(row.Line, columns_.size() + 1) + ": more cells than the heading has");
            return;
        }
        Row made(defaults_, folder_);
        std::map<std::size_t, std::string> objections;
        for (const std::size_t i : order_) {
            if (i >= row.Cells.size() || row.Cells[i].empty()) continue;
            if (auto why = made.Take(columns_[i], row.Cells[i]); !why.empty()) objections[i] = std::move(why);
        }
        for (const auto& [column, why] : objections) Object(row.Line, column, why);
        if (!objections.empty()) return;
        meters.push_back(made.Done());
        if (const auto why = WhyNotAnalog(meters.back().Options); !why.empty())
            Object(row.Line, "analog", why);
        if (!names_.insert(meters.back().Name).second)
            Object(row.Line, "name", "another meter is called \"" + meters.back().Name + "\": name both");
    }

    std::vector<std::string> Wrong;

  private:
    void Object(int line, std::size_t column, const std::string& why) {
        Wrong.push_back(CsvPlace(line, column + 1) + " (" + columns_[column] + "): " + why);
    }
    // Of a column that need not be there.
    void Object(int line, const std::string& name, const std::string& why) {
        const auto found = std::find(columns_.begin(), columns_.end(), name);
        if (found != columns_.end())
            return Object(line, static_cast<std::size_t>(found - columns_.begin()), why);
        Wrong.push_back("line " + std::to_string(line) + " (" + name + "): " + why);
    }

    const BusMeter& defaults_;
    std::string folder_;
    std::vector<std::string> columns_;
    std::vector<std::size_t> order_;
    std::set<std::string> names_;
};

}  // namespace

std::vector<std::string> ParseBusTable(std::string_view text, const std::string& folder,
                                       const BusMeter& defaults, std::vector<BusMeter>& meters) {
    std::vector<CsvRow> rows;
    if (auto wrong = ReadCsv(text, rows); !wrong.empty()) return {wrong};
    Table table(defaults, folder);
    if (!rows.empty()) table.TakeHeading(rows.front());
    if (!table.Wrong.empty()) return table.Wrong;
    if (rows.size() < 2) return {"line 1: a heading, and below it a row for each meter, are to stand here"};
    for (std::size_t i = 1; i < rows.size(); ++i) table.TakeMeter(rows[i], meters);
    return table.Wrong;
}

std::vector<std::string> ReadBusFile(const std::string& path, const BusMeter& defaults,
                                     std::vector<BusMeter>& meters) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    if (!file || std::filesystem::is_directory(path))
        return {path + ": " + std::strerror(errno != 0 ? errno : EISDIR)};
    const std::string folder = std::filesystem::path(path).parent_path().string();
    std::vector<std::string> wrong = ParseBusTable(text, folder, defaults, meters);
    for (std::string& line : wrong) line = path + ": " + line;
    return wrong;
}

}  // namespace sim
