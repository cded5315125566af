// DigitEntryDialog: digit entry over the Setup view, beside the field that is edited.
#pragma once

#include <QDialog>
#include <functional>

#include "desktop/kit/binder.h"
#include "desktop/pages/digit_front.h"
#include "digit_entry/digit_entry.h"

class QHBoxLayout;

namespace counter {

class DigitEntryDialog : public QDialog {
  public:
    DigitEntryDialog(DigitEntry& entry, QWidget* parent);

    // The entry has opened: shows it below `field`, or above it where there is no room; lower with
    // `lowPlace`. Doesn't wait.
    void Present(const QWidget* field, bool lowPlace);
    // The key that opened it.
    void TypeFirst(char key);
    // Closes without a trace, as when the view behind it is put away. Tells nobody.
    void Drop();
    // OK has hidden it, and Closed comes when the pause after that is over.
    bool Pausing() const { return pausing_ && !entry_.Shown(); }

    // Hooks; each may be empty. OK and Cancel have closed it, and the pause is over; F1 has closed it and
    // asks for this help; a character was rejected.
    std::function<void()> Closed;
    std::function<void(int helpNumber)> OpenHelp;
    std::function<void()> Beep;
    // After each key: Enter has stored, and the field behind the dialog shows it.
    std::function<void()> Followed;

    // Escape and the window's own button: Cancel.
    void reject() override;

  protected:
    // F1, which no control of the dialog sees.
    void keyPressEvent(QKeyEvent* event) override;
    // A "." while the OK button has the focus.
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void AddButtons(QHBoxLayout& layout);
    void Press(Control& button);
    void Follow();

    DigitEntry& entry_;
    Binder bound_;
    DigitFront* front_;
    QSpacerItem* width_;  // of the title
    int beepsHeard_ = 0;
    int opening_ = 0;  // another one where it was dropped meanwhile
    bool pausing_ = false;
};

// Where a dialog of this size goes so that it doesn't cover the field: below it, else above, on the screen.
// The distance below is larger with `lowPlace`.
QPoint PlaceBeside(const QRect& field, const QSize& dialog, const QRect& screen, bool lowPlace);

}  // namespace counter
