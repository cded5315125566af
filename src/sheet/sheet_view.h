// SheetView: the sheet of the setup in memory, to be looked at, printed and kept as a file; without a screen.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "controls/page_builder.h"
#include "platform/printer.h"
#include "session/session.h"
#include "sheet/setup_sheet.h"

namespace counter {

class SheetView {
  public:
    static constexpr const char* kTitle = "SETUP SHEET";
    static constexpr int kHelpNumber = 3126;

    SheetView(Session& session, Printer& paper);

    // The view comes to the front: the setup as it is now, compared with nothing.
    void Activate();
    // Another setup is in memory.
    void Refresh();

    const std::string& Html() const { return html_; }

    std::function<void()> ShowMainMenu;  // may be empty

    Session& Program;
    Form Controls;
    PageBuilder Build{Controls, kEveryTab, [](std::string_view) { return kHelpNumber; }};

    // clang-format off
    Control& cmdAgainst  = Build.Add(ControlKind::Button, nullptr, "cmdAgainst",  "Changes Against...");
    Control& cmdPrint    = Build.Add(ControlKind::Button, nullptr, "cmdPrint",    "Print...");
    Control& cmdPdf      = Build.Add(ControlKind::Button, nullptr, "cmdPdf",      "Save As PDF...");
    Control& cmdHtml     = Build.Add(ControlKind::Button, nullptr, "cmdHtml",     "Save As HTML...");
    Control& cmdMainMenu = Build.Add(ControlKind::Button, nullptr, "cmdMainMenu", "Main Menu");
    Control& lblStatus   = Build.Add(ControlKind::Label,  nullptr, "lblStatus");
    // clang-format on

  private:
    void On(Control& control, void (SheetView::*action)());
    void ChooseAgainst();
    void Print();
    void SavePdf();
    void SaveHtml();
    SheetFacts Facts() const;
    std::string ProposedName(const char* ending) const;
    void Tell(const Status& status, const std::string& done);
    void Tell(const std::string& text, Color color);

    Printer& paper_;
    std::optional<SheetAgainst> against_;
    std::string html_;
};

}  // namespace counter
