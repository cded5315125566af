#include "system/unfinished_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace counter {

namespace {

// Hidden, and no name that a user would give: what carries it is removed.
constexpr const char* kName = "/.counter-unfinished-";
constexpr int kMost = 100;  // runs that write into one folder at the same moment

bool Names(const std::string& path, int handle) {
    struct stat named = {}, open = {};
    return lstat(path.c_str(), &named) == 0 && fstat(handle, &open) == 0 && named.st_dev == open.st_dev &&
           named.st_ino == open.st_ino;
}

// Only who holds the lock renames or removes, so the name stays that of the file between look and removal.
void RemoveLeft(const std::string& path) {
    const int left = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (left < 0) return;
    if (flock(left, LOCK_EX | LOCK_NB) == 0 && Names(path, left)) unlink(path.c_str());
    close(left);
}

}  // namespace

UnfinishedFile::~UnfinishedFile() {
    if (handle_ < 0) return;
    if (!path_.empty()) unlink(path_.c_str());
    close(handle_);
}

int UnfinishedFile::Open(const std::string& folder) {
    int error = EEXIST;
    for (int number = 1; error == EEXIST && number <= kMost; ++number) {
        path_ = folder + kName + std::to_string(number);
        RemoveLeft(path_);
        error = Make();
    }
    return error;
}

// EEXIST where another run has the name, or took this file for one that was left before it had its lock.
int UnfinishedFile::Make() {
    handle_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (handle_ < 0) return errno;
    if (IsOurs()) return 0;
    close(handle_);
    handle_ = -1;
    return EEXIST;
}

// A file system without locks lets the file be used all the same: its name is nobody else's.
bool UnfinishedFile::IsOurs() const {
    const bool taken = flock(handle_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !taken && Names(path_, handle_);
}

int UnfinishedFile::RenameTo(const std::string& path) {
    if (rename(path_.c_str(), path.c_str()) != 0) return errno;
    path_.clear();
    return 0;
}

}  // namespace counter
