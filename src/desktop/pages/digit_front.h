// DigitFront: the seven boxes of digit entry and the marks of the point between them, as on the meter's
// front. It draws what the entry says and hands it the keys.
#pragma once

#include <QWidget>
#include <functional>

#include "desktop/kit/spoken.h"
#include "digit_entry/digit_entry.h"

namespace counter {

class DigitFront : public QWidget, public Spoken {
  public:
    DigitFront(DigitEntry& entry, QWidget* parent);

    // Told when a key or a click was handed on.
    std::function<void()> Acted;

    // The box that refused a key blinks, for less than half a second.
    void Blink(int box);

    // Boxes and marks are drawn again where they may have changed.
    void Refresh();

    QAccessible::Role SpokenRole() const override { return QAccessible::EditableText; }
    // "+012.50": the digits with their point.
    QString SpokenValue() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool TakeKey(const QKeyEvent& event);

    DigitEntry& entry_;
};

// The characters that a key types, in the meter's own set; one that it lacks comes as "?", which no box
// takes.
QByteArray TypedBy(const QKeyEvent& event);

}  // namespace counter
