#include "link/link_error.h"

namespace counter {

std::string LinkErrorMeaning(int linkError) {
    switch (linkError) {
        case LinkErrors::kGood:
            return "good";
        case LinkErrors::kNodeNoReply:
            return "the node sent no reply in time";
        case LinkErrors::kNoReply:
            return "no reply within 3 seconds";
        case LinkErrors::kNoEcho:
            return "the line did not echo what was sent";
        case LinkErrors::kNoCarriageReturn:
            return "the reply has no end";
        case LinkErrors::kCrc:
            return "the reply's CRC is wrong";
        case LinkErrors::kNoLineFeed:
            return "the reply has no line feed";
        case LinkErrors::kLrc:
            return "the reply's LRC is wrong";
        case LinkErrors::kPortFault:
            return "the port failed, the line went away, or the reply was another request's";
        default:
            return "a reply of the wrong length, or the meter refused with exception " +
                   std::to_string(linkError);
    }
}

}  // namespace counter
