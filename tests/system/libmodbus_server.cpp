// libmodbus_server REGISTERS: a Modbus RTU server on a pseudo terminal, answered for by libmodbus.
//
// The file holds "ADDRESS VALUE" lines in hexadecimal. The terminal's path is printed first, what clients
// write on standard error: "coil 4 on", "registers 69 0000 04D2". libmodbus knows no diagnostics (function
// 08): the echo of such a request is given here.
#include <fcntl.h>
#include <modbus/modbus.h>
#include <poll.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr int kRegisters = 0x100;
constexpr int kCoils = 0x10;
// Readings, two registers each with the high word first: 123456, -123, the least. Others are none of its own.
constexpr int kFirstReading = 3;
constexpr std::array<std::uint16_t, 6> kReadings = {0x0001, 0xE240, 0xFFFF, 0xFF85, 0x8000, 0x0000};
constexpr int kSilenceMs = 5;  // ends a frame

int OpenTerminal() {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    grantpt(master);
    unlockpt(master);
    const int slave = open(ptsname(master), O_RDWR | O_NOCTTY);  // stays open: a client may come and go
    termios line{};
    tcgetattr(slave, &line);
    cfmakeraw(&line);
    tcsetattr(slave, TCSANOW, &line);
    std::printf("%s\n", ptsname(master));
    std::fflush(stdout);
    return master;
}

modbus_mapping_t* LoadRegisters(const char* path) {
    modbus_mapping_t* mapping =
        modbus_mapping_new_start_address(0, kCoils, 0, 0, 0, kRegisters, kFirstReading, kReadings.size());
    std::copy(kReadings.begin(), kReadings.end(), mapping->tab_input_registers);
    std::FILE* file = std::fopen(path, "r");
    unsigned address = 0, value = 0;
    while (file != nullptr && std::fscanf(file, "%x %x", &address, &value) == 2) {
        mapping->tab_registers[address] = static_cast<std::uint16_t>(value);
    }
    return mapping;
}

std::string ReadFrame(int from, int firstWaitMs) {
    std::string frame;
    pollfd input{from, POLLIN, 0};
    while (poll(&input, 1, frame.empty() ? firstWaitMs : kSilenceMs) > 0) {
        std::array<char, 256> bytes{};
        const ssize_t count = read(from, bytes.data(), bytes.size());
        if (count <= 0) std::exit(0);
        frame.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return frame;
}

void Write(int to, const std::string& bytes) {
    if (write(to, bytes.data(), bytes.size()) < 0) std::exit(2);
}

// What a good request has written, as libmodbus keeps it.
void TellWritten(const std::uint8_t* request, const modbus_mapping_t& mapping) {
    const int first = request[2] * 256 + request[3];
    const int count = request[4] * 256 + request[5];
    if (request[1] == MODBUS_FC_WRITE_SINGLE_COIL)
        std::fprintf(stderr, "coil %X %s\n", first, mapping.tab_bits[first] != 0 ? "on" : "off");
    if (request[1] != MODBUS_FC_WRITE_MULTIPLE_REGISTERS) return;
    std::fprintf(stderr, "registers %X", first);
    for (int i = 0; i < count; ++i) std::fprintf(stderr, " %04X", mapping.tab_registers[first + i]);
    std::fprintf(stderr, "\n");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 1;
    modbus_mapping_t* mapping = LoadRegisters(argv[1]);
    const int terminal = OpenTerminal();
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) return 2;
    modbus_t* server = modbus_new_rtu("/dev/null", 9600, 'N', 8, 2);
    modbus_set_slave(server, 1);
    modbus_set_socket(server, ends[1]);
    for (;;) {
        const std::string request = ReadFrame(terminal, -1);
        if (request.size() > 1 && request[1] == 0x08) {
            Write(terminal, request);
            continue;
        }
        Write(ends[0], request);
        std::array<std::uint8_t, MODBUS_RTU_MAX_ADU_LENGTH> indication{};
        const int length = modbus_receive(server, indication.data());
        if (length <= 0 || modbus_reply(server, indication.data(), length, mapping) < 0) continue;
        const std::string reply = ReadFrame(ends[0], 100);
        if (reply.size() > 1 && reply[1] == request[1]) TellWritten(indication.data(), *mapping);
        Write(terminal, reply);
    }
}
