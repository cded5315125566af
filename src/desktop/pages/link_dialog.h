// LinkDialog: switches the link, over the home page.
#pragma once

#include <QDialog>
#include <functional>

#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "shell/link_switch.h"

namespace counter {

class LinkDialog : public QDialog {
  public:
    LinkDialog(LinkSwitch& view, QWidget* parent);

    // Shown modal, with the link as it is now.
    void OpenFresh();

    // Hooks; each may be empty. It has gone; help over this dialog.
    std::function<void()> Closed;
    std::function<void(int helpNumber)> OpenHelp;

  protected:
    // F1, which no control of the dialog takes.
    void keyPressEvent(QKeyEvent* event) override;
    // Escape and the window's own button stop a search first.
    void reject() override;

  private:
    LinkSwitch& view_;
    Binder bound_;
    StatusStrip* strip_;
};

}  // namespace counter
