// The fixed help screens: Setup help, batch reference, boards and their jumpers.
#pragma once

#include <string>
#include <vector>

#include "desktop/kit/view_page.h"
#include "help/help_screens.h"
#include "help/help_text.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/printer.h"
#include "session/view_state.h"

class QPlainTextEdit;
class QLabel;
class QSvgWidget;

namespace counter {

inline constexpr int kHelpHeadingId = 3103;  // help on the menu's heading Help, and on Jumpers
inline constexpr int kJumpersHeadingId = 3117;

// What a help screen works with.
struct HelpWorld {
    const FileReader& Store;
    std::vector<std::string> HelpFolders;   // best first, as all of them
    std::vector<std::string> BoardFolders;  // of the drawings
    Printer& Paper;
    counter::Dialogs& Dialogs;
    ViewState& Views;
    std::function<void()> GoHome;
};

// frmMHELP.
class SetupHelpPage : public ViewPage {
  public:
    SetupHelpPage(HelpWorld world, QWidget* parent);
    QString Title() const override;
    void ComeToFront() override { world_.Views.HelpId = kHomeHelpId; }
    void PutAway() override {}
    void Leave() override { world_.GoHome(); }
    void HelpKey() override { AskHelp(kHomeHelpId); }
    QWidget* FirstFocus() override { return cmdMHelp_; }

  private:
    HelpWorld world_;
    QWidget* cmdMHelp_;
};

// frmBatchHelp.
class BatchHelpPage : public ViewPage {
  public:
    BatchHelpPage(HelpWorld world, BatchHelpKind kind, QWidget* parent);
    QString Title() const override;
    // Reads the reference; where it can't be read, the page says so.
    void ComeToFront() override;
    void PutAway() override { world_.Views.HelpId = kHomeHelpId; }
    void Leave() override { world_.GoHome(); }
    void HelpKey() override { AskHelp(kHelpHeadingId); }
    QWidget* FirstFocus() override;

  private:
    void Print();

    HelpWorld world_;
    BatchHelpKind kind_;
    QPlainTextEdit* txtHelp_;
    QWidget* cmdMainMenu_;
};

// A board with its jumpers, and a text beside it.
class JumperPage : public ViewPage {
  public:
    JumperPage(HelpWorld world, const JumperScreen& screen, QWidget* parent);
    QString Title() const override;
    // Shows the drawing, and the text where it can be read.
    void ComeToFront() override;
    void PutAway() override { world_.Views.HelpId = kHomeHelpId; }
    void Leave() override { world_.GoHome(); }
    void HelpKey() override { AskHelp(screen_.HelpId != 0 ? screen_.HelpId : kJumpersHeadingId); }
    QWidget* FirstFocus() override { return cmdClose_; }

  private:
    std::string Text() const;

    HelpWorld world_;
    const JumperScreen& screen_;
    QSvgWidget* drawing_;
    QLabel* text_;
    QWidget* cmdClose_;
};

}  // namespace counter
