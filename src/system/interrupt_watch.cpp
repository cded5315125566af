#include "system/interrupt_watch.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace counter {

namespace {

// The one thing a signal handler can reach. Written only where a watch comes and goes.
std::atomic<int> wakeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may not wait for a lock");

extern "C" void WakeOnSignal(int) {
    const int savedErrno = errno;
    const char byte = 0;
    // A full pipe wakes as well.
    [[maybe_unused]] const ssize_t size = write(wakeEnd.load(), &byte, 1);
    errno = savedErrno;
}

void Take(int signalNumber, void (*handler)(int), struct sigaction& former) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signalNumber, &action, &former);
}

// Whoever starts a program by nohup wants it to outlive the terminal.
bool IsKeptFromHangUp(int signalNumber) {
    struct sigaction now = {};
    return signalNumber == SIGHUP && sigaction(SIGHUP, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

void Drain(int descriptor) {
    char bytes[64];
    while (read(descriptor, bytes, sizeof bytes) > 0) {
    }
}

}  // namespace

InterruptWatch::InterruptWatch(std::function<void()> tell) {
    if (pipe2(ends_, O_NONBLOCK | O_CLOEXEC) != 0) {
        // The signals keep their usual meaning: the program can still be ended.
        std::perror("pipe");
        return;
    }
    wakeEnd = ends_[1];
    notifier_ = std::make_unique<QSocketNotifier>(ends_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this, tell = std::move(tell)] {
                         Drain(ends_[0]);
                         came_ = true;
                         tell();
                     });
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
        const int number = kEndingSignals[i];
        Take(number, IsKeptFromHangUp(number) ? SIG_IGN : WakeOnSignal, former_[i]);
    }
    Take(SIGPIPE, SIG_IGN, formerPipe_);
}

InterruptWatch::~InterruptWatch() {
    if (!notifier_) return;
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i)
        sigaction(kEndingSignals[i], &former_[i], nullptr);
    sigaction(SIGPIPE, &formerPipe_, nullptr);
    notifier_.reset();
    wakeEnd = -1;
    close(ends_[0]);
    close(ends_[1]);
}

bool InterruptWatch::Came() const {
    pollfd end = {ends_[0], POLLIN, 0};
    return came_ || poll(&end, 1, 0) > 0;
}

}  // namespace counter
