// ValueBox: shows a value; a click, Enter or the space bar opens its digit entry. Nothing is typed into it.
#pragma once

#include <QLineEdit>
#include <functional>

namespace counter {

class ValueBox : public QLineEdit {
  public:
    explicit ValueBox(QWidget* parent);
    std::function<void()> Opened;

    // The longest value stands in it whole.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Open();
};

}  // namespace counter
