#include "readings/list_view.h"

#include <algorithm>
#include <utility>

#include "link/exchange.h"
#include "link/list_cutter.h"
#include "link/waits.h"
#include "meter/leading_number.h"

namespace counter {

namespace {

constexpr double kBehindStartMs = 300;
constexpr int kBetweenLines = 90;  // twips that a row is higher than its text

}  // namespace

ListView::ListView(Session& session) : ReadingView(session, std::make_unique<ListCutter>(session.Frames)) {
    StatusLine = &lblStatus;
    Wire();
    Load();
}

void ListView::Wire() {
    OnPress(cmdPause, [this] { PressPause(); });
    OnPress(cmdContin, [this] { PressContinue(); });
    OnPress(cmdPrint, [this] { PressPrint(); });
    OnPress(cmdEnd, [this] { PressEnd(); });
}

void ListView::Reset() {
    ListRows = ListRow = ListCol = 0;
    cells_.clear();
}

void ListView::Activate() {
    ComeUp();
    const int run = StartRun();
    if (!Holds(run)) return;
    LinkDelay(Program.Link, kBehindStartMs);
    if (!Holds(run)) return;
    Program.Port.SetRtsEnable(true);
    ListRow = ListCol = 0;
    Stream.Attach();
}

void ListView::PressPause() {
    if (Stream.ReadingPaused == 1) return;
    Controls.SetFocus(grdList);
    Stream.Pause();
}

void ListView::PressContinue() {
    if (Stream.ReadingPaused == 0) return;
    ResumeRun();
    Controls.SetFocus(grdList);
}

void ListView::TakeReading(const std::string& text, bool onlySizes) {
    if (onlySizes) {
        if (Measure) Measure(text);
        SizeGrid();
        return;
    }
    cells_[Place(ListRow, ListCol)] = text;
    StepOn();
    cells_[Place(ListRow, ListCol)] = " ";
}

void ListView::SizeGrid() {
    ColumnWidth = static_cast<int>(RoundHalfEven(GridWidth / static_cast<double>(kColumns)));
    RowHeight = LineHeight + kBetweenLines;
    const int rows = std::max(1, GridHeight / RowHeight);
    if (rows < ListRows) KeepNewest(rows);
    ListRows = rows;
    cells_.resize(Place(ListRows, 0));
}

// Before it is sized for the first time there is nothing to fit.
void ListView::FitWindow() {
    if (ListRows > 0) SizeGrid();
}

// The current cell stays where it is, or comes to the last row; before it run the readings, the newest at it,
// as in a list that has always been that small.
void ListView::KeepNewest(int rows) {
    const std::size_t from = Place(ListRow, ListCol), all = cells_.size(), size = Place(rows, 0);
    ListRow = std::min(ListRow, rows - 1);
    const std::size_t current = Place(ListRow, ListCol);
    std::vector<std::string> kept(size);
    kept[current].swap(cells_[from]);
    std::size_t back = 1;
    for (std::size_t i = 1; i < all && back < size; ++i) {
        std::string& text = cells_[(from + all - i) % all];
        if (!text.empty()) kept[(current + size - back++) % size].swap(text);
    }
    cells_ = std::move(kept);
}

void ListView::StepOn() {
    if (++ListCol < kColumns) return;
    ListCol = 0;
    if (++ListRow >= ListRows) ListRow = 0;
}

// The thirteen stars go without the address, which is required.
void ListView::SendEnd() {
    Program.LinkState.CommandText = "*************";
    SendCommand(Program.Link);
    StreamStop(Program.Link);
    Program.Port.SetRtsEnable(false);
}

}  // namespace counter
