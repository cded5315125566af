// The pages with one kind of box: filter, alarms, analog outputs and lockouts.
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

QWidget* OutputBox(SetupLayout& layout, QWidget* page, Control& frame,
                   std::initializer_list<const Framed*> pairs) {
    QWidget* box = layout.Bound.MakeGroup(frame, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair : pairs) column.Add(*pair);
    return box;
}

}  // namespace

// One box, as wide as those of the other pages.
void LayOutFilter(SetupLayout& layout, QWidget* page) {
    const FilterPage& filter = layout.View.Filter;
    auto* grid = new BoxFlow(page, 3);
    QWidget* box = layout.Bound.MakeGroup(filter.fraFilter, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair : {&filter.TimConst, &filter.Thresh, &filter.PeakVal, &filter.FType})
        column.Add(*pair);
    grid->Add(box, 0, 0);
}

// Alarms 1 and 2, and below them 3 and 4, which only the four-relay board has. Each pair has its number of
// readings.
void LayOutAlarms(SetupLayout& layout, QWidget* page) {
    const AlarmsPage& alarms = layout.View.Alarms;
    auto* grid = new BoxFlow(page, 3);
    CaptionColumn& captions = layout.NewCaptions();
    for (int pair = 0; pair < 2; ++pair) {
        for (int side = 0; side < 2; ++side) {
            const int alarm = 2 * pair + side + 1;
            grid->Add(AlarmBox(layout, page, alarm, captions), 2 * pair, side);
        }
        CaptionRow* readings =
            layout.Bound.MakeRow(alarms.NumRdgsAlms.Frame[pair], alarms.NumRdgsAlms.Inner[pair], page);
        readings->setContentsMargins(kGrid, 0, kGrid, 0);
        layout.NewCaptions().Rows.push_back(readings);
        grid->Add(readings, 2 * pair + 1, 0, 1, 2);
    }
    grid->Add(layout.Bound.Make(alarms.chkDevStatus, page), 4, 0);
}

// The output, and beside it the second one of the dual board.
void LayOutAnalog(SetupLayout& layout, QWidget* page) {
    const AnalogPage& analog = layout.View.Analog;
    auto* grid = new BoxFlow(page, 3);
    grid->Add(OutputBox(layout, page, analog.fraAnaOut,
                        {&analog.Source, &analog.AnaLo, &analog.Range, &analog.AnaHi}),
              0, 0);
    grid->Add(OutputBox(layout, page, analog.fraAnaOut2,
                        {&analog.Source2, &analog.AnaLo2, &analog.Range2, &analog.AnaHi2}),
              0, 1);
}

// A column for each of the four lockout rows of the meter's own menu.
void LayOutLockouts(SetupLayout& layout, QWidget* page) {
    const LockoutsPage& lockouts = layout.View.Lockouts;
    constexpr int kColumns = 4;
    constexpr int kRows = LockoutsPage::kLocks / kColumns;
    auto* outer = new BoxFlow(page, 1, kColumns);
    QWidget* box = layout.Bound.MakeGroup(lockouts.fraLockOut, page);
    outer->Add(box, 0, 0);
    auto* grid = new BoxFlow(box, kColumns);
    for (int i = 0; i < LockoutsPage::kLocks; ++i)
        grid->Add(layout.Bound.Make(lockouts.chkLock[i], box), i % kRows, i / kRows);
    grid->Add(layout.Bound.Make(lockouts.lblFPLock, box), kRows, 0, 1, kColumns);
}

}  // namespace counter
