#include "system/streams.h"

#include <fcntl.h>
#include <limits.h>
#include <linux/magic.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace counter {

namespace {

bool MustTryAgain(int error) {
    return error == EAGAIN || error == EINTR;
}

// One that has a name, which is opened from both ends. Another one had its writer before it was opened here.
bool IsNamedPipe(int descriptor) {
    struct stat info = {};
    struct statfs system = {};
    return fstat(descriptor, &info) == 0 && S_ISFIFO(info.st_mode) && fstatfs(descriptor, &system) == 0 &&
           system.f_type != PIPEFS_MAGIC;
}

}  // namespace

int WriteStream(int descriptor, std::string_view content, const Patience& patience,
                const std::string& reader) {
    while (!content.empty()) {
        if (const int error = patience.Await(descriptor, POLLOUT, reader)) return error;
        const ssize_t size =
            write(descriptor, content.data(), std::min<std::size_t>(content.size(), PIPE_BUF));
        if (size < 0 && !MustTryAgain(errno)) return errno;
        if (size > 0) content.remove_prefix(static_cast<std::size_t>(size));
    }
    return 0;
}

int WriteFile(int descriptor, std::string_view content, std::size_t& written) {
    written = 0;
    while (written < content.size()) {
        const ssize_t size = write(descriptor, content.data() + written, content.size() - written);
        if (size > 0) written += static_cast<std::size_t>(size);
        if (size < 0 && errno != EINTR) return errno;
    }
    return 0;
}

int OpenToWrite(const std::string& path, const Patience& patience, int& descriptor) {
    int error = 0;
    const auto tried = [&] {
        descriptor = open(path.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
        error = descriptor < 0 ? errno : 0;
        struct stat info = {};
        const bool nobodyReads = error == ENXIO && stat(path.c_str(), &info) == 0 && S_ISFIFO(info.st_mode);
        if (nobodyReads) poll(nullptr, 0, 50);
        return !nobodyReads;
    };
    const int ended = patience.Until(tried, "a reader of " + path);
    return ended != 0 ? ended : error;
}

int ReadStream(int descriptor, std::string& content, std::size_t most, const Patience& patience,
               const std::string& writer) {
    bool hadWriter = !IsNamedPipe(descriptor);
    char block[16384];
    while (content.size() <= most) {
        const ssize_t size = read(descriptor, block, sizeof block);
        if (size > 0) content.append(block, static_cast<std::size_t>(size));
        if (size > 0) continue;
        if (size == 0 && (hadWriter || !content.empty())) return 0;
        if (size < 0 && !MustTryAgain(errno)) return errno;
        if (const int error = patience.Await(descriptor, POLLIN, writer)) return error;
        hadWriter = true;
    }
    return EFBIG;
}

}  // namespace counter
