// A day at the desk, from the first Get to the exit, as an engineer goes through it by mouse and keys. The
// steps depend on each other; STORY_PICTURES=FOLDER leaves a picture of each.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTreeWidget>

#include "support/gui_bench.h"

namespace counter::test {
namespace {

class Story {
  public:
    // Columns of the rows on show, "Baud Rate|9600|19200|picked".
    std::string Changes() { return Rows(*Bench.Find<QTreeWidget>("lstChanges")->model(), {0, 1, 2, 3}); }
    std::string Compared() { return Rows(*Bench.Find<QTableWidget>("grdCompare")->model(), {1, 2, 3}); }
    void PickNext(const char* list) {
        Bench.Find(list)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(Bench.Find(list), Qt::Key_Down);
        GuiPump::Settle();
    }
    void Enter(const char* value, const char* digits) {
        Bench.Click(value);
        QWidget* entry = GuiBench::Dialog();
        ASSERT_NE(entry, nullptr);
        QTest::keyClicks(QApplication::focusWidget(), digits);
        Picture("digits");
        QTest::mouseClick(entry->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        Bench.Pump.Pass(20);
        Bench.Desk->Window().activateWindow();  // as window managers do
    }
    std::string Fact(const char* name) { return Bench.Find<QLabel>(name)->text().toStdString(); }
    std::string Title() { return Bench.Desk->Window().windowTitle().toStdString(); }
    std::string Line() { return Bench.StatusLine().toStdString(); }
    void Picture(const char* name) {
        const QString folder = qEnvironmentVariable("STORY_PICTURES");
        if (folder.isEmpty()) return;
        GuiPump::Settle();
        QWidget* shown = GuiBench::Dialog() ? GuiBench::Dialog() : &Bench.Desk->Window();
        const QString path =
            QStringLiteral("%1/%2-%3.png").arg(folder).arg(++pictures_, 2, 10, QChar('0')).arg(name);
        EXPECT_TRUE(QDir().mkpath(folder) && shown->grab().save(path)) << path.toStdString();
    }

    GuiBench Bench;

  private:
    static std::string Rows(const QAbstractItemModel& shown, const QList<int>& columns) {
        QString rows;
        for (int row = 0; row < shown.rowCount(); ++row) {
            QStringList cells;
            for (const int column : columns) cells += shown.index(row, column).data().toString();
            rows += cells.join('|') + '\n';
        }
        return rows.toStdString();
    }

    int pictures_ = 0;
};

TEST(Story, ADayAtTheDesk) {
    Story story;
    GuiBench& bench = story.Bench;
    QWidget& window = bench.Desk->Window();
    story.Picture("start");

    QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(story.Line(), "Getting data from the Counter.  Data received OK.");
    EXPECT_EQ(story.Title(), "COUNTER MAIN  MENU");
    EXPECT_NE(story.Fact("factSetup").find("It is what was read from the meter"), std::string::npos);
    story.Picture("got");

    bench.Choose("mnuSetup");
    bench.Pump.Pass(5000);
    story.PickNext("cboMode");
    bench.Pump.Pass(5000);
    bench.ComeToTab(3);
    story.Enter("txtSetpt[1]", "+012345");
    bench.ComeToTab(4);
    story.PickNext("cboBaudRate");
    bench.Click("cmdChanges");
    const std::string three =
        "Setpoint 1|+010000.|+012345.|typed\n"
        "Analog Source|Item 1 (code 3)|Item 1 (code 1)|rule, as the view was opened\n";
    const std::string mode = "Mode|Rate|Period|picked\n";
    EXPECT_EQ(story.Changes(), three + "Baud Rate|9600|19200|picked\n" + mode);
    EXPECT_EQ(story.Title(), "Setup *");
    story.Picture("changed");
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    bench.Pump.Pass(5000);
    EXPECT_EQ(story.Changes(), three + mode);
    EXPECT_EQ(bench.Find<QComboBox>("cboBaudRate")->currentText().trimmed(), "9600");
    story.Picture("one-undone");
    bench.Click("cmdMainMenu");
    EXPECT_NE(story.Fact("factSetup").find(", but for 3 fields."), std::string::npos);

    bench.Choose("mnuCompare");
    bench.Click("cmdMeter");
    EXPECT_EQ(
        story.Compared(),
        "Setpoint 1|+012345.|+010000.\nAnalog Source|Item 1 (code 1)|Item 1 (code 3)\nMode|Period|Rate\n");
    story.Picture("compared");
    bench.Click("cmdMainMenu");

    QTest::keyClick(&window, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(story.Line(), "Putting data to the Counter.  Data appears to have Transferred O.K.");
    EXPECT_EQ(bench.Line.Meter().ImageText().substr(54, 6), "003039") << "the meter's own memory";
    bench.Click("cmdVerify");
    EXPECT_EQ(story.Line(), "The meter holds the setup in memory.");
    EXPECT_NE(story.Fact("factTransfer").find("Verify found that it holds it"), std::string::npos);
    story.Picture("verified");

    const QTemporaryDir folder;
    bench.Choose("mnuPrintSetup");
    story.Picture("sheet");
    bench.Boxes.Path = folder.filePath("sheet.PDF").toStdString();
    bench.Click("cmdPdf");
    QFile pdf(QString::fromStdString(bench.Boxes.Path));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.readAll().startsWith("%PDF-"));
    bench.Click("cmdMainMenu");

    bench.Boxes.SaysYes = false;
    EXPECT_EQ(ExitOf([&] { bench.Choose("mnuExit"); }), -1) << "he keeps it";
    EXPECT_NE(bench.Boxes.Shown.back().Text.find("differs from what was read from the meter in 3 fields"),
              std::string::npos);
    bench.Boxes.SaysYes = true;
    EXPECT_EQ(ExitOf([&] { bench.Choose("mnuExit"); }), 0);
}

}  // namespace
}  // namespace counter::test
