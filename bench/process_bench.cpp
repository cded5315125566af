// bench_process RUNS A... -- B...: two commands in turn, A B A B, and the ratios A/B of their medians.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "figures.h"
#include "process_run.h"

namespace {

struct Series {
    std::vector<double> Wall, Cpu, Peak;
    void Add(const RunFigures& run) {
        Wall.push_back(run.WallMs);
        Cpu.push_back(run.CpuMs);
        Peak.push_back(static_cast<double>(run.PeakKb));
    }
};

void Print(const char* name, const std::vector<double>& a, const std::vector<double>& b) {
    std::printf("%-10s %10.2f %10.2f %8.3f\n", name, Median(a), Median(b), Median(a) / Median(b));
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> commands[2];
    int which = 0;
    for (int i = 2; i < argc; ++i) {
        if (std::string(argv[i]) == "--") {
            which = 1;
        } else {
            commands[which].emplace_back(argv[i]);
        }
    }
    if (commands[0].empty() || commands[1].empty()) {
        std::fprintf(stderr, "usage: bench_process RUNS A... -- B...\n");
        return 1;
    }
    Series series[2];
    for (int run = 0; run < std::atoi(argv[1]) + 1; ++run) {
        for (int side = 0; side < 2; ++side) {
            const RunFigures figures = RunProcess(commands[side]);
            if (run > 0) series[side].Add(figures);  // the first one warms the caches
        }
    }
    std::printf("%-10s %10s %10s %8s\n", "median", "A", "B", "A/B");
    Print("wall ms", series[0].Wall, series[1].Wall);
    Print("cpu ms", series[0].Cpu, series[1].Cpu);
    Print("peak kB", series[0].Peak, series[1].Peak);
}
