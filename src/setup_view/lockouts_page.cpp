#include "setup_view/lockouts_page.h"

#include "meter/field_lists.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

// By the box; inside each half byte the order is that of the meter's menu, high bit first.
constexpr std::array<Field, LockoutsPage::kLocks> kLockFields = {
    Field::Lockout0,  Field::Lockout1,  Field::Lockout2,  Field::Lockout3,
    Field::Lockout4,  Field::Lockout5,  Field::Lockout6,  Field::Lockout7,
    Field::Lockout8,  Field::Lockout9,  Field::Lockout10, Field::Lockout11,
    Field::Lockout12, Field::Lockout13, Field::Lockout14, Field::Lockout15,
};

Field FieldOf(int box) {
    return kLockFields[static_cast<std::size_t>(box)];
}

}  // namespace

LockoutsPage::LockoutsPage(SetupView& view) : Page(view, kLockoutsTab) {
    for (int i = 0; i < kLocks; ++i) {
        Control& box = Build.Add(ControlKind::Check, &fraLockOut, "chkLock", {}, i);
        box.Caption = FieldName(FieldOf(i));
        chkLock.Elements[static_cast<std::size_t>(i)] = &box;
    }
}

void LockoutsPage::Wire() {
    for (int i = 0; i < kLocks; ++i) Bind({chkLock[i], FieldOf(i)});
}

void LockoutsPage::ShowFields() {
    for (int i = 0; i < kLocks; ++i) Show(chkLock[i], FieldOf(i));
    lblFPLock.Caption = lists::kLockoutJumper[CodeOf(Image(), Field::LockoutJumper)];
}

}  // namespace counter
