// sheet: a setup as a document for people, by page, as menu, and against another.
#include <ctime>

#include "cli/cli.h"
#include "cli/cli_output.h"
#include "cli/setup_reading.h"
#include "cli/setup_run.h"
#include "sheet/sheet_html.h"

namespace counter {

namespace {

// Nobody acts: the view is looked at as it opens.
struct Onlooker : Player {
    bool Step(SetupRun&) override { return false; }
};

WallTime Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    WallTime time;
    time.Year = local.tm_year + 1900;
    time.Month = local.tm_mon + 1;
    time.Day = local.tm_mday;
    time.Hour = local.tm_hour;
    time.Minute = local.tm_min;
    return time;
}

std::string NameOf(const std::string& path) {
    return path == kStandardStream ? "standard input" : path;
}

int WriteSheet(const CommandCall& call, SetupRun& run, const std::optional<SheetAgainst>& against) {
    const SheetFacts facts{NameOf(call.Words[0]), {}, SheetDate(Today())};
    const std::string why = run.Messages().empty() ? "" : run.Messages().back()["text"].get<std::string>();
    const std::string html = SheetHtml(run.Ended() ? MakeBareSheet(run.Program(), why, facts, against)
                                                   : MakeSheet(run.View(), facts, against));
    if (call.Has("--html")) {
        const Status status = call.World.Store.Write(call.Options.at("--html"), html);
        return status.Ok() ? kDone : RefuseStatus(call, status);
    }
    const std::string& path = call.Options.at("--pdf");
    const Status status = call.World.Store.Write(path, call.World.Sheets.Pdf(kSheetTitle, html));
    return status.Ok() ? kDone : RefuseStatus(call, status);
}

}  // namespace

int SheetCommand(const CommandCall& call) {
    if (call.Has("--html") == call.Has("--pdf"))
        return RefuseCall(call, "one of --html OUT and --pdf OUT is needed");
    if (call.Has("--pdf") && !call.World.Sheets.Pdf) return call.World.Sheets.Become(call);
    SetupImage image;
    if (Status status = LoadAndTell(call, call.Words[0], image); !status.Ok())
        return RefuseStatus(call, status);
    std::optional<SheetAgainst> against;
    if (call.Words.size() > 1) {
        against = SheetAgainst{NameOf(call.Words[1]), {}};
        if (Status status = LoadAndTell(call, call.Words[1], against->Image); !status.Ok())
            return RefuseStatus(call, status);
    }
    Onlooker nobody;
    SetupRun run(call, nobody, [&](SetupRun& done) { return WriteSheet(call, done, against); });
    return run.Execute(image, false);
}

}  // namespace counter
