// The list on the real widgets: frames with several values, windows of other sizes, the keyboard, readers of
// the screen; and the strip that all views of readings have.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QMenu>

#include "desktop/pages/reading_font.h"
#include "desktop/pages/reading_grid.h"
#include "desktop/pages/reading_strip.h"
#include "recording/reading_store.h"
#include "support/gui_bench.h"
#include "support/temp_folder.h"
#include "tour.h"

namespace counter::test {
namespace {

template <class Widget>
Widget* FindOf(QWidget* page) {
    for (QWidget* child : page->findChildren<QWidget*>()) {
        if (auto* found = dynamic_cast<Widget*>(child)) return found;
    }
    return nullptr;
}

// A meter that sends three values and the state of two alarms, the first of which is on.
sim::MeterOptions ThreeValues() {
    sim::MeterOptions options;
    options.Signal.Kind = sim::SignalKind::Constant;
    options.Patches = {{187, "00"}, {199, "0B"}, {189, "61"}};
    return options;
}

struct ListWindow : GuiBench {
    ListWindow() : GuiBench(ThreeValues()) {
        Choose("mnuGet");
        Choose("mnuList");
        Pump.Pass(3000);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(&Grid(), key, with);
    }
    ReadingGrid& Grid() { return *FindOf<ReadingGrid>(Desk->Window().Current()); }
    QString Figures() { return FindOf<FigureLines>(Desk->Window().Current())->accessibleDescription(); }
    // Cells that show a reading.
    int Listed() {
        int listed = 0;
        for (const QString& line : Grid().Text().split('\n')) {
            for (const QString& cell : line.split('\t')) listed += cell.isEmpty() ? 0 : 1;
        }
        return listed;
    }
};

constexpr const char* kFrame = "010000. 005000.-000100.A_";

TEST(List, TheFontFitsTheLongestReading) {
    const struct {
        const char* Name;
        const char* Reading;
        int Room, Lines;
        bool Whole;
    } cases[] = {{"one value", " 010000.", 45, 1, true},
                 {"with alarms", " 010000.A___", 45, 1, true},
                 {"three in a wide window", " 010000. 005000.-000100.A_", 250, 1, true},
                 {"three", " 010000. 005000.-000100.A_", 45, 3, true},
                 {"alarms in a small window", " 010000. 005000.-000100.A_", 30, 4, true},
                 {"too small", " 010000. 005000.-000100.A_", 20, 4, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        const ReadingFit fit = FitReading(c.Reading, c.Room);
        EXPECT_EQ(fit.Lines, c.Lines);
        for (const std::string_view line : ReadingLines(c.Reading, fit.Layout))
            EXPECT_EQ(fit.Characters >= static_cast<int>(line.size()), c.Whole || line == "A_") << line;
        EXPECT_LE(QFontMetrics(fit.Font).horizontalAdvance(QString(fit.Characters, '0')), c.Room);
    }
}

TEST(List, AWindowOfAnotherSizeKeepsTheNewestInSight) {
    ListWindow list;
    list.Pump.Pass(9000);
    const int before = list.Listed();
    const int rows = list.Grid().View().ListRows;
    list.Desk->Window().resize(1000, 360);
    GuiPump::Settle();
    const ListView& view = list.Grid().View();
    const int few = view.ListRows;
    EXPECT_LT(few, rows);
    EXPECT_EQ(list.Listed(), std::min(before, view.ListRows * ListView::kColumns - 1));
    EXPECT_LE(list.Grid().CellRect(view.ListRow, view.ListCol).bottom(), list.Grid().height());
    list.Desk->Window().resize(1300, 900);
    GuiPump::Settle();
    EXPECT_GT(view.ListRows, few) << "however the font of a wider window has grown";
}

TEST(List, KeysSelectAndCopyAndAClickOnlyBeeps) {
    ListWindow list;
    list.Click("cmdPause");
    ASSERT_TRUE(list.Grid().hasFocus());
    const QImage withFocus = list.Grid().grab().toImage();
    QTest::mouseClick(&list.Grid(), Qt::LeftButton);
    EXPECT_EQ(list.Boxes.Beeps, 1);
    EXPECT_TRUE(list.Grid().Selected().isEmpty());
    list.Key(Qt::Key_Home, Qt::ControlModifier);
    list.Key(Qt::Key_Right, Qt::ShiftModifier);
    list.Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(list.Grid().Selected(), QRect(0, 0, 2, 2));
    list.Key(Qt::Key_C, Qt::ControlModifier);
    const QString row = QString("%1\t%1").arg(kFrame);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), row + "\n" + row);
    list.Key(Qt::Key_A, Qt::ControlModifier);
    list.Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().count("A_"), list.Listed());
    list.Key(Qt::Key_Escape);
    EXPECT_TRUE(list.Grid().Selected().isEmpty());
    list.Find("cmdEnd")->setFocus();
    EXPECT_NE(list.Grid().grab().toImage(), withFocus) << "the focus is seen";
    QContextMenuEvent menu(QContextMenuEvent::Mouse, {5, 5}, list.Grid().mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&list.Grid(), &menu);
    ASSERT_NE(list.Grid().findChild<QMenu*>(), nullptr);
    EXPECT_EQ(list.Boxes.Beeps, 1);
}

TEST(List, ReadersOfTheScreenFindATable) {
    ListWindow list;
    QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&list.Grid());
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->role(), QAccessible::Table);
    EXPECT_EQ(grid->text(QAccessible::Name), "Readings");
    EXPECT_TRUE(grid->text(QAccessible::Description).startsWith("Running, 20.0/s, current 10000"));
    QAccessibleTableInterface* table = grid->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columnCount(), ListView::kColumns);
    EXPECT_EQ(table->rowCount(), list.Grid().View().ListRows);
    QAccessibleInterface* cell = table->cellAt(0, 1);
    EXPECT_EQ(cell->text(QAccessible::Name), kFrame);
    EXPECT_EQ(cell, grid->child(1));
    EXPECT_EQ(grid->indexOfChild(cell), 1);
    EXPECT_EQ(grid->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    EXPECT_FALSE(cell->state().selected);
    table->selectRow(0);
    EXPECT_TRUE(cell->state().selected);
    EXPECT_EQ(table->selectedCellCount(), ListView::kColumns);
    EXPECT_EQ(table->selectedRows(), QList<int>{0});
    EXPECT_EQ(table->cellAt(table->rowCount(), 0), nullptr);
}

TEST(ReadingStrip, TellsOfTheItemThatIsChosenInEveryView) {
    for (const char* entry : {"mnuList", "mnuPlot", "mnuGraph"}) {
        SCOPED_TRACE(entry);
        GuiBench bench(ThreeValues());
        bench.Choose("mnuGet");
        bench.Choose(entry);
        if (bench.Find("txtMidVal")) TypeScale(bench, {"0", "1", "30"});
        bench.Pump.Pass(3000);
        auto* lines = FindOf<FigureLines>(bench.Desk->Window().Current());
        auto* items = bench.Find<QComboBox>("cboItem");
        ASSERT_TRUE(lines && items && items->isEnabled());
        EXPECT_EQ(items->count(), 3);
        EXPECT_TRUE(lines->accessibleDescription().contains("current 10000, min 10000")) << "within a second";
        QTest::keyClick(items, Qt::Key_End);
        GuiPump::Settle();
        EXPECT_TRUE(lines->accessibleDescription().contains("current -100, "))
            << "the alarms are no part of it";
        bench.Click("cmdPause");
        EXPECT_TRUE(lines->accessibleDescription().startsWith("Paused, current -100, "));
        EXPECT_EQ(lines->accessibleDescription().contains("outside 0 / "),
                  std::string_view(entry) == "mnuGraph");
    }
}

TEST(ReadingStrip, RecordsIntoTheStoreOfTheProgramFolder) {
    const TempFolder folder;
    ListWindow bench;
    bench.Program.Folder.Path = folder.Path;
    bench.Click("cmdRecord");
    bench.Pump.Pass(2000);
    EXPECT_TRUE(
        FindOf<ReadingStrip>(bench.Desk->Window().Current())->Recorded().startsWith("Recording run 1: "));
    bench.Click("cmdEnd");
    bench.Pump.Pass(2000);
    std::unique_ptr<ReadingStore> store;
    ASSERT_TRUE(ReadingStore::Open(folder.At("readings.db"), ReadingStore::Use::Read, store).Ok());
    std::vector<StoredRun> runs;
    ASSERT_TRUE(store->Runs(runs).Ok());
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].Setup, bench.Program.Image.SetupData);
    EXPECT_GE(runs[0].Readings, 35) << "of 20 a second";
    std::vector<StoredReading> readings;
    ASSERT_TRUE(store->Readings(1, 1, 1, readings).Ok());
    ASSERT_EQ(readings.size(), 1u);
    EXPECT_EQ(readings[0].Items.at(1).Number, "005000");
    EXPECT_EQ(readings[0].Items.at(2).Alarms, "A_");
}

}  // namespace
}  // namespace counter::test
