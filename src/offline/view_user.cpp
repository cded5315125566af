#include "offline/view_user.h"

#include "meter/text.h"

namespace counter {

ViewUser::ViewUser(SetupView& view)
    : View(view), Entry({view.Program.Views, view.Program.Image, view.Program.Derived, view.Program.Link}) {
    View.Controls.OnlyPageOnShow = false;
    View.OpenDigitEntry = [this] {
        Entry.OpenDigitEntry();
        opened_ = true;
    };
}

std::string ViewUser::RefusalLine(const Control& control, Refusal refusal) const {
    if (refusal == Refusal::None) return {};
    return NameOf(control) + " " + View.WhyRefused(refusal, control);
}

std::string ViewUser::OpenEntry(Control& value) {
    opened_ = false;
    const Refusal refusal = View.Controls.Click(value);
    if (refusal != Refusal::None) return RefusalLine(value, refusal);
    return opened_ ? "" : NameOf(value) + " opens no digit entry";
}

bool ViewUser::CloseEntry(bool ok) {
    if (ok) Entry.Ok();
    const bool stayed = Entry.Shown();
    if (stayed) Entry.Cancel();
    View.EntryClosed();
    return !ok || !stayed;
}

std::string ViewUser::NoEntryLine(const Control& list, const std::string& wanted) const {
    std::string text = NameOf(list) + " has no entry " + wanted + "; entries are";
    int index = 0;
    for (const std::string_view entry : list.Entries) {
        text += " #" + std::to_string(index++) + " '" + std::string(Trimmed(entry)) + "'";
    }
    return text;
}

}  // namespace counter
