// MainWindow: the one window of the program. One view at a time is on show in it.
#pragma once

#include <QMainWindow>
#include <QStackedWidget>

#include "desktop/kit/view_page.h"

namespace counter {

class MainWindow : public QMainWindow {
  public:
    MainWindow();

    // The page on show, null before the first. The home page is the one that the menu belongs to.
    ViewPage* Current() const { return current_; }
    void AddPage(ViewPage* page) { stack_->addWidget(page); }
    void ShowPage(ViewPage* page, bool withMenu);
    // The focus goes where the page on show wants it first.
    void FocusFirst();
    void ShowTitle();
    // Every title bears a mark while the setup in memory differs from what came.
    void MarkTitle(bool changed);

  protected:
    // F1 out of a list that was dropped down; otherwise the shortcut takes it.
    void keyPressEvent(QKeyEvent* event) override;
    // The window's own button leaves the page on show: from the home page that is the end of the program.
    void closeEvent(QCloseEvent* event) override;

    void changeEvent(QEvent* event) override;

  private:
    void Help();

    QStackedWidget* stack_;
    ViewPage* current_ = nullptr;
    bool leaving_ = false;
    bool marked_ = false;
};

}  // namespace counter
