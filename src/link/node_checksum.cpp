#include "link/node_checksum.h"

#include <bit>
#include <string>

namespace counter {

namespace {

constexpr std::size_t kCheckAt = 14;  // bytes 15 and 16, counted from 1

// Four bytes, the first of them on top.
std::uint32_t GroupAt(std::string_view frame, std::size_t at) {
    std::uint32_t group = 0;
    for (const char c : frame.substr(at, 4)) group = group << 8 | static_cast<unsigned char>(c);
    return group;
}

// A carry out of the top comes in again at the bottom.
std::uint32_t EndAroundAdd(std::uint32_t a, std::uint32_t b) {
    const std::uint64_t sum = std::uint64_t{a} + b;
    return static_cast<std::uint32_t>(sum + (sum >> 32));
}

std::uint16_t FoldTo16(std::uint32_t sum) {
    const std::uint32_t folded = (sum >> 16) + (sum & 0xFFFF);
    return static_cast<std::uint16_t>(folded + (folded >> 16));
}

// What a group adds to the sum before it. Rotations go by the low five bits of a last byte.
std::uint32_t Term(std::uint32_t group, std::uint32_t sum, int variant) {
    const auto byGroup = static_cast<int>(group & 31);
    const auto bySum = static_cast<int>(sum & 31);
    switch (variant) {
        case 1:
            return group ^ sum;
        case 2:
            return std::rotr(group, byGroup);
        case 3:
            return group ^ std::rotl(sum, 16);
        case 4:
            return std::rotl(group, bySum);
        case 5:
            return group ^ std::rotl(sum, 8);
        case 6:
            return std::rotl(group, byGroup);
        case 7:
            return group ^ std::rotr(sum, 8);
        case 8:
            return std::rotr(group, bySum);
        default:
            return group;
    }
}

}  // namespace

std::uint16_t NodeChecksum(std::string_view frame, int variant) {
    std::string cleared(frame);
    cleared.replace(kCheckAt, 2, 2, '\0');
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < cleared.size(); at += 4) {
        const std::uint32_t group = GroupAt(cleared, at);
        sum = EndAroundAdd(sum, Term(group, sum, variant));
    }
    return FoldTo16(sum);
}

}  // namespace counter
