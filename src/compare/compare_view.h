// CompareView: the setup in memory beside another one, field by field, without a screen.
//
// The other is a file, a backup or the meter, and stays until another is chosen or the view is left. What is
// in memory is looked at anew whenever it may have changed.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "compare/compare_table.h"
#include "controls/page_builder.h"
#include "session/session.h"

namespace counter {

class CompareView {
  public:
    static constexpr const char* kTitle = "COMPARE";
    static constexpr int kHelpNumber = 3125;
    static constexpr std::size_t kBackupsOffered = 20;

    explicit CompareView(Session& session);

    // The view comes to the front: compared with nothing yet.
    void Activate();
    // It is left, whatever it waits for: what still comes is thrown away.
    void PutAway();
    // Ends the reading of the meter at its next wait; nothing where there is none.
    void Cancel();
    // Memory, the status line or the progress may be another.
    void Follow();

    // On show, by the filter.
    const std::vector<FieldPair>& Rows() const { return rows_; }
    // The rows that the user has marked, by their place in Rows().
    void Mark(std::vector<std::size_t> rows);

    // Hooks into what shows the view; each may be empty.
    std::function<void()> ShowMainMenu;
    std::function<void(const std::string& text)> ToClipboard;

    Session& Program;
    Form Controls;
    PageBuilder Build{Controls, kEveryTab, [](std::string_view) { return kHelpNumber; }};

    // clang-format off
    Control& cmdFile     = Build.Add(ControlKind::Button,   nullptr, "cmdFile",     "File...");
    Control& cmdMeter    = Build.Add(ControlKind::Button,   nullptr, "cmdMeter",    "Meter");
    Framed   Backup      = Build.Wrap(ControlKind::List,    nullptr, "cboBackup",   "Backup");
    Control& chkDiffer   = Build.Add(ControlKind::Check,    nullptr, "chkDiffer",   "Only differences");
    Control& lblOther    = Build.Add(ControlKind::Label,    nullptr, "lblOther");
    Control& cmdTake     = Build.Add(ControlKind::Button,   nullptr, "cmdTake",     "Take Over");
    Control& cmdCsv      = Build.Add(ControlKind::Button,   nullptr, "cmdCsv",      "Save As CSV...");
    Control& cmdCopy     = Build.Add(ControlKind::Button,   nullptr, "cmdCopy",     "Copy");
    Control& cmdMainMenu = Build.Add(ControlKind::Button,   nullptr, "cmdMainMenu", "Main Menu");
    Control& lblStatus   = Build.Add(ControlKind::Label,    nullptr, "lblStatus");
    Control& pbBar       = Build.Add(ControlKind::Progress, nullptr, "pbBar");
    Control& cmdCancel   = Build.Add(ControlKind::Button,   nullptr, "cmdCancel",   "Cancel");
    // clang-format on

  private:
    void On(Control& control, void (CompareView::*action)());
    void ListBackups();
    void CompareWithFile();
    void CompareWithBackup();
    void CompareWithMeter();
    void Load(const std::string& path);
    void Take(const SetupImage& other, const std::string& name);
    void Pair();
    void TakeOverMarked();
    void SaveCsv();
    void Copy();
    std::vector<FieldPair> MarkedOrAll() const;
    void Tell(const std::string& text, Color color = ColorWhite);
    void ShowState();

    std::vector<std::string> backups_;
    SetupImage memory_, other_;
    std::string otherName_;  // empty: there is none yet
    std::vector<FieldPair> all_, rows_;
    std::vector<std::size_t> marked_;
    bool reading_ = false;
    int stay_ = 0;
};

}  // namespace counter
