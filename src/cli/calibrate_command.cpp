// calibrate: the calibration procedure, from a shell.
#include <cmath>
#include <utility>

#include "calibration/calibration.h"
#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/exact_number.h"
#include "cli/link_session.h"
#include "commands/commands_view.h"

namespace counter {

namespace {

// The procedure runs on whatever comes: required.
constexpr const char* kMayBeLeft =
    "the meter may be left with its test scale or a wrong correction; calibrate it again, and put back the "
    "setup "
    "that it had";

// The procedure itself takes any text, and would calibrate for 1 Hz where it holds no number.
bool IsFrequency(const std::string& word) {
    const double hertz = ExactNumber<double>(word).value_or(0);
    return std::isfinite(hertz) && hertz > 0 && FrequencyOf(word) == hertz;
}

std::string LineOf(CalibrationStage stage, const CalibrationResult& sofar) {
    switch (stage) {
        case CalibrationStage::Calculating:
            return kCalculatingText;
        case CalibrationStage::Limited:
            return kLimitedText;
        case CalibrationStage::Returning:
            return kReturningText;
        case CalibrationStage::Setting:
            return std::string(kSettingText) + " " + std::to_string(sofar.Applied.Ppm) + " " + kPpmText;
        case CalibrationStage::Done:
            break;  // the end of the command says it
    }
    return {};
}

CalibrationResult Run(const CommandCall& call, LinkSession& link) {
    return RunCalibration(link.Program().Link, call.Words[0],
                          [&call](CalibrationStage stage, const CalibrationResult& sofar) {
                              const std::string line = LineOf(stage, sofar);
                              if (!call.Json && !line.empty()) call.World.Out << line << std::endl;
                          });
}

// An interrupt waits for the end of the procedure: until then the meter has a test scale, and would show
// wrong values for good. The program then ends as after any interrupt.
CalibrationResult RunUninterrupted(const CommandCall& call, LinkSession& link) {
    Pump& waits = link.Program().Pump;
    bool interrupted = false;
    const auto usual = std::exchange(waits.OnInterrupt, [&interrupted] { interrupted = true; });
    const CalibrationResult result = Run(call, link);
    waits.OnInterrupt = usual;
    if (interrupted) usual();
    return result;
}

}  // namespace

int CalibrateCommand(const CommandCall& call) {
    if (!IsFrequency(call.Words[0])) {
        return RefuseCall(call, "HERTZ is a positive number without commas, such as 1000 or 59.94");
    }
    if (StoredSettings(call).ModbusLink) return RefuseCall(call, "'calibrate' does not exist over Modbus");
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    LinkState& state = link.Program().LinkState;
    const CalibrationResult result = RunUninterrupted(call, link);
    state.Fail(result.LinkError, ErrorSource::Calibration);
    ActionEnd end{kDoneText, kDoneText, {{"ppm", result.Applied.Ppm}, {"limited", result.Applied.Limited}}};
    if (result.LinkError != 0) {
        Complain(call.World) << kMayBeLeft << "\n";
        end.Status = WithNumber(CommandsView::kCommunicationsFailure, result.LinkError);
    }
    return link.EndAction(end);
}

}  // namespace counter
