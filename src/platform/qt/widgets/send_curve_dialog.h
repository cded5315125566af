// SendCurveDialog: sends a .PRM file, over the commands page.
#pragma once

#include <QDialog>

#include "curve/send_curve_view.h"
#include "platform/qt/widgets/binder.h"

namespace counter {

class SendCurveDialog : public QDialog {
  public:
    SendCurveDialog(SendCurveView& view, QWidget* parent);

    // Shown modal; `closed` runs when it has gone.
    void OpenFresh(std::function<void()> closed);
    // F1, over this dialog. May be empty.
    std::function<void()> OpenHelp;

  protected:
    // Escape and the window's own button are Done.
    void reject() override;

  private:
    SendCurveView& view_;
    Binder bound_;
    std::function<void()> closed_;
};

}  // namespace counter
