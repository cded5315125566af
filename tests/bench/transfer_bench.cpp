// bench_get BIN FOLDER [RUNS]: counterctl get from counter-sim over a pseudo terminal, in each protocol. Wall
// time against the sum of the pauses that the link demands, processor time against wall time.
//
// FOLDER becomes the program folder.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "process_run.h"

namespace {

// At 9600 baud: ten characters of eleven bits, and 50 ms.
constexpr double kGapMs = 11000.0 / 9600 * 10 + 50;
constexpr double kExchangeMs = 300 + 200 + kGapMs;
constexpr double kCloseMs = 200;
constexpr double kBeginMs = 5;

// Wake-up, 300 ms, five exchanges, 200 ms before the last, the reset that no reply follows.
constexpr double kAsciiMs = kBeginMs + 300 + 300 + 5 * kExchangeMs + 200 + 300 + kCloseMs;
// The echo and six ranges with a second before each.
constexpr double kModbusMs = kBeginMs + 7 * kExchangeMs + 6 * 1000 + kCloseMs;

struct Kind {
    const char* Name;
    const char* Protocol;  // for counter-sim
    const char* Setting;   // for counterctl
    double PausesMs;
};
constexpr Kind kKinds[] = {
    {"Custom ASCII", "ascii", "SerialProtocol=0", kAsciiMs},
    {"Modbus RTU", "rtu", "SerialProtocol=1", kModbusMs},
    {"Modbus ASCII", "modbus-ascii", "SerialProtocol=2", kModbusMs},
};

// Starts the simulated meter and returns once it has told its path.
pid_t StartMeter(const std::string& bin, const Kind& kind, const std::string& link) {
    int ends[2];
    if (pipe(ends) != 0) std::exit(2);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        execl((bin + "/counter-sim").c_str(), "counter-sim", "--protocol", kind.Protocol, "--link",
              link.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(ends[1]);
    char byte = 0;
    while (read(ends[0], &byte, 1) == 1 && byte != '\n') {
    }
    return child;
}

void Measure(const std::string& bin, const std::string& folder, const Kind& kind, int runs) {
    const std::string counterctl = bin + "/counterctl";
    const std::string link = folder + "/ports/com1";
    RunProcess({counterctl, "--dir", folder, "settings", "init", "--force", kind.Setting});
    RunProcess({"mkdir", "-p", folder + "/ports"});
    const pid_t meter = StartMeter(bin, kind, link);
    std::vector<double> wall, cpu;
    for (int run = 0; run < runs; ++run) {
        const RunFigures figures = RunProcess({counterctl, "--dir", folder, "get", folder + "/got.CT2"});
        if (figures.Status != 0) std::printf("%s: get ended with %d\n", kind.Name, figures.Status);
        wall.push_back(figures.WallMs);
        cpu.push_back(figures.CpuMs);
    }
    kill(meter, SIGTERM);
    waitpid(meter, nullptr, 0);
    std::printf("%-14s pauses %8.1f ms  wall %8.1f ms  ratio %.4f  cpu %5.1f ms  cpu/wall %.4f\n", kind.Name,
                kind.PausesMs, Median(wall), Median(wall) / kind.PausesMs, Median(cpu),
                Median(cpu) / Median(wall));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: bench_get BIN FOLDER [RUNS]\n");
        return 1;
    }
    for (const Kind& kind : kKinds) Measure(argv[1], argv[2], kind, argc > 3 ? std::atoi(argv[3]) : 3);
}
