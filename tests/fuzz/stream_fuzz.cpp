// The reading stream of any bytes: three bytes of frame rules, then arrivals, each with its length in front.
#include "fuzz_input.h"
#include "link/latest_cutter.h"
#include "link/list_cutter.h"

using namespace counter;

namespace {

FrameRules RulesOf(const std::uint8_t* data) {
    FrameRules rules;
    rules.LineFeedFlag = data[0] & 1;
    rules.FrameBackStep = (data[0] >> 1) & 1;
    if (data[1] != 0) rules.FrameEndChar = static_cast<char>(data[1]);
    rules.FrameLeadChar = static_cast<char>(data[2]);
    return rules;
}

std::string Frames(FrameCutter& cutter) {
    std::string all;
    Frame frame;
    while (cutter.Next(frame)) {
        fuzz::Require(!frame.Text.empty());
        all += frame.Text + (frame.OnlySizes ? "\x01" : "\x02");
    }
    return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4) return 0;
    const FrameRules rules = RulesOf(data);
    ListCutter pieces(rules), bytewise(rules);
    LatestCutter latest(rules);
    std::string inPieces, inBytes;
    for (std::size_t at = 3; at < size;) {
        const std::size_t length = std::min<std::size_t>(data[at], size - at - 1);
        std::string arrival(fuzz::TextOf(data + at + 1, length));
        if (data[at] == 255)
            arrival.append(20 * 255, arrival.empty() ? ' ' : arrival[0]);  // longer than any frame
        at += 1 + length;
        pieces.Receive(arrival);
        inPieces += Frames(pieces);
        for (char c : arrival) {
            bytewise.Receive({&c, 1});
            inBytes += Frames(bytewise);
        }
        latest.Receive(arrival);
        Frame frame;
        if (latest.Next(frame)) {
            fuzz::Require(!frame.Text.empty() && frame.Text.size() <= 8);
            fuzz::Require(!latest.Next(frame));  // one an arrival
        }
        fuzz::Require(CleanReading(arrival).size() <= 8);
    }
    // However the bytes are split, the frames are the same.
    fuzz::Require(inPieces == inBytes);
    return 0;
}
