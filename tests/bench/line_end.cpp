#include "line_end.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

// Readings that move: a sine of 200 steps around 1000.00.
std::string FrameOf(int i) {
    char text[16];
    std::snprintf(text, sizeof text, "+%7.2f\r", 1000 + 500 * std::sin(i * 0.0314));
    return text;
}

void SendFrames(int line, const Order& order, int& next, volatile double& lastSentMs) {
    double due = SteadyMs();
    for (int i = 0; i < order.Frames; ++i, due += order.EveryMs) {
        while (SteadyMs() < due) std::this_thread::sleep_for(std::chrono::microseconds(200));
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
        char commands[256];
        if (ends[0].revents & POLLIN) (void)!read(line, commands, sizeof commands);
        if (!ends[1].revents) continue;
        Order order;
        if (read(orders, &order, sizeof order) != sizeof order) _exit(0);
        SendFrames(line, order, next, lastSentMs);
    }
}

}  // namespace

double SteadyMs() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

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
