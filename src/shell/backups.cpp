#include "shell/backups.h"

#include <algorithm>
#include <cstdio>

#include "shell/line_words.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

// A Get waits for this: a folder into which somebody has copied thousands is brought down over some of them.
constexpr std::size_t kMostRemoved = 200;
constexpr const char* kNameExample = "2026-11-24_23-05-59-123_address-";

// Whatever else lies in the folder is the user's, a backup that he has given more of a name included.
bool IsBackup(const std::string& name) {
    const std::string example = kNameExample;
    if (name.size() < example.size()) return false;
    for (std::size_t i = 0; i < example.size(); ++i) {
        const bool digit = example[i] >= '0' && example[i] <= '9';
        if (digit ? name[i] < '0' || name[i] > '9' : name[i] != example[i]) return false;
    }
    const std::size_t end = std::min(name.find_first_not_of("0123456789", example.size()), name.size());
    return name.substr(end) == ".CT2";
}

// Names begin with the date, so their order is that of time, as far as the clock was right. One that is dated
// later than the backup just written was written before it all the same: those go first. So whatever the
// clock does, what was written last stays.
std::vector<std::string> InOrderOfGoing(const std::vector<std::string>& names, const std::string& written) {
    std::vector<std::string> later, earlier;
    for (const std::string& name : names) {
        if (IsBackup(name) && name != written) (name > written ? later : earlier).push_back(name);
    }
    later.insert(later.end(), earlier.begin(), earlier.end());
    return later;
}

void RemoveOldest(Files& files, const std::string& folder, const std::string& written) {
    std::vector<std::string> names;
    if (!files.List(folder, names).Ok()) return;
    const std::vector<std::string> others = InOrderOfGoing(names, written);
    const std::size_t tooMany = others.size() + 1 - std::min<std::size_t>(others.size() + 1, kBackupsKept);
    for (std::size_t i = 0; i < std::min(tooMany, kMostRemoved); ++i) files.Remove(folder + "/" + others[i]);
}

}  // namespace

std::string BackupName(const Session& session) {
    const WallTime now = session.Pump.LocalTime();
    char name[96];
    std::snprintf(name, sizeof name, "%04d-%02d-%02d_%02d-%02d-%02d-%03d_address-%02d.CT2", now.Year,
                  now.Month, now.Day, now.Hour, now.Minute, now.Second, now.Millisecond,
                  AddressOnLine(session.Settings));
    return name;
}

Status KeepBackup(Session& session) {
    Files& files = session.Folder.Store;
    const std::string folder = session.Folder.At("backups");
    if (Status status = files.MakeFolder(folder); !status.Ok()) return status;
    const std::string name = BackupName(session);
    Status status = SaveSetupFile(files, folder + "/" + name, session.Image);
    if (status.Ok()) RemoveOldest(files, folder, name);
    return status;
}

std::vector<std::string> NewestBackups(const ProgramFolder& folder, std::size_t most) {
    std::vector<std::string> names;
    if (!folder.Store.List(folder.At("backups"), names).Ok()) return {};
    std::erase_if(names, [](const std::string& name) { return !IsBackup(name); });
    std::sort(names.rbegin(), names.rend());
    names.resize(std::min(names.size(), most));
    return names;
}

std::string BackupPath(const ProgramFolder& folder, const std::string& name) {
    return folder.At("backups") + "/" + name;
}

std::string NoBackupWords(const Status& kept) {
    return kept.Ok() ? std::string() : "no backup: " + kept.Text();
}

}  // namespace counter
