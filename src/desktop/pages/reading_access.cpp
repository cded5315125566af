#include "desktop/pages/reading_access.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <map>
#include <memory>

#include "desktop/kit/qt_text.h"
#include "desktop/pages/reading_grid.h"
#include "desktop/pages/reading_strip.h"
#include "readings/reading_words.h"

namespace counter {

namespace {

QAccessibleInterface* InterfaceOf(const QWidget& widget) {
    return QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
}

class CellAccess : public QAccessibleInterface, public QAccessibleTableCellInterface {
  public:
    CellAccess(ReadingGrid& grid, int row, int column) : grid_(grid), row_(row), column_(column) {}

    bool isValid() const override { return row_ < grid_.View().ListRows; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return InterfaceOf(grid_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text which) const override {
        const bool told = which == QAccessible::Name || which == QAccessible::Value;
        if (!told || !isValid()) return {};
        const QString reading = grid_.CellText(row_, column_);
        return reading.isEmpty() ? QStringLiteral("blank") : reading;
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        const QRect cell = grid_.CellRect(row_, column_);
        return {grid_.mapToGlobal(cell.topLeft()), cell.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = state.selectable = state.focusable = true;
        state.selected = isSelected();
        state.focused = grid_.hasFocus() && grid_.Selected() == QRect(column_, row_, 1, 1);
        state.invisible = !grid_.isVisible();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    bool isSelected() const override { return grid_.Selected().contains(column_, row_); }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return column_; }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

  private:
    ReadingGrid& grid_;
    const int row_, column_;
};

class GridAccess : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit GridAccess(ReadingGrid& grid) : QAccessibleWidget(&grid, QAccessible::Table), grid_(grid) {}
    ~GridAccess() override {
        for (const auto& [place, id] : cells_) QAccessible::deleteAccessibleInterface(id);
    }

    QString text(QAccessible::Text which) const override {
        if (which == QAccessible::Description) return QtText(Sentence(WordsOf(grid_.View())));
        return QAccessibleWidget::text(which);
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    int childCount() const override { return rowCount() * columnCount(); }
    QAccessibleInterface* child(int index) const override {
        return index < 0 ? nullptr : cellAt(index / columnCount(), index % columnCount());
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint at = grid_.mapFromGlobal(QPoint(x, y));
        return grid_.rect().contains(at) ? cellAt(grid_.RowAt(at.y()), grid_.ColumnAt(at.x())) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* cell = dynamic_cast<const CellAccess*>(child);
        return cell ? cell->rowIndex() * columnCount() + cell->columnIndex() : -1;
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
        const auto [at, isNew] = cells_.try_emplace({row, column}, 0U);
        if (isNew) at->second = QAccessible::registerAccessibleInterface(new CellAccess(grid_, row, column));
        return QAccessible::accessibleInterface(at->second);
    }
    QString columnDescription(int) const override { return {}; }
    QString rowDescription(int) const override { return {}; }
    int columnCount() const override { return ListView::kColumns; }
    int rowCount() const override { return grid_.View().ListRows; }

    int selectedCellCount() const override { return Cells().width() * Cells().height(); }
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> cells;
        for (int row = Cells().top(); row <= Cells().bottom(); ++row) {
            for (int column = Cells().left(); column <= Cells().right(); ++column)
                cells += cellAt(row, column);
        }
        return cells;
    }
    QList<int> selectedColumns() const override {
        return Cells().height() == rowCount() ? Numbers(Cells().left(), Cells().width()) : QList<int>();
    }
    QList<int> selectedRows() const override {
        return Cells().width() == columnCount() ? Numbers(Cells().top(), Cells().height()) : QList<int>();
    }
    bool isColumnSelected(int column) const override { return selectedColumns().contains(column); }
    bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool selectRow(int row) override { return Select({0, row, columnCount(), 1}); }
    bool selectColumn(int column) override { return Select({column, 0, 1, rowCount()}); }
    bool unselectRow(int) override { return Select({}); }
    bool unselectColumn(int) override { return Select({}); }

  protected:
    // Cells that are gone are told to be invalid by themselves.
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    QRect Cells() const { return grid_.Selected(); }
    static QList<int> Numbers(int first, int count) {
        QList<int> numbers;
        for (int i = 0; i < count; ++i) numbers += first + i;
        return numbers;
    }
    bool Select(const QRect& cells) {
        grid_.Select(cells);
        return true;
    }

    ReadingGrid& grid_;
    mutable std::map<std::pair<int, int>, QAccessible::Id> cells_;  // made when they are asked for
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    if (auto* grid = dynamic_cast<ReadingGrid*>(object)) return new GridAccess(*grid);
    if (auto* lines = dynamic_cast<FigureLines*>(object))
        return new QAccessibleWidget(lines, QAccessible::StaticText);
    return nullptr;
}

}  // namespace

void ServeReadersOfScreens() {
    QAccessible::installFactory(MakeAccess);
}

void TellRowsChanged(ReadingGrid& grid) {
    if (!QAccessible::isActive()) return;
    QAccessibleTableModelChangeEvent event(&grid, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
}

void TellCursor(ReadingGrid& grid, const QPoint& cell) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(&grid, QAccessible::Focus);
    event.setChild(cell.y() * ListView::kColumns + cell.x());
    QAccessible::updateAccessibility(&event);
}

}  // namespace counter
