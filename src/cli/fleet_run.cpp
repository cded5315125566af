// The parent of `fleet`: a process a line, and what they report.
#include <algorithm>
#include <map>

#include "cli/cli_output.h"
#include "cli/field_names.h"
#include "cli/fleet.h"
#include "platform/child_processes.h"

namespace counter {

namespace {

// How long an interrupted line may take to say what it has written: it closes its port first.
constexpr double kLastWordsMs = 5000;

class LineRun {
  public:
    std::vector<std::size_t> Meters;  // by their places in the report, in the order of the table
    std::unique_ptr<ChildProcess> Child;
    bool Started = false, Over = false;
    std::size_t Next = 0;  // of Meters: the first whose end is not known
    bool Begun = false;    // that one has been begun
    double BegunMs = 0;
};

class FleetRun {
  public:
    FleetRun(const CommandCall& call, Machine& machine, const FleetOrder& order,
             const std::vector<PlannedMeter>& meters, FleetReport& report,
             const std::function<void(const MeterReport&)>& ended)
        : call_(call), machine_(machine), order_(order), meters_(meters), report_(report), ended_(ended) {
        std::map<std::string, std::size_t> lines;
        for (std::size_t i = 0; i < meters.size(); ++i) {
            const auto [at, isNew] = lines.try_emplace(meters[i].Meter.Line.Process(), lines_.size());
            if (isNew) lines_.emplace_back();
            lines_[at->second].Meters.push_back(i);
        }
    }

    void Run() {
        Pump& pump = machine_.Pump();
        pump.OnInterrupt = [this] { report_.Interrupted = true; };
        StartSome();
        while (AnyRuns() && !report_.Interrupted) {
            pump.WaitUntil(
                Pump::kForever, [this] { return report_.Interrupted || TakeAll(); }, "the lines of a table");
            StartSome();
        }
        if (report_.Interrupted) EndAll(pump);
        pump.OnInterrupt = nullptr;
    }

  private:
    void StartSome() {
        for (LineRun& line : lines_) {
            if (std::count_if(lines_.begin(), lines_.end(), [](const LineRun& other) {
                    return other.Started && !other.Over;
                }) >= order_.MostAtOnce)
                return;
            if (!line.Started && !report_.Interrupted) StartLine(line);
        }
    }

    void StartLine(LineRun& line) {
        line.Started = true;
        Json order = {{"action", order_.Action}, {"meters", Json::array()}};
        for (std::size_t i = line.Next; i < line.Meters.size(); ++i) {
            const std::size_t index = line.Meters[i];
            const PlannedMeter& planned = meters_[index];
            Json places = Json::array();
            for (const SettingsLines& place : PlacesOf(planned))
                places.push_back({place.SettingsLine1, place.SettingsLine2});
            order["meters"].push_back({{"index", index},
                                       {"name", planned.Meter.Name},
                                       {"target", planned.Meter.Line.Target},
                                       {"wanted", planned.Wanted.SetupData},
                                       {"keepRate", KeepsRate(planned)},
                                       {"places", places}});
        }
        std::vector<std::string> arguments = {"--dir", order_.Folder, "fleet", "line", order_.More};
        if (call_.Trace) arguments.emplace_back("--trace");
        const Status status = machine_.Children().StartSelf(arguments, JsonText(order, -1), line.Child);
        if (status.Ok()) return;
        line.Over = true;
        GiveUp(line, MeterEnd::Refused, status.Text());
    }

    // A row without a rate, over a network, leaves the meter's own.
    static bool KeepsRate(const PlannedMeter& planned) {
        if (planned.Meter.BaudIndex) return false;
        return std::none_of(
            planned.Meter.Values.begin(), planned.Meter.Values.end(),
            [](const TableValue& value) { return FieldNamed(value.Column) == Field::BaudRate; });
    }

    bool AnyRuns() const {
        return std::any_of(lines_.begin(), lines_.end(), [](const LineRun& line) { return !line.Over; });
    }

    // True where a line has ended.
    bool TakeAll() {
        bool ended = false;
        for (LineRun& line : lines_) {
            if (!line.Child || line.Over) continue;
            for (const std::string& text : line.Child->TakeLines())
                Take(line, Json::parse(text, nullptr, false));
            if (!line.Child->Ended()) continue;
            line.Over = ended = true;
            EndLine(line);
        }
        return ended;
    }

    void Take(LineRun& line, const Json& said) {
        if (!said.is_object() || line.Next == line.Meters.size()) return;
        const std::size_t index = line.Meters[line.Next];
        if (said.value("index", std::size_t{0}) != index) return;
        const double now = machine_.Pump().NowMs();
        if (said.value("event", "") == "begin") {
            line.Begun = true;
            line.BegunMs = now;
            return;
        }
        MeterReport& meter = report_.Meters[index];
        meter.Seconds = (now - line.BegunMs) / 1000;
        Fill(meter, meters_[index], said);
        Settle(line);
    }

    void Settle(LineRun& line) {
        ended_(report_.Meters[line.Meters[line.Next++]]);
        line.Begun = false;
    }

    void Fill(MeterReport& meter, const PlannedMeter& planned, const Json& said) const {
        meter.End = EndNamed(said.value("end", ""));
        meter.Words = said.value("words", "");
        meter.LinkError = said.value("linkError", 0);
        meter.Said = said.value("said", std::vector<std::string>());
        meter.Written = said.value("written", std::vector<std::string>());
        meter.Verified = said.value("verified", false);
        meter.Backup = said.value("backup", "");
        meter.File = said.value("file", "");
        meter.Values = said.value("values", std::vector<std::string>());
        meter.Images.Road = static_cast<PutRoad>(said.value("road", 0));
        meter.Images.FirmwareVersion = said.value("version", 0);
        if (said.contains("found")) meter.Images.Found = SetupImage{said["found"].get<std::string>()};
        if (said.contains("wanted")) meter.Wanted = SetupImage{said["wanted"].get<std::string>()};
        if (said.contains("left")) meter.Images.Left = SetupImage{said["left"].get<std::string>()};
        // A Put that had nothing to write leaves the meter as it found it.
        const bool untouched = order_.Action == "put" && meter.End == MeterEnd::AsWanted;
        if (untouched) meter.Images.Left = meter.Images.Found;
        const std::size_t place = said.value("place", std::size_t{0});
        if (place > 0 && IsGood(meter.End)) meter.AnswersAt = PlaceWords(PlacesOf(planned)[place]);
    }

    // A process that has ended before all of its meters were told. Those behind the one in which it ended
    // have a process of their own.
    void EndLine(LineRun& line) {
        const std::string how = line.Child->HowEnded();
        if (line.Begun && !report_.Interrupted) {
            MeterReport& meter = report_.Meters[line.Meters[line.Next]];
            meter.End = MeterEnd::Refused;
            meter.WrittenKnown = order_.Action != "put";
            meter.Words = "the process of its line ended" + (how.empty() ? "" : ": " + how) +
                          (meter.WrittenKnown ? "" : "; what it has written is not known");
            Settle(line);
            line.Child.reset();
            line.Over = line.Next == line.Meters.size();
            line.Started = line.Over;
            return;
        }
        GiveUp(line, report_.Interrupted ? MeterEnd::Interrupted : MeterEnd::Refused,
               report_.Interrupted ? "interrupted"
                                   : "the process of its line ended" + (how.empty() ? "" : ": " + how));
    }

    // The one that was begun ends so; the others were not reached.
    void GiveUp(LineRun& line, MeterEnd end, const std::string& words) {
        while (line.Next < line.Meters.size()) {
            MeterReport& meter = report_.Meters[line.Meters[line.Next]];
            const bool own = line.Begun || end == MeterEnd::Refused;
            meter.WrittenKnown = !line.Begun || order_.Action != "put";
            meter.End = own ? end : MeterEnd::NotReached;
            meter.Words = own ? words : "not reached";
            Settle(line);
        }
    }

    void EndAll(Pump& pump) {
        for (LineRun& line : lines_) {
            if (line.Child && !line.Over) line.Child->Interrupt();
        }
        const double deadline = pump.NowMs() + kLastWordsMs;
        const auto allOver = [this] {
            TakeAll();
            return std::all_of(lines_.begin(), lines_.end(),
                               [](const LineRun& line) { return line.Over || !line.Child; });
        };
        if (!pump.WaitUntil(deadline, allOver, "the last words of the lines")) {
            for (LineRun& line : lines_) {
                if (line.Child && !line.Over) line.Child->Kill();
            }
            pump.WaitUntil(pump.NowMs() + kLastWordsMs, allOver, "the end of the lines");
        }
        for (LineRun& line : lines_) {
            if (!line.Over) GiveUp(line, MeterEnd::Interrupted, "interrupted");
        }
    }

    const CommandCall& call_;
    Machine& machine_;
    const FleetOrder& order_;
    const std::vector<PlannedMeter>& meters_;
    FleetReport& report_;
    const std::function<void(const MeterReport&)>& ended_;
    std::vector<LineRun> lines_;
};

}  // namespace

void RunFleet(const CommandCall& call, Machine& machine, const FleetOrder& order,
              const std::vector<PlannedMeter>& meters, FleetReport& report,
              const std::function<void(const MeterReport&)>& ended) {
    FleetRun(call, machine, order, meters, report, ended).Run();
}

}  // namespace counter
