#include "curve/curve_transfer.h"

#include <string>

#include "link/exchange.h"
#include "link/link_error.h"

namespace counter {

namespace {

// The blocks by their highest word.
struct CurveBlocks {
    const char* OfSecond;
    const char* OfFirst;
};
constexpr CurveBlocks kMainBlocks = {"L69", "L54"};
constexpr CurveBlocks kVToFBlocks = {"LFF", "LEA"};

bool WriteBlock(Link& link, const char* block, const std::string& item,
                const std::function<bool()>& withdrawn = {}) {
    return SendAscii(link, std::string("W") + block + item + "Z", withdrawn);
}

// What an earlier command left in RawReply proves nothing.
bool HoldsBlock(Link& link, const char* block, const std::string& item, int otherwise) {
    AskAscii(link, std::string("X") + block + "Z");
    if (link.State.LinkError == LinkErrors::kGood && link.State.RawReply != item)
        link.State.Fail(otherwise, ErrorSource::Curve);
    return link.State.LinkError == LinkErrors::kGood;
}

}  // namespace

const char* LeftBy(CurveEnd end) {
    switch (end) {
        case CurveEnd::NotBegun:
            return "nothing was sent: the meter has the curve that it had";
        case CurveEnd::Stored:
            return "the curve was stored and verified before";
        default:
            return "both items were sent and not verified: send the curve again";
    }
}

CurveEnd SendCurve(Link& link, const CurveItems& items, CurveBoard board,
                   const std::function<void(const char* text)>& tell,
                   const std::function<bool()>& endWanted) {
    const auto ends = [&] { return endWanted && endWanted(); };
    if (ends()) return CurveEnd::NotBegun;
    const CurveBlocks& blocks = board == CurveBoard::Main ? kMainBlocks : kVToFBlocks;
    tell(kSendingText);
    if (!WriteBlock(link, blocks.OfSecond, items.Second, ends)) return CurveEnd::NotBegun;
    WriteBlock(link, blocks.OfFirst, items.First);
    tell(kSentText);
    tell(kVerifyingText);
    if (ends()) return CurveEnd::NotVerified;
    if (!HoldsBlock(link, blocks.OfSecond, items.Second, LinkErrors::kUpperBlock)) return CurveEnd::Failed;
    if (ends()) return CurveEnd::NotVerified;
    if (!HoldsBlock(link, blocks.OfFirst, items.First, LinkErrors::kLowerBlock)) return CurveEnd::Failed;
    SendAscii(link, "C0");
    return CurveEnd::Stored;
}

}  // namespace counter
