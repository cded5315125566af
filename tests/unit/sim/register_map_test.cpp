#include "sim/register_map.h"

#include <gtest/gtest.h>

#include "sim/modbus_server.h"
#include "tool.h"

namespace sim {
namespace {

// Where a reply's digits, counted from the device address, belong in the image.
struct Place {
    int ReplyDigit, Position, Digits;
};

struct Range {
    const char* Request;
    std::vector<Place> Places;
};

// Fields whose register form differs from the image's are left to the tables of values below.
const Range kRanges[] = {
    // clang-format off
    {"0300010010", {{9, 55, 6}, {17, 49, 6}, {25, 223, 6}, {33, 217, 6}, {49, 37, 6}, {65, 25, 6}}},
    {"0300110014", {{17, 97, 6}, {33, 85, 6}, {49, 73, 6}, {65, 61, 6}, {73, 19, 6}, {81, 13, 6}}},
    {"0300250017", {{9, 211, 6}, {17, 205, 6}, {25, 7, 6}, {33, 1, 6}, {41, 255, 6}, {49, 249, 6},
                    {55, 177, 4}, {59, 173, 4}, {63, 161, 4}, {67, 113, 24}, {91, 145, 4}, {95, 137, 4}}},
    {"030041000B", {{9, 203, 2}, {13, 201, 2}, {17, 231, 2}, {21, 229, 2}, {25, 199, 2}, {29, 197, 2},
                    {33, 195, 2}, {37, 193, 2}, {41, 191, 2}, {45, 189, 2}, {49, 187, 2}}},
    {"03004C0014", {{9, 109, 2}, {13, 185, 2}, {17, 183, 2}, {21, 181, 2}, {25, 171, 2}, {29, 169, 2},
                    {33, 167, 2}, {37, 165, 2}, {41, 159, 2}, {45, 157, 2}, {49, 155, 2}, {53, 151, 2},
                    {57, 149, 2}, {61, 247, 2}, {65, 245, 2}, {69, 243, 2}, {73, 241, 2}, {77, 239, 2},
                    {81, 237, 2}, {85, 111, 2}}},
    {"0300640003", {{9, 143, 2}, {13, 235, 2}, {17, 233, 2}}},
    // clang-format on
};

// No two neighbouring fields alike.
std::string MixedImage() {
    std::string image;
    for (int i = 0; i < kImageDigits; ++i) image += "0123456789ABCDEF"[(i * 7 + i / 16 + i * i / 5) % 16];
    return image;
}

TEST(RegisterMap, EveryFieldStandsWhereTheRangesHaveIt) {
    MeterOptions options;
    options.Image = MixedImage();
    Device device(options);
    for (const Range& range : kRanges) {
        const std::string reply = "01" + HexOfBytes(AnswerModbus(device, Bytes(range.Request), 0));
        for (const Place& place : range.Places)
            EXPECT_EQ(reply.substr(place.ReplyDigit - 1, place.Digits),
                      options.Image.substr(place.Position - 1, place.Digits))
                << range.Request << " position " << place.Position;
    }
}

TEST(RegisterMap, ValuesChangeTheirForm) {
    static constexpr struct {
        const char* Name;
        int Position;
        const char* Image;
        int Register;
        std::uint32_t Value;
    } kCases[] = {
        // clang-format off
        {"setpoint",                   55, "004E20", 0x01, 0x00004E20},
        {"negative setpoint",          55, "FFFFFF", 0x01, 0xFFFFFFFF},
        {"negative deviation",         19, "F0BDC1", 0x21, 0xFFF0BDC1},
        {"scale",                      43, "0186A0", 0x09, 0x000186A0},
        {"negative scale",             31, "8186A0", 0x0D, 0xFFFE7960},
        {"point code 0",              103, "002710", 0x11, 0x00002710},
        {"point code 6",               91, "601E24", 0x15, 0x06001E24},
        {"negative, point code 4",     79, "C12345", 0x19, 0x04FEDCBB},
        {"largest negative",           67, "EFFFFF", 0x1D, 0x06F00001},
        // clang-format on
    };
    for (const auto& c : kCases) {
        MeterOptions options;
        options.Patches = {{c.Position, c.Image}};
        Device device(options);
        const RegisterValues pair = {static_cast<std::uint16_t>(c.Value >> 16),
                                     static_cast<std::uint16_t>(c.Value)};
        EXPECT_EQ(ReadHolding(device, c.Register, 2), pair) << c.Name;
        device.Words().SetNumber(c.Position, 6, 0x555555);
        EXPECT_TRUE(WriteHolding(device, c.Register, pair)) << c.Name;
        EXPECT_EQ(device.Words().ImageText(), StartImage(options)) << c.Name;
        device.Words().SetNumber(c.Position, 6, 0x012345);
        EXPECT_TRUE(WriteHolding(device, c.Register + 1, {pair[1]})) << c.Name;
        EXPECT_EQ(ReadHolding(device, c.Register + 1, 1), RegisterValues{pair[1]})
            << c.Name << ", low half alone";
    }
}

TEST(RegisterMap, TopByteOfAWrittenScaleMeansNothing) {
    Device device{MeterOptions{}};
    EXPECT_TRUE(WriteHolding(device, 0x09, {0xEFFE, 0x7960}));
    EXPECT_EQ(HexOf(device.Words().Number(43, 6), 6), "8186A0");
}

TEST(RegisterMap, GapsAndReadOnlyRegistersRefuseTheWholeRequest) {
    Device device{MeterOptions{}};
    for (int gap : {0x00, 0x3C, 0x40, 0x60, 0x63, 0x67, 0x69, 0xFFFF})
        EXPECT_FALSE(ReadHolding(device, gap, 1)) << gap;
    EXPECT_FALSE(ReadHolding(device, 0x3B, 2));
    EXPECT_FALSE(WriteHolding(device, 0x3B, {1, 2})) << "into the gap";
    for (int readOnly : {0x64, 0x65, 0x66}) EXPECT_FALSE(WriteHolding(device, readOnly, {9})) << readOnly;
    EXPECT_EQ(device.Words().ImageText(), kDefaultImage);
    EXPECT_TRUE(WriteHolding(device, 0x6D, {0, 1234})) << "remote data to display and Item 3";
    EXPECT_FALSE(ReadInput(device, 0x0B, 3));
    EXPECT_EQ(ReadInput(device, 0x0B, 2), (RegisterValues{0, 1234}));
}

}  // namespace
}  // namespace sim
