// FieldSetter: a player that changes fields of the setup by name, as a user of the Setup view would.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/setup_run.h"
#include "meter/field_table.h"

namespace counter {

// NAME=VALUE. The name is a field's or a control's; the value an entry's text, a number, or 0 or 1.
struct FieldAssignment {
    std::string Name;
    std::string Value;
    std::optional<Field> Which;  // as soon as it is known; a control may belong to none
    std::string Settled;         // how the field read when it had been set
};

class FieldSetter : public Player {
  public:
    // Done from first to last, and no further than the first that can't be done.
    explicit FieldSetter(std::vector<FieldAssignment> assignments) : assignments_(std::move(assignments)) {}

    bool Step(SetupRun& run) override;

    // What could not be done and why, what is legal with it; empty where all was. A value that a later
    // assignment changed again counts as not done.
    const std::string& Wrong() const { return wrong_; }
    const std::vector<FieldAssignment>& Done() const { return assignments_; }
    // The one that was done last, or could not be. There must be one.
    const FieldAssignment& Last() const { return assignments_[next_ > 0 ? next_ - 1 : 0]; }

  private:
    std::string Set(SetupRun& run, FieldAssignment& assignment);
    std::string StillSo(SetupRun& run) const;

    std::vector<FieldAssignment> assignments_;
    std::size_t next_ = 0;
    std::string wrong_;
};

}  // namespace counter
