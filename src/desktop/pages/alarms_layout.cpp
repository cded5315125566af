// The alarms page: alarms 1 and 2, and below them 3 and 4, which only the four-relay board has. Each pair has
// its number of readings.
#include "desktop/pages/setup_layout.h"

namespace counter {

namespace {

QWidget* AlarmBox(SetupLayout& layout, QWidget* page, int alarm, CaptionColumn& captions) {
    const AlarmsPage& alarms = layout.View.Alarms;
    QWidget* box = layout.Bound.MakeGroup(alarms.fraAlarm[alarm], page);
    BoxColumn column(layout, box, captions);
    for (const auto* array : {&alarms.AlmSource, &alarms.State, &alarms.AlmType, &alarms.RlyState,
                              &alarms.Setpt, &alarms.DevTyp, &alarms.Dev})
        column.Add(array->Frame[alarm], array->Inner[alarm]);
    return box;
}

}  // namespace

void LayOutAlarms(SetupLayout& layout, QWidget* page) {
    const AlarmsPage& alarms = layout.View.Alarms;
    QGridLayout* grid = MakePageGrid(page, 3);
    grid->setVerticalSpacing(kSetupGrid / 2);
    CaptionColumn& captions = layout.NewCaptions();
    for (int pair = 0; pair < 2; ++pair) {
        for (int side = 0; side < 2; ++side) {
            const int alarm = 2 * pair + side + 1;
            grid->addWidget(AlarmBox(layout, page, alarm, captions), 2 * pair, side);
        }
        CaptionRow* readings =
            layout.Bound.MakeRow(alarms.NumRdgsAlms.Frame[pair], alarms.NumRdgsAlms.Inner[pair], page);
        readings->setContentsMargins(kSetupGrid, 0, kSetupGrid, 0);
        layout.NewCaptions().Rows.push_back(readings);
        grid->addWidget(readings, 2 * pair + 1, 0, 1, 2, Qt::AlignLeft);
    }
    grid->addWidget(layout.Bound.Make(alarms.chkDevStatus, page), 4, 0);
    grid->setRowStretch(5, 1);
}

}  // namespace counter
