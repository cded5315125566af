// HelpView: the window frmAppHelp, which shows the text of a help number over the view that opened it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "help/help_text.h"
#include "session/session.h"

namespace counter {

// The one text that is a table: fixed pitch, its "$" no marks.
inline constexpr int kCharacterTableHelpId = 1138;

inline constexpr std::string_view kHelpTitle = "APPLICATION  HELP";
inline constexpr std::string_view kHelpTitleOfMenu = "Menu Help";
inline constexpr int kHelpWidthOfMenu = 5895;  // twips, 1/1440 inch: narrow, so the grid stays in sight

enum class HelpFrom {
    Home,
    Setup,  // digit entry included
    Menu,
};

class HelpView {
  public:
    // The folders where help files may lie, best first.
    HelpView(Session& session, std::vector<std::string> folders);

    // Shows the text of `helpId`. False: there is none, and the window has vanished without a word. Either
    // way digit entry is over: EntryReturn is 0 and no field is marked as being edited.
    bool Open(int helpId, HelpFrom from);
    // The button: closes the window and puts back what was behind it. Waits 10 ms.
    void Ok();
    bool Shown() const { return shown_; }

    // What the window shows.
    std::string_view Title = kHelpTitle;
    int Width = 0;                      // twips; 0: the window's own
    bool FixedPitch = false;            // "Courier New" instead of "Arial"
    std::vector<HelpSegment> Segments;  // CR LF in them ends a line

    // cmdOK, visible once the text is there.
    Form Controls;

    // Hooks into what shows views; each may be empty.
    std::function<void()> Unload;         // the window goes, the view behind it comes to the front
    std::function<void()> ClearMenuMark;  // the Menu view's main grid marks no selection any more
    std::function<void()> RestorePage;    // the Setup view comes back to the page it remembered

  private:
    void EndEntry();
    void Vanish();
    void PutPageBack();

    Session& session_;
    std::vector<std::string> folders_;
    Control& cmdOK_;
    HelpFrom from_ = HelpFrom::Home;
    bool shown_ = false;
};

}  // namespace counter
