#include "platform/qt/widgets/column_list.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace counter {

namespace {

// Where the words between runs of "-" begin, in characters.
std::vector<int> ColumnsOf(const QString& heading) {
    static const QRegularExpression kWords(QStringLiteral("[^ -][^-]*"));
    std::vector<int> columns;
    auto found = kWords.globalMatch(heading);
    while (found.hasNext()) columns.push_back(static_cast<int>(found.next().capturedStart()));
    return columns;
}

void DrawParts(QPainter& painter, const QRect& place, const QString& entry, const std::vector<int>& columns) {
    static const QRegularExpression kGap(QStringLiteral(" {2,}"));
    const int pitch = painter.fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const QStringList parts = entry.split(kGap, Qt::SkipEmptyParts);
    for (int i = 0; i < parts.size() && i < static_cast<int>(columns.size()); ++i) {
        const QRect part = place.adjusted(columns[static_cast<std::size_t>(i)] * pitch, 0, 0, 0);
        painter.drawText(part, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, parts[i].trimmed());
    }
}

class ColumnDelegate : public QStyledItemDelegate {
  public:
    ColumnDelegate(QObject* parent, const std::vector<int>& columns)
        : QStyledItemDelegate(parent), columns_(columns) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QString entry = item.text;
        item.text.clear();
        const QWidget* view = option.widget;
        view->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, view);
        const bool chosen = (item.state & QStyle::State_Selected) != 0;
        painter->setFont(item.font);
        painter->setPen(item.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
        const int inset = view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, view) + 1;
        DrawParts(*painter, item.rect.adjusted(inset, 0, 0, 0), entry, columns_);
    }

  private:
    const std::vector<int>& columns_;
};

}  // namespace

ColumnList::ColumnList(QWidget* parent, const QString& heading)
    : QComboBox(parent), headingLength_(static_cast<int>(heading.size())), columns_(ColumnsOf(heading)) {
    setFocusPolicy(Qt::StrongFocus);
    setItemDelegate(new ColumnDelegate(this, columns_));
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
    const int pitch = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int around = width() - TextRect().width() + 2;
    return {headingLength_ * pitch + around, QComboBox::sizeHint().height()};
}

void ColumnList::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const auto group = isEnabled() ? QPalette::Normal : QPalette::Disabled;
    painter.setPen(palette().color(group, QPalette::ButtonText));
    DrawParts(painter, TextRect().adjusted(1, 0, -1, 0), currentText(), columns_);
}

void ColumnList::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace counter
