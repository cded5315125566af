// The cutters of the reading stream over every splitting of the bytes into arrivals.
#include <gtest/gtest.h>

#include <functional>

#include "link/latest_cutter.h"
#include "link/list_cutter.h"

namespace counter::test {
namespace {

using Texts = std::vector<std::string>;

constexpr FrameRules kPlain = {0, '\r', '\0', 0};
constexpr FrameRules kLineFeeds = {1, '\n', '\0', 0};
constexpr FrameRules kCustom = {0, 'E', 'L', 0};
constexpr FrameRules kCustomLineFeeds = {1, 'E', 'L', 0};
constexpr FrameRules kEndOnly = {1, 'E', '\0', 0};
constexpr FrameRules kLeadOnly = {0, 'L', '\0', 0};
constexpr FrameRules kLeadOnlyLineFeeds = {1, 'L', '\0', 1};
constexpr FrameRules kKeptBackStep = {0, '\r', '\0', 1};  // custom characters were in force before

// What comes of arrivals; a frame that only sizes is in brackets.
Texts Cut(FrameCutter& cutter, const Texts& arrivals) {
    Texts texts;
    for (const std::string& bytes : arrivals) {
        cutter.Receive(bytes);
        for (Frame frame; cutter.Next(frame);)
            texts.push_back(frame.OnlySizes ? "[" + frame.Text + "]" : frame.Text);
    }
    return texts;
}

void ForEverySplitting(const std::string& bytes, const std::function<void(const Texts& arrivals)>& test) {
    for (std::size_t a = 0; a <= bytes.size(); ++a) {
        for (std::size_t b = a; b <= bytes.size(); ++b)
            test({bytes.substr(0, a), bytes.substr(a, b - a), bytes.substr(b)});
    }
    Texts single;
    for (const char c : bytes) single.emplace_back(1, c);
    test(single);
}

TEST(ListCutter, TheSameFramesHoweverTheBytesArrive) {
    // clang-format off
    const struct {
        const char* Name;
        FrameRules Rules;
        const char* Bytes;
        Texts Frames;
    } cases[] = {
        {"plain",                      kPlain,             "st\r+1.5\r+2.5\r-3\r+4",      {"[+1.5]", "+2.5", "-3"}},
        {"starts with an end",         kPlain,             "\r+1\r+2\r+3\r",              {"[+2]", "+3"}},
        {"as the meter writes it",     kPlain,             "\r\r\r0\r1\r-  2.5 \r",       {"[1]", "-  2.5 "}},
        {"empty frames are skipped",   kPlain,             "0\r\r1\r\r\r2\r\r3\r",        {"[1]", "2", "3"}},
        {"line feeds",                 kLineFeeds,         "t\r\n+1\r\n+2\r\n+3\r\n",     {"[1]", "+2", "+3"}},
        {"line feeds, empty frames",   kLineFeeds,         "t\r\n+1\r\n\r\n+2\r\n\n+3\r\n", {"[1]", "+2", "+3"}},
        {"custom",                     kCustom,            "tEL+1EL+2EL+3EL",             {"[+1]", "+2", "+3"}},
        {"custom, nothing between",    kCustom,            "tELELEL+1EL+2E",              {"[+1]", "+2"}},
        {"custom with line feeds",     kCustomLineFeeds,   "tE\nL+1E\nL+2E\nL+3E\n",      {"[+1]", "+2", "+3"}},
        {"end with line feeds",        kEndOnly,           "tE\n+1E\n+2E\n+3E\n",         {"[+1]", "+2", "+3"}},
        {"lead alone",                 kLeadOnly,          "tL+1L+2L+3L",                 {"[+1]", "+2", "+3"}},
        {"lead alone with line feeds", kLeadOnlyLineFeeds, "t\nL+1\nL+2\nL+3\nL",         {"[+1]", "+2", "+3"}},
        {"a stray line feed in front", kPlain,             "t\r\n+1\r\n+2\r\n+3\r",       {"[+1]", "+2", "+3"}},
        {"the step back is kept",      kKeptBackStep,      "t\r+1x\r+2x\r+3x\r",          {"[+1]", "+2", "+3"}},
        {"every byte is data",         kPlain,             "t\r\x80\r\xff\x01\r",         {"[\x80]", "\xff\x01"}},
    };
    // clang-format on
    for (const auto& c : cases) {
        ForEverySplitting(c.Bytes, [&](const Texts& arrivals) {
            ListCutter cutter(c.Rules);
            EXPECT_EQ(Cut(cutter, arrivals), c.Frames) << c.Name << ", " << testing::PrintToString(arrivals);
        });
    }
}

// The steps on one plain text: what the buffered cutter must come to.
struct PlainLatest {
    const FrameRules& Rules;
    std::string Buffer = {};
    int FrameState = 1;
    void Arrive(const std::string& bytes, Texts& texts) {
        Buffer += bytes;
        while (FrameState == 0 && Buffer.starts_with(Rules.FrameEndChar)) Buffer.erase(0, 1);
        const std::size_t pos = Buffer.find(Rules.FrameEndChar) + 1;
        if (bytes.empty() || pos == 0) return;
        const std::string frame = Buffer.substr(0, pos - 1);
        Buffer.erase(0, FrameState == 1 ? pos : Buffer.size() / pos * pos);
        if (FrameState == 0 && !CleanReading(frame).empty()) texts.emplace_back(CleanReading(frame));
        FrameState = 0;
    }
};

TEST(LatestCutter, OneFrameAnArrivalAndTheOldestOfABacklog) {
    // clang-format off
    const struct {
        const char* Name;
        FrameRules Rules;
        Texts Arrivals, Frames;
    } cases[] = {
        {"a frame an arrival",           kPlain,     {"t\r", "+1\r", "+2\r"},               {"+1", "+2"}},
        {"the first cut takes no more",  kPlain,     {"t\r+1\r+2\r", "+3\r", "+4\r"},       {"+1", "+4"}},
        {"three frames and a part",      kPlain,     {"t\r", "+1\r+2\r+3\r+", "4\r"},       {"+1", "+4"}},
        {"an end starts it",             kPlain,     {"\r", "+1\r"},                        {"+1"}},
        {"empty frames are skipped",     kPlain,     {"t\r", "\r\r+1\r+", "2\r", "\r"},     {"+1", "+2"}},
        {"nothing that can be parsed",   kPlain,     {"t\r", "abc\r", "+2.0\r"},            {"+2.0"}},
        {"line feeds",                   kLineFeeds, {"t\r\n", "+1\r\n", "+2\r\n"},         {"+1\r", "+2\r"}},
        {"custom with line feeds",       kCustomLineFeeds, {"tE\n", "L+1E\n", "L+2E\nL+3E\nL"}, {"+1", "+2"}},
        {"lead alone with line feeds",   kLeadOnlyLineFeeds, {"t\nL", "+1\nL", "+2\nL"},    {"+1\n", "+2\n"}},
        {"nothing new, nothing cut",     kPlain,     {"t\r+1\r", "", ""},                   {}},
    };
    // clang-format on
    for (const auto& c : cases) {
        LatestCutter cutter(c.Rules);
        EXPECT_EQ(Cut(cutter, c.Arrivals), c.Frames) << c.Name;
    }
}

TEST(LatestCutter, EverySplittingIsCutByThePlainSteps) {
    for (const FrameRules& rules : {kPlain, kLineFeeds, kCustomLineFeeds, kLeadOnlyLineFeeds}) {
        for (const char* bytes :
             {"t\r\n+1.1\r\n+2\r\n\r\n-3\r\n+4\r\n", "tE\nL+1E\nL+2E\n\nL+3E\nL+", "\r\r\n1\rLL"}) {
            ForEverySplitting(bytes, [&](const Texts& arrivals) {
                LatestCutter cutter(rules);
                PlainLatest plain{rules};
                Texts expected;
                for (const std::string& arrival : arrivals) plain.Arrive(arrival, expected);
                EXPECT_EQ(Cut(cutter, arrivals), expected) << testing::PrintToString(arrivals);
            });
        }
    }
}

TEST(Cutters, ABacklogIsCutWholeAndNoiseIsNotKept) {
    std::string backlog = "t\r";
    for (int i = 100'000; i < 120'000; ++i) backlog += std::to_string(i) + "\r";
    ListCutter list(kCustomLineFeeds);
    EXPECT_EQ(Cut(list, {"tE\nL+1E\nL+2E"}), (Texts{"[+1]", "+2"}));
    list.Restart();
    EXPECT_EQ(Cut(list, {"5E\nL+6E\nL+7E\n"}), (Texts{"[+6]", "+7"})) << "no line feed is owed any more";
    ListCutter plain(kPlain);
    LatestCutter latest(kPlain);
    EXPECT_EQ(Cut(plain, {backlog.substr(0, 70'000), backlog.substr(70'000)}).size(), 20'000U);
    EXPECT_EQ(Cut(latest, {"t\r", backlog.substr(2), "+5\r"}), (Texts{"100000", "+5"}));
    const Texts noise(100, std::string(1000, '7'));
    EXPECT_EQ(Cut(plain, noise), Texts{});
    EXPECT_EQ(Cut(latest, noise), Texts{});
    EXPECT_EQ(Cut(plain, {"7\r1\r2\r"}), (Texts{"[1]", "2"})) << "as behind a start";
    EXPECT_EQ(Cut(latest, {"7\r", "1\r"}), Texts{"1"});
    EXPECT_EQ(Cut(plain, {std::string(5000, '7') + "\r1\r2\r"}), (Texts{"[1]", "2"}))
        << "with its end in one arrival";
}

TEST(CleanReading, KeepsWhatCanBeParsed) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"A12.5", "12.5"}, {"001234.567", "001234.5"}, {" -1", " -1"}, {"*#+1", "+1"}, {"/,.5", ".5"}, {":;9", "9"},
        {"12.5\r", "12.5\r"}, {"\n-3", "-3"}, {"abc", ""}, {"", ""}, {"x1x2x3x4x5x6", "1x2x3x4x"}, {"\x80\xff" "7", "7"}};
    // clang-format on
    for (const auto& [frame, cleaned] : cases) EXPECT_EQ(CleanReading(frame), cleaned) << frame;
}

}  // namespace
}  // namespace counter::test
