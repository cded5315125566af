#include "sim/node_login.h"

#include <array>

#include "sim/hex.h"

namespace sim {

namespace {

constexpr std::size_t kLoginSize = 20;
constexpr std::size_t kCheckAt = 14;

int ByteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

// Four bytes, worked on one by one as the node's small processor does.
using Group = std::array<int, 4>;

Group RotatedLeft(Group group, int bits) {
    for (int i = 0; i < bits; ++i) {
        int carry = group[0] >> 7;
        for (std::size_t at = 4; at-- > 0;) {
            const int doubled = group[at] * 2 + carry;
            group[at] = doubled % 256;
            carry = doubled / 256;
        }
    }
    return group;
}

Group RotatedRight(const Group& group, int bits) {
    return RotatedLeft(group, (32 - bits) % 32);
}

Group Xor(Group a, const Group& b) {
    for (std::size_t at = 0; at < 4; ++at) a[at] ^= b[at];
    return a;
}

// The carry out of the first byte comes in at the last.
Group Sum(Group a, const Group& b) {
    for (std::size_t at = 0; at < 4; ++at) a[at] += b[at];
    for (bool carried = true; carried;) {
        carried = false;
        for (std::size_t at = 4; at-- > 0;) {
            if (a[at] < 256) continue;
            a[at] -= 256;
            ++a[at == 0 ? 3 : at - 1];
            carried = true;
        }
    }
    return a;
}

Group Added(const Group& w, const Group& a, int variant) {
    const int byGroup = w[3] % 32, bySum = a[3] % 32;
    switch (variant) {
        case 1:
            return Xor(w, a);
        case 2:
            return RotatedRight(w, byGroup);
        case 3:
            return Xor(w, {a[2], a[3], a[0], a[1]});
        case 4:
            return RotatedLeft(w, bySum);
        case 5:
            return Xor(w, {a[1], a[2], a[3], a[0]});
        case 6:
            return RotatedLeft(w, byGroup);
        case 7:
            return Xor(w, {a[3], a[0], a[1], a[2]});
        case 8:
            return RotatedRight(w, bySum);
        default:
            return w;
    }
}

}  // namespace

std::string NodeToken() {
    return "\x5A\x93\xD1\xC0\x7E\x42";
}

int NodeCheck(std::string_view frame, int variant) {
    std::string zeroed(frame);
    zeroed[kCheckAt] = zeroed[kCheckAt + 1] = '\0';
    Group sum{};
    for (std::size_t at = 0; at + 4 <= zeroed.size(); at += 4) {
        const Group group = {ByteAt(zeroed, at), ByteAt(zeroed, at + 1), ByteAt(zeroed, at + 2),
                             ByteAt(zeroed, at + 3)};
        sum = Sum(sum, Added(group, sum, variant));
    }
    const int folded = sum[0] * 256 + sum[1] + sum[2] * 256 + sum[3];
    return folded > 65535 ? folded - 65535 : folded;
}

std::optional<int> ParseNodeLogin(std::string_view datagram, std::string_view address) {
    constexpr int kLogin = 4;
    if (datagram.size() != kLoginSize || !datagram.starts_with(std::string(address) + NodeToken())) return {};
    const int variant = ByteAt(datagram, 13);
    if (ByteAt(datagram, 12) != kLogin || variant < 1 || variant > 8) return {};
    if (WordAt(datagram, kCheckAt) != NodeCheck(datagram, variant)) return {};
    return WordAt(datagram, 16);
}

}  // namespace sim
