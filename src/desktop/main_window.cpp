#include "desktop/main_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QShortcut>
#include <QTimer>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/page_body.h"

namespace counter {

namespace {

// Whole on a screen of 1366 x 768 with its frame, in the font of 9 points.
constexpr QSize kWindowSize(1000, 700);

}  // namespace

MainWindow::MainWindow() : stack_(new QStackedWidget(this)) {
    setCentralWidget(stack_);
    resize(SizeOnScreen(*this, kWindowSize));
    PutInMiddle(*this);
    auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    QObject::connect(help, &QShortcut::activated, this, [this] { Help(); });
}

void MainWindow::Help() {
    if (current_) current_->HelpKey();
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    event->key() == Qt::Key_F1 ? Help() : QMainWindow::keyPressEvent(event);
}

void MainWindow::ShowPage(ViewPage* page, bool withMenu) {
    current_ = page;
    menuBar()->setVisible(withMenu);
    stack_->setCurrentWidget(page);
    GiveAccessKeys(*this);
    ShowTitle();
}

void MainWindow::ShowTitle() {
    const QString title = current_ ? current_->Title() : QString();
    setWindowTitle(marked_ ? title + QStringLiteral(" *") : title);
}

void MainWindow::MarkTitle(bool changed) {
    if (changed == marked_) return;
    marked_ = changed;
    ShowTitle();
}

void MainWindow::FocusFirst() {
    QWidget* first = current_ ? current_->FirstFocus() : nullptr;
    if (first) first->setFocus(Qt::OtherFocusReason);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    QTimer::singleShot(0, this, [this] {
        if (current_) current_->Regain();
    });
}

// Leaving may take some exchanges with the meter, so it runs as an event of its own. A second click meanwhile
// changes nothing.
void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (leaving_ || !current_) return;
    leaving_ = true;
    QTimer::singleShot(0, this, [this] {
        leaving_ = false;
        current_->Leave();
    });
}

}  // namespace counter
