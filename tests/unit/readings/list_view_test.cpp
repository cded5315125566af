// The list: sizing, the running cell, pauses, and what End sends.
#include "readings/list_view.h"

#include "readings_bench.h"

namespace counter::test {
namespace {

struct ListDesk : ReadingsBench {
    ListDesk() { View.GridHeight = 3 * 330 + 329; }
    // From the opening to the reading that sizes the grid.
    void Start() {
        View.Load();
        View.Activate();
        Line.Inject("rest\r+  11.11\r");
    }
    ListView View{Program};
};

TEST(ListView, StartsTheStreamAndSizesTheGridOnTheFirstWholeReading) {
    ListDesk desk;
    EXPECT_EQ(desk.Pump.Took([&] { desk.View.Activate(); }), 600) << "300 ms before the command, 300 behind";
    EXPECT_EQ(desk.Line.Calls().back(), "RTS on");
    desk.Line.Inject("rest\r");
    EXPECT_EQ(desk.View.ListRows, 0);
    desk.Line.Inject("+  11.11\r");
    EXPECT_EQ(desk.View.ListRows, 3);
    EXPECT_EQ(desk.View.RowHeight, 330);
    EXPECT_EQ(desk.View.ColumnWidth, 720);
    EXPECT_EQ(desk.View.Cell(0, 0), "") << "it isn't listed";
    desk.Line.Inject("+  12.50\r");
    EXPECT_EQ(desk.View.Cell(0, 0), "+  12.50") << "as the meter writes it";
}

TEST(ListView, RunsAlongRowsAndStartsOverAtTheTop) {
    ListDesk desk;
    desk.Start();
    const struct {
        int Readings, Row, Column, BlankRow, BlankColumn;  // where the last reading and the blank are
    } cases[] = {{1, 0, 0, 0, 1},   {19, 0, 18, 0, 19}, {20, 0, 19, 1, 0}, {21, 1, 0, 1, 1},
                 {60, 2, 19, 0, 0}, {61, 0, 0, 0, 1},   {121, 0, 0, 0, 1}};
    int sent = 0;
    for (const auto& c : cases) {
        while (sent < c.Readings) desk.Line.Inject("R" + std::to_string(++sent) + "\r");
        EXPECT_EQ(desk.View.Cell(c.Row, c.Column), "R" + std::to_string(sent));
        EXPECT_EQ(desk.View.Cell(c.BlankRow, c.BlankColumn), " ") << sent;
    }
    EXPECT_EQ(desk.View.Cell(2, 19), "R120") << "the oldest are overwritten one by one";
    desk.View.GridHeight = 10;  // a smaller window
    Press(desk.View, desk.View.cmdPause);
    Press(desk.View, desk.View.cmdContin);
    desk.Line.Inject("rest\rsizes\rlisted\r");
    EXPECT_EQ(desk.View.ListRows, 1);
    EXPECT_EQ(desk.View.Cell(0, 1), "listed");
}

// Oldest first, from behind the current cell round to it: cells without a reading are left out.
Lines Readings(const ListView& view) {
    Lines readings;
    const int all = view.ListRows * ListView::kColumns,
              current = view.ListRow * ListView::kColumns + view.ListCol;
    for (int i = 1; i < all; ++i) {
        const int at = (current + i) % all;
        const std::string& text = view.Cell(at / ListView::kColumns, at % ListView::kColumns);
        if (!text.empty()) readings.push_back(text);
    }
    return readings;
}

TEST(ListView, AWindowOfAnotherSizeKeepsTheNewestReadingsInTheirOrder) {
    const struct {
        const char* Name;
        int Readings;
        std::vector<int> Rows;  // one size after the other, from 3
        int Kept, Row, Column;  // readings, the current cell
    } cases[] = {{"before the first", 0, {2, 9}, 0, 0, 0},
                 {"all fit", 25, {2}, 25, 1, 5},
                 {"down to one row", 25, {1}, 19, 0, 5},
                 {"exactly full", 40, {2}, 39, 1, 0},
                 {"round again", 75, {2}, 39, 0, 15},
                 {"round again, growing", 75, {5}, 59, 0, 15},
                 {"growing and shrinking", 75, {5, 2}, 39, 0, 15},
                 {"the same", 75, {3}, 59, 0, 15}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        ListDesk desk;
        desk.View.FitWindow();  // not sized yet
        desk.Start();
        for (int i = 1; i <= c.Readings; ++i) desk.Line.Inject("R" + std::to_string(i) + "\r");
        for (const int rows : c.Rows) {
            desk.View.GridHeight = rows * 330;
            desk.View.FitWindow();
        }
        EXPECT_EQ(desk.View.ListRows, c.Rows.back());
        EXPECT_EQ(desk.View.ListRow, c.Row);
        EXPECT_EQ(desk.View.ListCol, c.Column);
        Lines newest;
        for (int i = c.Readings - c.Kept + 1; i <= c.Readings; ++i) newest.push_back("R" + std::to_string(i));
        EXPECT_EQ(Readings(desk.View), newest);
        EXPECT_EQ(desk.View.Cell(c.Row, c.Column), c.Readings ? " " : "");
    }
}

TEST(ListView, APauseLosesThePartialReadingAndTheOneThatSizes) {
    ListDesk desk;
    desk.Start();
    Press(desk.View, desk.View.cmdContin);
    EXPECT_EQ(desk.View.Controls.Focused(), nullptr) << "running, it changes nothing";
    desk.Line.Inject("1\r2 be");
    Press(desk.View, desk.View.cmdPause);
    EXPECT_EQ(desk.View.Controls.Focused(), &desk.View.grdList);
    desk.Line.Inject("gun\r3\r4\r5 beg");
    EXPECT_EQ(desk.Line.InBufferCount(), 0U) << "the meter goes on, and its input is thrown away";
    Press(desk.View, desk.View.cmdContin);
    desk.Line.Inject("un\r6\r7\r8\r");
    EXPECT_EQ(desk.View.Cell(0, 0), "1");
    EXPECT_EQ(desk.View.Cell(0, 1), "7") << "5 is the partial one, 6 sizes the grid";
    EXPECT_EQ(desk.Sent(), Lines{"*1A0\r\n"}) << "a pause sends nothing";
}

TEST(ListView, EndSendsThirteenStarsAndComesBackToTheMainMenu) {
    ListDesk desk;
    desk.Start();
    desk.View.PressTable();
    EXPECT_EQ(desk.Boxes.Beeps, 1);
    int shownBusy = 0;
    desk.View.ShowMainMenu = [&] { shownBusy += desk.Program.Home.Hourglass ? 1 : 100; };
    Press(desk.View, desk.View.cmdEnd);
    EXPECT_EQ(desk.Sent(), (Lines{"*1A0\r\n", "*************\r\n", "*1A1\r\n"}));
    EXPECT_EQ(desk.Line.Calls().back(), "RTS off");
    EXPECT_EQ(shownBusy, 1);
    EXPECT_FALSE(desk.Program.Home.Hourglass);
}

}  // namespace
}  // namespace counter::test
