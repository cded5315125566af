#include "desktop/kit/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

// A carriage return is the system's line end in these texts.
QString BoxText(const std::string& text) {
    return SystemText(text).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

void FillBox(QMessageBox& box, const Message& message) {
    box.setWindowTitle(message.Title.empty() ? QStringLiteral("Counter Setup") : SystemText(message.Title));
    box.setTextFormat(Qt::PlainText);
    const std::string about = message.About.empty() ? "" : "\n\n" + message.About;
    box.setText(BoxText(message.Text + about));
    if (message.Icon == BoxIcon::Stop) box.setIcon(QMessageBox::Critical);
}

// "Setup files (*.CT2)|*.CT2" as Qt has it: the pattern alone decides, in either case.
QString FilterOf(const std::string& filter) {
    const QString text = SystemText(filter);
    const QString name = text.section(QLatin1Char('|'), 0, 0).section(QLatin1String(" ("), 0, 0);
    const QString pattern = text.section(QLatin1Char('|'), 1);
    return QStringLiteral("%1 (%2 %3)").arg(name, pattern, pattern.toLower());
}

QString EndingOf(const std::string& filter) {
    return QLatin1Char('.') + SystemText(filter).section(QLatin1Char('.'), -1);
}

// The path with the ending of the pattern. A file that is to be opened may be without one.
QString Completed(const QString& path, const QString& ending, bool save) {
    if (path.isEmpty() || path.endsWith(ending, Qt::CaseInsensitive) || QFileInfo(path).isDir()) return path;
    const bool there = QFileInfo::exists(path) || !QFileInfo::exists(path + ending);
    return !save && there ? path : path + ending;
}

// A name that was typed is completed before the dialog asks whether it is there; the desktop's own dialog
// would ask first.
class NameDialog : public QFileDialog {
  public:
    NameDialog(QWidget* parent, const QString& title, const QString& folder, QString ending)
        : QFileDialog(parent, title, folder), ending_(std::move(ending)) {
        setOption(DontUseNativeDialog);
    }

  protected:
    void accept() override {
        auto* name = findChild<QLineEdit*>("fileNameEdit");
        const bool save = acceptMode() == AcceptSave;
        if (name && !name->text().isEmpty()) {
            QString typed = name->text();
            if (typed.startsWith(QLatin1Char('~'))) typed.replace(0, 1, QDir::homePath());
            const QString path = directory().absoluteFilePath(typed);
            if (Completed(path, ending_, save) != path) name->setText(name->text() + ending_);
        }
        QFileDialog::accept();
    }

  private:
    QString ending_;
};

}  // namespace

int QtDialogs::RunDialog(QDialog& dialog, const char* reason) {
    bool closed = false;
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&closed] { closed = true; });
    const bool busy = QApplication::overrideCursor() != nullptr;
    if (busy) QApplication::setOverrideCursor(Qt::ArrowCursor);  // the user is asked, not the meter
    dialog.open();
    pump_.WaitUntil(
        Pump::kForever, [&closed] { return closed; }, reason);
    if (busy) QApplication::restoreOverrideCursor();
    return dialog.result();
}

void QtDialogs::Show(const Message& message) {
    QMessageBox box(parent_);
    FillBox(box, message);
    RunDialog(box, "a message box");
}

bool QtDialogs::Confirm(const Message& message) {
    QMessageBox box(parent_);
    FillBox(box, message);
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    if (!message.No.empty()) {
        box.button(QMessageBox::Ok)->setText(SystemText(message.Yes));
        box.button(QMessageBox::Cancel)->setText(SystemText(message.No));
        box.setDefaultButton(QMessageBox::Cancel);
    }
    return RunDialog(box, "a question") == QMessageBox::Ok;
}

bool QtDialogs::Choose(const Message& message, const std::string& yes, const std::string& no) {
    return ChooseOf(message, {yes, no}) == 0;
}

int QtDialogs::ChooseOf(const Message& message, const std::vector<std::string>& answers) {
    QMessageBox box(parent_);
    FillBox(box, message);
    std::vector<QAbstractButton*> buttons;
    for (std::size_t i = 0; i < answers.size(); ++i)
        buttons.push_back(box.addButton(SystemText(answers[i]), i + 1 < answers.size()
                                                                    ? QMessageBox::AcceptRole
                                                                    : QMessageBox::RejectRole));
    RunDialog(box, "a question");
    const auto picked = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    return static_cast<int>(std::min<std::ptrdiff_t>(picked - buttons.begin(), std::ssize(answers) - 1));
}

std::string QtDialogs::AskOpenFile(const FileQuestion& question) {
    return AskFile(question, false);
}

std::string QtDialogs::AskSaveFile(const FileQuestion& question) {
    return AskFile(question, true);
}

std::string QtDialogs::AskFile(const FileQuestion& question, bool save) {
    const QString ending = EndingOf(question.Filter);
    NameDialog dialog(parent_, SystemText(question.Title), QFile::decodeName(folder_.c_str()), ending);
    dialog.setNameFilters({FilterOf(question.Filter), QStringLiteral("All files (*)")});
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.AskToReplace);
    if (!question.Proposed.empty()) dialog.selectFile(QFile::decodeName(question.Proposed.c_str()));
    const bool chosen = RunDialog(dialog, "a file dialog") == QDialog::Accepted;
    if (!chosen || dialog.selectedFiles().isEmpty()) return {};
    const QString path = dialog.selectedFiles().first();
    folder_ = QFile::encodeName(QFileInfo(path).absolutePath()).toStdString();
    return QFile::encodeName(path).toStdString();
}

void QtDialogs::Beep() {
    QApplication::beep();
}

}  // namespace counter
