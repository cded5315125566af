#include "help/help_view.h"

#include <optional>
#include <utility>

#include "controls/colors.h"
#include "link/waits.h"

namespace counter {

namespace {

// Between the window's going and the page's coming back, so that the view behind is drawn first.
constexpr double kBehindWindowMs = 10;

Control OkButton() {
    Control button;
    button.Kind = ControlKind::Button;
    button.Name = "cmdOK";
    button.Caption = "OK";
    button.Visible = false;
    return button;
}

}  // namespace

HelpView::HelpView(Session& session, std::vector<std::string> folders)
    : session_(session), folders_(std::move(folders)), cmdOK_(Controls.Add(OkButton())) {
    Controls.On(cmdOK_, [this](Control&) { Ok(); });
}

bool HelpView::Open(int helpId, HelpFrom from) {
    from_ = from;
    Title = from == HelpFrom::Menu ? kHelpTitleOfMenu : kHelpTitle;
    Width = from == HelpFrom::Menu ? kHelpWidthOfMenu : 0;
    FixedPitch = helpId == kCharacterTableHelpId;
    Segments.clear();
    cmdOK_.Visible = false;
    EndEntry();
    const std::optional<std::string> text = FirstHelpText(session_.Folder.Store, folders_, helpId);
    shown_ = text.has_value();
    if (!shown_) {
        Vanish();
        PutPageBack();
        return false;
    }
    if (FixedPitch) {
        Segments = {{*text, false}};
    } else {
        Segments = HelpSegments(*text);
    }
    cmdOK_.Visible = true;
    Controls.TellChanged();
    return true;
}

void HelpView::Ok() {
    shown_ = false;
    Vanish();
    LinkDelay(session_.Link, kBehindWindowMs);
    PutPageBack();
}

void HelpView::Vanish() {
    if (from_ == HelpFrom::Menu && ClearMenuMark) ClearMenuMark();
    if (Unload) Unload();
}

// The view behind reloads in full on coming to the front, so its page is put back also where there was
// nothing to show: help never moves the user off the page.
void HelpView::PutPageBack() {
    if (from_ == HelpFrom::Setup && RestorePage) RestorePage();
}

void HelpView::EndEntry() {
    ViewState& views = session_.Views;
    views.EntryReturn = 0;
    if (views.EntryTarget) views.EntryTarget->BackColor = ColorWhite;
    views.EntryTarget = nullptr;
}

}  // namespace counter
