#include "system/qt_serial_port.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

#include "support/temp_folder.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"

namespace counter {

// The meter's end of a line; the far end is a device like any serial port, but without modem lines.
struct PseudoTerminal {
    const int Master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    const std::string Device = (grantpt(Master), unlockpt(Master), ptsname(Master));

    ~PseudoTerminal() { close(Master); }
    void Write(std::string_view bytes) { ASSERT_EQ(write(Master, bytes.data(), bytes.size()), ssize(bytes)); }
    std::string Read() {
        char bytes[4096];
        return std::string(bytes, static_cast<std::size_t>(std::max<ssize_t>(0, read(Master, bytes, 4096))));
    }
    speed_t Speed() const {
        termios line = {};
        tcgetattr(Master, &line);
        return cfgetospeed(&line);
    }
};

class QtSerialPortTest : public testing::Test {
  protected:
    QtSerialPortTest() {
        files_.MakeFolder(folder_.At("ports"));
        Link(1, meter_->Device);
    }
    void Link(int number, const std::string& target) {
        files_.MakeLink(folder_.At("ports/com" + std::to_string(number)), target);
    }
    bool Comes(const Pump::Condition& ready) {
        return pump_.WaitUntil(pump_.NowMs() + 10'000, ready, "test");
    }

    const CoreRuntime runtime_;
    QtPump pump_;
    const TempFolder folder_;
    DiskFiles files_;
    std::optional<PseudoTerminal> meter_{std::in_place};
    const QtPortCatalog catalog_{folder_.Path};
    QtSerialPort port_{catalog_};
};

TEST_F(QtSerialPortTest, ArrivingInputIsTold) {
    ASSERT_TRUE(port_.Open().Ok());
    std::string arrived;
    port_.Arrived = [&] { arrived += port_.Input(); };
    for (const std::string text : {"one", "onetwo"}) {
        meter_->Write(text.substr(text.size() - 3));
        EXPECT_TRUE(Comes([&] { return arrived == text; })) << text;
    }
    port_.Arrived = nullptr;
    meter_->Write("three");
    EXPECT_TRUE(Comes([&] { return port_.InBufferCount() == 5; }));
    EXPECT_EQ(arrived, "onetwo");
}

TEST_F(QtSerialPortTest, EveryByteGoesBothWaysOnALineWithoutModemLines) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    EXPECT_TRUE(port_.Faulted());
    ASSERT_TRUE(port_.Open().Ok());
    port_.SetRtsEnable(false);
    port_.Output(all);
    EXPECT_TRUE(Comes([this] { return port_.OutBufferCount() == 0; }));
    EXPECT_TRUE(meter_->Read() == all);
    meter_->Write(all);
    EXPECT_TRUE(Comes([this] { return port_.InBufferCount() == 256; }));
    EXPECT_TRUE(port_.Input() == all);
    EXPECT_EQ(port_.InBufferCount(), 0U);
    EXPECT_FALSE(port_.Faulted());
    port_.Close();
    EXPECT_TRUE(port_.Faulted());
}

TEST_F(QtSerialPortTest, SettingsReachAnOpenLineAndIllegalOnesLeaveIt) {
    ASSERT_TRUE(port_.Open().Ok());
    for (const char* text : {"1200,n,7,2", "9600,e,7,1", "300,n,8,2"})
        EXPECT_TRUE(port_.SetSettings(text).Ok());
    EXPECT_EQ(port_.SetSettings("9600,n,8,3").Kind, StatusKind::Illegal);
    EXPECT_EQ(meter_->Speed(), speed_t{B300});
    ASSERT_TRUE(port_.Open().Ok());
    EXPECT_EQ(meter_->Speed(), speed_t{B300});
}

TEST_F(QtSerialPortTest, OpeningThatFailsSaysWhy) {
    files_.Write(folder_.At("file"), "");
    Link(3, folder_.At("file"));
    Link(4, folder_.At("by-id"));
    files_.MakeLink(folder_.At("by-id"), "/dev/none");
    // clang-format off
    const struct { const char* Name; int Number; StatusKind Kind; std::string Text; } cases[] = {
        {"nothing linked", 99, StatusKind::NotFound, folder_.At("ports/com99") + ": No such file or directory"},
        {"not a line",     3,  StatusKind::Illegal,  folder_.At("file") + ": Inappropriate ioctl for device"},
        {"behind a link",  4,  StatusKind::NotFound,
         folder_.At("by-id") + " (/dev/none): No such file or directory"},
    };
    // clang-format on
    for (const auto& c : cases) {
        port_.SetCommPort(c.Number);
        const Status status = port_.Open();
        EXPECT_EQ(status.Kind, c.Kind) << c.Name;
        EXPECT_EQ(status.Text(), c.Text) << c.Name;
        EXPECT_FALSE(port_.PortOpen()) << c.Name;
    }
}

TEST_F(QtSerialPortTest, DeviceIsBusyUnderEveryNameUntilItIsClosed) {
    Link(2, folder_.At("other-name"));
    files_.MakeLink(folder_.At("other-name"), meter_->Device);
    QtSerialPort second(catalog_);
    second.SetCommPort(2);
    ASSERT_TRUE(port_.Open().Ok());
    const Status status = second.Open();
    EXPECT_EQ(status.Kind, StatusKind::Busy);
    const std::string busy =
        folder_.At("other-name") + " (" + meter_->Device + "): Device or resource busy (lock file ";
    EXPECT_TRUE(status.Text().starts_with(busy)) << status.Text();
    EXPECT_FALSE(port_.Faulted());
    port_.Close();
    EXPECT_TRUE(second.Open().Ok());
}

TEST_F(QtSerialPortTest, RefusalNamesTheGroupOnlyWhereItHelps) {
    const uid_t user = geteuid();
    ASSERT_TRUE(user != 0 || chown(meter_->Device.c_str(), user, 5) == 0);  // tty, not a group of root's
    struct stat info = {};
    ASSERT_EQ(stat(meter_->Device.c_str(), &info), 0);
    const std::string group = getgrgid(info.st_gid)->gr_name;
    const std::string who = " (it belongs to group " + group + ": sudo usermod -aG " + group +
                            " $USER, then log out and in again)";
    for (const auto& [mode, reason] :
         {std::pair(0060, "Permission denied" + who), {0040, "Permission denied"}}) {
        ASSERT_EQ(chmod(meter_->Device.c_str(), mode), 0);
        ASSERT_TRUE(user != 0 || seteuid(65534) == 0);  // nobody, because nothing is refused to root
        const Status status = port_.Open();
        ASSERT_EQ(seteuid(user), 0);
        EXPECT_EQ(status.Kind, StatusKind::NoPermission);
        EXPECT_EQ(status.Text(), meter_->Device + ": " + reason);
    }
}

TEST_F(QtSerialPortTest, LineThatGoesAwayIsOneFaultUntilTheNextOpening) {
    ASSERT_TRUE(port_.Open().Ok());
    meter_->Write("last words");
    ASSERT_TRUE(Comes([this] { return port_.InBufferCount() == 10; }));
    port_.Output(std::string(200'000, 'x'));  // more than the line takes while nobody reads
    meter_.reset();
    EXPECT_TRUE(Comes([this] { return port_.Faulted(); }));
    EXPECT_EQ(port_.OutBufferCount(), 0U);
    int turns = 0;  // a dead line wakes nobody
    pump_.WaitUntil(
        pump_.NowMs() + 50, [&] { return ++turns < 0; }, "test");
    EXPECT_LE(turns, 10);
    EXPECT_TRUE(port_.PortOpen());
    port_.SetRtsEnable(true);
    port_.Output("dropped");
    EXPECT_TRUE(port_.SetSettings("1200,n,8,1").Ok());
    EXPECT_EQ(port_.InBufferCount(), 10U);
    EXPECT_EQ(port_.Input(), "last words");
    meter_.emplace();
    Link(1, meter_->Device);
    ASSERT_TRUE(port_.Open().Ok());
    EXPECT_FALSE(port_.Faulted());
    meter_->Write("again");
    EXPECT_TRUE(Comes([this] { return port_.InBufferCount() == 5; }));
    EXPECT_EQ(meter_->Speed(), speed_t{B1200});
}

}  // namespace counter
