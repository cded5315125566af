#include "figures.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

double SteadyMs() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

double CpuMs(const rusage& usage) {
    const auto ms = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
    };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double TimeOf(const std::function<void()>& action) {
    const double start = SteadyMs();
    action();
    return SteadyMs() - start;
}

std::vector<double> TimesOf(int rounds, const std::function<void()>& action) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) times.push_back(TimeOf(action));
    return times;
}

void Print(const char* name, double value, const char* unit) {
    std::printf("%-44s %8.2f %s\n", name, value, unit);
}
