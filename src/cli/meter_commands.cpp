// get, put, verify: the commands that move a setup between the meter and a file.
#include <optional>

#include "cli/cli.h"
#include "cli/cli_files.h"
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
    if (!differences) {
        link.Tell("all was written to the meter, but it could not be read back");
        return link.End({{"failed", "verify"}});
    }
    link.Program().Home.StatusText = status;
    link.End({{"differences", DifferencesJson(*differences)}});
    return TellDifferences(call, *differences, call.Words[0]);
}

// The settings are no place for a setup: the next start would fail. Empty, or what is wrong with `path`.
std::string WhyNotInto(const CommandCall& call, const std::string& path) {
    if (path == kStandardStream || !call.World.Store.SameFile(path, SettingsPath(call))) return {};
    return path + " is the program's own " + kSettingsFile;
}

// Written before FILE goes into the meter, the backup would take its place on the disk for good.
std::string WhyNoBackupInto(const CommandCall& call) {
    const auto backup = call.Options.find("--backup");
    if (backup == call.Options.end() || backup->second == kStandardStream) return {};
    if (call.Words[0] != kStandardStream && call.World.Store.SameFile(call.Words[0], backup->second))
        return "--backup " + backup->second + " would write over " + call.Words[0] + ", which is to be put";
    return WhyNotInto(call, backup->second);
}

Status LoadToPut(const CommandCall& call, SetupImage& image) {
    if (call.Has("--force")) return LoadSetupFile(call.World.Store, call.Words[0], image);
    Status status = LoadWholeSetupFile(call.World.Store, call.Words[0], image);
    if (status.Kind == StatusKind::Illegal && status.Reason.starts_with(kIsNoSetup))
        status.Reason += "; --force puts it all the same";
    return status;
}

// The backup of put. Returns 0, or the exit status with its lines written.
int KeepOld(const CommandCall& call, LinkSession& link) {
    constexpr const char* kNothing = "no backup was made, and nothing was written to the meter";
    if (link.Get() != kDone) {
        link.Tell(kNothing);
        return link.End({{"failed", "backup"}});
    }
    const Status saved = SaveSetupFile(call.World.Store, call.Options.at("--backup"), link.Program().Image);
    if (saved.Ok()) return kDone;
    link.Finish();
    link.Tell(kNothing);
    return RefuseStatus(call, saved);
}

}  // namespace

int GetCommand(const CommandCall& call) {
    if (const std::string wrong = WhyNotInto(call, call.Words[0]); !wrong.empty())
        return RefuseCall(call, wrong);
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
    if (const std::string wrong = WhyNoBackupInto(call); !wrong.empty()) return RefuseCall(call, wrong);
    SetupImage image;
    if (Status status = LoadToPut(call, image); !status.Ok()) return RefuseStatus(call, status);
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    link.WillPut();
    if (call.Has("--backup")) {
        if (const int status = KeepOld(call, link); status != kDone) return status;
    }
    Session& session = link.Program();
    session.Image = image;
    if (Status settled = link.Put(); !settled.Ok()) return RefuseSettled(call, link, settled);
    if (session.LinkState.LinkError != 0) link.TellSent();
    if (!session.Home.StatusNote.empty()) link.Tell(session.Home.StatusNote);
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
