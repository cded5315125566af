#include "link/ascii_frame.h"

#include <algorithm>

#include "link/link_error.h"

namespace counter {

namespace {

bool HasText(std::string_view received) {
    return received.find_first_not_of("\r\n") != std::string_view::npos;
}

}  // namespace

std::string FrameAscii(std::string_view command) {
    return std::string(command) + "\r\n";
}

std::string AsciiCommand(const LinkState& link, std::string_view body) {
    return std::string("*") + link.MeterAddressChar + std::string(body);
}

void JudgeAscii(LinkState& link, std::string_view received) {
    const std::size_t end = received.find('\r');
    link.ReplyHadEnd = end != std::string_view::npos;
    if (!link.ReplyHadEnd) {
        link.LinkError = LinkErrors::kNoCarriageReturn;
        return;
    }
    const bool valueReply = link.CommandText.size() > 2 && link.CommandText[2] == 'B';
    link.ReplyWasOdd = !valueReply && end % 2 == 1;
    link.RawReply = std::string(received.substr(0, link.ReplyWasOdd ? end - 1 : end));
    link.ReplyText = link.RawReply;
    link.ReplyHadMore = HasText(received.substr(end));
}

void JudgeNodeAscii(LinkState& link, std::string_view received) {
    link.ReplyHadEnd = received.ends_with('\r') || received.ends_with('\n');
    link.ReplyWasOdd = false;
    if (received.ends_with('\n')) received.remove_suffix(1);
    if (received.ends_with('\r')) received.remove_suffix(1);
    link.RawReply = std::string(received);
    link.ReplyText = link.RawReply;
    link.ReplyHadMore = HasText(received.substr(std::min(received.find('\r'), received.size())));
}

}  // namespace counter
