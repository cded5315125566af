#include "desktop/kit/column_list.h"

#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace counter {

namespace {

class ColumnDelegate : public QStyledItemDelegate {
  public:
    ColumnDelegate(QObject* parent, const QString& heading)
        : QStyledItemDelegate(parent), heading_(heading) {}
    QString displayText(const QVariant& value, const QLocale&) const override {
        return SpreadEntry(value.toString(), heading_);
    }

  private:
    const QString& heading_;
};

}  // namespace

ColumnList::ColumnList(QWidget* parent, const QString& heading) : QComboBox(parent), heading_(heading) {
    setFocusPolicy(Qt::StrongFocus);
    setItemDelegate(new ColumnDelegate(this, heading_));
}

QRect ColumnList::TextRect() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
}

int ColumnList::TextInset() const {
    return TextRect().left() + 1;
}

QSize ColumnList::sizeHint() const {
    const int around = width() - TextRect().width() + 2;
    return {fontMetrics().horizontalAdvance(heading_) + around, QComboBox::sizeHint().height()};
}

void ColumnList::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = SpreadEntry(currentText(), heading_);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ColumnList::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

QString SpreadEntry(const QString& entry, const QString& heading) {
    static const QRegularExpression kColumn(QStringLiteral("[^ -][^-]*"));
    static const QRegularExpression kGap(QStringLiteral(" {2,}"));
    QString spread;
    auto column = kColumn.globalMatch(heading);
    for (const QString& part : entry.split(kGap, Qt::SkipEmptyParts)) {
        if (!column.hasNext()) break;
        spread = spread.leftJustified(column.next().capturedStart()) + part;
    }
    return spread;
}

}  // namespace counter
