// The program counter-sim as a whole: started, asked over its pseudo terminal, and ended.
#include "sim/simulator.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <utility>
#include <vector>

#include "support/temp_folder.h"
#include "text_files.h"

extern char** environ;

namespace sim {
namespace {

// Longest wait for something that should happen at once; only a failing test waits so long.
constexpr int kPatienceMs = 20000;

// All bytes up to `end`, or what came until the other side closed or patience ran out.
std::string ReadUntil(int handle, char end) {
    std::string text;
    char byte = 0;
    pollfd waiting{handle, POLLIN, 0};
    while (poll(&waiting, 1, kPatienceMs) == 1 && read(handle, &byte, 1) == 1) {
        text += byte;
        if (byte == end) break;
    }
    return text;
}

class Program {
  public:
    explicit Program(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), COUNTER_SIM);
        std::vector<char*> words;
        for (auto& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        int out[2];
        EXPECT_EQ(pipe2(out, O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions{};
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDERR_FILENO);
        EXPECT_EQ(posix_spawn(&process_, COUNTER_SIM, &actions, nullptr, words.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(out[1]);
        output_ = out[0];
    }
    ~Program() {
        if (process_ > 0) End(SIGKILL);
        close(tool_);
        close(output_);
    }

    std::string Line() {
        std::string line = ReadUntil(output_, '\n');
        if (!line.empty()) line.pop_back();
        return line;
    }
    void Open(const std::string& path, speed_t speed = B9600) {
        close(tool_);
        tool_ = open(path.c_str(), O_RDWR | O_NOCTTY);
        termios settings{};
        tcgetattr(tool_, &settings);
        cfsetspeed(&settings, speed);
        tcsetattr(tool_, TCSANOW, &settings);
    }
    void Send(const std::string& command) {
        EXPECT_EQ(write(tool_, command.data(), command.size()), static_cast<ssize_t>(command.size()));
    }
    std::string Ask(const std::string& command) {
        Send(command);
        return ReadUntil(tool_, '\r');
    }
    void Signal(int number) { kill(process_, number); }
    // The exit status after a signal, -1 when the program had to be killed.
    int End(int number) {
        Signal(number);
        ReadUntil(output_, '\0');  // closed when the program ends
        Signal(SIGKILL);
        int status = 0;
        waitpid(std::exchange(process_, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    pid_t process_ = -1;
    int output_ = -1, tool_ = -1;
};

TEST(CounterSim, AnswersThroughItsLinkAndCleansUp) {
    const TempFolder folder;
    const std::string link = folder.At("com1"), saved = folder.At("saved.CT2");
    Program sim({"--link", link, "--address", "16", "--set", "177=0123", "--save", saved});
    const std::string device = sim.Line();
    EXPECT_EQ(std::filesystem::read_symlink(link), device);
    sim.Open(link);
    EXPECT_EQ(sim.Ask("*GG132\r\n"), "30\r");
    sim.Send("*GW124ABCDZ\r\n");
    EXPECT_EQ(sim.Ask("*GX124Z\r\n"), "ABCD\r");
    sim.Open(link);
    EXPECT_EQ(sim.Ask("*GX121Z\r\n"), "0123\r") << "opened again";
    EXPECT_EQ(sim.End(SIGTERM), 0);
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadText(saved).substr(164, 4), "ABCD");
}

TEST(CounterSim, HearsNothingAtAnotherSpeed) {
    Program sim({"--verbose", "--baud", "1200"});
    const std::string path = sim.Line();
    sim.Open(path);
    sim.Send("*1G130\r\n");
    EXPECT_NE(sim.Line().find("8 bytes at 9600 baud, the meter listens at 1200"), std::string::npos);
    sim.Open(path, B1200);
    EXPECT_EQ(sim.Ask("*1G130\r\n"), "49\r");
    EXPECT_EQ(sim.Line().substr(11), "*1G130");
    Program any({"--any-baud", "--baud", "1200"});
    any.Open(any.Line(), B19200);
    EXPECT_EQ(any.Ask("*1G130\r\n"), "49\r");
}

TEST(CounterSim, TakesAnotherImageAndSavesWhenTold) {
    const TempFolder folder;
    const std::string file = folder.At("meter.CT2"), saved = folder.At("saved.CT2");
    std::string image = kDefaultImage;
    WriteText(file, image);
    Program sim({"--image", file, "--save", saved, "--version", "78"});
    sim.Open(sim.Line());
    EXPECT_EQ(sim.Ask("*1X121Z\r\n"), "000A\r");
    WriteText(file, image.replace(176, 4, "0BB8"));
    sim.Signal(SIGHUP);
    sim.Signal(SIGUSR1);
    EXPECT_EQ(sim.Ask("*1X121Z\r\n"), "0BB8\r");
    EXPECT_EQ(sim.Ask("*1X16DZ\r\n"), "4E03\r") << "options stand above the file";
    EXPECT_EQ(sim.End(SIGINT), 0);
    EXPECT_EQ(ReadText(saved).substr(176, 4), "0BB8");
}

TEST(CounterSim, ALineThatGoesAwayComesBackUnderTheSameLink) {
    const TempFolder folder;
    const std::string link = folder.At("com1");
    Program sim({"--link", link, "--fault", "XR1A#1:gone=4", "--fault", "G130:paced"});
    const std::string first = sim.Line();
    sim.Open(link);
    EXPECT_EQ(sim.Ask("*1XR1AZ\r\n"), "0027") << "then the end of the line";
    const std::string second = sim.Line();
    EXPECT_NE(second, first);
    EXPECT_EQ(std::filesystem::read_symlink(link), second);
    sim.Open(link);
    EXPECT_EQ(sim.Ask("*1XR1AZ\r\n").size(), 109u);
    EXPECT_EQ(sim.Ask("*1G130\r\n"), "49\r");
}

TEST(CounterSim, StreamsUntilItsLineIsClosed) {
    Program sim({"--signal", "noise", "--value", "-500", "--amplitude", "0", "--rate", "max", "--set",
                 "151=13", "--period", "0.5", "--seed", "7", "--timebase-ppm", "-12.5"});
    const std::string path = sim.Line();
    sim.Open(path);
    EXPECT_EQ(sim.Ask("*1A0\r\n"), "-0005.00\r");
    for (int i = 0; i < 500; ++i) ASSERT_EQ(sim.Ask(""), "-0005.00\r") << i;
    sim.Open(path);
    // A reading may still be on its way while the program learns that its line was closed.
    std::string line = sim.Ask("*1G130\r\n");
    for (int late = 0; late < 100 && !line.ends_with("49\r"); ++late) line = sim.Ask("");
    EXPECT_TRUE(line.ends_with("49\r")) << line;
    EXPECT_EQ(sim.Ask("*1X124Z\r\n"), "5507\r");
    Program scaled({"--frequency", "500000", "--timebase-ppm", "112.5", "--strict-baud"});
    scaled.Open(scaled.Line());
    EXPECT_EQ(scaled.Ask("*1B1\r\n"), " 500006.\r") << "a factor of -100 leaves 12.5 ppm";
}

TEST(CounterSim, RefusesWhatItCannotDo) {
    const TempFolder folder;
    WriteText(folder.At("file"), "precious");
    const struct {
        std::string Option, Value;
        int Status;
    } kCases[] = {
        // clang-format off
        {"--baud",    "9601",              1},
        {"--address", "32",                1},
        {"--fault",   "XR35:silence",      1},
        {"--set",     "261=0",             1},
        {"--rate",    "0",                 1},
        {"--signal",  "square",            1},
        {"--period",  "0",                 1},
        {"--image",   folder.At("none"), 2},
        {"--image",   folder.At("file"), 2},
        {"--link",    folder.At("file"), 2},
        // clang-format on
    };
    for (const auto& c : kCases) EXPECT_EQ(Program({c.Option, c.Value}).End(0), c.Status) << c.Option;
    EXPECT_EQ(ReadText(folder.At("file")), "precious");
}

}  // namespace
}  // namespace sim
