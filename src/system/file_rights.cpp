#include "system/file_rights.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstring>
#include <string_view>
#include <vector>

namespace counter {

namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

// Who isn't the superuser can give a file to no other user, but to a group of his.
bool KeepsGroup(const struct stat& there, int handle) {
    return fchown(handle, there.st_uid, there.st_gid) == 0 ||
           fchown(handle, static_cast<uid_t>(-1), there.st_gid) == 0;
}

mode_t WithoutGroup(mode_t mode) {
    return (mode & ~mode_t{S_ISUID | S_ISGID | S_IRWXG}) | ((mode & S_IRWXO) << 3);
}

// Ended by a zero byte each.
std::vector<char> AttributeNames(const std::string& path) {
    const ssize_t size = listxattr(path.c_str(), nullptr, 0);
    std::vector<char> names(size > 0 ? static_cast<std::size_t>(size) : 0);
    const ssize_t got = listxattr(path.c_str(), names.data(), names.size());
    names.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return names;
}

void CopyAttribute(const std::string& path, const char* name, int handle) {
    const ssize_t size = getxattr(path.c_str(), name, nullptr, 0);
    if (size < 0) return;
    std::vector<char> value(static_cast<std::size_t>(size));
    const ssize_t got = getxattr(path.c_str(), name, value.data(), value.size());
    if (got >= 0) fsetxattr(handle, name, value.data(), static_cast<std::size_t>(got), 0);
}

}  // namespace

// The access list comes last: it holds the mode as well, and a mode set after it would change its mask.
void KeepRights(const std::string& path, int handle) {
    struct stat there = {};
    if (stat(path.c_str(), &there) != 0) return;
    const bool group = KeepsGroup(there, handle);
    fremovexattr(handle, kAccessList);  // the folder may have handed one down that the file had not
    fchmod(handle, group ? there.st_mode & 07777 : WithoutGroup(there.st_mode & 07777));
    const std::vector<char> names = AttributeNames(path);
    for (std::size_t at = 0; at < names.size(); at += std::strlen(&names[at]) + 1)
        if (group || std::string_view(&names[at]) != kAccessList) CopyAttribute(path, &names[at], handle);
}

std::string LostNames(const std::string& path) {
    struct stat there = {};
    if (stat(path.c_str(), &there) != 0 || !S_ISREG(there.st_mode) || there.st_nlink < 2) return {};
    const auto others = there.st_nlink - 1;
    return path + " had " + std::to_string(others) + (others == 1 ? " more name" : " more names") +
           " (hard links), which still hold what was there before";
}

}  // namespace counter
