// WrappedText: a plain text that wraps and can be selected. A layout asks for its height again and again, and
// each answer lays the whole text out: answers are kept until text or font are others.
#pragma once

#include <QLabel>
#include <map>

namespace counter {

class WrappedText : public QLabel {
  public:
    explicit WrappedText(QWidget* parent);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    struct Answers {
        QString Of;  // the text
        std::map<int, int> Heights;
        QSize Hint, Least;
    };
    Answers& Known() const;

    mutable Answers known_;
};

}  // namespace counter
