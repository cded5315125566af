// The file dialogs as a user works them: where they begin, which name is in the box, which ending it gets.
#include <gtest/gtest.h>

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

#include "desktop/kit/qt_dialogs.h"
#include "support/gui_pump.h"

namespace counter::test {
namespace {

struct DialogBench {
    GuiPump Pump;
    QTemporaryDir Folder;
    QWidget Window;
    QtDialogs Dialogs{Pump, Folder.path().toStdString()};

    // The dialog as it opens and the path that comes of what is typed, both under the folder. A question
    // about an existing file is a no, and the dialog is then cancelled.
    std::string Ask(bool save, const char* typed) {
        QString opened, end = "none";
        Pump.After(100, [&] {
            auto* dialog = Window.findChild<QFileDialog*>();
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            opened = Under(dialog->directory().filePath(name->text()));
            name->setText(QString::fromUtf8(typed));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
            // Comes after it, and in the event loop of its own that the question has.
            const auto answer = [&] {
                auto* box = Window.findChild<QMessageBox*>();
                if (box) end = "asked", box->reject();
            };
            QMetaObject::invokeMethod(&Window, answer, Qt::QueuedConnection);
        });
        Pump.After(300, [&] {
            if (auto* dialog = Window.findChild<QFileDialog*>()) dialog->reject();
        });
        const FileQuestion question{"Title", "Setup files (*.CT2)|*.CT2", save, "first.CT2"};
        const std::string path = save ? Dialogs.AskSaveFile(question) : Dialogs.AskOpenFile(question);
        if (!path.empty()) end = Under(QString::fromStdString(path));
        return (opened + " > " + end).toStdString();
    }

    QString Under(const QString& path) { return QDir(Folder.path()).relativeFilePath(path); }
};

TEST(FileDialogs, ANameGetsItsEndingAndTheFolderIsRemembered) {
    DialogBench bench;
    bench.Dialogs.SetParent(&bench.Window);
    bench.Window.show();
    QDir(bench.Folder.path()).mkdir("other");
    for (const char* name : {"there.CT2", "plain"})
        EXPECT_TRUE(QFile(bench.Folder.filePath(name)).open(QIODevice::WriteOnly));
    EXPECT_EQ(bench.Ask(true, "line 1.5"), "first.CT2 > line 1.5.CT2");
    EXPECT_EQ(bench.Ask(true, "there"), "first.CT2 > asked");
    EXPECT_EQ(bench.Ask(false, "there"), "first.CT2 > there.CT2");
    EXPECT_EQ(bench.Ask(true, "other/Z\u00E4hler"), "first.CT2 > other/Z\u00E4hler.CT2");
    EXPECT_EQ(bench.Ask(false, "../plain"), "other/first.CT2 > plain");
}

}  // namespace
}  // namespace counter::test
