// Printing into PDF files of a temporary folder, without a dialog.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <QFile>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>

#include "desktop/kit/qt_printer.h"
#include "support/gui_pump.h"

namespace counter::test {
namespace {

struct PrintBench {
    QTemporaryDir Folder;
    QString Path = Folder.filePath("out.pdf");
    QLabel View{"on show"};
    GuiPump Pump;
    bool Accepts = true;
    QtPrinter Printer{Pump, [this] { return &View; },
                      [this](QPrinter& printer, const std::function<void(bool)>& done) {
                          printer.setOutputFormat(QPrinter::PdfFormat);
                          printer.setOutputFileName(Path);
                          // As a dialog does, it answers later.
                          Pump.After(300, [this, done] { done(Accepts); });
                      }};

    QByteArray Printed() const {
        QFile file(Path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    int Pages() const { return static_cast<int>(Printed().count("/Type /Page\n")); }
};

TEST(Printing, TheViewIsOnePageThatFitsIt) {
    PrintBench bench;
    bench.View.resize(900, 600);
    EXPECT_TRUE(bench.Printer.PrintView().Ok());
    EXPECT_EQ(bench.Pages(), 1);
    const QByteArray page = bench.Printed();
    const QByteArray width = page.mid(page.indexOf("/Width ") + 7, 5);
    EXPECT_GT(width.split('\n')[0].toInt(), 3 * bench.View.width()) << "sharp";
}

TEST(Printing, ATextBreaksIntoPages) {
    const struct {
        const char* Name;
        int Lines;
        std::size_t Width;
        int Pages;  // more lines fit on one where long ones make the letters smaller
    } cases[] = {{"empty", 0, 0, 1}, {"short", 10, 26, 1}, {"a chapter", 150, 26, 3}, {"wide", 150, 200, 2}};
    for (const auto& c : cases) {
        PrintBench bench;
        std::string text;
        for (int line = 0; line < c.Lines; ++line) text += std::string(c.Width, 'x') + "\r\n";
        EXPECT_TRUE(bench.Printer.PrintText("RATE BATCH", text).Ok()) << c.Name;
        EXPECT_EQ(bench.Pages(), c.Pages) << c.Name;
    }
}

TEST(Printing, AUserWhoCancelsPrintsNothing) {
    PrintBench bench;
    bench.Accepts = false;
    EXPECT_TRUE(bench.Printer.PrintView().Ok());
    EXPECT_TRUE(bench.Printer.PrintText("title", "text").Ok());
    EXPECT_EQ(bench.Pages(), 0);
}

TEST(Printing, AFileThatCannotBeWrittenSaysWhy) {
    PrintBench bench;
    bench.Path = bench.Folder.filePath("absent/out.pdf");
    const Status status = bench.Printer.PrintView();
    EXPECT_FALSE(status.Ok());
    EXPECT_EQ(status.Path, bench.Path.toStdString());
    EXPECT_NE(status.Reason, "");
}

TEST(Printing, ADiskThatIsFullInTheMiddleKeepsTheOldFile) {
    PrintBench bench;
    ASSERT_TRUE(bench.Printer.PrintText("old", "a page").Ok());
    const QByteArray old = bench.Printed();
    rlimit former = {};
    getrlimit(RLIMIT_FSIZE, &former);
    const auto formerAction = signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {1000, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const Status status = bench.Printer.PrintView();
    setrlimit(RLIMIT_FSIZE, &former);
    signal(SIGXFSZ, formerAction);
    EXPECT_EQ(status.Text(), bench.Path.toStdString() + ": was not printed to its end");
    EXPECT_TRUE(bench.Printed() == old);
}

// Without any printer the system's dialog offers a file.
TEST(Printing, TheDialogIsModalAndCanBeCancelled) {
    GuiPump pump;
    QWidget view;
    view.show();
    QtPrinter printer(pump, [&view] { return &view; });
    pump.After(300, [&view] {
        auto* dialog = view.findChild<QPrintDialog*>();
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog->isModal());
        EXPECT_TRUE(dialog->testOption(QAbstractPrintDialog::PrintToFile));
        dialog->reject();
    });
    EXPECT_TRUE(printer.PrintView().Ok());
}

}  // namespace
}  // namespace counter::test
