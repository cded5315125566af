// The curve dialog: names, files and boards, the frames of a transfer, and a meter that goes silent in it.
#include "curve/send_curve_view.h"

#include <gtest/gtest.h>

#include <map>

#include "support/hand_bench.h"

namespace counter::test {
namespace {

const std::string kFirst(84, '5'), kSecond(84, 'A');
const std::string kRunning = " SENDING DATA TO METER\n DATA SENT\n VERIFYING RECEPTION\n";
const std::string kStored = kRunning + " DATA PROPERLY RECEIVED AND STORED IN METER.\n";
const std::string kFailed = kRunning +
                            " VERIFY FAILED.  DATA MOST LIKELY NOT RECEIVED BY METER.\n"
                            " CHECK THE METER COMMUNICATIONS SETTINGS AND THE CABLING AND TRY AGAIN.\n";

struct CurveBench : HandBench {
    SendCurveView View{Program};
    std::map<std::string, std::string> Blocks;  // of the meter, which knows capitals alone
    std::string SilentAt;                       // the command that it does not hear

    explicit CurveBench(int meterType = 3, const char* modeAndFunction = "81") {
        Program.Identity.MeterType = meterType;
        DigitsPut(Program.Image, 199, modeAndFunction);
        Store.Contents["/c/CURVE.PRM"] = kFirst + "\r\n" + kSecond + "\r\n";
        Port.Answer = [this](const std::string& frame) { return Answer(frame.substr(2)); };
        View.Load();
    }
    void Go(const std::string& name, const std::string& path = "/c/") {
        View.Controls.Type(View.txtPath, path);
        View.Controls.Type(View.txtFileName, name);
        View.Controls.Click(View.cmdGo);
    }
    // What was written after the explanation.
    std::string Running() const {
        return View.picSend.Text.substr(
            std::min(View.picSend.Text.find(" SENDING"), View.picSend.Text.size()));
    }

  private:
    std::string Answer(std::string command) {
        if (command.substr(0, 4) == SilentAt || SilentAt == "all") return "-";
        for (char& c : command) c = c == 'a' ? 'A' : c;
        if (command[0] == 'W') Blocks[command.substr(1, 3)] = command.substr(4, command.size() - 5);
        return command[0] == 'X' ? Blocks[command.substr(1, 3)] : "-";
    }
};

TEST(SendCurve, SendsTheSecondItemFirstAndReadsBack) {
    const std::string none = "  NO VF BOARD INSTALLED.  .PRM FILE WILL BE STORED ON THE COMPUTER BD.\n";
    const std::string fitted = "  VF BOARD INSTALLED.  SELECT TO STORE .PRM FILE ON COMPUTER BD OR VF BD.\n";
    const std::string other = "                    = 1   CUSTOM CURVE (EXTENDED METER ONLY)\n\n";
    const struct {
        const char* Name;
        int MeterType;
        const char* Mode;
        bool VFBoard;
        std::string Explained;
        const char *Of2nd, *Of1st;
    } cases[] = {
        // clang-format off
        {"main board",                    3, "81", false, fitted, "L69", "L54"},
        {"V-F board",                     3, "A1", true,  fitted, "LFF", "LEA"},
        {"V-F board, no panel",           7, "91", true,  fitted, "LFF", "LEA"},
        {"no V-F board, whatever is set", 3, "71", true,  none,   "L69", "L54"},
        {"another Mode above",            7, "B1", true,  none,   "L69", "L54"},
        {"one curve alone",               1, "81", true,  other,  "L69", "L54"},
        // clang-format on
    };
    for (const auto& c : cases) {
        CurveBench bench(c.MeterType, c.Mode);
        EXPECT_TRUE(bench.View.picSend.Text.ends_with(c.Explained)) << c.Name;
        EXPECT_EQ(bench.View.fraVF.Visible, c.Explained != none) << c.Name;
        bench.View.Controls.SetOption(c.VFBoard ? bench.View.optVFBd : bench.View.optMainBd, true);
        bench.Go(" CURVE ");
        const std::string write2 = std::string("300 *1W") + c.Of2nd + kSecond;
        const std::string write1 = std::string("Z; 300 *1W") + c.Of1st + kFirst;
        EXPECT_EQ(bench.Port.Story(),
                  write2 + write1 + "Z; 300 *1X" + c.Of2nd + "Z; 560 *1X" + c.Of1st + "Z; 560 *1C0")
            << c.Name;
        EXPECT_EQ(bench.Running(), kStored) << c.Name;
        EXPECT_EQ(bench.View.Controls.Focused(), &bench.View.cmdDone) << c.Name;
    }
}

// The meter keeps what it received, and is not reset.
TEST(SendCurve, WithoutProofTheMeterIsNotReset) {
    const struct {
        const char *SilentAt, *Content;
        const char* Has;  // blocks of the meter after it
        const char* LastFrame;
    } cases[] = {
        // clang-format off
        {"WL69", "55,AA", "L54 ",     "*1XL69Z"}, {"WL54",       "55,AA", "L69 ",     "*1XL54Z"},
        {"XL69", "55,AA", "L54 L69 ", "*1XL69Z"}, {"XL54",       "55,AA", "L54 L69 ", "*1XL54Z"},
        {"all",  "55,AA", "",         "*1XL69Z"}, {"lower case", "5a,AA", "L54 L69 ", "*1XL54Z"},
        {"all",  "\n\n",  "",         "*1XL69Z"},
        // clang-format on
    };
    for (const auto& c : cases) {
        CurveBench bench;
        bench.SilentAt = c.SilentAt;
        bench.Store.Contents["/c/CURVE.PRM"] = c.Content;
        bench.State().RawReply = "AA";  // an old reply is no proof
        bench.Go("CURVE");
        const std::string story = bench.Port.Story();
        EXPECT_EQ(story.substr(story.rfind("*1")), c.LastFrame) << c.SilentAt;
        EXPECT_EQ(bench.Running(), kFailed) << c.SilentAt;
        std::string has;
        for (const auto& [block, digits] : bench.Blocks) has += digits.empty() ? "" : block + " ";
        EXPECT_EQ(has, c.Has) << c.SilentAt;
    }
}

TEST(SendCurve, NamesAndFilesThatCannotBeSent) {
    const struct {
        const char *Name, *Path, *Box;
    } cases[] = {
        // clang-format off
        {"",          "/c/", "| NO NAME ENTERED."},        {"   ",       "/c/", "| NO NAME ENTERED."},
        {"CURVE.PRM", "/c/", "|DO NOT ENTER EXTENSION."},  {"123456789", "/c/", "| LIMIT NAME TO 8 CHARACTERS"},
        {"12345678",  "/c/", "Error|File doesn't exist."}, {"\u00E9\u00E92345678", "/c/", "| LIMIT NAME TO 8 CHARACTERS"},
        {"CURVE",     "/c",  "Error|File doesn't exist."}, {"ONE",       "/c/", "Error|File doesn't exist."},
        {"GIANT",     "/c/", "Error|File doesn't exist."}, {"REFUSED",   "/c/", "Error|File doesn't exist."},
        // clang-format on
    };
    for (const auto& c : cases) {
        CurveBench bench;
        bench.Store.Contents["/c/ONE.PRM"] = kFirst + "\r\n";
        bench.Store.Contents["/c/GIANT.PRM"] = std::string(100'000, 'A') + "\n" + kSecond;
        bench.Store.Refused.insert("/c/REFUSED.PRM");
        bench.Go(c.Name, c.Path);
        ASSERT_EQ(bench.Boxes.Shown.size(), 1U) << c.Name;
        EXPECT_EQ(bench.Boxes.Shown[0].Title + "|" + bench.Boxes.Shown[0].Text, c.Box) << c.Name;
        EXPECT_EQ(bench.Port.Story() + bench.Running(), "") << c.Name;
    }
}

TEST(SendCurve, FindsAFileWhateverLettersItsPathHasAndComesBackToItsFolder) {
    CurveBench bench;
    EXPECT_EQ(bench.View.txtPath.Text, "home/");
    EXPECT_EQ(bench.View.optMainBd.Caption + "|" + bench.View.optVFBd.Caption,
              "Computer Board Curve #1| VF Board    Curve #2");
    for (const char* file : {"M\u00DCLLER 1.PRM", "M\u00DCLLER 2.prm", "m\u00DCller 3.Prm"}) {
        bench.Store.Contents["/caf\u00E9/" + std::string(file)] = kFirst + "," + kSecond;
        bench.Go(std::string("M\u00DCLLER ") + file[8], "/caf\u00E9/");
        EXPECT_EQ(bench.Running(), kStored) << file;
    }
    bench.Go("NONE", "/elsewhere/");
    bench.View.Unload();
    bench.View.Load();
    EXPECT_EQ(bench.View.txtPath.Text, "/caf\u00E9/") << "where the last one was found";
}

// The second press, at 905 ms, throws away the answer to the first read-back: the first then has no proof.
TEST(SendCurve, PressesDuringItsWaits) {
    CurveBench bench;
    int closed = 0;
    bench.View.CloseDialog = [&] { ++closed; };
    bench.Store.Contents["home/curves/12345678.PRM"] = kFirst + "," + kSecond;
    bench.Pump.After(905, [&] {
        bench.Go("CURVE");
        EXPECT_EQ(bench.Running(), kStored);
    });
    bench.Go("12345678", "curves/");
    EXPECT_TRUE(bench.Running().ends_with(kStored.substr(kRunning.size())));
    bench.Pump.After(700, [&] { bench.View.Controls.Click(bench.View.cmdDone); });
    bench.Go("CURVE");
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(bench.View.picSend.Text, "") << "it was left";
    EXPECT_EQ(bench.View.Controls.Focused(), nullptr);
    EXPECT_TRUE(bench.Port.Story().ends_with("*1C0")) << "half a curve helps nobody";
}

TEST(SendCurve, TheEndOfTheProgramComesAfterBothItems) {
    CurveBench bench;
    SetupWrites& writes = bench.Program.Writes;
    std::string told;
    writes.EndProgram = [&] { told = writes.SoFar(); };
    bench.Pump.After(310, [&] { writes.Wish = EndWish::Outside; });
    bench.Go("CURVE");
    EXPECT_EQ(bench.Blocks.size(), 2U);
    EXPECT_NE(told.find("not verified"), std::string::npos) << told;
}

TEST(SendCurve, CancelStopsBeforeTheFirstItemOrAfterTheSecond) {
    const struct {
        double AfterMs;
        std::size_t Blocks;
        const char* Told;
    } cases[] = {
        {100, 0, " CANCELLED: nothing was sent: the meter has the curve that it had.\n"},
        {310, 2, " CANCELLED: both items were sent and not verified: send the curve again.\n"},
        {1000, 2, " CANCELLED: both items were sent and not verified: send the curve again.\n"},
    };
    for (const auto& c : cases) {
        CurveBench bench;
        EXPECT_FALSE(bench.View.Cancel()) << "nothing is under way";
        bench.Pump.After(c.AfterMs, [&] { bench.View.Controls.Click(bench.View.cmdCancel); });
        bench.Go("CURVE");
        EXPECT_EQ(bench.Blocks.size(), c.Blocks) << c.AfterMs;
        EXPECT_TRUE(bench.View.picSend.Text.ends_with(c.Told)) << bench.View.picSend.Text;
        EXPECT_FALSE(bench.Port.Story().ends_with("C0")) << "not taken in use";
        EXPECT_FALSE(bench.View.cmdCancel.Enabled);
        bench.Go("CURVE");
        EXPECT_EQ(bench.Running(), kStored) << "the next one";
    }
}

}  // namespace
}  // namespace counter::test
