// FaceWidget: the front face of a meter, six digits with sign and point and the lamps of its four alarms.
#pragma once

#include <QWidget>
#include <array>
#include <optional>
#include <string>

#include "desktop/kit/spoken.h"

namespace counter {

struct FaceText {
    std::string Digits;  // "-1234.56"; of more than six digits the last ones show
    std::array<bool, 4> Alarms{};
    std::string Note;  // a line below, may be empty
};

// A line as the simulated meter tells its face; nothing where it is not of this form.
//
//   DIGITS POINT MINUS ALARMS ITEM REMOTE
//   ..1234 5 0 0100 1 0     six characters with "." for a blank digit; after which digit the point is lit, 1
//   to
//                           6; 1 for a negative value; alarms 1 to 4; the Item that is shown, 0 to 3; 1 for a
//                           remote value
std::optional<FaceText> ParseFaceLine(const std::string& line);

class FaceWidget : public QWidget, public Spoken {
  public:
    explicit FaceWidget(QWidget* parent = nullptr);

    void Show(const FaceText& face);
    // "-1234.56, alarm 1 on, alarm 2 off, ...": also its accessible name.
    static QString PlainText(const FaceText& face);

    QAccessible::Role SpokenRole() const override { return QAccessible::StaticText; }
    QString SpokenValue() const override { return QString::fromStdString(face_.Digits); }
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
