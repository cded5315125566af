#include <array>
#include <span>
#include <string>

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/modbus_reply.h"
#include "link/waits.h"
#include "meter/firmware.h"
#include "transfer/get_setup.h"
#include "transfer/setup_conversions.h"

namespace counter {

namespace {

enum class Form { Plain, Int24, Float32 };

// Digits of a reply and their place in the image.
struct Piece {
    int From;    // first digit of the reply, from 1; 1..2 are the device address, 3..4 function, 5..6 byte
                 // count
    int Length;  // digits of the reply
    int Position;
    Form As = Form::Plain;
};

struct Range {
    const char* Request;
    int Length;  // digits of a good reply without check field
    int Step;    // LinkError of a wrong length
    int Percent;
    std::span<const Piece> Pieces;
    void (*Amend)(SetupTransfer&);  // what some generations of the meter do not tell over Modbus
};

void AmendAnalogOption(SetupTransfer& transfer) {
    if (!ModbusTellsAnalogOption(transfer.Identity.FirmwareVersion))
        PutCode(transfer.Image, Field::AnalogOption, 0);
}

// clang-format off
constexpr std::array<Piece, 8> kReadSetpointsAndScales = {{
    { 9, 6,  55}, {17, 6,  49}, {25, 6, 223}, {33, 6, 217},
    {41, 6,  43, Form::Int24}, {49, 6,  37}, {57, 6,  31, Form::Int24}, {65, 6,  25},
}};
constexpr std::array<Piece, 10> kReadCoordinates = {{
    { 7, 8, 103, Form::Float32}, {17, 6,  97}, {23, 8,  91, Form::Float32}, {33, 6,  85},
    {39, 8,  79, Form::Float32}, {49, 6,  73}, {55, 8,  67, Form::Float32}, {65, 6,  61},
    {73, 6,  19}, {81, 6,  13},
}};
constexpr std::array<Piece, 12> kReadOutputsAndTimes = {{
    { 9, 6, 211}, {17, 6, 205}, {25, 6,   7}, {33, 6,   1}, {41, 6, 255}, {49, 6, 249},
    {55, 4, 177}, {59, 4, 173}, {63, 4, 161}, {67, 24, 113}, {91, 4, 145}, {95, 4, 137},
}};
constexpr std::array<Piece, 11> kReadAlarmsToSerial = {{
    { 9, 2, 203}, {13, 2, 201}, {17, 2, 231}, {21, 2, 229}, {25, 2, 199}, {29, 2, 197},
    {33, 2, 195}, {37, 2, 193}, {41, 2, 191}, {45, 2, 189}, {49, 2, 187},
}};
constexpr std::array<Piece, 20> kReadDisplayToModbus = {{
    { 9, 2, 109}, {13, 2, 185}, {17, 2, 183}, {21, 2, 181}, {25, 2, 171}, {29, 2, 169}, {33, 2, 167},
    {37, 2, 165}, {41, 2, 159}, {45, 2, 157}, {49, 2, 155}, {53, 2, 151}, {57, 2, 149}, {61, 2, 247},
    {65, 2, 245}, {69, 2, 243}, {73, 2, 241}, {77, 2, 239}, {81, 2, 237}, {85, 2, 111},
}};
constexpr std::array<Piece, 3> kIdentity = {{{9, 2, 143}, {13, 2, 235}, {17, 2, 233}}};

// Function 03, first register, count.
constexpr std::array<Range, 6> kRanges = {{
    {"0300010010", 70, LinkErrors::kGet0001,  12, kReadSetpointsAndScales, nullptr},
    {"0300110014", 86, LinkErrors::kGet0011,  39, kReadCoordinates, nullptr},
    {"0300250017", 98, LinkErrors::kGet0025,  53, kReadOutputsAndTimes, nullptr},
    {"030041000B", 50, LinkErrors::kGet0041,  67, kReadAlarmsToSerial, AmendHalfDuplex},
    {"03004C0014", 86, LinkErrors::kGet004C,  81, kReadDisplayToModbus, nullptr},
    {"0300640003", 18, LinkErrors::kGet0064, 100, kIdentity, AmendAnalogOption},
}};
// clang-format on

constexpr const char* kEcho = "0800010000";  // diagnostics: the reply repeats the request
constexpr int kEchoLength = 12;

// False too where it was called off.
bool Ask(SetupTransfer& transfer, const char* request, int length, int step) {
    Link& link = transfer.Line;
    if (transfer.GivesUp()) return false;
    link.State.ModbusPayload = request;
    if (!SendCommand(link, [&] { return transfer.GivesUp(); })) return false;
    ReceiveReply(link);
    if (transfer.GivesUp()) return false;
    const auto wanted = static_cast<std::size_t>(length + ModbusExtraDigits(link.State));
    if (link.State.LinkError == 0 && !ReplyAnswers(link.State, wanted))
        link.State.Fail(step, ErrorSource::GetModbus);
    return link.State.LinkError == 0;
}

std::string ImageDigits(const std::string& digits, Form form) {
    if (form == Form::Int24) return Int24ToImage(digits);
    return form == Form::Float32 ? Float32ToImage(digits) : digits;
}

void Scatter(const std::string& reply, std::span<const Piece> pieces, SetupImage& image) {
    for (const Piece& piece : pieces) {
        const auto from = static_cast<std::size_t>(piece.From - 1);
        DigitsPut(image, piece.Position,
                  ImageDigits(reply.substr(from, static_cast<std::size_t>(piece.Length)), piece.As));
    }
}

// Through the node at 300 baud there is no pause of its own: required.
double PauseMs(const LinkState& link) {
    return link.EthernetMode && link.BaudIndex == 0 ? 0 : 1000;
}

}  // namespace

void GetSetupModbus(SetupTransfer& transfer) {
    Link& link = transfer.Line;
    transfer.ProgressTo(5);
    if (!Ask(transfer, kEcho, kEchoLength, LinkErrors::kLineTest)) return;
    for (const Range& range : kRanges) {
        LinkDelay(link, PauseMs(link.State));
        transfer.ProgressTo(range.Percent);
        if (!Ask(transfer, range.Request, range.Length, range.Step)) return;
        Scatter(link.State.ReplyText, range.Pieces, transfer.Image);
        if (range.Amend != nullptr) range.Amend(transfer);
    }
}

std::string DataFil2Text(const SetupImage& image) {
    SetupImage copy = image;
    DigitsPut(copy, 191, "00");
    return copy.SetupData + "\r\n";
}

}  // namespace counter
