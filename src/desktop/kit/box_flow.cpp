#include "desktop/kit/box_flow.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

#include "desktop/kit/grid.h"

namespace counter {

namespace {

constexpr int kWidestColumn = 56;  // average characters of the font

int HeightAt(const QLayoutItem& item, int width) {
    const int height = item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
    return std::max(height, item.minimumSize().height());
}

}  // namespace

BoxFlow::BoxFlow(QWidget* parent, int columns, int within)
    : QLayout(parent), columns_(columns), within_(within) {
    PadByGrid(this);
}

void BoxFlow::Add(QWidget* box, int row, int column, int rows, int columns) {
    addChildWidget(box);
    boxes_.push_back({std::make_unique<QWidgetItemV2>(box), row, column, rows, columns});
    invalidate();
}

void BoxFlow::addItem(QLayoutItem* item) {
    boxes_.push_back({std::unique_ptr<QLayoutItem>(item), count(), 0, 1, 1});
}

QLayoutItem* BoxFlow::itemAt(int index) const {
    return index >= 0 && index < count() ? boxes_[static_cast<std::size_t>(index)].Item.get() : nullptr;
}

QLayoutItem* BoxFlow::takeAt(int index) {
    if (index < 0 || index >= count()) return nullptr;
    QLayoutItem* item = boxes_[static_cast<std::size_t>(index)].Item.release();
    boxes_.erase(boxes_.begin() + index);
    return item;
}

int BoxFlow::NarrowestColumn() const {
    int width = 1;
    for (const Box& box : boxes_) {
        if (box.Columns == 1 && !box.Item->isEmpty())
            width = std::max(width, box.Item->minimumSize().width());
    }
    return width;
}

int BoxFlow::WidthOf(int columns, int columnWidth) const {
    return columns * columnWidth + (columns - 1) * spacing();
}

// A box over several columns doesn't decide how many there are: with fewer it would have no more room.
int BoxFlow::ColumnsIn(int width) const {
    const int narrowest = NarrowestColumn();
    int columns = columns_;
    while (columns > 1 && WidthOf(columns, narrowest) > width) --columns;
    return columns;
}

int BoxFlow::ColumnWidth(int width, int columns) const {
    const QWidget* page = parentWidget();
    const int widest = page ? page->fontMetrics().averageCharWidth() * kWidestColumn * within_ : width;
    const int share = (width - (columns - 1) * spacing()) / columns;
    return std::max(NarrowestColumn(), std::min(share, widest));
}

std::vector<BoxFlow::Place> BoxFlow::Places(int columns) const {
    std::vector<Place> places;
    std::map<std::pair<int, int>, std::pair<int, int>> taken;  // the new place of each old one
    int row = 0, column = 0;
    for (const Box& box : boxes_) {
        if (box.Item->isEmpty()) continue;
        Place place{box.Item.get(), box.Row, box.Column, box.Rows, box.Columns};
        if (columns < columns_) {
            const int span = std::min(box.Columns, columns);
            const auto [at, isNew] = taken.try_emplace({box.Row, box.Column}, row, column);
            if (isNew && column + span > columns) at->second = {++row, column = 0};
            if (isNew) column += span;
            place = {box.Item.get(), at->second.first, at->second.second, 1, span};
        }
        places.push_back(place);
    }
    return places;
}

// What a box over several rows lacks, the last of them gives.
std::vector<int> BoxFlow::RowHeights(const std::vector<Place>& places, int columnWidth) const {
    std::vector<int> heights;
    for (const bool tall : {false, true}) {
        for (const Place& place : places) {
            if ((place.Rows > 1) != tall) continue;
            const auto first = static_cast<std::size_t>(place.Row);
            const auto end = first + static_cast<std::size_t>(place.Rows);
            if (heights.size() < end) heights.resize(end, 0);
            int room = (place.Rows - 1) * spacing();
            for (std::size_t row = first; row + 1 < end; ++row) room += heights[row];
            const int need = HeightAt(*place.Item, WidthOf(place.Columns, columnWidth)) - room;
            heights[end - 1] = std::max(heights[end - 1], need);
        }
    }
    return heights;
}

int BoxFlow::HeightOf(int columns, int columnWidth) const {
    const std::vector<int> heights = RowHeights(Places(columns), columnWidth);
    const int rows = static_cast<int>(heights.size());
    return std::accumulate(heights.begin(), heights.end(), std::max(rows - 1, 0) * spacing());
}

void BoxFlow::invalidate() {
    minimum_ = hint_ = QSize();
    heights_.clear();
    QLayout::invalidate();
}

int BoxFlow::heightForWidth(int width) const {
    const auto [place, fresh] = heights_.try_emplace(width, 0);
    if (fresh) place->second = FindHeight(width);
    return place->second;
}

int BoxFlow::FindHeight(int width) const {
    const QMargins margins = contentsMargins();
    const int room = width - margins.left() - margins.right();
    const int columns = ColumnsIn(room);
    return HeightOf(columns, ColumnWidth(room, columns)) + margins.top() + margins.bottom();
}

QSize BoxFlow::minimumSize() const {
    if (!minimum_.isValid()) minimum_ = FindMinimum();
    return minimum_;
}

QSize BoxFlow::FindMinimum() const {
    const QMargins margins = contentsMargins();
    const int narrowest = NarrowestColumn();
    int width = narrowest;
    for (const Box& box : boxes_) {
        if (!box.Item->isEmpty()) width = std::max(width, box.Item->minimumSize().width());
    }
    const int height = HeightOf(columns_, ColumnWidth(QWIDGETSIZE_MAX, columns_));
    return {width + margins.left() + margins.right(), height + margins.top() + margins.bottom()};
}

QSize BoxFlow::sizeHint() const {
    if (hint_.isValid()) return hint_;
    const QMargins margins = contentsMargins();
    const int width = WidthOf(columns_, NarrowestColumn()) + margins.left() + margins.right();
    hint_ = {std::max(width, minimumSize().width()), heightForWidth(width)};
    return hint_;
}

void BoxFlow::setGeometry(const QRect& area) {
    QLayout::setGeometry(area);
    const QRect room = area.marginsRemoved(contentsMargins());
    const int columns = ColumnsIn(room.width());
    const int columnWidth = ColumnWidth(room.width(), columns);
    const std::vector<Place> places = Places(columns);
    const std::vector<int> heights = RowHeights(places, columnWidth);
    std::vector<int> tops{room.top()};
    for (const int height : heights) tops.push_back(tops.back() + height + spacing());
    for (const Place& place : places) {
        const int left = room.left() + place.Column * (columnWidth + spacing());
        const int top = tops[static_cast<std::size_t>(place.Row)];
        const int bottom = tops[static_cast<std::size_t>(place.Row + place.Rows)] - spacing();
        const int width = std::max(WidthOf(place.Columns, columnWidth), place.Item->minimumSize().width());
        place.Item->setGeometry(
            QStyle::visualRect(parentWidget()->layoutDirection(), area, {left, top, width, bottom - top}));
    }
}

}  // namespace counter
