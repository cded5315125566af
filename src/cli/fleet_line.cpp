// fleet line: the meters of one line one after the other, in a process that `fleet` starts and holds.
//
// Its order is one JSON document on standard input; what becomes of each meter goes to standard output at
// once, an object a line:
//
//   {"event": "begin", "index": 4}
//   {"event": "end", "index": 4, "end": "written", "words": "...", "found": "260 digits", ...}
#include <algorithm>
#include <optional>
#include <sstream>
#include <utility>

#include "cli/cli_output.h"
#include "cli/differences.h"
#include "cli/fleet.h"
#include "cli/link_session.h"
#include "fleet/fleet_report.h"
#include "meter/field_code.h"
#include "settings/settings.h"
#include "shell/backups.h"
#include "shell/setup_files.h"
#include "transfer/put_setup.h"

namespace counter {

namespace {

constexpr const char* kNotForPeople = "fleet line is what fleet itself starts";

void Say(const CommandCall& call, const char* event, int index, Json more) {
    more["event"] = event;
    more["index"] = index;
    call.World.Out << JsonText(more, -1) << "\n" << std::flush;
}

std::string CountWords(const Differences& differences) {
    const auto count = std::count_if(differences.begin(), differences.end(),
                                     [](const FieldDifference& difference) { return difference.Counts(); });
    return std::to_string(count) + (count == 1 ? " field" : " fields");
}

// One meter, from the opening of its line to what became of it.
class MeterVisit {
  public:
    MeterVisit(const CommandCall& call, std::string action, const Json& order)
        : call_(call),
          action_(std::move(action)),
          order_(order),
          index_(order["index"].get<int>()),
          folder_(call.Folder + "/" + order["name"].get<std::string>()) {
        wanted_.SetupData = order["wanted"].get<std::string>();
    }

    // A meter that the table moves may be where it was or where it is to be; the first failure is told.
    Json Run() {
        std::optional<Json> first;
        for (std::size_t i = 0; i < order_["places"].size(); ++i) {
            const Json& place = order_["places"][i];
            At({place[0].get<std::string>(), place[1].get<std::string>()});
            result_["place"] = i;
            if (result_["end"] != NameOf(MeterEnd::LinkFailed) || reached_) return result_;
            if (!first) first = result_;
            if (result_["linkError"] == LinkErrors::kPortFault) break;
        }
        return *first;
    }

  private:
    void At(const SettingsLines& place) {
        result_ = Json::object();
        std::ostringstream said;
        CliWorld world = call_.World.Quiet(said);
        const CliWorld traced{said,        call_.World.Err,     false,
                              world.Store, world.DefaultFolder, world.MakeMachine,
                              world.In,    world.Exit};
        const CommandCall own{
            call_.Trace ? traced : world, folder_, action_ == "read", call_.Trace, false, {}, {}};
        if (const int status = LayDown(own, place); status != kDone) {
            Refuse(status, said.str());
        } else if (action_ == "read") {
            TakeReading(own, said);
        } else {
            Visit(own, said);
        }
        TakeSaid(said.str());
    }

    // The meter's own program folder: nothing of the user's own settings is touched.
    int LayDown(const CommandCall& own, const SettingsLines& place) {
        Files& files = own.World.Store;
        Status status = files.MakeFolder(folder_);
        if (status.Ok()) status = files.Write(folder_ + "/" + kSettingsFile, FormatSettings(place));
        if (!status.Ok()) return RefuseStatus(own, status);
        const std::string target = order_["target"].get<std::string>();
        if (target.empty()) return kDone;
        CommandCall map = own;
        map.Words = {"map", "1", target};
        return PortsCommand(map);
    }

    void Visit(const CommandCall& own, std::ostringstream& said) {
        LinkSession link(own);
        link.Interrupted = [this, &link] { TellInterrupted(link); };
        if (const int status = link.Begin(); status != kDone) {
            Refuse(status, said.str());
        } else {
            Work(own, link);
        }
        link.Finish();
    }

    void Work(const CommandCall& own, LinkSession& link) {
        Session& session = link.Program();
        session.Image = wanted_;
        version_ = session.Identity.FirmwareVersion;
        result_["version"] = version_;
        result_["road"] = static_cast<int>(RoadOf(session.LinkState));
        if (link.Get() != kDone) return Fail(session, "could not be read");
        reached_ = true;
        found_ = session.Image;
        result_["found"] = found_.SetupData;
        if (action_ == "get") return Save(own);
        // It was reached at the far end's rate, which no row names: another would take it off the line.
        if (order_.value("keepRate", false)) {
            PutCode(wanted_, Field::BaudRate, CodeOf(found_, Field::BaudRate));
            result_["wanted"] = wanted_.SetupData;
        }
        if (const Status followed = FollowMoved(session); !followed.Ok())
            return End(MeterEnd::Refused, OneLine(followed.Text()));
        const Differences differences = CompareSetups(wanted_, found_, RoadOf(session.LinkState), version_);
        if (!AnyCounts(differences)) return End(MeterEnd::AsWanted, "as the table says");
        if (action_ == "check") return End(MeterEnd::Different, "differs in " + CountWords(differences));
        if (const Status kept = KeepFound(own, session); !kept.Ok())
            return End(MeterEnd::Refused, "nothing was written: no backup: " + OneLine(kept.Text()));
        Put(link);
    }

    // A read ends with the command by which a meter takes over the link settings that it holds. One in which
    // a put to another place was interrupted answers there from here on.
    Status FollowMoved(Session& session) {
        const Json& places = order_["places"];
        if (places.size() < 2 || result_["place"] != 0) return {};
        const std::string& line = session.Settings.Lines.SettingsLine1;
        if (LinkSettingsLine(line, found_) == line) return {};
        if (LinkSettingsLine(line, found_) != LinkSettingsLine(line, wanted_)) return {};
        result_["place"] = 1;
        return SaveLinkSettings(found_, session.BringUp);
    }

    void Save(const CommandCall& own) {
        const std::string path =
            own.World.Store.Absolute(call_.Words[1]) + "/" + order_["name"].get<std::string>() + ".CT2";
        const Status saved = SaveSetupFile(own.World.Store, path, found_);
        if (!saved.Ok()) return End(MeterEnd::Refused, OneLine(saved.Text()));
        result_["file"] = path;
        End(MeterEnd::Got, "is in " + path);
    }

    // What is overwritten is kept for good, apart from the backups that make way for newer ones.
    Status KeepFound(const CommandCall& own, const Session& session) {
        const std::string folder = folder_ + "/overwritten";
        if (Status status = own.World.Store.MakeFolder(folder); !status.Ok()) return status;
        const std::string path = folder + "/" + BackupName(session);
        Status status = SaveSetupFile(own.World.Store, path, found_);
        if (status.Ok()) result_["backup"] = path;
        return status;
    }

    void Put(LinkSession& link) {
        Session& session = link.Program();
        putting_ = true;
        session.Image = wanted_;
        const Status settled = link.Put();
        if (!session.Home.StatusNote.empty()) link.Tell(session.Home.StatusNote);
        result_["written"] = session.LinkState.FramesWritten;
        if (session.LinkState.LinkError != 0) return Fail(session, "not put whole" + SentSoFar(session));
        if (!settled.Ok()) return End(MeterEnd::Refused, "written, but " + OneLine(settled.Text()));
        const SetupImage put = session.Image;
        if (link.Get() != kDone) return Fail(session, "written, but could not be read back");
        result_["left"] = session.Image.SetupData;
        const Differences left = CompareSetups(put, session.Image, RoadOf(session.LinkState), version_);
        if (AnyCounts(left))
            return End(MeterEnd::Different, "written, but still differs in " + CountWords(left));
        result_["verified"] = true;
        End(MeterEnd::Written, "written, and reads back as the table says");
    }

    // A command of its own, with what it says taken in.
    void TakeReading(CommandCall own, std::ostringstream& said) {
        own.Words = {call_.Words[1]};
        std::ostringstream out;
        const CliWorld& world = own.World;
        const CliWorld split{out,      world.Err, false, world.Store, world.DefaultFolder, world.MakeMachine,
                             world.In, world.Exit};
        const CommandCall read{split, own.Folder, true, own.Trace, false, own.Words, {}};
        const int status = ReadCommand(read);
        const Json answer = Json::parse(out.str(), nullptr, false);
        if (!answer.is_object()) return Refuse(status, said.str());
        const int error = answer.value("LinkError", 0);
        result_["linkError"] = error;
        if (status != kDone)
            return End(MeterEnd::LinkFailed,
                       "gave no reading: " + answer.value("LinkErrorText", answer.value("status", "")) +
                           " (" + std::to_string(error) + ")");
        result_["values"] = answer["values"];
        std::string words;
        for (const Json& value : answer["values"])
            words += (words.empty() ? "" : ", ") + std::string(Trimmed(value.get<std::string>()));
        End(MeterEnd::Read, words);
    }

    void End(MeterEnd end, const std::string& words) {
        result_["end"] = NameOf(end);
        result_["words"] = words;
    }

    void Fail(Session& session, const std::string& words) {
        const int error = session.LinkState.LinkError;
        result_["linkError"] = error;
        if (error == 0) return End(MeterEnd::LinkFailed, words + ": " + session.Home.SetupDoubt);
        End(MeterEnd::LinkFailed, WithNumber(words + ": " + session.LinkState.ErrorMeaning(), error));
    }

    // Before the meter was asked anything: the last line says why.
    void Refuse(int status, const std::string& said) {
        std::string line = said.substr(0, said.find_last_not_of('\n') + 1);
        line = line.substr(line.find_last_of('\n') + 1);
        result_["linkError"] = 0;
        End(status == kLinkFailed ? MeterEnd::LinkFailed : MeterEnd::Refused,
            line.empty() ? "could not be opened" : WithoutName(line));
    }

    static std::string WithoutName(const std::string& line) {
        constexpr std::string_view kName = "counterctl: ";
        return line.starts_with(kName) ? line.substr(kName.size()) : line;
    }

    void TakeSaid(const std::string& said) {
        Json lines = Json::array();
        std::istringstream text(said);
        for (std::string line; std::getline(text, line);) {
            line = WithoutName(line);
            if (!line.empty() && line != result_.value("words", "")) lines.push_back(line);
        }
        result_["said"] = lines;
    }

    static std::string SentSoFar(const Session& session) {
        std::string text;
        for (const std::string& frame : session.LinkState.FramesWritten) text += " " + frame;
        return text.empty() ? "; nothing was written" : "; sent so far:" + text;
    }

    // What was settled already stays so.
    void TellInterrupted(LinkSession& link) {
        const Session& session = link.Program();
        if (!result_.contains("end")) {
            if (putting_) result_["written"] = session.LinkState.FramesWritten;
            End(MeterEnd::Interrupted,
                "interrupted" + (putting_ ? SentSoFar(session) : "; nothing was written"));
        }
        Say(call_, "end", index_, result_);
    }

    const CommandCall& call_;
    std::string action_;
    const Json& order_;
    int index_;
    std::string folder_;
    SetupImage wanted_, found_;
    int version_ = 0;
    Json result_;
    bool reached_ = false;
    bool putting_ = false;
};

}  // namespace

int FleetLine(const CommandCall& call) try {
    const Json order = Json::parse(call.World.In, nullptr, false);
    if (call.Words.size() != 2 || !order.is_object() || !order.contains("meters"))
        return RefuseCall(call, kNotForPeople);
    for (const Json& meter : order["meters"]) {
        const int index = meter["index"].get<int>();
        Say(call, "begin", index, Json::object());
        MeterVisit visit(call, order["action"].get<std::string>(), meter);
        Say(call, "end", index, visit.Run());
        if (!call.World.Out) return kFileOrPort;  // nobody holds this process any longer
    }
    return kDone;
} catch (const Json::exception&) {
    return RefuseCall(call, kNotForPeople);
}

}  // namespace counter
