// ListView: the reading stream as a running table of texts.
//
// Readings go along a row from left to right, row after row, and after the last row start over at the top. A
// blank cell runs ahead of the newest one, so that a reader sees where the list is. Readings are text as
// the meter sends it: nothing is parsed or cut.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "readings/reading_view.h"

namespace counter {

class ListView : public ReadingView {
  public:
    static constexpr std::string_view kName = "frmList";
    static constexpr std::string_view kTitle = "LIST READINGS";
    static constexpr int kColumns = 20;

    explicit ListView(Session& session);

    // The stream starts, and the list with it, at the first cell.
    void Activate() override;

    // What the window sets, in twips, 1/1440 inch.
    int GridWidth = 14400;
    int GridHeight = 7800;
    int LineHeight = 240;  // of a line of the grid's text
    // The window measures the text of the reading that sizes the grid, and sets the three; may be empty.
    std::function<void(const std::string& reading)> Measure;
    // The window has another size. Readings keep their order as far as they fit, the newest among them.
    void FitWindow();

    // The grid as it is shown. It is sized again on the first whole reading after a start or a pause, which
    // isn't listed; cells that are still there keep their texts.
    int ListRows = 0;  // at least 1 once it is sized
    int ColumnWidth = 0;
    int RowHeight = 0;
    const std::string& Cell(int row, int column) const { return cells_[Place(row, column)]; }
    // The current cell, which takes the next reading.
    int ListRow = 0;
    int ListCol = 0;

    // The table accepts no input: a click on it, or a press on the view's background, is a beep.
    void PressTable() { Program.Dialogs.Beep(); }

    // clang-format off
    Control& grdList   = Build.Add(ControlKind::Picture, nullptr, "grdList");
    Control& cmdPause  = Build.Add(ControlKind::Button,  nullptr, "cmdPause",  "Pause");
    Control& cmdContin = Build.Add(ControlKind::Button,  nullptr, "cmdContin", "Continue");
    Control& cmdPrint  = Build.Add(ControlKind::Button,  nullptr, "cmdPrint",  "Print");
    Control& cmdEnd    = Build.Add(ControlKind::Button,  nullptr, "cmdEnd",    "End");
    Control& lblStatus = Build.Add(ControlKind::Label,   nullptr, "lblStatus");
    // clang-format on

  private:
    static std::size_t Place(int row, int column) {
        return static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column);
    }
    void Wire();
    void PressPause();
    void PressContinue();
    void SendEnd() override;
    void Reset() override;
    void TakeReading(const std::string& text, bool onlySizes) override;
    void SizeGrid();
    void KeepNewest(int rows);
    void StepOn();

    std::vector<std::string> cells_;
};

}  // namespace counter
