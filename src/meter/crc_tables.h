// The two tables by which the Modbus check is computed a byte at a time, ten entries a line.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "meter/hex_text.h"

namespace counter {

using CrcTable = std::array<std::uint8_t, 256>;

namespace crc_text {

// Entry 233 is C2 here, required: meters before version 81 compute with it. The published table has C1 there,
// which the link puts in its place for newer meters.
// clang-format off
inline constexpr std::string_view kFirst =
    "00C1814001C0804101C0"
    "804100C1814001C08041"
    "00C1814000C1814001C0"
    "804101C0804100C18140"
    "00C1814001C0804100C1"
    "814001C0804101C08041"
    "00C1814001C0804100C1"
    "814000C1814001C08041"
    "00C1814001C0804101C0"
    "804100C1814000C18140"
    "01C0804101C0804100C1"
    "814001C0804100C18140"
    "00C1814001C0804101C0"
    "804100C1814000C18140"
    "01C0804100C1814001C0"
    "804101C0804100C18140"
    "00C1814001C0804101C0"
    "804100C1814001C08041"
    "00C1814000C1814001C0"
    "804100C1814001C08041"
    "01C0804100C1814001C0"
    "804100C1814000C18140"
    "01C0804101C0804100C1"
    "814000C2814001C08041"
    "00C1814001C0804101C0"
    "804100C18140";

inline constexpr std::string_view kSecond =
    "00C0C101C30302C2C606"
    "07C705C5C404CC0C0DCD"
    "0FCFCE0E0ACACB0BC909"
    "08C8D81819D91BDBDA1A"
    "1EDEDF1FDD1D1CDC14D4"
    "D515D71716D6D21213D3"
    "11D1D010F03031F133F3"
    "F23236F6F737F53534F4"
    "3CFCFD3DFF3F3EFEFA3A"
    "3BFB39F9F83828E8E929"
    "EB2B2AEAEE2E2FEF2DED"
    "EC2CE42425E527E7E626"
    "22E2E323E12120E0A060"
    "61A163A3A26266A6A767"
    "A56564A46CACAD6DAF6F"
    "6EAEAA6A6BAB69A9A868"
    "78B8B979BB7B7ABABE7E"
    "7FBF7DBDBC7CB47475B5"
    "77B7B67672B2B373B171"
    "70B05090915193535292"
    "96565797559594549C5C"
    "5D9D5F9F9E5E5A9A9B5B"
    "99595898884849894B8B"
    "8A4A4E8E8F4F8D4D4C8C"
    "44848545874746868242"
    "438341818040";
// clang-format on

consteval CrcTable TableOf(std::string_view digits) {
    CrcTable table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i] = static_cast<std::uint8_t>(ParseHex(digits.substr(2 * i, 2)));
    }
    return table;
}

static_assert(kFirst.size() == 512 && kSecond.size() == 512, "two digits for each of 256 entries");

}  // namespace crc_text

inline constexpr CrcTable FirstCrcTable = crc_text::TableOf(crc_text::kFirst);
inline constexpr CrcTable SecondCrcTable = crc_text::TableOf(crc_text::kSecond);

// The entry of the first table that differs between the meter's generations, and its published value.
inline constexpr int kCrcEntryInDispute = 233;
inline constexpr std::uint8_t kCrcEntryPublished = 0xC1;

}  // namespace counter
