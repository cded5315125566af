// The table of meters: one row a meter, which says where it is and what it should hold.
//
//   name      what the meter is called, in reports and as the name of its folder and file
//   line      what it is reached over, see table_line.h
//   protocol  that it answers in now: Custom ASCII, Modbus RTU, Modbus ASCII; or ascii, rtu, modbus-ascii
//   baud      300 to 19200; over tcp:// the far end sets it, and an empty cell leaves the setup its own
//   address   in that protocol: 0 to 31, over Modbus 1 to 255
//   setup     a setup file; a path is the table's own
//   echo      may be left out: 1 where the adaptor gives back what is sent
//   version   may be left out: the meter's firmware where it is not that of the setup; it decides which
//   Modbus
//             RTU check the meter uses
//
// Any further column is named as a field of the setup; a value in it replaces that of the row's file, an
// empty cell keeps the file's. The columns come in any order, and capitals do not matter. Of two columns
// "address" the second one is the field.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fleet/table_line.h"
#include "platform/files.h"

namespace counter {

struct TableValue {
    std::string Column;  // the name of the field as the table has it
    std::string Text;
};

struct TableMeter {
    int Row = 0;  // as spreadsheets count, the heading being row 1
    std::string Name;
    TableLine Line;
    int Protocol = 0;
    std::optional<int> BaudIndex;
    int Address = 0;
    bool Echo = false;
    std::optional<int> Version;
    std::string SetupText, SetupPath;  // as written; and where it is, "" where none is named
    std::vector<TableValue> Values;    // in the order of the columns
};

struct TableFault {
    int Row = 0;         // 0: of the table as a whole
    std::string Column;  // "" where it is the whole row's
    std::string Text;

    // "row 3, column address: ..."
    std::string Words() const;
};

struct MeterTable {
    std::vector<TableMeter> Meters;
    std::vector<std::string> ValueColumns;
    std::vector<TableFault> Faults;
};

// Why a name is that of no field, with what may be meant; empty for a field's name.
using WhyNoField = std::function<std::string(const std::string& name)>;

// `folder` is where the table lies, "" for the current folder. Every fault that shows without a setup file is
// found; a row with one is not among the meters.
MeterTable ReadMeterTable(std::string_view text, const std::string& folder, const FileReader& files,
                          const WhyNoField& whyNoField);

}  // namespace counter
