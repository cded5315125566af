// The file dialogs as a user works them: where they begin, which name is in the box, which ending it gets.
#include <gtest/gtest.h>

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "desktop/kit/qt_dialogs.h"
#include "support/gui_pump.h"

namespace counter::test {
namespace {

struct DialogBench {
    GuiPump Pump;
    QTemporaryDir Folder;
    QWidget Window;
    QtDialogs Dialogs{Pump, Folder.path().toStdString()};
    QString Begins, Named;  // as the dialog opened

    DialogBench() {
        Dialogs.SetParent(&Window);
        Window.show();
        QDir(Folder.path()).mkdir("other");
        for (const char* name : {"there.CT2", "plain"}) {
            QFile file(Folder.filePath(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    // The name, under the folder, that comes of what is typed; a question about an existing file is a no, and
    // then the dialog is cancelled, with "asked" as its end.
    std::string Ask(bool save, const QString& typed) {
        bool asked = false;
        Pump.After(100, [&, typed] { Answer(typed); });
        // The question has an event loop of its own, on the real clock.
        QTimer::singleShot(20, &Window, [&] {
            auto* box = Window.findChild<QMessageBox*>();
            asked = box != nullptr;
            if (box) box->reject();
        });
        Pump.After(300, [&] {
            for (auto* dialog : Window.findChildren<QFileDialog*>()) dialog->reject();
        });
        const FileQuestion question{"Title", "Setup files (*.CT2)|*.CT2", save, "first.CT2"};
        const std::string path = save ? Dialogs.AskSaveFile(question) : Dialogs.AskOpenFile(question);
        if (path.empty()) return asked ? "asked" : "none";
        return QDir(Folder.path()).relativeFilePath(QString::fromStdString(path)).toStdString();
    }

  private:
    void Answer(const QString& typed) {
        auto* dialog = Window.findChild<QFileDialog*>();
        ASSERT_NE(dialog, nullptr);
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        Begins = QDir(Folder.path()).relativeFilePath(dialog->directory().absolutePath());
        Named = name->text();
        name->setText(typed);
        QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    }
};

TEST(FileDialogs, ANameGetsItsEndingAndTheFolderIsRemembered) {
    const struct {
        bool Save;
        const char *Typed, *Begins, *Path;
    } cases[] = {
        {true, "line 1.5", ".", "line 1.5.CT2"}, {true, "small.ct2", ".", "small.ct2"},
        {true, "there", ".", "asked"},           {false, "there", ".", "there.CT2"},
        {false, "plain", ".", "plain"},          {true, "other/Z\u00E4hler", ".", "other/Z\u00E4hler.CT2"},
        {false, "../plain", "other", "plain"},   {true, "x", ".", "x.CT2"},
    };
    DialogBench bench;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Typed);
        EXPECT_EQ(bench.Ask(c.Save, QString::fromUtf8(c.Typed)), c.Path);
        EXPECT_EQ(bench.Begins, c.Begins);
        EXPECT_EQ(bench.Named, "first.CT2");
    }
}

}  // namespace
}  // namespace counter::test
