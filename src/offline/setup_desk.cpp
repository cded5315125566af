#include "offline/setup_desk.h"

#include <algorithm>

namespace counter {

namespace {

// Out of the waits of a view that ends the program, to the one who let it act.
struct ViewEnded {};

}  // namespace

SetupDesk::SetupDesk(const Session& like)
    : session_(pump_, port_, boxes_, like.Folder), view_(session_), user_(view_) {
    session_.Settings = like.Settings;
    session_.Identity = like.Identity;
    session_.LinkState = like.LinkState;
    session_.LinkState.Awaited = nullptr;  // of the program's own exchange
    session_.Derived = like.Derived;
    pump_.OnEnd = [] { throw ViewEnded(); };
}

bool SetupDesk::Open(const SetupImage& image) {
    session_.Image = image;
    return Do([this] {
        view_.Load();
        view_.Activate();
    });
}

bool SetupDesk::Do(const std::function<void()>& act) {
    try {
        act();
    } catch (const ViewEnded&) {
        std::replace(boxes_.Last.begin(), boxes_.Last.end(), '\r', ' ');
        return false;
    }
    return true;
}

}  // namespace counter
