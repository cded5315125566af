// BoxFlow: boxes in columns of one width, as many side by side as the window has room for.
//
// Where all columns have room each box is at the place that it was given. Where they don't, the boxes come
// one after the other in the order in which they were added. No column is wider than a field needs to be
// read.
#pragma once

#include <QLayout>
#include <map>
#include <memory>
#include <vector>

namespace counter {

class BoxFlow : public QLayout {
  public:
    // `within`: boxes that hold as many columns of their own may be as wide as those.
    BoxFlow(QWidget* parent, int columns, int within = 1);

    // Boxes of one place are alternatives: one at most is on show.
    void Add(QWidget* box, int row, int column, int rows = 1, int columns = 1);

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(boxes_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    // The width of one column, and the height that is enough where all of them have room.
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& area) override;
    void invalidate() override;

  private:
    struct Box {
        std::unique_ptr<QLayoutItem> Item;
        int Row, Column, Rows, Columns;
    };
    struct Place {
        QLayoutItem* Item;
        int Row, Column, Rows, Columns;
    };

    int NarrowestColumn() const;
    int ColumnsIn(int width) const;
    int ColumnWidth(int width, int columns) const;
    int WidthOf(int columns, int columnWidth) const;
    std::vector<Place> Places(int columns) const;
    std::vector<int> RowHeights(const std::vector<Place>& places, int columnWidth) const;
    int HeightOf(int columns, int columnWidth) const;
    QSize FindMinimum() const;
    int FindHeight(int width) const;

    const int columns_, within_;
    std::vector<Box> boxes_;
    // Asked for over and over while a window is laid out; kept until a box wants another size.
    mutable QSize minimum_, hint_;
    mutable std::map<int, int> heights_;  // by width
};

}  // namespace counter
