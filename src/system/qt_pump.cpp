#include "system/qt_pump.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <thread>

#include "system/interrupt_watch.h"

namespace counter {

QtPump::QtPump() = default;
QtPump::~QtPump() = default;

double QtPump::NowMs() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

WallTime QtPump::LocalTime() const {
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    std::tm local = {};
    localtime_r(&now.tv_sec, &local);
    WallTime time;
    time.Year = local.tm_year + 1900;
    time.Month = local.tm_mon + 1;
    time.Day = local.tm_mday;
    time.Hour = local.tm_hour;
    time.Minute = local.tm_min;
    time.Second = local.tm_sec;
    time.Millisecond = static_cast<int>(now.tv_nsec / 1'000'000);
    time.MinutesEast = static_cast<int>(local.tm_gmtoff / 60);
    return time;
}

void QtPump::Rest(double ms) {
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(ms));
}

void QtPump::EndProcess(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

void QtPump::InstallInterruptHandler() {
    if (!interrupts_) interrupts_ = std::make_unique<InterruptWatch>([this] { RequestInterrupt(); });
}

void QtPump::RunEvents(double deadlineMs) {
    // An event may wait itself, so the one timer goes back to the outer deadline before the outer loop, which
    // may not have slept yet, goes on. The outermost wait leaves it set: the next turn mostly has the same.
    const double outerDeadlineMs = timer_.Deadline();
    timer_.Set(deadlineMs);
    ++depth_;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    if (--depth_ > 0) timer_.Set(outerDeadlineMs);
}

}  // namespace counter
