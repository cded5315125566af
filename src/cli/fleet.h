// counterctl fleet: the parts of the command.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/cli_output.h"
#include "fleet/fleet_report.h"
#include "fleet/table_places.h"

namespace counter {

// The meters of one line; what a child process runs.
int FleetLine(const CommandCall& call);

// What is done with the meters of a table.
struct FleetOrder {
    std::string Action;  // check, put, get, read
    std::string More;    // the folder of get, the item of read; "-" for the others
    std::string Folder;  // where each meter has a folder of its own
    int MostAtOnce = 0;  // lines that are worked at once
};

// Works the lines side by side and fills in the report, a meter at a time; `ended` is called with each as its
// end is known. Returns when all have ended, or after an interrupt when no process is left.
void RunFleet(const CommandCall& call, Machine& machine, const FleetOrder& order,
              const std::vector<PlannedMeter>& meters, FleetReport& report,
              const std::function<void(const MeterReport&)>& ended);

// --- What is told of it ---

// The lines of a meter, each beginning with its name.
std::string FleetLines(const MeterReport& meter, const std::string& action);
// The document of --json.
Json FleetJson(const FleetReport& report);
// 0, or the worst of the meters: 130 before 2 before 3 before 4.
int FleetStatus(const FleetReport& report);

// How far all are, on a terminal, below the lines that are printed.
class FleetBar {
  public:
    FleetBar(std::ostream& err, bool shown, std::size_t meters) : err_(err), shown_(shown), all_(meters) {}
    ~FleetBar() { Hide(); }
    void Show(std::size_t done);
    void Hide();

  private:
    std::ostream& err_;
    bool shown_;
    std::size_t all_;
    bool onScreen_ = false;
};

}  // namespace counter
