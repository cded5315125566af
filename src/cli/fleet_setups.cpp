#include "cli/fleet_setups.h"

#include <algorithm>
#include <map>
#include <optional>
#include <sstream>

#include "cli/field_names.h"
#include "cli/field_setter.h"
#include "cli/set_result.h"
#include "link/settings_alone.h"
#include "meter/default_setup.h"
#include "meter/field_code.h"
#include "shell/setup_files.h"
#include "transfer/compare_setups.h"

namespace counter {

namespace {

std::vector<std::string> LinesOf(const Differences& consequences) {
    std::vector<std::string> lines;
    for (const FieldDifference& line : consequences) {
        lines.push_back(std::string(line.Name) + "  " + Printable(line.A.Text) + " -> " +
                        Printable(line.B.Text));
    }
    return lines;
}

class SetupWorker {
  public:
    SetupWorker(const CommandCall& call, bool needed,
                const std::function<void(const std::vector<TableFault>&)>& tell)
        : call_(call), needed_(needed), tell_(tell) {}

    FleetSetups Work(const std::vector<TableMeter>& meters) {
        for (const TableMeter& meter : meters) TakeMeter(meter);
        for (TableFault& fault : SharedPlaces(result_.Meters)) result_.Faults.push_back(std::move(fault));
        std::stable_sort(result_.Faults.begin(), result_.Faults.end(),
                         [](const TableFault& a, const TableFault& b) { return a.Row < b.Row; });
        return std::move(result_);
    }

  private:
    struct LoadedSetup {
        SetupImage Image;
        std::string Wrong;
    };

    // Many rows name one file.
    const LoadedSetup& Load(const std::string& path) {
        const auto [found, isNew] = files_.try_emplace(path);
        if (!isNew) return found->second;
        if (path.empty()) {
            found->second.Wrong = "is empty: a setup file";
        } else if (const Status status = LoadWholeSetupFile(call_.World.Store, path, found->second.Image);
                   !status.Ok()) {
            found->second.Wrong = status.Text();
        }
        return found->second;
    }

    void TakeMeter(const TableMeter& meter) {
        PlannedMeter planned{meter, {}, {}, true, {}};
        const LoadedSetup& file = Load(meter.SetupPath);
        SetupImage image = file.Image;
        if (!file.Wrong.empty()) {
            if (needed_) return Tell(meter.Row, "setup", file.Wrong);
            planned.HasSetup = false;
            BuildDefaultSetup(image);
        }
        planned.Now = planned.Wanted = WithPlaceOf(meter, image);
        if (planned.HasSetup && !EnterValues(planned, CodeOf(image, Field::SerialProtocol))) return;
        if (needed_) TellUnwritten(planned);
        result_.Meters.push_back(std::move(planned));
    }

    // A column that no put can fulfil would be called fulfilled.
    void TellUnwritten(const PlannedMeter& planned) {
        const bool ascii = planned.Meter.Protocol == Protocol::CustomAscii;
        const PutRoad road = !ascii                        ? PutRoad::Modbus
                             : planned.Meter.Line.IsNode() ? PutRoad::AsciiNode
                                                           : PutRoad::AsciiSerial;
        const int version = CodeOf(planned.Wanted, Field::FirmwareVersion);
        for (const TableValue& value : planned.Meter.Values) {
            const auto field = FieldNamed(value.Column);
            if (field && StandingOf(*field, road, version) != Standing::Written)
                Tell(planned.Meter.Row, value.Column, "is not written by a put over this line");
        }
    }

    // Another protocol than the file's is picked as a user would, unless the table has a column of its own
    // for it: the view changes other fields with it.
    std::vector<FieldAssignment> AssignmentsOf(const PlannedMeter& planned, int protocolOfFile) const {
        std::vector<FieldAssignment> assignments;
        bool column = false;
        for (const TableValue& value : planned.Meter.Values) {
            column = column || FieldNamed(value.Column) == Field::SerialProtocol;
            assignments.push_back({value.Column, value.Text, {}, {}});
        }
        const auto& protocols = RowOf(Field::SerialProtocol).Entries;
        if (protocolOfFile != planned.Meter.Protocol && !column) {
            const std::string_view name = protocols[static_cast<std::size_t>(planned.Meter.Protocol)];
            assignments.insert(assignments.begin(),
                               FieldAssignment{"Serial Protocol", std::string(name), {}, {}});
        }
        return assignments;
    }

    bool EnterValues(PlannedMeter& planned, int protocolOfFile) {
        const std::vector<FieldAssignment> assignments = AssignmentsOf(planned, protocolOfFile);
        if (assignments.empty()) return true;
        SetupImage before = planned.Now;
        if (assignments.size() > planned.Meter.Values.size())
            PutCode(before, Field::SerialProtocol, protocolOfFile);
        FieldSetter setter(assignments);
        std::ostringstream messages;
        SettingsAlone files(PlacesOf(planned)[0]);
        CliWorld world = call_.World.With(files).Quiet(messages);
        world.Exit = [this](int) {
            tell_(result_.Faults);
            call_.World.Exit(kUsage);
        };
        CommandCall call{world, call_.Folder, false, false, false, {}, {}};
        const auto finish = [&](SetupRun& run) {
            if (setter.Wrong().empty() && !run.Ended()) {
                planned.Wanted = run.Program().Image;
                planned.Consequences =
                    LinesOf(CompareSet(before, planned.Wanted, setter.Done()).Consequences);
                return kDone;
            }
            TellRefused(planned, setter, run, messages.str());
            return kUsage;
        };
        SetupRun run(call, setter, finish);
        return run.Execute(before, false) == kDone;
    }

    // A name that the table does not have as a column is that of the protocol.
    void TellRefused(const PlannedMeter& planned, const FieldSetter& setter, const SetupRun& run,
                     const std::string& messages) {
        const std::string& name = setter.Last().Name;
        const auto& values = planned.Meter.Values;
        const bool column = std::any_of(values.begin(), values.end(),
                                        [&](const TableValue& value) { return value.Column == name; });
        const std::string wrong = setter.Wrong().empty() ? "ends the program" : setter.Wrong();
        Tell(planned.Meter.Row, column ? name : "protocol",
             run.Ended() ? wrong + ": " + OneLine(messages) : wrong);
    }

    void Tell(int row, const std::string& column, const std::string& text) {
        result_.Faults.push_back({row, column, text});
    }

    const CommandCall& call_;
    bool needed_;
    const std::function<void(const std::vector<TableFault>&)>& tell_;
    std::map<std::string, LoadedSetup> files_;
    FleetSetups result_;
};

}  // namespace

FleetSetups WorkOutSetups(const CommandCall& call, const std::vector<TableMeter>& meters, bool needed,
                          const std::function<void(const std::vector<TableFault>&)>& tell) {
    return SetupWorker(call, needed, tell).Work(meters);
}

}  // namespace counter
