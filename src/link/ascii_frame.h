// Frames of the Custom ASCII protocol, the meter's own command language.
//
// Command: "*", address, command, data, CR LF. Reply: text, CR. There is no check and no negative reply:
// the proof of a good reply is its exact length, which the caller tests.
#pragma once

#include <string>
#include <string_view>

#include "link/link_state.h"

namespace counter {

// The frame of a command: a CR LF after it.
std::string FrameAscii(std::string_view command);

// The command as the meter with this address takes it: "*", address, `body`.
std::string AsciiCommand(const LinkState& link, std::string_view body);

// Cuts `received` at its first CR into RawReply and ReplyText. Without a CR LinkError becomes 23 and both
// texts stay. An odd last character goes, since data comes in pairs of digits; only the value replies of
// B commands (third character of CommandText) may be odd. ReplyHadMore tells that another line came: then the
// first may be the late reply to an earlier command, or a reading of the stream.
void JudgeAscii(LinkState& link, std::string_view received);

// The same for a reply through the node: a CR LF, LF or CR at its end goes, and nothing else.
void JudgeNodeAscii(LinkState& link, std::string_view received);

}  // namespace counter
