// Received frames of any bytes, in every framing: one byte of state, two of the transaction, then the frame.
#include "fuzz_input.h"
#include "link/ascii_frame.h"
#include "link/modbus_frame.h"
#include "link/node_frames.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const std::string_view received = fuzz::TextOf(data + 3, size - 3);
    LinkState state;
    state.CrcTableFixed = (data[0] & 1) != 0;
    state.TransactionId = data[1] * 256 + data[2];
    state.CommandText = (data[0] & 2) != 0 ? "*1B1\r\n" : "*1R00\r\n";
    fuzz::Require(!IsStatusFrame(received) || received.size() == 19);
    for (auto judge : {JudgeRtu, JudgeModbusAscii, JudgeModbusTcp}) {
        LinkState link = state;
        const bool good = judge(link, received);
        fuzz::Require(!good || link.LinkError == 0 || link.LinkError < 16);
        fuzz::Require(link.ReplyText.size() <= 2 * received.size());
    }
    for (auto judge : {JudgeAscii, JudgeNodeAscii}) {
        LinkState link = state;
        judge(link, received);
        fuzz::Require(link.ReplyText.size() <= received.size());
    }
    return 0;
}
