// The filter page: one box, as wide as those of the other pages.
#include "desktop/pages/setup_layout.h"

namespace counter {

void LayOutFilter(SetupLayout& layout, QWidget* page) {
    const FilterPage& filter = layout.View.Filter;
    QGridLayout* grid = MakePageGrid(page, 3);
    QWidget* box = layout.Bound.MakeGroup(filter.fraFilter, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair : {&filter.TimConst, &filter.Thresh, &filter.PeakVal, &filter.FType})
        column.Add(*pair);
    grid->addWidget(box, 0, 0);
    grid->setRowStretch(1, 1);
}

}  // namespace counter
