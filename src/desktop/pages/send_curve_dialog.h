// SendCurveDialog: sends a .PRM file, over the commands page.
#pragma once

#include <QDialog>

#include "curve/send_curve_view.h"
#include "desktop/kit/binder.h"

namespace counter {

class SendCurveDialog : public QDialog {
  public:
    SendCurveDialog(SendCurveView& view, QWidget* parent);

    // Shown modal; `closed` runs when it has gone.
    void OpenFresh(std::function<void()> closed);

    // Help over this dialog; may be empty.
    std::function<void(int helpNumber)> OpenHelp;

  protected:
    // F1, which no control of the dialog takes.
    void keyPressEvent(QKeyEvent* event) override;
    // Escape and the window's own button are Cancel while a curve is on its way, and Done otherwise.
    void reject() override;

  private:
    SendCurveView& view_;
    Binder bound_;
    std::function<void()> closed_;
};

}  // namespace counter
