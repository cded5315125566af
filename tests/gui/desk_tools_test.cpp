// Verify, Compare and the setup sheet in the program's window.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextBrowser>

#include "desktop/pages/menu_page.h"
#include "support/gui_bench.h"

namespace counter::test {
namespace {

TEST(DeskTools, WhatVerifyFoundCanBeReadAndCopied) {
    GuiBench bench;
    EXPECT_FALSE(bench.Choose("mnuVerify"));
    bench.Choose("mnuGet");
    bench.Choose("mnuPut");
    ASSERT_TRUE(bench.Find("cmdVerify")->isVisible());
    DigitsPut(bench.Program.Image, 55, "003039");
    bench.Click("cmdVerify");
    QWidget* report = GuiBench::Dialog();
    ASSERT_NE(report, nullptr);
    const QString text = report->findChild<QPlainTextEdit*>("txtReport")->toPlainText();
    EXPECT_TRUE(text.contains("Setpoint 1  +012345.  +010000.")) << text.toStdString();
    QTest::mouseClick(report->findChild<QPushButton*>("cmdCopy"), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), text);
    QTest::keyClick(report, Qt::Key_Escape);
    GuiPump::Settle();
    EXPECT_EQ(GuiBench::Dialog(), nullptr);
    auto* option = bench.Desk->Window().findChild<QAction*>("mnuVerifyPut");
    EXPECT_FALSE(option->isChecked());
    bench.Choose("mnuVerifyPut");
    EXPECT_TRUE(option->isChecked());
}

TEST(DeskTools, ARowOfTheComparisonIsTakenOver) {
    GuiBench bench;
    EXPECT_FALSE(bench.Choose("mnuCompare")) << "nothing is in memory";
    bench.Choose("mnuGet");
    bench.Choose("mnuSetup");  // what opening it mends is then in memory already
    bench.Click("cmdMainMenu");
    SetupImage other = bench.Program.Image;
    DigitsPut(other, 55, "003039");
    DigitsPut(other, 49, "000007");
    bench.Store.Contents["b.CT2"] = other.SetupData + "\r\n";
    ASSERT_TRUE(bench.Choose("mnuCompare"));
    bench.Boxes.Path = "b.CT2";
    bench.Click("cmdFile");
    auto* table = bench.Find<QTableWidget>("grdCompare");
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_FALSE(bench.Find("cmdTake")->isEnabled());
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualItemRect(table->item(1, 1)).center());
    GuiPump::Settle();
    bench.Click("cmdCopy");
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith("55\tSetpoint 1\t+010000.\t+012345.\twritten\n"))
        << QApplication::clipboard()->text().toStdString();
    bench.Click("cmdTake");
    EXPECT_EQ(DigitsGet(bench.Program.Image, 55, 6), "003039");
    EXPECT_EQ(DigitsGet(bench.Program.Image, 49, 6), "004E20");
    EXPECT_EQ(table->rowCount(), 1);
    EXPECT_FALSE(bench.Find("cmdTake")->isEnabled()) << "no row is marked any more";
    bench.Boxes.Path = "table.CSV";
    bench.Click("cmdCsv");
    EXPECT_TRUE(QString::fromStdString(bench.Store.Contents["table.CSV"]).startsWith("field,position,a,b,"));
    bench.Click("cmdMeter");
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->item(0, 1)->text(), "Setpoint 1")
        << "the field that was taken over, and what opening mended";
    bench.Click("cmdMainMenu");
    EXPECT_TRUE(bench.Desk->Window().windowTitle().startsWith("COUNTER MAIN  MENU"));
}

TEST(DeskTools, TheSheetIsShownAndWrittenAsPdf) {
    const QTemporaryDir folder;
    GuiBench bench;
    bench.Choose("mnuGet");
    ASSERT_TRUE(bench.Choose("mnuPrintSetup"));
    const QString shown = bench.Find<QTextBrowser>("txtSheet")->toPlainText();
    for (const char* text : {"Input+Display", "Gate Time", "Front-panel menu", "SCALE1", "Control Input"})
        EXPECT_TRUE(shown.contains(text)) << text;
    bench.Boxes.Path = folder.filePath("sheet.PDF").toStdString();
    bench.Click("cmdPdf");
    QFile file(QString::fromStdString(bench.Boxes.Path));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF-") && pdf.trimmed().endsWith("%%EOF"));
    EXPECT_GE(pdf.count("/Type /Page\n"), 2);
    bench.Boxes.Path = folder.filePath("absent/sheet.PDF").toStdString();
    bench.Click("cmdPdf");
    bool told = false;
    for (const QLabel* label : bench.Desk->Window().Current()->findChildren<QLabel*>())
        told = told || label->text().contains("No such file");
    EXPECT_TRUE(told) << "and says why";
}

TEST(DeskTools, TheMenuIsPrintedWithAllItsRows) {
    GuiBench bench;
    bench.Choose("mnuGet");
    bench.Choose("mnuMenu");
    bench.Desk->Window().resize(900, 400);
    GuiPump::Settle();
    auto& page = dynamic_cast<PaperPage&>(*bench.Desk->Window().Current());
    const PaperWork work = page.OnPaper();
    ASSERT_NE(work.Instead, nullptr);
    QImage paper(work.Instead->size(), QImage::Format_RGB32);
    work.Instead->render(&paper);
    auto* grid = work.Instead->findChild<SegmentGrid*>("grdMain");
    const QRect last = grid->visualRect(grid->model()->index(grid->rowCount() - 1, 0));
    EXPECT_GT(grid->rowCount(), 20);
    EXPECT_TRUE(grid->viewport()->rect().contains(last)) << QTest::toString(last);
}

}  // namespace
}  // namespace counter::test
