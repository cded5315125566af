// curve: a custom curve from a file of any name into the meter, verified.
#include <optional>
#include <utility>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/link_session.h"
#include "commands/commands_view.h"
#include "curve/curve_transfer.h"
#include "link/waits.h"

namespace counter {

namespace {

std::optional<CurveBoard> BoardOf(const CommandCall& call) {
    const auto option = call.Options.find("--board");
    if (option == call.Options.end() || option->second == "1") return CurveBoard::Main;
    if (option->second == "2") return CurveBoard::VToF;
    return std::nullopt;
}

Status LoadPrm(const CommandCall& call, CurveItems& items) {
    const std::string& path = call.Words[0];
    std::string content;
    if (Status status = call.World.Store.Read(path, content); !status.Ok()) return status;
    const auto parsed = ParsePrm(content);
    if (!parsed || !IsProperCurve(*parsed))
        return {StatusKind::Illegal, path,
                "no curve: it has two items, each of 84 hexadecimal digits in capitals"};
    items = *parsed;
    return {};
}

ActionEnd EndOf(CurveEnd curve, int linkError) {
    if (curve == CurveEnd::Failed) return {WithNumber(kVerifyFailedText, linkError), ""};
    if (linkError != 0) return {WithNumber(CommandsView::kCommunicationsFailure, linkError), ""};
    return {kStoredText, kStoredText};
}

// An interrupt ends it between two frames, but leaves no half of a curve.
CurveEnd Send(const CommandCall& call, LinkSession& link, const CurveItems& items, CurveBoard board) {
    Pump& waits = link.Program().Pump;
    bool interrupted = false;
    const auto usual = std::exchange(waits.OnInterrupt, [&interrupted] { interrupted = true; });
    const auto tell = [&call](const char* text) {
        if (!call.Json) call.World.Out << text << std::endl;
    };
    const CurveEnd end = SendCurve(link.Program().Link, items, board, tell, [&] { return interrupted; });
    waits.OnInterrupt = usual;
    if (!interrupted) return end;
    Complain(call.World) << LeftBy(end) << std::endl;
    usual();
    return end;
}

}  // namespace

int CurveCommand(const CommandCall& call) {
    const auto board = BoardOf(call);
    if (!board) return RefuseCall(call, "--board is 1 (main board) or 2 (V-F board)");
    CurveItems items;
    if (Status status = LoadPrm(call, items); !status.Ok()) return RefuseStatus(call, status);
    if (StoredSettings(call).ModbusLink)
        return RefuseCall(call, "Cannot send the custom curve file when using the Modbus protocol.");
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    LinkState& state = link.Program().LinkState;
    const CurveEnd end = Send(call, link, items, *board);
    if (end == CurveEnd::Stored) LineHolds(link.Program().Link);
    return link.EndAction(EndOf(end, state.LinkError));
}

}  // namespace counter
