#include "line_end.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "figures.h"

namespace {

// Readings that move: a sine of 200 steps around 1000.00.
std::string FrameOf(int i) {
    char text[16];
    std::snprintf(text, sizeof text, "+%7.2f\r", 1000 + 500 * std::sin(i * 0.0314));
    return text;
}

// Takes what has arrived, so that the line never fills up; ends with the line.
void Drop(int line) {
    char commands[256];
    if (read(line, commands, sizeof commands) <= 0) _exit(0);
}

// Sleeps until `dueMs`; commands that arrive meanwhile are thrown away.
void DropUntil(int line, double dueMs) {
    for (double left = dueMs - SteadyMs(); left > 0; left = dueMs - SteadyMs()) {
        pollfd end = {line, POLLIN, 0};
        const auto ns = static_cast<long long>(left * 1e6);
        const timespec rest = {ns / 1'000'000'000, ns % 1'000'000'000};
        if (ppoll(&end, 1, &rest, nullptr) > 0) Drop(line);
    }
}

void SendFrames(int line, const Order& order, int& next, volatile double& lastSentMs) {
    double due = SteadyMs();
    for (int i = 0; i < order.Frames; ++i, due += order.EveryMs) {
        DropUntil(line, due);
        const std::string frame = FrameOf(next++);
        lastSentMs = SteadyMs();
        if (write(line, frame.data(), frame.size()) < 0) _exit(0);
    }
}

// Until the other process is gone. Commands that arrive are thrown away.
[[noreturn]] void Play(int line, int orders, volatile double& lastSentMs) {
    int next = 0;
    for (;;) {
        pollfd ends[2] = {{line, POLLIN, 0}, {orders, POLLIN, 0}};
        poll(ends, 2, -1);
        if (ends[0].revents) Drop(line);
        if (!ends[1].revents) continue;
        Order order;
        if (read(orders, &order, sizeof order) != sizeof order) _exit(0);
        SendFrames(line, order, next, lastSentMs);
    }
}

}  // namespace

LineEnd::LineEnd() {
    const int line = posix_openpt(O_RDWR | O_NOCTTY);
    int ends[2] = {};
    void* shared = mmap(nullptr, sizeof(double), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (line < 0 || grantpt(line) != 0 || unlockpt(line) != 0 || pipe(ends) != 0 || shared == MAP_FAILED) {
        std::perror("pseudo terminal");
        std::exit(1);
    }
    device_ = ptsname(line);
    lastSentMs_ = static_cast<double*>(shared);
    process_ = fork();
    if (process_ == 0) {
        close(ends[1]);
        Play(line, ends[0], *lastSentMs_);
    }
    close(ends[0]);
    close(line);
    orders_ = ends[1];
}

LineEnd::~LineEnd() {
    close(orders_);
    waitpid(process_, nullptr, 0);
}

void LineEnd::Send(Order order) const {
    (void)!write(orders_, &order, sizeof order);
}
