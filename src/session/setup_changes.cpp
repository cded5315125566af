#include "session/setup_changes.h"

#include <algorithm>
#include <utility>

#include "meter/field_value.h"

namespace counter {

namespace {

constexpr std::size_t kMostSteps = 1000;

bool IsUsers(const SetupChanges::Step& step) {
    return !step.Act.Control.empty();
}

}  // namespace

void SetupChanges::Restart(const SetupImage& image) {
    known_ = image;
    done_.clear();
    undone_.clear();
    open_.clear();
    awaited_ = {};
    Mark();
}

void SetupChanges::Mark() {
    mark_ = done_.size();
    takenBack_ = false;
}

// A page that is come to in the wait of a user's act is part of it: what its rule still changes is his.
void SetupChanges::Begin(SetupAct act, const SetupImage& image) {
    if (act.Control.empty() && depth_ > 0 && !open_.empty() && !open_.back().Control.empty()) {
        ++depth_;
        return;
    }
    Settle(image);
    awaited_ = {};
    ++depth_;
    open_.assign(1, std::move(act));
}

void SetupChanges::BeginEntered(SetupAct act) {
    awaited_ = {};
    ++depth_;
    open_.assign(1, std::move(act));
}

void SetupChanges::End(const SetupImage& image) {
    if (--depth_ == 0) Settle(image);
}

// What changed while nothing was open was changed by a value's digits, or is none of the user's doing.
void SetupChanges::Settle(const SetupImage& image) {
    if (!open_.empty()) {
        Note(std::move(open_.back()), image);
        open_.clear();
    } else if (!awaited_.Control.empty()) {
        Note(awaited_, image);
    }
    known_ = image;
}

void SetupChanges::Note(SetupAct act, const SetupImage& image) {
    if (image == known_) return;
    Step step{std::move(act), known_, image};
    known_ = image;
    if (IsUsers(step)) undone_.clear();
    done_.push_back(std::move(step));
    if (done_.size() <= kMostSteps) return;
    done_.erase(done_.begin());
    if (mark_ > 0) --mark_;
}

bool SetupChanges::CanUndo() const {
    return std::ranges::any_of(done_, IsUsers);
}

SetupChanges::Step SetupChanges::Undo() {
    while (!IsUsers(done_.back())) done_.pop_back();
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    if (done_.size() < mark_) {
        takenBack_ = true;
        mark_ = done_.size();
    }
    known_ = undone_.back().Before;
    awaited_ = {};
    return undone_.back();
}

SetupChanges::Step SetupChanges::Redo() {
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    known_ = done_.back().After;
    awaited_ = {};
    return done_.back();
}

bool SetupChanges::ByUser() const {
    return takenBack_ ||
           std::any_of(done_.begin() + static_cast<std::ptrdiff_t>(mark_), done_.end(), IsUsers);
}

void SetupChanges::Exchange(SetupChanges& other) {
    open_.clear();
    other.open_.clear();
    std::swap(*this, other);
    std::swap(depth_, other.depth_);
}

const SetupChanges::Step* SetupChanges::LastOn(Field field) const {
    for (std::size_t i = done_.size(); i > mark_; --i) {
        const Step& step = done_[i - 1];
        if (!FieldEqual(step.Before, step.After, field)) return &step;
    }
    return nullptr;
}

}  // namespace counter
