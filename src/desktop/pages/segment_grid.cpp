#include "desktop/pages/segment_grid.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <vector>

#include "desktop/kit/qt_text.h"
#include "desktop/kit/screen_colors.h"
#include "desktop/kit/segments.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr int kNamePlaces = 9;      // a name has at most eight characters, and some room in front of the sign
constexpr double kRowsPerLine = 2;  // height of a row, in lines of the font
constexpr double kDigitPerRow = 0.64;  // of a row's height
constexpr double kColumnPitch = 1.4;   // width of a digit's column, in places of a text

SegmentSize SizeOf(int rowHeight) {
    return {std::round(rowHeight * kDigitPerRow)};
}

enum class PlaceKind { Name, Sign, Digit };

SegmentLook LookOf(PlaceKind kind) {
    if (kind == PlaceKind::Name) return {kDisplayName, QColor(), 0, false};
    if (kind == PlaceKind::Sign) return {kDisplayDigit, kDisplayUnlit, SegG, false};
    return {kDisplayDigit, kDisplayUnlit, kAllSegments, true};
}

// Draws a cell in segments, and the frame around the row that the keys move from.
class SegmentDelegate : public QStyledItemDelegate {
  public:
    SegmentDelegate(PlaceKind kind, QTableView* grid) : QStyledItemDelegate(grid), grid_(grid), kind_(kind) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        if ((option.state & QStyle::State_Selected) != 0) painter->fillRect(option.rect, kDisplayMarked);
        const SegmentSize size = SizeOf(option.rect.height());
        const double room = size.Pitch() - size.Width();
        const QPointF corner(option.rect.x() + room,
                             option.rect.y() + (option.rect.height() - size.Height) / 2);
        const QByteArray text = index.data().toString().toLatin1();
        PaintGlyphs(*painter, corner, size, text.isEmpty() ? " " : text.constData(), LookOf(kind_));
        PaintFocus(*painter, option.rect, index);
    }

  private:
    void PaintFocus(QPainter& painter, const QRect& cell, const QModelIndex& index) const {
        if (!grid_->hasFocus() || index.row() != grid_->currentIndex().row()) return;
        const int last = grid_->model()->columnCount() - 1;
        painter.setPen(grid_->palette().color(QPalette::Highlight).lighter());
        painter.drawLine(cell.topLeft(), cell.topRight());
        painter.drawLine(cell.bottomLeft(), cell.bottomRight());
        if (index.column() == 0) painter.drawLine(cell.topLeft(), cell.bottomLeft());
        if (index.column() == last) painter.drawLine(cell.topRight(), cell.bottomRight());
    }

    QTableView* grid_;
    PlaceKind kind_;
};

QString Latin(std::string_view text) {
    return QtText(Trimmed(text));
}

}  // namespace

SegmentGrid::SegmentGrid(const QString& name, QWidget* parent) : QTableWidget(parent) {
    setObjectName(name);
    setItemDelegate(new SegmentDelegate(PlaceKind::Digit, this));
    Tune();
    QPalette dark = palette();
    dark.setColor(QPalette::Base, kDisplayGround);
    dark.setColor(QPalette::Text, kDisplayText);
    setPalette(dark);
    SetRowHeight(static_cast<int>(fontMetrics().lineSpacing() * kRowsPerLine));
    QObject::connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (Scrolled) Scrolled(FirstVisibleRow());
    });
    QObject::connect(this, &QTableWidget::itemSelectionChanged, this,
                     [this] { setAccessibleDescription(HasMark() ? RowText(CurrentRow()) : QString()); });
}

void SegmentGrid::Tune() {
    setShowGrid(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setTabKeyNavigation(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
}

void SegmentGrid::ShowRows(std::span<const MenuRow> rows) {
    clear();
    setColumnCount(8);
    setRowCount(static_cast<int>(rows.size()) - 1);
    QStringList header(QtText(rows[0].Name));
    for (const MenuCell& cell : rows[0].Cells) header.append(QtText(cell));
    setHorizontalHeaderLabels(header);
    horizontalHeaderItem(0)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        std::vector<std::string_view> cells{rows[i].Name};
        cells.insert(cells.end(), rows[i].Cells.begin(), rows[i].Cells.end());
        Fill(static_cast<int>(i), cells);
    }
    if (itemDelegateForColumn(0) == nullptr) {
        setItemDelegateForColumn(0, new SegmentDelegate(PlaceKind::Name, this));
        setItemDelegateForColumn(1, new SegmentDelegate(PlaceKind::Sign, this));
    }
    setAccessibleName(QtText(Trimmed(rows[0].Name)));
    SizeColumns();
}

void SegmentGrid::ShowDigits(const DigitCells& digits, const QString& title) {
    clear();
    setColumnCount(6);
    setRowCount(1);
    horizontalHeader()->hide();
    Fill(1, std::vector<std::string_view>(digits.begin(), digits.end()));
    setAccessibleName(title);
    FixRows(1);
    SizeColumns();
}

void SegmentGrid::Fill(int row, std::span<const std::string_view> cells) {
    for (std::size_t column = 0; column < cells.size(); ++column) {
        auto* item = new QTableWidgetItem(Latin(cells[column]));
        item->setToolTip(item->text());
        item->setData(Qt::AccessibleTextRole,
                      item->text().isEmpty() ? QStringLiteral("blank") : item->text());
        setItem(row - 1, static_cast<int>(column), item);
    }
    if (HasNames()) item(row - 1, 0)->setData(Qt::AccessibleTextRole, RowText(row));
}

void SegmentGrid::SetRowHeight(int height) {
    verticalHeader()->setDefaultSectionSize(height);
    SizeColumns();
}

void SegmentGrid::SizeColumns() {
    const double pitch = SizeOf(RowHeight()).Pitch();
    const int digit = static_cast<int>(std::ceil(pitch * kColumnPitch));
    for (int column = 0; column < columnCount(); ++column) {
        const bool name = HasNames() && column == 0;
        setColumnWidth(column, name ? static_cast<int>(std::ceil(pitch * kNamePlaces)) : digit);
    }
    if (fixedRows_ > 0) FixRows(fixedRows_);
    updateGeometry();
}

void SegmentGrid::FixRows(int rows) {
    fixedRows_ = rows;
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedSize(SizeOfRows(rows));
}

int SegmentGrid::FirstVisibleRow() const {
    return verticalScrollBar()->value() + 1;
}

QString SegmentGrid::CellText(int row, int column) const {
    const QTableWidgetItem* cell = item(row - 1, column);
    return cell ? cell->text() : QString();
}

QString SegmentGrid::RowText(int row) const {
    QStringList cells;
    for (int column = 0; column < columnCount(); ++column) cells.append(CellText(row, column));
    return cells.join(QLatin1Char(' '));
}

QString SegmentGrid::PlainText() const {
    QStringList lines;
    for (int row = 1; row <= rowCount(); ++row) {
        if (HasMark() && row != CurrentRow()) continue;
        QStringList cells;
        for (int column = 0; column < columnCount(); ++column) cells.append(CellText(row, column));
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

void SegmentGrid::Pick(int row, PointerEvent event) {
    if (row < 1 || row > rowCount()) return;
    if (!Picked) return;
    selectRow(row - 1);
    Picked(row, event);
}

// The release, not the press: what a pick opens would otherwise get the release.
void SegmentGrid::mouseReleaseEvent(QMouseEvent* event) {
    QTableWidget::mouseReleaseEvent(event);
    const bool secondary = event->button() == Qt::RightButton;
    if (!secondary && event->button() != Qt::LeftButton) return;
    Pick(rowAt(event->position().toPoint().y()) + 1,
         secondary ? PointerEvent::Secondary : PointerEvent::Primary);
}

void SegmentGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(PlainText());
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space) {
        Pick(CurrentRow(), PointerEvent::Primary);
        return;
    }
    const int before = CurrentRow();
    // Home and End are those of the rows; the columns are six digits that are all in sight.
    if (event->key() == Qt::Key_Home)
        setCurrentCell(0, currentColumn());
    else if (event->key() == Qt::Key_End)
        setCurrentCell(rowCount() - 1, currentColumn());
    else
        QTableWidget::keyPressEvent(event);
    if (CurrentRow() != before && Moved) Moved(CurrentRow());
}

// A right click has been taken as a pick already.
void SegmentGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) Pick(CurrentRow(), PointerEvent::Secondary);
}

QSize SegmentGrid::SizeOfRows(int rows) const {
    int width = 2 * frameWidth();
    for (int column = 0; column < columnCount(); ++column) width += columnWidth(column);
    if (verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) width += verticalScrollBar()->sizeHint().width();
    const int header = HasNames() ? horizontalHeader()->sizeHint().height() : 0;
    return {width, rows * RowHeight() + header + 2 * frameWidth()};
}

QSize SegmentGrid::sizeHint() const {
    return SizeOfRows(std::max(rowCount(), 1));
}

// A few rows, so that a low window scrolls.
QSize SegmentGrid::minimumSizeHint() const {
    constexpr int kFewRows = 4;
    return SizeOfRows(kFewRows);
}

}  // namespace counter
