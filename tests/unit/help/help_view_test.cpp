// The help window: what it shows, and what it puts back.
#include "help/help_view.h"

#include <gtest/gtest.h>

#include <cmath>

#include "controls/colors.h"
#include "support/bench_meter.h"

namespace counter {
namespace {

class HelpViewTest : public testing::Test {
  protected:
    HelpViewTest() {
        bench_.Store.Contents["home/Help11.R10"] = Index(38, 3);
        bench_.Store.Contents["home/Help11.S10"] = "$a$";
        bench_.Store.Contents["share/Help11.R10"] = Index(4, 1);
        bench_.Store.Contents["share/Help11.S10"] = "from share";
        bench_.Store.Contents["share/Help22.R10"] = Index(13, 5);
        bench_.Store.Contents["share/Help22.S10"] = "b$c$d";
        view_.Unload = [this] { Tell("unload"); };
        view_.ClearMenuMark = [this] { Tell("clear mark"); };
        view_.RestorePage = [this] { Tell("restore page"); };
    }

    // Records up to `record`, each with the whole of a text of `length`.
    static std::string Index(int record, char length) {
        std::string index;
        while (record-- > 0) index += std::string("\x01\0\0\0", 4) + length + '\0';
        return index;
    }
    void Tell(const std::string& what) {
        events_ += what + " at " + std::to_string(std::lround(bench_.Pump.NowMs() - start_)) + "; ";
    }
    Control& OkButton() { return *view_.Controls.Find("cmdOK"); }

    test::BenchMeter bench_;
    HelpView view_{bench_.Program, {"home", "share"}};
    double start_ = bench_.Pump.NowMs();
    std::string events_;
};

TEST_F(HelpViewTest, EndsDigitEntryWhetherThereIsATextOrNot) {
    ViewState& views = bench_.Program.Views;
    for (int helpId : {1104, 1199}) {
        Control field;
        field.BackColor = ColorLightGreen;
        views.EntryTarget = &field;
        views.EntryReturn = 1;
        EXPECT_EQ(view_.Open(helpId, HelpFrom::Setup), helpId == 1104);
        EXPECT_EQ(field.BackColor, ColorWhite);
        EXPECT_EQ(views.EntryTarget, nullptr);
        EXPECT_EQ(views.EntryReturn, 0);
    }
}

TEST_F(HelpViewTest, SetupComesBackOnItsPage) {
    EXPECT_FALSE(OkButton().Visible);
    ASSERT_TRUE(view_.Open(1104, HelpFrom::Setup));
    EXPECT_EQ(view_.Title, "APPLICATION  HELP");
    EXPECT_EQ(view_.Segments, (std::vector<HelpSegment>{{"a", true}}));
    EXPECT_TRUE(view_.Shown());
    EXPECT_EQ(view_.Controls.Click(OkButton()), Refusal::None);
    EXPECT_FALSE(view_.Shown());
    EXPECT_EQ(events_, "unload at 0; restore page at 10; ");
}

TEST_F(HelpViewTest, MenuHelpIsNarrowAndTakesTheMarkOff) {
    ASSERT_TRUE(view_.Open(2213, HelpFrom::Menu)) << "not in the first folder, but in the second";
    EXPECT_EQ(view_.Title, "Menu Help");
    EXPECT_EQ(view_.Width, 5895);
    EXPECT_EQ(view_.Segments, (std::vector<HelpSegment>{{"b", false}, {"c", true}, {"d", false}}));
    view_.Ok();
    EXPECT_EQ(events_, "clear mark at 0; unload at 0; ");
    events_.clear();
    EXPECT_FALSE(view_.Open(2299, HelpFrom::Menu));
    EXPECT_EQ(events_, "clear mark at 10; unload at 10; ") << "also where there is no text";

    ASSERT_TRUE(view_.Open(1104, HelpFrom::Home));
    EXPECT_EQ(view_.Title, "APPLICATION  HELP");
    EXPECT_EQ(view_.Width, 0);
}

TEST_F(HelpViewTest, CharacterTableIsFixedAndHasNoMarks) {
    ASSERT_TRUE(view_.Open(1138, HelpFrom::Setup));
    EXPECT_TRUE(view_.FixedPitch);
    EXPECT_EQ(view_.Segments, (std::vector<HelpSegment>{{"$a$", false}}));
    ASSERT_TRUE(view_.Open(1104, HelpFrom::Setup));
    EXPECT_FALSE(view_.FixedPitch);
}

TEST_F(HelpViewTest, VanishesWithoutAWord) {
    ASSERT_TRUE(view_.Open(1104, HelpFrom::Setup));
    EXPECT_FALSE(view_.Open(1199, HelpFrom::Setup));
    EXPECT_FALSE(view_.Shown());
    EXPECT_FALSE(OkButton().Visible);
    EXPECT_TRUE(view_.Segments.empty());
    EXPECT_EQ(events_, "unload at 0; restore page at 0; ");
    EXPECT_TRUE(bench_.Boxes.Shown.empty());
}

}  // namespace
}  // namespace counter
