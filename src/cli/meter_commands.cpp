// get, put, verify: the commands that move a setup between the meter and a file.
#include "cli/cli.h"
#include "cli/differences.h"
#include "cli/link_session.h"
#include "shell/put_action.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

// Reads the meter into the file.
int GetInto(const CommandCall& call, LinkSession& link, const std::string& path) {
    if (const int failed = link.Get(); failed != kDone) return failed;
    const Status saved = SaveSetupFile(call.World.Store, path, link.Program().Image);
    return saved.Ok() ? kDone : RefuseStatus(call, saved);
}

// Reads the meter and compares with `wanted`. Returns the list of differences, or null where the link failed.
Json ReadAndCompare(LinkSession& link, const SetupImage& wanted) {
    Session& session = link.Program();
    const int version = session.Identity.FirmwareVersion;
    if (link.Get() != kDone) return nullptr;
    return DifferencesJson(wanted, session.Image,
                           CompareSetups(wanted, session.Image, RoadOf(session.LinkData), version));
}

int TellDifferences(const CommandCall& call, const Json& list, const std::string& name) {
    if (!call.Json) call.World.Out << DifferencesTable(list, name, "meter");
    return AnyCounts(list) ? kDifferent : kDone;
}

// The port and the settings could not follow what was put.
int RefuseSettled(const CommandCall& call, LinkSession& link, const Status& settled) {
    link.Finish();
    return RefuseStatus(call, settled);
}

int PutVerified(const CommandCall& call, LinkSession& link) {
    const std::string status = link.Program().Home.StatusText;
    const SetupImage wanted = link.Program().Image;
    const Json list = ReadAndCompare(link, wanted);
    if (list.is_null()) return link.End(Json::object());
    link.Program().Home.StatusText = status;
    link.End({{"differences", list}});
    return TellDifferences(call, list, call.Words[0]);
}

}  // namespace

int GetCommand(const CommandCall& call) {
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    if (GetInto(call, link, call.Words[0]) == kFileOrPort) return kFileOrPort;
    const MeterIdentity& identity = link.Program().Identity;
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
        const int status = GetInto(call, link, call.Options.at("--backup"));
        if (status == kLinkFailed) return link.End(Json::object());
        if (status != kDone) return status;
    }
    Session& session = link.Program();
    session.Image = image;
    if (Status settled = PutSetup(session); !settled.Ok()) return RefuseSettled(call, link, settled);
    if (session.LinkData.LinkError != 0 || !call.Has("--verify")) return link.End(Json::object());
    return PutVerified(call, link);
}

int VerifyCommand(const CommandCall& call) {
    SetupImage wanted;
    if (Status status = LoadSetupFile(call.World.Store, call.Words[0], wanted); !status.Ok()) {
        return RefuseStatus(call, status);
    }
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    const Json list = ReadAndCompare(link, wanted);
    if (list.is_null()) return link.Fail();
    link.Finish();
    if (call.Json) WriteJson(call, list);
    return TellDifferences(call, list, call.Words[0]);
}

}  // namespace counter
