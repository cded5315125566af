// The analog outputs page: the output, and beside it the second one of the dual board.
#include "desktop/pages/setup_layout.h"

namespace counter {

namespace {

QWidget* OutputBox(SetupLayout& layout, QWidget* page, Control& frame,
                   std::initializer_list<const Framed*> pairs) {
    QWidget* box = layout.Bound.MakeGroup(frame, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair : pairs) column.Add(*pair);
    return box;
}

}  // namespace

void LayOutAnalog(SetupLayout& layout, QWidget* page) {
    const AnalogPage& analog = layout.View.Analog;
    QGridLayout* grid = MakePageGrid(page, 3);
    grid->addWidget(OutputBox(layout, page, analog.fraAnaOut,
                              {&analog.Source, &analog.AnaLo, &analog.Range, &analog.AnaHi}),
                    0, 0);
    grid->addWidget(OutputBox(layout, page, analog.fraAnaOut2,
                              {&analog.Source2, &analog.AnaLo2, &analog.Range2, &analog.AnaHi2}),
                    0, 1);
    grid->setRowStretch(1, 1);
}

}  // namespace counter
