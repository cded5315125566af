#include "shell/home_facts.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "meter/field_code.h"
#include "meter/field_value.h"
#include "meter/text.h"
#include "platform/utc_time.h"
#include "session/change_list.h"
#include "session/take_setup.h"
#include "shell/backups.h"
#include "shell/line_words.h"

namespace counter {

namespace {

constexpr std::size_t kBackupsShown = 5;
constexpr std::size_t kMinutes = 16;  // of "2026-11-24T23:05" and of the name of a backup

// "2026-11-24 23:05", by the clock as it goes here now.
std::string Minute(const Session& session, std::int64_t utcMs) {
    std::string text = IsoTime(WallTimeAt(utcMs, session.Pump.LocalTime().MinutesEast)).substr(0, kMinutes);
    std::ranges::replace(text, 'T', ' ');
    return text;
}

std::string Shown(const SetupImage& image, Field field) {
    return std::string(Trimmed(ValueOfField(image, field).Text));
}

// "Input Option: Dual Signal Cond., Relay Option: none"
std::string BoardsOf(const SetupImage& image) {
    std::string words;
    for (const Field field : {Field::InputOption, Field::RelayOption, Field::CommOption, Field::AnalogOption})
        words += (words.empty() ? "" : ", ") + std::string(FieldName(field)) + ": " + Shown(image, field);
    return words;
}

std::string AsSentence(const std::string& step) {
    return step + (step.starts_with("is ") ? "?" : ".");
}

HomeFact MeterFact(const Session& session) {
    HomeFact fact{"factMeter", "Meter", {}};
    const Settings& settings = session.Settings;
    if (const auto& last = session.MeterAtLastGet) {
        fact.Text = MeterKindInWords(CodeOf(last->Image, Field::MeterType)) + ", firmware " +
                    std::to_string(CodeOf(last->Image, Field::FirmwareVersion)) + ", " +
                    (ExtendedMeterFromSetup(last->Image) ? "Extended" : "Basic") + "\n" +
                    BoardsOf(last->Image) + "\nRead " + Minute(session, last->UtcMs) + " at address " +
                    std::to_string(last->Address) + ", " + last->Line;
    }
    if (settings.CommsEnabled == Comms::NoLink) {
        fact.Text +=
            (fact.Text.empty() ? "" : "\n") + std::string("No link: setups of files can be worked on.");
        return fact;
    }
    const std::string now = LinkInWords(settings);
    const auto& last = session.MeterAtLastGet;
    if (!last) {
        fact.Text = "Not read yet: " + now;
    } else if (last->Address != AddressOnLine(settings) || last->Line != LineInWords(settings)) {
        fact.Text += "\nThe link is set otherwise now: " + now;
    }
    return fact;
}

// Of a link that is not the one of the settings.
std::string SessionLinkInWords(const Session& session) {
    if (!session.ChosenLink.Choice()) return {};
    Settings inFile;
    ParseSettings({session.ChosenLink.FileLine1(), session.Settings.Lines.SettingsLine2}, inFile);
    return "\nThis link is for this session; Settings.SSS has " + LinkInWords(inFile) + ".";
}

// After a switch the setup in memory may be another meter's.
std::string OtherMeterInWords(const Session& session) {
    const std::string& from = session.Origin.Meter;
    if (!session.ChosenLink.Switched() || from.empty() || from == MeterOnLine(session.Settings)) return {};
    return "\nIt came from the meter at " + from + ", not from the one that the link is to now.";
}

HomeFact SetupFact(const Session& session) {
    HomeFact fact{"factSetup", "Setup in memory", "None yet. File and Counter of the menu bring one."};
    const SetupOrigin& origin = session.Origin;
    if (origin.From == SetupSource::Nothing) return fact;
    const int fields = FieldsChanged(session);
    fact.Text = "It is " + OriginInWords(origin) + ", " + Minute(session, origin.UtcMs);
    fact.Text += fields == 0   ? ", unchanged."
                 : fields == 1 ? ", but for 1 field."
                               : ", but for " + std::to_string(fields) + " fields.";
    const std::string& file = session.Home.CurrentFileName;
    if (!file.empty()) fact.Text += "\nSave Setup writes to " + file;
    if (!session.Home.SetupDoubt.empty()) fact.Text += "\n" + session.Home.SetupDoubt;
    const std::string other = OtherMeterInWords(session);
    fact.Text += other;
    fact.Bad = !other.empty() || !session.Home.SetupDoubt.empty();
    return fact;
}

std::string PutInWords(const TransferReport& put) {
    const std::string went = "it appears to have gone over to the meter at " + put.Meter;
    if (!put.Differ) return went + "; Verify shows whether it holds it.";
    if (*put.Differ == 0) return went + ", and Verify found that it holds it.";
    return went + ", but Verify found " + std::to_string(*put.Differ) +
           (*put.Differ == 1 ? " field that differs." : " fields that differ.");
}

HomeFact TransferFact(const Session& session) {
    HomeFact fact{"factTransfer", "Last transfer", "None yet."};
    if (!session.LastTransfer) return fact;
    const TransferReport& last = *session.LastTransfer;
    fact.Text = std::string(last.Put ? "Put" : "Get") + ", " + Minute(session, last.UtcMs) + ": ";
    fact.Bad = !last.Good;
    if (last.Good) {
        fact.Text += last.Put ? PutInWords(last) : "all came.";
        fact.Bad = last.Differ.value_or(0) > 0;
    } else if (last.LinkError == 0) {
        fact.Text += "given up before its end.";
    } else {
        fact.Text += "it failed, number " + std::to_string(last.LinkError) + ": " +
                     LinkErrorMeaning(last.LinkError, last.FailedIn) +
                     ".\nFirst: " + AsSentence(FirstToTry(last.LinkError, last.FailedIn)) +
                     " More to try is under that number in docs/when-something-fails.md.";
    }
    return fact;
}

}  // namespace

std::vector<BackupFact> LatestBackups(const ProgramFolder& folder) {
    std::vector<BackupFact> latest;
    for (const std::string& name : NewestBackups(folder, kBackupsShown)) {
        std::string words = name.substr(0, kMinutes);
        words[10] = ' ';
        words[13] = ':';
        const std::size_t address = name.find("address-") + 8;
        words += ", address " + std::to_string(std::atoi(name.c_str() + address));
        latest.push_back({BackupPath(folder, name), words});
    }
    return latest;
}

bool HomeFacts::Follow() {
    std::vector<HomeFact> facts = {MeterFact(session_), SetupFact(session_), TransferFact(session_)};
    facts.front().Text += SessionLinkInWords(session_);
    const std::int64_t ended = session_.LastTransfer ? session_.LastTransfer->UtcMs : 0;
    std::vector<BackupFact> backups = Backups;
    if (!std::exchange(listed_, true) || std::exchange(listedUtcMs_, ended) != ended)
        backups = LatestBackups(session_.Folder);
    if (facts == Facts && backups == Backups) return false;
    Facts = std::move(facts);
    Backups = std::move(backups);
    return true;
}

}  // namespace counter
