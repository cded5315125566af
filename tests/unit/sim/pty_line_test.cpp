#include "sim/pty_line.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace sim {
namespace {

int OpenTool(const PtyLine& line, speed_t speed) {
    const int tool = open(line.Path().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    termios settings{};
    tcgetattr(tool, &settings);
    cfsetspeed(&settings, speed);
    tcsetattr(tool, TCSANOW, &settings);
    return tool;
}

bool Readable(int handle, int withinMs) {
    pollfd waiting{handle, POLLIN, 0};
    return poll(&waiting, 1, withinMs) == 1;
}

std::string ReadTool(int tool) {
    char bytes[300];
    const ssize_t got = read(tool, bytes, sizeof bytes);
    return got < 0 ? "" : std::string(bytes, static_cast<std::size_t>(got));
}

TEST(PtyLine, CarriesEveryByteBothWays) {
    PtyLine line;
    ASSERT_EQ(line.Open(), "");
    const int tool = OpenTool(line, B9600);
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    ASSERT_EQ(write(tool, all.data(), all.size()), 256);
    EXPECT_EQ(line.Read(), all);
    line.Write(all);
    EXPECT_EQ(ReadTool(tool), all);
    EXPECT_EQ(line.Read(), "") << "nothing comes back by itself";
    close(tool);
}

TEST(PtyLine, ACloseForgetsExclusiveUseAndUnreadInput) {
    PtyLine line;
    ASSERT_EQ(line.Open(), "");
    const int first = OpenTool(line, B9600);
    ioctl(first, TIOCEXCL);
    line.Write("stale");
    EXPECT_FALSE(Readable(line.CloseHandle(), 0));
    close(first);
    ASSERT_TRUE(Readable(line.CloseHandle(), 1000));
    line.AfterClose();
    EXPECT_FALSE(Readable(line.CloseHandle(), 0)) << "told once";
    EXPECT_FALSE(Readable(line.DataHandle(), 0)) << "a closed tool keeps nobody busy";
    const int second = OpenTool(line, B9600);
    int exclusive = 1;
    ioctl(second, TIOCGEXCL, &exclusive);
    EXPECT_EQ(exclusive, 0);
    EXPECT_EQ(ReadTool(second), "");
    close(second);
}

}  // namespace
}  // namespace sim
