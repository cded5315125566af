#include "system/port_refusal.h"

#include <errno.h>
#include <grp.h>
#include <pwd.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <vector>

namespace counter {

namespace {

constexpr gid_t kSuperuserGroup = 0;

bool SystemListsUserIn(gid_t group) {
    const passwd* user = getpwuid(geteuid());
    if (user == nullptr) return false;
    int count = 0;
    getgrouplist(user->pw_name, user->pw_gid, nullptr, &count);  // too small on purpose: tells how many
    std::vector<gid_t> groups(static_cast<std::size_t>(count));
    if (getgrouplist(user->pw_name, user->pw_gid, groups.data(), &count) < 0) return false;
    return std::find(groups.begin(), groups.end(), group) != groups.end();
}

}  // namespace

GroupAccess GroupAccessTo(const std::string& device) {
    constexpr mode_t kReadAndWrite = S_IRGRP | S_IWGRP;
    struct stat info = {};
    if (stat(device.c_str(), &info) != 0 || (info.st_mode & kReadAndWrite) != kReadAndWrite) return {};
    const group* owner = info.st_gid == kSuperuserGroup ? nullptr : getgrgid(info.st_gid);
    if (owner == nullptr) return {};
    return {owner->gr_name, SystemListsUserIn(info.st_gid)};
}

std::string RefusalAdvice(const GroupAccess& access) {
    if (access.Group.empty()) return "";
    if (access.ListsUser) {
        return " (you have been put into group " + access.Group +
               ", which may open it, since you logged in: log out and in again)";
    }
    return " (it belongs to group " + access.Group + ": sudo usermod -aG " + access.Group +
           " $USER, then log out and in again)";
}

// The path below /dev with "_" for each slash, as LCK..ttyUSB0.
std::string LockAdvice(const std::string& device, const std::vector<std::string>& folders) {
    std::string name = device.starts_with("/dev/") ? device.substr(5) : device;
    std::replace(name.begin(), name.end(), '/', '_');
    for (const std::string& folder : folders) {
        const std::string path = folder + "/LCK.." + name;
        std::ifstream file(path);
        if (!file) continue;
        pid_t owner = 0;
        file >> owner;
        const std::string held = " (lock file " + path;
        if (owner <= 0) return held + ", which names no program: remove it where none uses the port)";
        const std::string number = std::to_string(owner);
        if (kill(owner, 0) == 0 || errno != ESRCH) return held + " of process " + number + ")";
        return held + " of process " + number + ", which has ended: remove it)";
    }
    return {};
}

}  // namespace counter
