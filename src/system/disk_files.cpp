#include "system/disk_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "system/file_rights.h"
#include "system/links.h"
#include "system/streams.h"
#include "system/system_status.h"
#include "system/unfinished_file.h"

namespace counter {

namespace {

namespace fs = std::filesystem;

Status StatusOf(const std::string& path, int error) {
    return error == 0 ? Status{} : SystemStatus(path, error);
}

// No file of this program is longer than some lines; a device such as /dev/zero has no end.
constexpr std::size_t kLargestFile = 64U << 20;

// A device or pipe, or what the shell has put in the place of one: /dev/stdout may be a file that is being
// written already and must not be replaced under the writer.
bool IsStream(const std::string& path) {
    struct stat there = {};
    if (stat(path.c_str(), &there) != 0) return false;
    if (!S_ISREG(there.st_mode)) return !S_ISDIR(there.st_mode);
    return path.rfind("/dev/", 0) == 0 && lstat(path.c_str(), &there) == 0 && S_ISLNK(there.st_mode);
}

int WriteToStream(const std::string& path, std::string_view content, const Patience& patience) {
    int descriptor = -1;
    if (const int error = OpenToWrite(path, patience, descriptor)) return error;
    const int error = WriteStream(descriptor, content, patience, "a reader of " + path);
    return close(descriptor) != 0 && error == 0 ? errno : error;
}

std::string FolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// What the system would say to writing over `path`, or to a temporary beside it; 0 where it would allow both.
int WhyNotReplace(const std::string& path) {
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) return EISDIR;
    if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT) return errno;
    return faccessat(AT_FDCWD, FolderOf(path).c_str(), W_OK | X_OK, AT_EACCESS) == 0 ? 0 : errno;
}

// The rename too must have reached the disk before anybody relies on the file: a backup is written before the
// meter is. A file system that can't do this still has the old or the new file whole.
void SyncFolderOf(const std::string& path) {
    const int folder = open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    fsync(folder);
    close(folder);
}

int WriteWhole(const std::string& path, std::string_view content) {
    if (const int error = WhyNotReplace(path)) return error;
    UnfinishedFile file;
    if (const int error = file.Open(FolderOf(path))) return error;
    KeepRights(path, file.Handle());
    std::size_t written = 0;
    if (const int error = WriteFile(file.Handle(), content, written)) return error;
    if (fsync(file.Handle()) != 0) return errno;
    if (const int error = file.RenameTo(path)) return error;
    SyncFolderOf(path);
    return 0;
}

class OpenFile : public GrowingFile {
  public:
    OpenFile(std::string path, int descriptor, const Patience& patience)
        : path_(std::move(path)), descriptor_(descriptor), patience_(patience) {
        struct stat there = {};
        regular_ = fstat(descriptor, &there) == 0 && S_ISREG(there.st_mode);
    }
    ~OpenFile() override { close(descriptor_); }
    Status Add(std::string_view content) override {
        return StatusOf(path_, regular_
                                   ? AddWhole(content)
                                   : WriteStream(descriptor_, content, patience_, "a reader of " + path_));
    }

  private:
    // A disk that was full in the middle must not leave half a line.
    int AddWhole(std::string_view content) {
        std::size_t written = 0;
        const int error = WriteFile(descriptor_, content, written);
        struct stat now = {};
        if (error == 0 || written == 0 || fstat(descriptor_, &now) != 0) return error;
        return ftruncate(descriptor_, now.st_size - static_cast<off_t>(written)) == 0 ? error : errno;
    }

    std::string path_;
    int descriptor_;
    const Patience& patience_;
    bool regular_ = false;
};

class FolderLock : public FileLock {
  public:
    explicit FolderLock(int folder) : folder_(folder) {}
    ~FolderLock() override { close(folder_); }

  private:
    int folder_;
};

}  // namespace

Status DiskFiles::Lock(const std::string& path, std::unique_ptr<FileLock>& lock) {
    lock.reset();
    const int folder = open(FolderOf(counter::FollowLinks(path)).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return {};  // what is wrong with it shows when the file is read
    if (flock(folder, LOCK_EX | LOCK_NB) == 0) {
        lock = std::make_unique<FolderLock>(folder);
        return {};
    }
    const bool held = errno == EWOULDBLOCK;
    close(folder);
    if (held) return {StatusKind::Busy, path, "another program is changing it"};
    return {};
}

Status DiskFiles::Read(const std::string& path, std::string& content) const {
    content.clear();
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) return SystemStatus(path, errno);
    const int error = ReadStream(descriptor, content, kLargestFile, patience_, "a writer of " + path);
    close(descriptor);
    return StatusOf(path, error);
}

Status DiskFiles::Write(const std::string& path, std::string_view content) {
    if (IsStream(path)) return StatusOf(path, WriteToStream(path, content, patience_));
    const std::string named = counter::FollowLinks(path);
    std::string note = LostNames(named);
    Status status = StatusOf(path, WriteWhole(named, content));
    if (status.Ok()) status.Note = std::move(note);
    return status;
}

Status DiskFiles::Append(const std::string& path, std::string_view content) {
    std::unique_ptr<GrowingFile> file;
    const Status status = Grow(path, file);
    return status.Ok() ? file->Add(content) : status;
}

Status DiskFiles::Grow(const std::string& path, std::unique_ptr<GrowingFile>& file) {
    file.reset();
    int descriptor = -1;
    int error = 0;
    if (IsStream(path)) {
        error = OpenToWrite(path, patience_, descriptor);
    } else {
        descriptor = open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, 0666);
        error = descriptor < 0 ? errno : 0;
    }
    if (error == 0) file = std::make_unique<OpenFile>(path, descriptor, patience_);
    return StatusOf(path, error);
}

bool DiskFiles::Exists(const std::string& path) const {
    return access(path.c_str(), F_OK) == 0;
}

Status DiskFiles::Remove(const std::string& path) {
    return StatusOf(path, unlink(path.c_str()) == 0 ? 0 : errno);
}

Status DiskFiles::MakeFolder(const std::string& path) {
    std::error_code error;
    fs::create_directories(path, error);
    return StatusOf(path, error.value());
}

Status DiskFiles::List(const std::string& path, std::vector<std::string>& names) const {
    names.clear();
    std::error_code error;
    for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
        names.push_back(entry->path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return StatusOf(path, error.value());
}

Status DiskFiles::MakeLink(const std::string& path, const std::string& target) {
    struct stat there = {};
    if (lstat(path.c_str(), &there) == 0 && !S_ISLNK(there.st_mode)) return SystemStatus(path, EEXIST);
    const std::string beside = path + ".new";
    unlink(beside.c_str());  // left by a run that was killed here
    if (symlink(target.c_str(), beside.c_str()) != 0) return SystemStatus(path, errno);
    if (rename(beside.c_str(), path.c_str()) == 0) return {};
    const int error = errno;
    unlink(beside.c_str());
    return SystemStatus(path, error);
}

std::string DiskFiles::LinkTarget(const std::string& path) const {
    std::error_code error;
    return fs::read_symlink(path, error).string();
}

bool DiskFiles::SameFile(const std::string& a, const std::string& b) const {
    struct stat one = {}, other = {};
    if (stat(a.c_str(), &one) != 0 || stat(b.c_str(), &other) != 0) return FileReader::SameFile(a, b);
    return S_ISREG(one.st_mode) && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

std::string DiskFiles::FollowLinks(const std::string& path) const {
    return counter::FollowLinks(path);
}

std::string DiskFiles::Absolute(const std::string& path) const {
    return fs::absolute(path).lexically_normal().string();
}

}  // namespace counter
