// The lockouts page: which items of the front-panel menu are locked.
#pragma once

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct LockoutsPage : Page {
    explicit LockoutsPage(SetupView& view);

    static constexpr int kLocks = 16;

    // clang-format off
    Control&             fraLockOut = Build.Add(ControlKind::Frame, nullptr, "fraLockOut", "Lockouts");
    ControlArray<kLocks> chkLock;
    Control&             lblFPLock  = Build.Add(ControlKind::Label, &fraLockOut, "lblFPLock");
    // clang-format on

    void Wire();
    void ShowFields();
};

}  // namespace counter
