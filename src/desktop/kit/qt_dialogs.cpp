#include "desktop/kit/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

// A carriage return is the system's line end in these texts.
QString BoxText(const std::string& text) {
    return QtText(text).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

void FillBox(QMessageBox& box, const Message& message) {
    box.setWindowTitle(message.Title.empty() ? QStringLiteral("Counter Setup") : QtText(message.Title));
    box.setTextFormat(Qt::PlainText);
    box.setText(BoxText(message.Text));
    if (message.Icon == BoxIcon::Stop) box.setIcon(QMessageBox::Critical);
}

// "Setup files (*.CT2)|*.CT2" as Qt has it: the pattern alone decides, in either case.
QString FilterOf(const std::string& filter) {
    const QString text = QtText(filter);
    const QString name = text.section(QLatin1Char('|'), 0, 0).section(QLatin1String(" ("), 0, 0);
    const QString pattern = text.section(QLatin1Char('|'), 1);
    return QStringLiteral("%1 (%2 %3)").arg(name, pattern, pattern.toLower());
}

QString SuffixOf(const std::string& filter) {
    return QtText(filter).section(QLatin1Char('.'), -1);
}

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
    return RunDialog(box, "a question") == QMessageBox::Ok;
}

bool QtDialogs::Choose(const Message& message, const std::string& yes, const std::string& no) {
    QMessageBox box(parent_);
    FillBox(box, message);
    const QAbstractButton* first = box.addButton(QtText(yes), QMessageBox::AcceptRole);
    box.addButton(QtText(no), QMessageBox::RejectRole);
    RunDialog(box, "a question");
    return box.clickedButton() == first;
}

std::string QtDialogs::AskOpenFile(const FileQuestion& question) {
    return AskFile(question, false);
}

std::string QtDialogs::AskSaveFile(const FileQuestion& question) {
    return AskFile(question, true);
}

std::string QtDialogs::AskFile(const FileQuestion& question, bool save) {
    QFileDialog dialog(parent_, QtText(question.Title), QFile::decodeName(folder_.c_str()));
    dialog.setNameFilters({FilterOf(question.Filter), QStringLiteral("All files (*)")});
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.AskToReplace);
    if (save) dialog.setDefaultSuffix(SuffixOf(question.Filter));
    const bool chosen = RunDialog(dialog, "a file dialog") == QDialog::Accepted;
    if (!chosen || dialog.selectedFiles().isEmpty()) return {};
    folder_ = QFile::encodeName(dialog.directory().absolutePath()).toStdString();
    return QFile::encodeName(dialog.selectedFiles().first()).toStdString();
}

void QtDialogs::Beep() {
    QApplication::beep();
}

}  // namespace counter
