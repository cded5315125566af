// get, put, verify: the commands that move a setup between the meter and a file.
#include <optional>

#include "cli/cli.h"
#include "cli/differences.h"
#include "cli/link_session.h"
#include "cli/setup_reading.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

int SaveInto(const CommandCall& call, LinkSession& link, const std::string& path) {
    const Status saved = SaveSetupFile(call.World.Store, path, link.Program().Image);
    return saved.Ok() ? kDone : RefuseStatus(call, saved);
}

// Reads the meter and compares with `wanted`. Nothing where the link failed.
std::optional<Differences> ReadAndCompare(LinkSession& link, const SetupImage& wanted) {
    Session& session = link.Program();
    const int version = session.Identity.FirmwareVersion;
    if (link.Get() != kDone) return std::nullopt;
    return CompareSetups(wanted, session.Image, RoadOf(session.LinkState), version);
}

int TellDifferences(const CommandCall& call, const Differences& differences, const std::string& name) {
    if (!call.Json) call.Text() << DifferencesTable(differences, name, "meter");
    return AnyCounts(differences) ? kDifferent : kDone;
}

// The meter was written, but port and settings could not follow it.
int RefuseSettled(const CommandCall& call, LinkSession& link, const Status& settled) {
    link.End(Json::object());
    return RefuseStatus(call, settled);
}

int PutVerified(const CommandCall& call, LinkSession& link) {
    const std::string status = link.Program().Home.StatusText;
    const SetupImage wanted = link.Program().Image;
    const auto differences = ReadAndCompare(link, wanted);
    if (!differences) return link.End(Json::object());
    link.Program().Home.StatusText = status;
    link.End({{"differences", DifferencesJson(*differences)}});
    return TellDifferences(call, *differences, call.Words[0]);
}

}  // namespace

int GetCommand(const CommandCall& call) {
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    const MeterIdentity& identity = link.Program().Identity;
    if (link.Get() == kDone) {
        link.Finish();  // nothing can interrupt between the file and its report
        if (const int status = SaveInto(call, link, call.Words[0]); status != kDone) return status;
    }
    return link.End({{"FirmwareVersion", identity.FirmwareVersion}, {"MeterType", identity.MeterType}});
}

int PutCommand(const CommandCall& call) {
    SetupImage image;
    if (Status status = LoadSetupFile(call.World.Store, call.Words[0], image); !status.Ok()) {
        return RefuseStatus(call, status);
    }
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    if (call.Has("--backup")) {
        if (link.Get() != kDone) return link.End(Json::object());
        if (const int status = SaveInto(call, link, call.Options.at("--backup")); status != kDone) {
            link.Finish();
            return status;
        }
    }
    Session& session = link.Program();
    session.Image = image;
    if (Status settled = link.Put(); !settled.Ok()) return RefuseSettled(call, link, settled);
    if (session.LinkState.LinkError != 0) link.TellSent();
    if (session.LinkState.LinkError != 0 || !call.Has("--verify")) return link.End(Json::object());
    return PutVerified(call, link);
}

int VerifyCommand(const CommandCall& call) {
    SetupImage wanted;
    if (Status status = LoadAndTell(call, call.Words[0], wanted); !status.Ok()) {
        return RefuseStatus(call, status);
    }
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    link.Program().Image = wanted;  // what the link does not bring is not told as different
    const auto differences = ReadAndCompare(link, wanted);
    if (!differences) return link.End(Json::object());
    link.Finish();
    if (call.Json) WriteJson(call, DifferencesJson(*differences));
    return TellDifferences(call, *differences, call.Words[0]);
}

}  // namespace counter
