#include "session/home_state.h"

namespace counter {

namespace {

void Tell(const HomeState& home) {
    if (home.Changed) home.Changed();
}

}  // namespace

void HomeState::ShowStatus(const std::string& text, Color color, const std::string& note) {
    StatusText = text;
    StatusNote = note;
    StatusColor = color;
    StatusVisible = true;
    Tell(*this);
}

std::string HomeState::StatusLine() const {
    return StatusNote.empty() ? StatusText : StatusText + "  (" + StatusNote + ")";
}

void HomeState::AddNote(const std::string& note) {
    StatusNote += (StatusNote.empty() ? "" : "; ") + note;
    Tell(*this);
}

void HomeState::HideStatus() {
    StatusVisible = ProgressVisible = false;
    Tell(*this);
}

void HomeState::ProgressTo(int percent) {
    ProgressPercent = percent;
    Tell(*this);
}

void HomeState::ShowProgress(bool visible) {
    ProgressVisible = visible;
    Tell(*this);
}

void HomeState::ShowHourglass(bool shown) {
    Hourglass = shown;
    Tell(*this);
}

}  // namespace counter
