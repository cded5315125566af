// The Menu view in its page: pictures of its grids, and what mouse and keys do.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QDir>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <array>

#include "desktop/pages/menu_page.h"
#include "meter/default_setup.h"
#include "support/bench_meter.h"
#include "support/failing_printer.h"
#include "support/gui_pump.h"

namespace counter::test {
namespace {

struct PutBits {
    int Pos, HiBit, LoBit, Value;
};

struct MenuPageBench {
    BenchMeter Meter;
    FailingPrinter Paper;
    QWidget Window;
    MenuPage* Page = nullptr;
    std::vector<std::pair<int, HelpPlace>> Opened;
    int WentHome = 0;

    explicit MenuPageBench(std::initializer_list<PutBits> bits = {}) {
        Session& session = Meter.Program;
        BuildDefaultSetup(session.Image);
        session.Identity = {3, 83, 0, 0};
        for (const PutBits& put : bits) BitsPut(session.Image, put.HiBit, put.LoBit, put.Pos, put.Value);
        Page = new MenuPage(session, Paper, &Window);
        Page->OpenRowHelp = [this](int helpId, HelpPlace place) { Opened.emplace_back(helpId, place); };
        Page->GoHome = [this] { ++WentHome; };
    }
    void Show(int height = 400) {
        Window.resize(1000, height);
        Page->resize(Window.size());
        Page->ComeToFront();
        Window.show();
        Page->FirstFocus()->setFocus();
        GuiPump::Settle();
    }
    SegmentGrid& Grid(const char* name) { return *Page->findChild<SegmentGrid*>(name); }
    SegmentGrid& Main() { return Grid("grdMain"); }
    QWidget& Named(const char* name) { return *Page->findChild<QWidget*>(name); }
    int& HelpId() { return Meter.Program.Views.HelpId; }
    void Click(SegmentGrid& grid, int row, Qt::MouseButton button) {
        const QRect cell = grid.visualRect(grid.model()->index(row - 1, 0));
        QTest::mouseClick(grid.viewport(), button, {}, cell.center());
    }
    int RowOf(const QString& name) {
        const auto found = Main().findItems(name, Qt::MatchFixedString | Qt::MatchCaseSensitive);
        return found.isEmpty() ? 0 : found.first()->row() + 1;
    }
};

// ---- pictures ------------------------------------------------------------------------------------------

struct PicturedSetup {
    int Number;  // of its picture
    const char* Name;
    int ClockMode;
    std::initializer_list<PutBits> Bits;
};

// Bits by position: 199 Mode and Function; 193 input board (0 none, 1 conditioners, 4 V-F, 2 quadrature),
// relays (1 four, 2 two), serial board; 143 analog board; 185 display, curve, root; 197 scaling; 165
// multipliers.
// clang-format off
const PicturedSetup kSetups[] = {
    {1,  "as delivered",          0, {}},
    {9,  "stopwatch, hhmmss",     5, {{193,2,0,1}, {199,7,0,0x50}, {185,7,4,5}, {39,7,0,0x0E}, {41,7,0,0x4D}}},
    {14, "0-1 mA, coordinates",   0, {{193,2,0,4}, {199,7,0,0x90}, {197,5,4,3}, {97,7,0,0x80}, {101,7,0,0x55}}},
    {16, "quadrature total",      0, {{193,2,0,2}, {193,6,5,1}, {199,7,0,0xC0}, {203,7,0,0xFE}, {231,7,0,0x5B}, {201,7,0,0x2B}}},
};
// clang-format on

// The grids without their headers, whose texts depend on the machine's fonts: all rows of the main one at the
// left, beside it the Function, the multipliers and the setpoints.
QImage PictureOf(const PicturedSetup& setup) {
    constexpr int kRow = 20;
    MenuPageBench bench(setup.Bits);
    bench.Meter.Program.Derived.ClockMode = setup.ClockMode;
    bench.Show();
    std::array<QImage, 5> parts;
    int height = 0;
    const char* names[] = {"grdMain", "grdInput", "grdScale1", "grdScale2", "grdSetPt"};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        SegmentGrid& grid = bench.Grid(names[i]);
        grid.clearFocus();
        grid.SetRowHeight(kRow);
        grid.setFixedSize(grid.sizeHint());
        GuiPump::Settle();
        if (grid.rowCount() == 0) continue;  // no setpoints
        parts[i] = QImage(grid.horizontalHeader()->length(), grid.rowCount() * kRow, QImage::Format_RGB32);
        parts[i].fill(Qt::black);
        grid.viewport()->render(&parts[i]);
        height += i == 0 ? 0 : parts[i].height() + kRow;
    }
    QImage picture(2 * parts[0].width() + kRow, std::max(height, parts[0].height()), QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.drawImage(0, 0, parts[0]);
    int top = 0;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        painter.drawImage(parts[0].width() + kRow, top, parts[i]);
        top += parts[i].height() + kRow;
    }
    return picture;
}

// Pixels that differ by more than another rounding of half lit edges does.
int Differing(const QImage& a, const QImage& b) {
    constexpr int kTolerance = 32;  // of 255
    if (a.size() != b.size()) return a.width() * a.height();
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            const bool same = std::abs(qRed(p) - qRed(q)) <= kTolerance &&
                              std::abs(qGreen(p) - qGreen(q)) <= kTolerance &&
                              std::abs(qBlue(p) - qBlue(q)) <= kTolerance;
            count += same ? 0 : 1;
        }
    }
    return count;
}

TEST(MenuPictures, LookAsTheyDid) {
    const QDir golden(GOLDEN_FOLDER);
    const QDir made(QCoreApplication::applicationDirPath());
    for (const PicturedSetup& setup : kSetups) {
        const QString name = QStringLiteral("menu_%1.png").arg(setup.Number, 2, 10, QLatin1Char('0'));
        const QImage picture = PictureOf(setup);
        const QImage expected(golden.filePath(name));
        if (Differing(picture, expected) == 0) continue;
        picture.save(made.filePath(name));
        ADD_FAILURE() << setup.Name << ": " << Differing(picture, expected) << " pixels differ from "
                      << golden.filePath(name).toStdString() << "; the new picture is "
                      << made.filePath(name).toStdString();
    }
}

// ---- mouse and keys ------------------------------------------------------------------------------------

TEST(MenuPage, ARowThatIsClickedOpensItsHelpAndNothingElseDoes) {
    MenuPageBench bench;
    bench.Show(2400);
    const struct {
        const char* Grid;
        int Row;
        Qt::MouseButton Button;
        int HelpId;
        HelpPlace Place;
    } cases[] = {
        {"grdMain", 1, Qt::LeftButton, 2201, HelpPlace::RightEdge},
        {"grdMain", 3, Qt::RightButton, 2203, HelpPlace::LeftEdge},
        {"grdScale1", 1, Qt::LeftButton, 2213, HelpPlace::RightEdge},
        {"grdScale2", 1, Qt::RightButton, 2219, HelpPlace::LeftEdge},
    };
    for (const auto& c : cases) {
        bench.Page->ClearMark();
        bench.Opened.clear();
        bench.Click(bench.Grid(c.Grid), c.Row, c.Button);
        const std::vector<std::pair<int, HelpPlace>> once = {{c.HelpId, c.Place}};
        EXPECT_EQ(bench.Opened, once) << c.Grid;
        EXPECT_EQ(bench.HelpId(), c.HelpId) << c.Grid;
        EXPECT_TRUE(bench.Grid(c.Grid).HasMark());
    }
    bench.Opened.clear();
    for (const char* name : {"grdSetPt", "grdInput"}) {
        bench.Click(bench.Grid(name), 1, Qt::LeftButton);
        EXPECT_FALSE(bench.Grid(name).HasMark()) << name;
    }
    const QPoint belowAll(20, bench.Main().viewport()->height() - 2);
    ASSERT_EQ(bench.Main().rowAt(belowAll.y()), -1);
    QTest::mouseClick(bench.Main().viewport(), Qt::LeftButton, {}, belowAll);
    EXPECT_TRUE(bench.Opened.empty());
}

TEST(MenuPage, TheKeysMoveAndAskForHelp) {
    MenuPageBench bench;
    bench.Show();
    SegmentGrid& grid = bench.Main();
    EXPECT_FALSE(grid.HasMark()) << "a view opens without a mark";
    const struct {
        Qt::Key Key;
        int Row, HelpId;
    } cases[] = {
        {Qt::Key_Down, 2, 2202}, {Qt::Key_Down, 3, 2203},
        {Qt::Key_Up, 2, 2202},   {Qt::Key_End, grid.rowCount(), 2248},
        {Qt::Key_Home, 1, 2201},
    };
    for (const auto& c : cases) {
        QTest::keyClick(&grid, c.Key);
        EXPECT_EQ(grid.CurrentRow(), c.Row) << c.Key;
        EXPECT_EQ(bench.HelpId(), c.HelpId) << c.Key;
        EXPECT_TRUE(grid.HasMark()) << c.Key;
    }
    QTest::keyClick(&grid, Qt::Key_PageDown);
    const int paged = grid.CurrentRow();
    EXPECT_GT(paged, 4);
    EXPECT_TRUE(bench.Opened.empty());
    QTest::keyClick(&grid, Qt::Key_PageUp);
    EXPECT_EQ(grid.CurrentRow(), 1);
    auto& words = static_cast<QTextEdit&>(bench.Named("txtWords"));
    EXPECT_EQ(words.toPlainText(), "InPut\ndigits 3 to 6: Mode, Rate\nbeside: Function, A, B");
    bench.Grid("grdSetPt").setFocus();
    EXPECT_EQ(words.toPlainText(), "SETPT1\nS to digit 6: Setpoint 1, +010000");
    grid.setFocus();
    bench.Page->HelpKey();
    QTest::keyClick(&grid, Qt::Key_Return);
    QTest::keyClick(&grid, Qt::Key_Down);
    for (const char* name : {"grdScale2", "grdInput", "grdSetPt"}) {
        bench.Grid(name).setFocus();
        bench.Page->HelpKey();
    }
    std::vector<std::pair<int, HelpPlace>> opened;
    for (const int helpId : {2201, 2201, 2219, 2201, 1168}) opened.emplace_back(helpId, HelpPlace::RightEdge);
    EXPECT_EQ(bench.Opened, opened);
    QTest::keyClick(&grid, Qt::Key_Down);
    bench.Page->ClearMark();
    EXPECT_FALSE(grid.HasMark());
}

TEST(MenuPage, WhatStandsBesideARowFollowsTheScrolling) {
    MenuPageBench bench;
    bench.Show();
    SegmentGrid& grid = bench.Main();
    const std::pair<const char*, int> beside[] = {{"grdInput", bench.RowOf("InPut")},
                                                  {"grdScale1", bench.RowOf("SCALE1")},
                                                  {"lblNoChange", bench.RowOf("CALib")}};
    for (int top = 1; top <= grid.verticalScrollBar()->maximum() + 1; ++top) {
        grid.verticalScrollBar()->setValue(top - 1);
        EXPECT_EQ(grid.FirstVisibleRow(), top);
        for (const auto& [name, row] : beside) {
            QWidget& shown = bench.Named(name);
            EXPECT_EQ(shown.isHidden(), row < top) << name << " at " << top;
            const QRect cell = grid.visualRect(grid.model()->index(row - 1, 0));
            const int middle = grid.viewport()->mapTo(bench.Page, cell.center()).y();
            EXPECT_NEAR(shown.mapTo(bench.Page, shown.rect().center()).y(), middle, 1)
                << name << " at " << top;
        }
    }
    MenuPageBench single({{199, 7, 0, 0x01}});
    single.Show();
    EXPECT_EQ(single.RowOf("SCALE2"), 0);
    EXPECT_TRUE(single.Named("grdScale2").isHidden()) << "one item has no second scale";
}

TEST(MenuPage, CopiesTheMarkedRowOrAllOfThem) {
    MenuPageBench bench({{37, 7, 0, 0xFF}, {39, 7, 0, 0xFF}, {41, 7, 0, 0x85}, {151, 2, 0, 3}});
    bench.Show();
    SegmentGrid& grid = bench.Main();
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    const QStringList all = QApplication::clipboard()->text().split('\n');
    EXPECT_EQ(all.size(), grid.rowCount());
    EXPECT_EQ(all[1], "SEtuP\t\t\t0\t0\t0\t0\t0");
    bench.Click(grid, bench.RowOf("OFFSt1"), Qt::LeftButton);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "OFFSt1\t-\t0\t0\t0\t1.\t2\t3");
    EXPECT_EQ(grid.accessibleDescription(), "OFFSt1 - 0 0 0 1. 2 3");
    EXPECT_EQ(grid.item(bench.RowOf("OFFSt1") - 1, 5)->toolTip(), "1.");
}

TEST(MenuPage, IsBuiltAnewEachTimeItComesToTheFront) {
    MenuPageBench bench;
    bench.Show();
    EXPECT_EQ(bench.Page->Title(), "CTR  MENU");
    const QString before = bench.Main().RowText(2);
    bench.Page->PutAway();
    EXPECT_EQ(bench.Main().rowCount(), 0);
    BitsPut(bench.Meter.Program.Image, 6, 6, 197, 1);
    BitsPut(bench.Meter.Program.Image, 6, 5, 193, 1);
    bench.Page->ComeToFront();
    EXPECT_NE(bench.Main().RowText(2), before);
    EXPECT_EQ(bench.Grid("grdSetPt").rowCount(), 4);
    EXPECT_EQ(bench.Grid("grdSetPt").maximumHeight() / bench.Main().RowHeight(), 4);
}

TEST(MenuPage, ItsButtonsPrintAndLeave) {
    MenuPageBench bench;
    bench.Show();
    QTest::mouseClick(&bench.Named("CmdPrinter"), Qt::LeftButton);
    ASSERT_EQ(bench.Meter.Boxes.Shown.size(), 1U);
    EXPECT_EQ(bench.Meter.Boxes.Shown[0].Text, "lp0: out of paper");
    QTest::mouseClick(&bench.Named("cmdMainMenu"), Qt::LeftButton);
    EXPECT_EQ(bench.WentHome, 1);
}

TEST(MenuPage, TheTabKeyReachesAllInReadingOrder) {
    MenuPageBench bench;
    bench.Show();
    const char* order[] = {"grdMain",  "grdInput", "grdScale1",  "grdScale2",
                           "grdSetPt", "txtWords", "CmdPrinter", "cmdMainMenu"};
    QWidget* focus = bench.Page->FirstFocus();
    for (const char* name : order) {
        EXPECT_EQ(focus->objectName(), name);
        EXPECT_FALSE(focus->accessibleName().isEmpty() && !qobject_cast<QPushButton*>(focus)) << name;
        do focus = focus->nextInFocusChain();
        while (!focus->isVisible() || (focus->focusPolicy() & Qt::TabFocus) == 0);
    }
}

}  // namespace
}  // namespace counter::test
