// bench_transfer BIN FOLDER [RUNS]: counterctl get from counter-sim over a pseudo terminal, in each protocol,
// and over a node on the loopback. Wall time against the sum of the pauses that the link demands, processor
// time against wall time.
//
// FOLDER becomes the program folder.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "figures.h"
#include "process_run.h"

namespace {

// At 9600 baud: ten characters of eleven bits, and 50 ms.
constexpr double kGapMs = 11000.0 / 9600 * 10 + 50;
constexpr double kExchangeMs = 300 + 200 + kGapMs;
constexpr double kCloseMs = 200;
constexpr double kBeginMs = 5;

// Wake-up, 300 ms, five exchanges, 200 ms before the last, the reset that no reply follows.
constexpr double kAsciiGetMs = kBeginMs + 300 + 300 + 5 * kExchangeMs + 200 + 300;
// The echo and six ranges with a second before each.
constexpr double kModbusGetMs = kBeginMs + 7 * kExchangeMs + 6 * 1000;
// Stop of the stream and 300 ms, the board, four blocks with 2000 ms before the last, 1500 ms and the reset,
// 1000 ms.
constexpr double kAsciiPutMs = 300 + 300 + kExchangeMs + 4 * 300 + 2000 + 1500 + 300 + 1000;
// The board and a second, six writes with a second before each.
constexpr double kModbusPutMs = kExchangeMs + 1000 + 6 * (1000 + kExchangeMs);
// Over Modbus ASCII the board's answer counts as too short, and no second follows it.
constexpr double kModbusAsciiPutMs = kModbusPutMs - 1000;

// Through the node every pause is a second longer; there is no wake-up, and a reply ends without a silence.
constexpr double kNodeExtraMs = 1000;
constexpr double kNodeExchangeMs = kNodeExtraMs + 300;
constexpr double kNodeAsciiGetMs =
    kNodeExtraMs + kBeginMs + kNodeExtraMs + 300 + 5 * kNodeExchangeMs + kNodeExtraMs + 200 + kNodeExchangeMs;
constexpr double kNodeModbusGetMs = kNodeExtraMs + kBeginMs + 7 * kNodeExchangeMs + 6 * (kNodeExtraMs + 1000);

struct Kind {
    const char* Name;
    const char* Protocol;  // for counter-sim
    const char* Setting;   // for counterctl
    double GetMs;
    double PutMs;  // 0: not measured
    bool Node = false;
};
constexpr Kind kKinds[] = {
    {"Custom ASCII", "ascii", "SerialProtocol=0", kAsciiGetMs, kAsciiPutMs},
    {"Modbus RTU", "rtu", "SerialProtocol=1", kModbusGetMs, kModbusPutMs},
    {"Modbus ASCII", "modbus-ascii", "SerialProtocol=2", kModbusGetMs, kModbusAsciiPutMs},
    {"Node, ASCII", "ascii", "SerialProtocol=0", kNodeAsciiGetMs, 0, true},
    {"Node, Modbus", "rtu", "SerialProtocol=1", kNodeModbusGetMs, 0, true},
};

constexpr const char* kNodeIp = "127.63.100.1";

// Starts the simulated meter and returns once it has told its path.
pid_t StartMeter(const std::string& bin, const Kind& kind, const std::string& link) {
    int ends[2];
    if (pipe(ends) != 0) std::exit(2);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        const std::string program = bin + "/counter-sim";
        if (kind.Node)
            execl(program.c_str(), "counter-sim", "--protocol", kind.Protocol, "--node", "--node-ip", kNodeIp,
                  static_cast<char*>(nullptr));
        else
            execl(program.c_str(), "counter-sim", "--protocol", kind.Protocol, "--link", link.c_str(),
                  static_cast<char*>(nullptr));
        _exit(127);
    }
    close(ends[1]);
    char byte = 0;
    while (read(ends[0], &byte, 1) == 1 && byte != '\n') {
    }
    return child;
}

void MeasureOne(const Kind& kind, const char* action, const std::vector<std::string>& command,
                double pausesMs, int runs) {
    std::vector<double> wall, cpu;
    for (int run = 0; run < runs; ++run) {
        const RunFigures figures = RunProcess(command);
        if (figures.Status != 0) std::printf("%s: %s ended with %d\n", kind.Name, action, figures.Status);
        wall.push_back(figures.WallMs);
        cpu.push_back(figures.CpuMs);
    }
    std::printf("%-13s %-12s pauses %8.1f ms  wall %8.1f ms  ratio %.4f  cpu %5.1f ms  cpu/wall %.4f\n",
                kind.Name, action, pausesMs, Median(wall), Median(wall) / pausesMs, Median(cpu),
                Median(cpu) / Median(wall));
}

void Measure(const std::string& bin, const std::string& folder, const Kind& kind, int runs) {
    const std::string counterctl = bin + "/counterctl";
    const std::string file = folder + "/got.CT2";
    RunProcess({counterctl, "--dir", folder, "settings", "init", "--force", kind.Setting});
    if (kind.Node) {
        RunProcess({counterctl, "--dir", folder, "settings", "set", "NodeAddress=0080A3010203",
                    std::string("NodeIp=") + kNodeIp, "TcpPort=24100"});
    }
    RunProcess({"mkdir", "-p", folder + "/ports"});
    const pid_t meter = StartMeter(bin, kind, folder + "/ports/com1");
    const double closeMs = kCloseMs + (kind.Node ? kNodeExtraMs : 0);
    MeasureOne(kind, "get", {counterctl, "--dir", folder, "get", file}, kind.GetMs + closeMs, runs);
    if (kind.PutMs > 0) {
        MeasureOne(kind, "put --verify", {counterctl, "--dir", folder, "put", file, "--verify"},
                   kind.PutMs + kind.GetMs + closeMs, runs);
    }
    kill(meter, SIGTERM);
    waitpid(meter, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: bench_transfer BIN FOLDER [RUNS]\n");
        return 1;
    }
    for (const Kind& kind : kKinds) Measure(argv[1], argv[2], kind, argc > 3 ? std::atoi(argv[3]) : 3);
}
