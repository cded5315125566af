// SetupChanges: what the user did to the setup in memory, act by act, for undo, redo and for telling who
// changed a field.
//
// An act is what a user does at once: a pick, a click, a value entered, with all that rules change along with
// it. Acts are noted as the image after each. Every rule may wait, and the user may act in that wait: the act
// that was under way ends where the next begins, and what its rule still changes then is counted to the
// later one.
#pragma once

#include <string>
#include <vector>

#include "meter/field_table.h"
#include "meter/setup_image.h"

namespace counter {

// What is acted on.
struct SetupAct {
    std::string Control;  // its full name; empty: the view was opened or built anew, by nobody's hand
    std::string What;     // for people: "Mode"
    std::vector<Field> Fields = {};  // that the user himself changes by it
    bool Typed = false;              // by digit entry; otherwise he picks
};

// In place of a control: single fields taken over from another setup.
inline constexpr const char* kTakenOverAct = "compare";

class SetupChanges {
  public:
    struct Step {
        SetupAct Act;
        SetupImage Before, After;
    };

    // Another setup is in memory: all that was noted is of one that has gone.
    void Restart(const SetupImage& image);
    // The setup as it is now is kept elsewhere: who changed what is told from here on.
    void Mark();

    // An act begins, and ends; one may begin inside another. That of a value begins with the digits that are
    // in the image already.
    void Begin(SetupAct act, const SetupImage& image);
    void BeginEntered(SetupAct act);
    void End(const SetupImage& image);
    // A value's digits were asked for: they go into the image with nobody's further word.
    void AwaitEntry(SetupAct act) { awaited_ = std::move(act); }
    // Closes what is open, so that all up to now is noted.
    void Settle(const SetupImage& image);

    bool CanUndo() const;
    bool CanRedo() const { return !undone_.empty(); }
    // Take the last act back, or do it again: the image that is to be in memory, and what the act was. Only
    // where CanUndo or CanRedo says so; after Settle.
    Step Undo();
    Step Redo();

    // Whether the user did anything since the mark, acts that he has taken back from before it included.
    bool ByUser() const;
    // Who changed the field last since the mark; null: nobody whose act was noted.
    const Step* LastOn(Field field) const;
    // He has undone acts from before the mark.
    bool TakenBack() const { return takenBack_; }

    // Whose notes these are changes; acts under way stay where they are.
    void Exchange(SetupChanges& other);

  private:
    void Note(SetupAct act, const SetupImage& image);

    SetupImage known_;  // the image after all that is noted
    std::vector<Step> done_, undone_;
    std::vector<SetupAct> open_;  // the act under way, at most one
    SetupAct awaited_;
    std::size_t mark_ = 0;
    int depth_ = 0;           // acts under way, one inside the other
    bool takenBack_ = false;  // acts from before the mark
};

class SetupActScope {
  public:
    SetupActScope(SetupChanges& changes, const SetupImage& image, SetupAct act)
        : changes_(changes), image_(image) {
        act.Typed ? changes_.BeginEntered(std::move(act)) : changes_.Begin(std::move(act), image_);
    }
    ~SetupActScope() { changes_.End(image_); }
    SetupActScope(const SetupActScope&) = delete;
    SetupActScope& operator=(const SetupActScope&) = delete;

  private:
    SetupChanges& changes_;
    const SetupImage& image_;
};

}  // namespace counter
