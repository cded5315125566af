#include "readings/reading_view.h"

#include <algorithm>
#include <span>
#include <utility>

#include "link/link_error.h"
#include "link/list_cutter.h"
#include "link/reading_items.h"
#include "meter/leading_number.h"

namespace counter {

namespace {

constexpr std::string_view kItemEntries[] = {"Item 1", "Item 2", "Item 3"};

int NoHelp(std::string_view) {
    return 0;
}

}  // namespace

ReadingView::ReadingView(Session& session, std::unique_ptr<FrameCutter> cutter)
    : Program(session), Stream(session.Link, std::move(cutter)), Build(Controls, kEveryTab, NoHelp) {
    Stream.TakeFrame = [this](const Frame& frame) { Take(frame); };
    Controls.On(cboItem, [this](Control&) { ChooseItem(); });
    OnPress(cmdRecord, [this] { PressRecord(); });
    OfferItems(1);
    Stream.PassDone = [this] {
        if (Drawn) Drawn();
    };
}

// A reading that ends a sweep is in no figure, as it is in no chart.
void ReadingView::Take(const Frame& frame) {
    if (!answered_) TakeFirst();
    items_ = ItemsOf(frame.Whole.empty() ? frame.Text : frame.Whole);
    OfferItems(std::max(Statistics.ItemsSeen(), static_cast<int>(items_.size())));
    TakeReading(frame.Text, frame.OnlySizes);
    if (!frame.OnlySizes && Stream.ReadingPaused == 0) Statistics.Take(items_, Program.Pump.NowMs());
}

// As many as a frame of the run has; an item that is no more gives way to the first.
void ReadingView::OfferItems(int count) {
    const auto offered = static_cast<std::size_t>(std::clamp(count, 1, kMostItems));
    if (cboItem.Entries.size() == offered) return;
    Form::Fill(cboItem, std::span(kItemEntries).first(offered));
    cboItem.Enabled = offered > 1;
    Controls.SetIndex(cboItem, Item <= static_cast<int>(offered) ? Item - 1 : 0);
    Controls.TellChanged();
}

void ReadingView::ChooseItem() {
    if (Item == cboItem.ListIndex + 1) return;
    Item = cboItem.ListIndex + 1;
    ItemChosen();
}

void ReadingView::PressRecord() {
    if (!Keeper) return;
    if (recording_) return EndRecord();
    const Status status = Keeper->Begin();
    TellStatus(status.Ok() ? "" : status.Text());
    if (!status.Ok()) return;
    recording_ = true;
    cmdRecord.Caption = "Stop Record";
    Stream.KeepAll(std::make_unique<ListCutter>(Program.Frames),
                   [this](const Frame& frame) { Keeper->Take(frame.Text); });
}

void ReadingView::EndRecord() {
    if (!std::exchange(recording_, false)) return;
    cmdRecord.Caption = "Record";
    Stream.KeepAll(nullptr, {});
    if (const Status status = Keeper->End(); !status.Ok()) TellStatus(status.Text());
}

RunState ReadingView::State() const {
    const RunHold pause = Stream.ReadingPaused == 1 ? RunHold::Paused : RunHold::None;
    return Statistics.StateAt(Program.Pump.NowMs(), IsFull() ? RunHold::Full : pause);
}

std::optional<double> ReadingView::ItemValue(int item) const {
    const auto index = static_cast<std::size_t>(item) - 1;
    if (index >= items_.size() || items_[index].empty()) return std::nullopt;
    return LeadingNumber(items_[index]);
}

void ReadingView::Unload() {
    ++life_;
    ++run_;
    up_ = ending_ = false;
    Stream.Detach();
    Stream.ReadingPaused = 0;
    Statistics.Forget();
    items_.clear();
    Controls.DropFocus();
    EndRecord();
    TellStatus("");
    Reset();
    Controls.TellChanged();
}

void ReadingView::OnPress(Control& button, std::function<void()> action) {
    Controls.On(button, [this, act = std::move(action)](Control&) {
        if (Acts()) act();
    });
}

int ReadingView::StartRun() {
    const int number = ++run_;
    Stream.Detach();
    Stream.ReadingPaused = 0;
    Statistics.Begin(Program.Pump.NowMs());
    StreamStart(Program.Link);
    return number;
}

bool ReadingView::Holds(int number) {
    if (number == run_) return true;
    if (up_) {
        // The command of this dead run took characters out of the stream of the living one; or there is none,
        // and what the meter now sends is thrown away.
        Stream.Attach();
    } else if (!Program.Port.Arrived) {
        StreamStop(Program.Link);
    }
    return false;
}

void ReadingView::ResumeRun() {
    Stream.Resume();
    Statistics.Continue(Program.Pump.NowMs());
}

void ReadingView::StopRun() {
    ++run_;
    Statistics.End();
    Stream.Pause();
}

void ReadingView::ComeUp() {
    up_ = true;
    answered_ = false;
    TellStatus("");
    Controls.TellChanged();
}

void ReadingView::TakeFirst() {
    const bool stands = !StandingStatus().empty() && StatusLine->Caption == StandingStatus();
    answered_ = true;
    if (!stands) return;
    TellStatus("");
    Controls.TellChanged();
}

std::string ReadingView::StandingStatus() const {
    const int error = Program.Frames.Failure;
    if (!up_ || answered_) return {};
    if (!Program.LineTrouble.Ok()) return Program.LineTrouble.Text();
    if (error == LinkErrors::kGood) return {};
    return "The meter did not say how its readings end, check connections: " +
           LinkErrorMeaning(error, ErrorSource::Unknown) + "      ( " + std::to_string(error) + ")";
}

void ReadingView::TellStatus(const std::string& text) {
    StatusLine->Caption = text.empty() ? StandingStatus() : text;
    StatusLine->Visible = !StatusLine->Caption.empty();
    StatusLine->TextColor = ColorRed;
}

// What an earlier print left on the status line is no part of this one.
void ReadingView::PressPrint() {
    if (!Paper) return;
    TellStatus("");
    Controls.TellChanged();
    const int life = life_;
    const Status status = Paper->PrintView();
    if (life == life_) TellStatus(status.Ok() ? "" : status.Text());
}

// Pressed again during one of its waits it does nothing, since it is on its way.
void ReadingView::PressEnd() {
    LeaveByEnd();
    if (std::exchange(exitWanted_, false) && ExitProgram) ExitProgram();
}

bool ReadingView::HoldExit() {
    if (ending_) exitWanted_ = true;
    return ending_;
}

void ReadingView::LeaveByEnd() {
    const int life = life_;
    ending_ = true;
    StopRun();
    SendEnd();
    LetEventsRun();
    if (life != life_) return;
    Program.Home.ShowHourglass(true);
    if (ShowMainMenu) ShowMainMenu();
    Program.Home.ShowHourglass(false);
    if (life == life_) Unload();
}

void ReadingView::SendEnd() {
    StreamStop(Program.Link);
}

// One turn of a wait, a millisecond at most.
void ReadingView::LetEventsRun() {
    int turns = 0;
    Program.Pump.WaitUntil(
        Program.Pump.NowMs() + 1, [&] { return turns++ > 0; }, "events run");
}

}  // namespace counter
