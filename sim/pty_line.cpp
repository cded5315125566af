#include "sim/pty_line.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "sim/handles.h"

namespace sim {

namespace {

// No echo, no line editing, 9600 baud until a tool says otherwise.
bool MakeRaw(int terminal) {
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0) return false;
    cfmakeraw(&settings);
    cfsetspeed(&settings, B9600);
    return tcsetattr(terminal, TCSANOW, &settings) == 0;
}

}  // namespace

std::string PtyLine::Fail() {
    std::string reason = std::strerror(errno);
    Close();
    return reason;
}

std::string PtyLine::Open() {
    Close();
    inner_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (inner_ < 0 || grantpt(inner_) != 0 || unlockpt(inner_) != 0) return Fail();
    path_ = ptsname(inner_);
    outer_ = open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (outer_ < 0 || !MakeRaw(outer_)) return Fail();
    watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch_ < 0 || inotify_add_watch(watch_, path_.c_str(), IN_CLOSE) < 0) return Fail();
    return "";
}

void PtyLine::Close() {
    CloseHandleOf(watch_);
    CloseHandleOf(outer_);
    CloseHandleOf(inner_);
}

void PtyLine::AfterClose() {
    char events[1024];
    while (read(watch_, events, sizeof events) > 0) {
    }
    ioctl(outer_, TIOCNXCL);
    tcflush(outer_, TCIFLUSH);
}

std::string PtyLine::Read() {
    std::string bytes;
    char part[512];
    for (ssize_t got; (got = read(inner_, part, sizeof part)) > 0;)
        bytes.append(part, static_cast<std::size_t>(got));
    return bytes;
}

void PtyLine::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t gone = write(inner_, bytes.data(), bytes.size());
        if (gone < 0 && errno == EINTR) continue;
        if (gone <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(gone));
    }
}

void PtyLine::Drain() const {
    int unread = 1;
    for (int tries = 0; tries < 100 && unread > 0; ++tries) {
        poll(nullptr, 0, 5);  // also lets the system carry the bytes from one end to the other
        if (ioctl(outer_, FIONREAD, &unread) != 0) return;
    }
}

int PtyLine::Baud() const {
    termios settings{};
    if (tcgetattr(inner_, &settings) != 0) return 0;
    switch (cfgetospeed(&settings)) {
        case B300:
            return 300;
        case B600:
            return 600;
        case B1200:
            return 1200;
        case B2400:
            return 2400;
        case B4800:
            return 4800;
        case B9600:
            return 9600;
        case B19200:
            return 19200;
        default:
            return 0;
    }
}

}  // namespace sim
