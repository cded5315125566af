#include "desktop/pages/reading_grid.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "desktop/kit/qt_text.h"
#include "desktop/pages/reading_access.h"

namespace counter {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kCellMargin = 2;
constexpr int kFocusWidth = 2;
constexpr int kShortest = 10;  // rows that the window leaves at least

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

std::size_t IndexOf(int row, int column) {
    return static_cast<std::size_t>(row) * ListView::kColumns + static_cast<std::size_t>(column);
}

// A way through the cells by keys; `all` jumps to the very first or last.
std::optional<QPoint> StepOf(int key, bool all, QPoint from, int rows) {
    const int lastColumn = ListView::kColumns - 1, lastRow = rows - 1;
    switch (key) {
        case Qt::Key_Left:
            return from - QPoint(1, 0);
        case Qt::Key_Right:
            return from + QPoint(1, 0);
        case Qt::Key_Up:
            return from - QPoint(0, 1);
        case Qt::Key_Down:
            return from + QPoint(0, 1);
        case Qt::Key_Home:
            return QPoint(0, all ? 0 : from.y());
        case Qt::Key_End:
            return QPoint(lastColumn, all ? lastRow : from.y());
        case Qt::Key_PageUp:
            return QPoint(from.x(), 0);
        case Qt::Key_PageDown:
            return QPoint(from.x(), lastRow);
        default:
            return std::nullopt;
    }
}

}  // namespace

ReadingGrid::ReadingGrid(ListView& view, QWidget* parent) : QWidget(parent), view_(view) {
    ServeReadersOfScreens();
    FitFont();
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);  // nothing behind it is painted first
    setMinimumSize(fontMetrics().averageCharWidth() * 8 * ListView::kColumns / 2,
                   fontMetrics().height() * kShortest);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ReadingGrid::BeginAnew() {
    longest_.clear();
    Select({});
    FitFont();
    TellSize();
}

void ReadingGrid::Measure(const std::string& reading) {
    if (reading.size() > longest_.size()) longest_ = reading;
    FitFont();
    TellSize();
}

void ReadingGrid::FitFont(const ReadingFit* kept) {
    const int room = width() / ListView::kColumns - 2 * kCellMargin;
    fit_ = FitReading(longest_, std::max(1, room), kept);
    setFont(fit_.Font);
}

void ReadingGrid::TellSize() {
    view_.GridWidth = Twips(width());
    view_.GridHeight = Twips(height());
    view_.LineHeight = Twips(fontMetrics().height() * fit_.Lines);
}

int ReadingGrid::Twips(int pixels) const {
    return pixels * kTwipsPerInch / logicalDpiY();
}

int ReadingGrid::RowPixels() const {
    return view_.RowHeight * logicalDpiY() / kTwipsPerInch;
}

void ReadingGrid::Follow() {
    if (rows_ != view_.ListRows) {
        rows_ = view_.ListRows;
        shown_.assign(Count(), std::string());
        Select({});
        update();
        TellRowsChanged(*this);
    }
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < ListView::kColumns; ++column) FollowCell(row, column);
    }
}

// A longer reading than the one that sized the grid gets a smaller font within the rows as they are.
void ReadingGrid::FollowCell(int row, int column) {
    std::string& shown = shown_[IndexOf(row, column)];
    const std::string& cell = view_.Cell(row, column);
    if (shown == cell) return;
    const bool looksTheSame = IsBlank(shown) && IsBlank(cell);
    shown = cell;
    if (!looksTheSame) update(CellRect(row, column));
    if (cell.size() <= longest_.size()) return;
    longest_ = cell;
    const ReadingFit kept = fit_;
    FitFont(&kept);
    update();
}

void ReadingGrid::resizeEvent(QResizeEvent*) {
    FitFont();
    TellSize();
    view_.FitWindow();
    Follow();
}

QString ReadingGrid::CellText(int row, int column) const {
    return QtText(view_.Cell(row, column)).trimmed();
}

QRect ReadingGrid::CellRect(int row, int column) const {
    const int left = width() * column / ListView::kColumns;
    const int right = width() * (column + 1) / ListView::kColumns;
    return {left, row * RowPixels(), right - left, RowPixels()};
}

int ReadingGrid::ColumnAt(int x) const {
    int column = 0;
    while (column < ListView::kColumns - 1 && CellRect(0, column).right() < x) ++column;
    return column;
}

// In front of a positive reading is a blank for its sign, which gives way where there is no room for it.
QStringList ReadingGrid::LinesOf(const std::string& text) const {
    QStringList lines;
    for (const std::string_view part : ReadingLines(text, fit_.Layout)) {
        const QString line = QtText(part);
        lines += line.size() > fit_.Characters ? line.trimmed() : line;
    }
    return lines;
}

bool ReadingGrid::ShowsWhole(const QStringList& lines) const {
    return lines.size() <= fit_.Lines && std::all_of(lines.begin(), lines.end(), [this](const QString& line) {
               return line.size() <= fit_.Characters;
           });
}

void ReadingGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().base());
    for (int row = RowAt(event->rect().top()); row < rows_ && row <= RowAt(event->rect().bottom()); ++row) {
        for (int column = 0; column < ListView::kColumns; ++column) {
            const QRect cell = CellRect(row, column);
            if (cell.intersects(event->rect())) PaintCell(painter, cell, row, column);
        }
    }
    if (hasFocus()) PaintFocus(painter);
}

void ReadingGrid::PaintCell(QPainter& painter, const QRect& cell, int row, int column) const {
    const bool selected = anchor_ && Selected().contains(column, row);
    if (selected) painter.fillRect(cell, palette().highlight());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
    const std::string& text = shown_[IndexOf(row, column)];
    if (IsBlank(text)) return;
    painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
    QRect room = cell.adjusted(kCellMargin, 0, -kCellMargin, 0);
    if (fit_.Lines == 1 && static_cast<int>(text.size()) <= fit_.Characters) {
        painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, QtText(text));
        return;
    }
    const QStringList lines = LinesOf(text).mid(0, fit_.Lines);
    const int height = fontMetrics().height();
    room.setTop(room.top() + (room.height() - height * static_cast<int>(lines.size())) / 2);
    for (const QString& line : lines) {
        const bool fits = line.size() <= fit_.Characters;
        painter.drawText(QRect(room.left(), room.top(), room.width(), height),
                         Qt::AlignVCenter | Qt::AlignLeft,
                         fits ? line : fontMetrics().elidedText(line, Qt::ElideRight, room.width()));
        room.setTop(room.top() + height);
    }
}

// Around the grid, and around the cell that the keyboard is at.
void ReadingGrid::PaintFocus(QPainter& painter) const {
    const QBrush& brush = palette().highlight();
    painter.fillRect(0, 0, width(), kFocusWidth, brush);
    painter.fillRect(0, height() - kFocusWidth, width(), kFocusWidth, brush);
    painter.fillRect(0, 0, kFocusWidth, height(), brush);
    painter.fillRect(width() - kFocusWidth, 0, kFocusWidth, height(), brush);
    if (!cursor_) return;
    painter.setPen(QPen(palette().text(), 1, Qt::DotLine));
    painter.drawRect(CellRect(cursor_->y(), cursor_->x()).adjusted(1, 1, -2, -2));
}

// Of a reading that is too long for its cell.
bool ReadingGrid::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int row = RowAt(help->y()), column = ColumnAt(help->x());
    if (row >= rows_) return true;
    if (ShowsWhole(LinesOf(view_.Cell(row, column))))
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), CellText(row, column).toHtmlEscaped(), this);
    return true;
}

// The right button opens the menu; a click is one of the others.
void ReadingGrid::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::RightButton) view_.PressTable();
}

void ReadingGrid::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction("&Copy", this, [this] { Copy(); })->setShortcut(QKeySequence::Copy);
    menu->addAction("Select &All", this, [this] { SelectAll(); })->setShortcut(QKeySequence::SelectAll);
    menu->popup(event->globalPos());
}

void ReadingGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) return Copy();
    if (event->matches(QKeySequence::SelectAll)) return SelectAll();
    if (event->key() == Qt::Key_Escape && anchor_) return Select({});
    const std::optional<QPoint> to = Moved(*event);
    if (!to) return QWidget::keyPressEvent(event);
    cursor_ = to;
    if (!anchor_ || !event->modifiers().testFlag(Qt::ShiftModifier)) anchor_ = to;
    update();
    TellCursor(*this, *cursor_);
}

// Where a key leads to from the cursor, and where there is none yet the newest reading.
std::optional<QPoint> ReadingGrid::Moved(const QKeyEvent& event) const {
    if (rows_ == 0) return std::nullopt;
    const bool all = event.modifiers().testFlag(Qt::ControlModifier);
    const std::optional<QPoint> to = StepOf(event.key(), all, cursor_.value_or(Newest()), rows_);
    if (!to) return std::nullopt;
    if (!cursor_ && !all) return Newest();
    return QPoint(std::clamp(to->x(), 0, ListView::kColumns - 1), std::clamp(to->y(), 0, rows_ - 1));
}

// The one before the current cell.
QPoint ReadingGrid::Newest() const {
    const int all = rows_ * ListView::kColumns;
    const int at = (view_.ListRow * ListView::kColumns + view_.ListCol + all - 1) % all;
    return {at % ListView::kColumns, at / ListView::kColumns};
}

QRect ReadingGrid::Selected() const {
    if (!anchor_ || !cursor_) return {};
    const QPoint first(std::min(anchor_->x(), cursor_->x()), std::min(anchor_->y(), cursor_->y()));
    const QPoint last(std::max(anchor_->x(), cursor_->x()), std::max(anchor_->y(), cursor_->y()));
    return {first, last};
}

void ReadingGrid::Select(const QRect& cells) {
    const QRect inside = cells & QRect(0, 0, ListView::kColumns, rows_);
    cursor_.reset();
    anchor_.reset();
    if (!inside.isEmpty()) {
        anchor_ = inside.topLeft();
        cursor_ = inside.bottomRight();
    }
    update();
}

QString ReadingGrid::Text() const {
    QRect cells = Selected();
    if (cells.isEmpty()) cells = {0, 0, ListView::kColumns, rows_};
    QStringList lines;
    for (int row = cells.top(); row <= cells.bottom(); ++row) {
        QStringList texts;
        for (int column = cells.left(); column <= cells.right(); ++column) texts += CellText(row, column);
        while (!texts.isEmpty() && texts.last().isEmpty()) texts.removeLast();
        lines += texts.join(QLatin1Char('\t'));
    }
    while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    return lines.join(QLatin1Char('\n'));
}

void ReadingGrid::Copy() const {
    QGuiApplication::clipboard()->setText(Text());
}

}  // namespace counter
