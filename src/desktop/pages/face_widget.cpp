#include "desktop/pages/face_widget.h"

#include <QPainter>
#include <sstream>

#include "desktop/kit/qt_text.h"
#include "desktop/kit/screen_colors.h"
#include "desktop/kit/segments.h"

namespace counter {

namespace {

constexpr int kDigits = 6;
constexpr double kPlaces = kDigits + 1.4;  // with the sign, and some room at both ends

struct Sides {
    char Sign = ' ';
    std::vector<SegmentGlyph> Digits;  // kDigits of them
};

// The digits are at the right, the sign has a place of its own.
Sides SidesOf(std::string_view text) {
    Sides sides;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        sides.Sign = text[0];
        text.remove_prefix(1);
    }
    std::vector<SegmentGlyph> glyphs = GlyphsOf(text);
    if (glyphs.size() > kDigits) glyphs.erase(glyphs.begin(), glyphs.end() - kDigits);
    sides.Digits.assign(kDigits - glyphs.size(), {});
    sides.Digits.insert(sides.Digits.end(), glyphs.begin(), glyphs.end());
    return sides;
}

}  // namespace

std::optional<FaceText> ParseFaceLine(const std::string& line) {
    std::istringstream words(line);
    std::string digits, alarms;
    int point = 0, minus = 0, item = 0, remote = 0;
    words >> digits >> point >> minus >> alarms >> item >> remote;
    const bool whole = !words.fail() && digits.size() == std::size_t{kDigits} && point >= 1 && point <= 6 &&
                       alarms.size() == 4;
    if (!whole) return std::nullopt;
    FaceText face;
    face.Digits = minus == 1 ? "-" : "";
    for (std::size_t i = 0; i < digits.size(); ++i) {
        face.Digits += digits[i] == '.' ? ' ' : digits[i];
        if (static_cast<int>(i) + 1 == point) face.Digits += '.';
        if (i < face.Alarms.size()) face.Alarms[i] = alarms[i] == '1';
    }
    face.Note = remote == 1 ? "Remote" : "Item " + std::to_string(item);
    return face;
}

FaceWidget::FaceWidget(QWidget* parent) : QWidget(parent) {
    ServeSpoken();
    setObjectName(QStringLiteral("face"));
}

void FaceWidget::Show(const FaceText& face) {
    face_ = face;
    setAccessibleName(PlainText(face));
    update();
}

QString FaceWidget::PlainText(const FaceText& face) {
    QString text = QtText(face.Digits);
    for (std::size_t i = 0; i < face.Alarms.size(); ++i) {
        text += QStringLiteral(", alarm %1 %2").arg(i + 1).arg(face.Alarms[i] ? "on" : "off");
    }
    return text;
}

QSize FaceWidget::sizeHint() const {
    const int line = fontMetrics().lineSpacing();
    return {line * 30, line * 13};
}

void FaceWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kFaceCase);
    const double margin = fontMetrics().lineSpacing() * 0.75;
    painter.drawRoundedRect(rect(), margin / 2, margin / 2);
    QRectF area = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    const double line = fontMetrics().lineSpacing();
    painter.setPen(kDisplayText);
    painter.drawText(area, Qt::AlignBottom | Qt::AlignHCenter, QtText(face_.Note));
    area.setBottom(area.bottom() - 1.5 * line);
    PaintLamps(painter, {area.x(), area.bottom() - 1.5 * line, area.width(), 1.5 * line});
    area.setBottom(area.bottom() - 2.25 * line);
    PaintDigits(painter, area);
}

void FaceWidget::PaintDigits(QPainter& painter, const QRectF& area) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(kDisplayGround);
    painter.drawRoundedRect(area, 4, 4);
    const double perHeight = SegmentSize{1}.Pitch();
    const SegmentSize size{std::min(area.height() * 0.72, area.width() / kPlaces / perHeight)};
    const double width = size.Pitch() * kDigits + size.Pitch();
    QPointF corner(area.center().x() - width / 2, area.center().y() - size.Height / 2);
    const Sides sides = SidesOf(face_.Digits);
    PaintGlyph(painter, corner, size, {sides.Sign, false}, {kDisplayDigit, kDisplayUnlit, SegG, false});
    for (const SegmentGlyph& glyph : sides.Digits) {
        corner.rx() += size.Pitch();
        PaintGlyph(painter, corner, size, glyph, {kDisplayDigit, kDisplayUnlit, kAllSegments, true});
    }
}

// A lamp each, its number, and in words whether it is lit.
void FaceWidget::PaintLamps(QPainter& painter, const QRectF& area) const {
    const double share = area.width() / static_cast<double>(face_.Alarms.size());
    const double lamp = area.height() * 0.5;
    for (std::size_t i = 0; i < face_.Alarms.size(); ++i) {
        const QRectF place(area.x() + share * static_cast<double>(i), area.y(), share, area.height());
        const QRectF light(place.x() + share * 0.12, place.center().y() - lamp / 2, lamp, lamp);
        painter.setPen(Qt::NoPen);
        painter.setBrush(face_.Alarms[i] ? kFaceLampOn : kFaceLampOff);
        painter.drawEllipse(light);
        painter.setPen(kDisplayText);
        const QString text = QStringLiteral("AL%1 %2").arg(i + 1).arg(face_.Alarms[i] ? "on" : "off");
        painter.drawText(place.adjusted(light.right() - place.x() + lamp / 2, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, text);
    }
}

}  // namespace counter
