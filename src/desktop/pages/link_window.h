// LinkWindow: counter-link's one small window.
#pragma once

#include <QWidget>

#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "shell/link_setup.h"

class QGridLayout;
class QVBoxLayout;

namespace counter {

class LinkWindow : public QWidget {
  public:
    explicit LinkWindow(LinkSetup& view);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    // F1 out of a list that was dropped down; otherwise the shortcut takes it.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // A group of rows: captions in one column, fields in the other.
    QGridLayout* AddGroup(QVBoxLayout& column, const QString& title);
    void AddRow(QGridLayout& grid, Control& control);
    void AddWide(QGridLayout& grid, Control& control);
    void AddButtons(QVBoxLayout& column);
    void ShowHelp();

    LinkSetup& view_;
    Binder bound_;
    StatusStrip* strip_;
};

}  // namespace counter
