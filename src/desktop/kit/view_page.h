// ViewPage: one view in the program's window.
//
// The navigator brings pages to the front and puts them away; the window manager is not asked, so that coming
// back from another program rebuilds nothing.
#pragma once

#include <QWidget>
#include <functional>

namespace counter {

class ViewPage : public QWidget {
  public:
    using QWidget::QWidget;

    virtual QString Title() const = 0;
    // It comes to the front, or is put away.
    virtual void ComeToFront() = 0;
    virtual void PutAway() = 0;
    // The program's window comes to the front again, from behind another program's, while the page is on
    // show.
    virtual void Regain() {}
    // The user closes the window while the page is on show: leave as by the page's own button.
    virtual void Leave() = 0;
    // F1. Pages whose controls share one number only ask for it.
    virtual void HelpKey() {}
    // Help over this page; may be empty.
    std::function<void(int helpNumber)> OpenHelp;
    // Where the focus goes when the page comes to the front; null: where it was.
    virtual QWidget* FirstFocus() { return nullptr; }

  protected:
    void AskHelp(int helpNumber) {
        if (OpenHelp) OpenHelp(helpNumber);
    }
};

}  // namespace counter
