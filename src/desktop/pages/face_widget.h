// FaceWidget: the front face of a meter, six digits with sign and point and the lamps of its four alarms.
#pragma once

#include <QWidget>
#include <array>
#include <string>

namespace counter {

struct FaceText {
    std::string Digits;  // "-1234.56"; of more than six digits the last ones show
    std::array<bool, 4> Alarms{};
    std::string Note;  // a line below, may be empty
};

class FaceWidget : public QWidget {
  public:
    explicit FaceWidget(QWidget* parent = nullptr);

    void Show(const FaceText& face);
    // "-1234.56, alarm 1 on, alarm 2 off, ...": also its accessible name.
    static QString PlainText(const FaceText& face);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint() / 2; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void PaintDigits(QPainter& painter, const QRectF& area) const;
    void PaintLamps(QPainter& painter, const QRectF& area) const;

    FaceText face_;
};

}  // namespace counter
