// ReadingGrid: the cells of the list as the view has them; what is painted is only what changed.
//
// It takes no input: a click is a beep. The keyboard selects cells, to be copied as text, and so does the
// menu of the right button or the menu key.
#pragma once

#include <QPoint>
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "desktop/pages/reading_font.h"
#include "readings/list_view.h"

namespace counter {

class ReadingGrid : public QWidget {
  public:
    ReadingGrid(ListView& view, QWidget* parent);

    // The view is as new: no reading has been seen, nothing is selected.
    void BeginAnew();
    // The reading that sizes the grid is measured, and the view told of the sizes.
    void Measure(const std::string& reading);
    void Follow();

    const ListView& View() const { return view_; }
    QString CellText(int row, int column) const;
    QRect CellRect(int row, int column) const;
    int RowAt(int y) const { return y / std::max(1, RowPixels()); }
    int ColumnAt(int x) const;

    // Columns and rows of the cells that are selected; an empty rectangle: none.
    QRect Selected() const;
    void Select(const QRect& cells);
    void SelectAll() { Select({0, 0, ListView::kColumns, rows_}); }
    // Of the cells selected, or of all: a line for each row, tabs between its cells, no empty ends.
    QString Text() const;
    void Copy() const;

  protected:
    bool event(QEvent* event) override;  // tool tips
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent*) override { update(); }
    void focusOutEvent(QFocusEvent*) override { update(); }

  private:
    void FitFont(const ReadingFit* kept = nullptr);
    void TellSize();
    int Twips(int pixels) const;
    int RowPixels() const;
    std::size_t Count() const { return static_cast<std::size_t>(rows_) * ListView::kColumns; }
    void FollowCell(int row, int column);
    QStringList LinesOf(const std::string& text) const;
    bool ShowsWhole(const QStringList& lines) const;
    void PaintCell(QPainter& painter, const QRect& cell, int row, int column) const;
    void PaintFocus(QPainter& painter) const;
    std::optional<QPoint> Moved(const QKeyEvent& event) const;
    QPoint Newest() const;

    ListView& view_;
    int rows_ = 0;
    std::vector<std::string> shown_;
    std::string longest_;  // reading seen
    ReadingFit fit_;
    // Column and row of the cell that the keyboard is at, and of where its selection began; none before it
    // was used.
    std::optional<QPoint> cursor_, anchor_;
};

}  // namespace counter
