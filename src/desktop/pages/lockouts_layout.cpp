// The lockouts page: a column for each of the four lockout rows of the meter's own menu.
#include "desktop/pages/setup_layout.h"

namespace counter {

void LayOutLockouts(SetupLayout& layout, QWidget* page) {
    const LockoutsPage& lockouts = layout.View.Lockouts;
    constexpr int kColumns = 4;
    constexpr int kRows = LockoutsPage::kLocks / kColumns;
    QGridLayout* outer = MakePageGrid(page, 1);
    QWidget* box = layout.Bound.MakeGroup(lockouts.fraLockOut, page);
    outer->addWidget(box, 0, 0);
    outer->setRowStretch(1, 1);
    QGridLayout* grid = MakePageGrid(box, kColumns);
    for (int i = 0; i < LockoutsPage::kLocks; ++i)
        grid->addWidget(layout.Bound.Make(lockouts.chkLock[i], box), i % kRows, i / kRows);
    grid->addWidget(layout.Bound.Make(lockouts.lblFPLock, box), kRows, 0, 1, kColumns);
}

}  // namespace counter
