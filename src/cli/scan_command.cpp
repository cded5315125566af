// scan: who answers on lines; rows that begin a table of meters.
#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

#include "cli/cli.h"
#include "cli/cli_output.h"
#include "cli/exact_number.h"
#include "cli/scan_choice.h"
#include "platform/trace.h"
#include "settings/settings.h"
#include "shell/port_numbers.h"

namespace counter {

namespace {

constexpr int kBarWidth = 30;
constexpr const char* kHeading = "name,line,protocol,baud,address,setup";

std::string BaudText(const ScanPlace& place) {
    return place.BaudIndex ? std::string(BaudTable[static_cast<std::size_t>(*place.BaudIndex)]) : "";
}

// "rtu at 9600 baud"
std::string LegInWords(const ScanPlace& place) {
    const std::string baud = BaudText(place);
    return std::string(ProtocolWord(place.SerialProtocol)) +
           (baud.empty() ? " at the server's speed" : " at " + baud + " baud");
}

std::string DurationInWords(double ms) {
    const int seconds = static_cast<int>(std::ceil(ms / 1000));
    return seconds < 100 ? std::to_string(seconds) + " s" : std::to_string((seconds + 30) / 60) + " min";
}

// As RFC 4180 has it.
std::string Cell(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

class ScanRun {
  public:
    ScanRun(const CommandCall& call, ScanChoice choice)
        : call_(call), choice_(std::move(choice)), machine_(call.World.MakeMachine(call.Folder)) {
        machine_->Pump().OnInterrupt = [this] { OnInterrupt(); };
    }
    ~ScanRun() { machine_->Pump().OnInterrupt = nullptr; }
    ScanRun(const ScanRun&) = delete;
    ScanRun& operator=(const ScanRun&) = delete;

    // The worst of the lines' ends.
    int Run() {
        if (!call_.Json) call_.World.Out << kHeading << std::endl;
        int worst = kDone;
        for (const std::string& word : call_.Words) {
            line_ = DeviceMeantBy(word);
            ++lineNumber_;
            worst = std::max(worst, RunLine());
        }
        if (call_.Json) WriteJson(call_, rows_);
        return worst;
    }

  private:
    // The number of a port, a name by id, a device of /dev, a path or a line on the network.
    std::string DeviceMeantBy(const std::string& word) {
        const FileReader& files = call_.World.Store;
        if (const int number = ExactNumber<int>(word).value_or(0); number >= 1 && number <= kMostPorts)
            return machine_->Catalog().DeviceOf(number);
        return LastingDevice(files, machine_->Catalog(), DevicePath(files, word));
    }

    int RunLine() {
        port_ = &machine_->PortOn(line_);
        std::optional<TracePort> trace;
        if (call_.Trace) {
            trace.emplace(*port_, machine_->Pump(),
                          [this](const std::string& text) { call_.World.Err << text << std::endl; });
            port_ = &*trace;
        }
        const std::size_t before = rows_.size();
        step_.clear();
        const Status status = LineScan(machine_->Pump(), *port_, choice_,
                                       {[this](const ScanPlace& place) { Take(place); },
                                        [this](const ScanPlace& place) { TellSenseless(place); },
                                        [this](const ScanPlace& next, int done, int all, double restMs) {
                                            ShowProgress(next, done, all, restMs);
                                        }})
                                  .Run();
        port_ = nullptr;
        EndBar();
        if (status.Kind == StatusKind::Gone && status.Path.empty()) return TellGone(status);
        if (!status.Ok()) return RefuseStatus(call_, status);
        if (rows_.size() == before) Complain(call_.World) << line_ << ": no meter answered\n";
        return kDone;
    }

    int TellGone(const Status& status) {
        Complain(call_.World) << line_ << ": " << status.Reason << " (27)\n";
        return kLinkFailed;
    }

    // Two meters may have one address in different protocols.
    std::string NameOf(int address) {
        const std::string name = "meter-" + std::to_string(lineNumber_) + "-" + TwoDigits(address);
        std::string unused = name;
        for (int again = 2; !names_.insert(unused).second; ++again)
            unused = name + "-" + std::to_string(again);
        return unused;
    }

    void Take(const ScanPlace& place) {
        EndBar();
        const std::string name = NameOf(place.Address), baud = BaudText(place);
        const std::string protocol(ProtocolWord(place.SerialProtocol));
        rows_.push_back({{"name", name},
                         {"line", Utf8(line_)},
                         {"protocol", protocol},
                         {"baud", baud},
                         {"address", place.Address},
                         {"setup", ""}});
        if (!call_.Json)
            call_.World.Out << name << "," << Cell(line_) << "," << protocol << "," << baud << ","
                            << place.Address << "," << std::endl;
    }

    void TellSenseless(const ScanPlace& place) {
        EndBar();
        Complain(call_.World)
            << line_ << ", " << LegInWords(place) << ", address " << place.Address
            << ": what answers makes no sense (two meters at one address, or another device)" << std::endl;
    }

    // A bar where a terminal looks on, else a line for each protocol and speed.
    void ShowProgress(const ScanPlace& next, int done, int all, double restMs) {
        const std::string words = LegInWords(next);
        const std::string rest = ", " + DurationInWords(restMs) + " left";
        if (call_.World.ErrIsTerminal && !call_.Trace) {
            const int filled = done * kBarWidth / std::max(all, 1);
            call_.World.Err << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
                            << std::string(static_cast<std::size_t>(kBarWidth - filled), ' ') << "] " << words
                            << ", address " << next.Address << rest << "\x1b[K" << std::flush;
            barShown_ = true;
        } else if (words != step_) {
            step_ = words;
            Complain(call_.World) << line_ << ": " << words << rest << std::endl;
        }
    }

    void EndBar() {
        if (std::exchange(barShown_, false)) call_.World.Err << "\r\x1b[K" << std::flush;
    }

    void OnInterrupt() {
        if (port_ != nullptr) port_->Close();
        EndBar();
        Complain(call_.World) << "interrupted; " << rows_.size() << " found so far\n" << std::flush;
        if (call_.Json) WriteJson(call_, rows_);
        call_.World.Out << std::flush;
        machine_->Pump().EndProcess(kInterrupted);
    }

    const CommandCall& call_;
    ScanChoice choice_;
    std::unique_ptr<Machine> machine_;
    SerialPort* port_ = nullptr;  // while a line is asked
    std::string line_, step_;
    int lineNumber_ = 0;
    std::set<std::string> names_;
    Json rows_ = Json::array();
    bool barShown_ = false;
};

}  // namespace

int ScanCommand(const CommandCall& call) {
    ScanChoice choice;
    if (const std::string wrong = TakeScanChoice(call, choice); !wrong.empty())
        return RefuseCall(call, wrong);
    return ScanRun(call, choice).Run();
}

}  // namespace counter
