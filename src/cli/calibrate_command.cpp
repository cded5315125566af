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

CalibrationUser UserOf(const CommandCall& call, const bool& interrupted) {
    CalibrationUser user;
    user.Tell = [&call](CalibrationStage stage, const CalibrationResult& sofar) {
        const std::string line = LineOf(stage, sofar);
        if (!call.Json && !line.empty()) call.World.Out << line << std::endl;
    };
    user.GoOn = [&call](const std::string& doubt) {
        Complain(call.World) << doubt << (call.Has("--force") ? "" : " --force goes on.") << std::endl;
        return call.Has("--force");
    };
    user.EndWanted = [&interrupted] { return interrupted; };
    return user;
}

// An interrupt ends the procedure at its next rest, and the meter has its own scale before the program ends
// as after any interrupt: with a test scale it would show wrong values for good.
CalibrationResult RunToAWholeMeter(const CommandCall& call, LinkSession& link) {
    Pump& waits = link.Program().Pump;
    bool interrupted = false;
    const auto usual = std::exchange(waits.OnInterrupt, [&] {
        if (!std::exchange(interrupted, true))
            Complain(call.World) << "interrupted: leaving the meter whole" << std::endl;
    });
    const CalibrationResult result =
        RunCalibration(link.Program().Link, call.Words[0], UserOf(call, interrupted));
    waits.OnInterrupt = usual;
    if (interrupted || !result.Good()) Complain(call.World) << OutcomeOf(result) << std::endl;
    if (interrupted) usual();
    return result;
}

}  // namespace

int CalibrateCommand(const CommandCall& call) {
    if (!IsFrequency(call.Words[0])) {
        return RefuseCall(call, "HERTZ is a positive number without commas, such as 1000 or 59.94");
    }
    if (StoredSettings(call).ModbusLink) return RefuseCall(call, kNeedsAsciiText);
    if (const std::string doubt = DoubtOfFrequency(call.Words[0]); !doubt.empty() && !call.Has("--force"))
        return RefuseCall(call, doubt + " --force goes on.");
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    LinkState& state = link.Program().LinkState;
    const CalibrationResult result = RunToAWholeMeter(call, link);
    state.Fail(result.LinkError, ErrorSource::Calibration);
    ActionEnd end{kDoneText,
                  kDoneText,
                  {{"ppm", result.Applied.Ppm},
                   {"limited", result.Applied.Limited},
                   {"written", result.End == CalibrationEnd::Calibrated}}};
    if (result.LinkError != 0)
        end.Status = WithNumber(CommandsView::kCommunicationsFailure, result.LinkError);
    return link.EndAction(end);
}

}  // namespace counter
