// Frame and check of a Modbus RTU exchange beside libmodbus's own check of the same frame.
//
// libmodbus checks a reply only while it receives it, so three loops bring the same bytes through a socket
// pair: one that only reads them, one in which libmodbus receives and checks, one in which the tool's check
// follows the reading. What a check costs is its loop less the first.
#include <benchmark/benchmark.h>
#include <modbus/modbus.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

#include "link/modbus_frame.h"
#include "meter/hex_text.h"

namespace {

using namespace counter;

// A reply with 16 registers, as the first range of a Get brings it.
std::string ReplyFrame() {
    std::string digits = "010320";
    for (int i = 0; i < 32; ++i) digits += HexByte(i * 7 % 256);
    return FrameRtu(digits, true);
}

struct Sockets {
    std::array<int, 2> Ends{};
    Sockets() { socketpair(AF_UNIX, SOCK_STREAM, 0, Ends.data()); }
    ~Sockets() {
        close(Ends[0]);
        close(Ends[1]);
    }
};

// As libmodbus reads a reply: up to the function, up to the byte count, the rest; a select before each.
std::string ReadInThree(int socket, std::size_t length) {
    std::array<char, 256> buffer{};
    std::size_t got = 0;
    for (const std::size_t wanted : {std::size_t{2}, std::size_t{3}, length}) {
        fd_set set;
        FD_ZERO(&set);
        FD_SET(socket, &set);
        timeval timeout{1, 0};
        select(socket + 1, &set, nullptr, nullptr, &timeout);
        got += static_cast<std::size_t>(read(socket, buffer.data() + got, wanted - got));
    }
    return {buffer.data(), got};
}

void BM_Check(benchmark::State& state) {
    const std::string frame = ReplyFrame();
    for (auto _ : state) benchmark::DoNotOptimize(ModbusCrc(frame, true));
}
BENCHMARK(BM_Check);

void BM_FrameAndJudge(benchmark::State& state) {
    const std::string frame = ReplyFrame();
    LinkState link;
    link.CrcTableFixed = true;
    for (auto _ : state) {
        benchmark::DoNotOptimize(FrameRtu("010300010010", true));
        JudgeRtu(link, frame);
        benchmark::DoNotOptimize(link.ReplyText);
    }
}
BENCHMARK(BM_FrameAndJudge);

void BM_ReadOnly(benchmark::State& state) {
    const std::string frame = ReplyFrame();
    const Sockets sockets;
    for (auto _ : state) {
        if (write(sockets.Ends[0], frame.data(), frame.size()) < 0) state.SkipWithError("write");
        benchmark::DoNotOptimize(ReadInThree(sockets.Ends[1], frame.size()));
    }
}
BENCHMARK(BM_ReadOnly);

void BM_ReadAndLibmodbusChecks(benchmark::State& state) {
    const std::string frame = ReplyFrame();
    const Sockets sockets;
    modbus_t* context = modbus_new_rtu("/dev/null", 9600, 'N', 8, 1);
    modbus_set_slave(context, 1);
    modbus_set_socket(context, sockets.Ends[1]);
    std::array<std::uint8_t, MODBUS_MAX_ADU_LENGTH> reply{};
    for (auto _ : state) {
        if (write(sockets.Ends[0], frame.data(), frame.size()) < 0) state.SkipWithError("write");
        if (modbus_receive_confirmation(context, reply.data()) != static_cast<int>(frame.size())) {
            state.SkipWithError("libmodbus refused the frame");
        }
    }
    modbus_free(context);
}
BENCHMARK(BM_ReadAndLibmodbusChecks);

void BM_ReadAndOurs(benchmark::State& state) {
    const std::string frame = ReplyFrame();
    const Sockets sockets;
    LinkState link;
    link.CrcTableFixed = true;
    for (auto _ : state) {
        if (write(sockets.Ends[0], frame.data(), frame.size()) < 0) state.SkipWithError("write");
        benchmark::DoNotOptimize(FrameRtu("010300010010", true));
        JudgeRtu(link, ReadInThree(sockets.Ends[1], frame.size()));
        benchmark::DoNotOptimize(link.ReplyText);
    }
}
BENCHMARK(BM_ReadAndOurs);

}  // namespace
