// SegmentGrid: rows of the meter's menu as its display shows them, a name, a sign and six digits, in seven
// segments. Its plain text is there as well: for assistive tools, as tool tips and to copy (Ctrl+C).
#pragma once

#include <QHeaderView>
#include <QTableWidget>
#include <functional>
#include <span>

#include "menu_view/menu_view.h"

namespace counter {

class SegmentGrid : public QTableWidget {
  public:
    SegmentGrid(const QString& name, QWidget* parent);

    // Rows of a menu; the first is the header.
    void ShowRows(std::span<const MenuRow> rows);
    // One row of six digits, without header or name; `title` says what they are.
    void ShowDigits(const DigitCells& digits, const QString& title);

    // Pixels; follows the font until it is set.
    void SetRowHeight(int height);
    int RowHeight() const { return verticalHeader()->defaultSectionSize(); }
    // Room for this many rows and no scroll bar; otherwise it takes the height that it gets.
    void FixRows(int rows);

    // Rows count from 1. The first one on show, at least 1.
    int FirstVisibleRow() const;
    // The row that the keys move from; 0: there is none. It needn't be marked.
    int CurrentRow() const { return currentRow() + 1; }
    bool HasMark() const { return selectionModel()->hasSelection(); }
    void ClearMark() { clearSelection(); }

    // "InPut  0 0 0 0 0 0", as a screen reader says it.
    QString RowText(int row) const;
    // The marked row, or all rows where none is: a line each, the cells between tabs.
    QString PlainText() const;

    // The user picked a row, by a button of the mouse or by a key; a secondary pick is the other button or
    // the menu key. Each hook may be empty.
    std::function<void(int row, PointerEvent event)> Picked;
    std::function<void(int row)> Moved;  // to a row by the keys
    std::function<void(int firstVisibleRow)> Scrolled;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void Tune();
    void SizeColumns();
    void Fill(int row, std::span<const std::string_view> cells);
    void Pick(int row, PointerEvent event);
    QSize SizeOfRows(int rows) const;
    bool HasNames() const { return columnCount() == 8; }
    QString CellText(int row, int column) const;

    int fixedRows_ = 0;
};

}  // namespace counter
