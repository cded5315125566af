#include "compare/compare_view.h"

#include <algorithm>
#include <utility>

#include "compare/take_over.h"
#include "shell/backups.h"
#include "shell/home_view.h"
#include "shell/read_meter.h"
#include "shell/setup_files.h"
#include "shell/start.h"

namespace counter {

namespace {

constexpr const char* kCsvFilter = "Tables (*.CSV)|*.CSV";
constexpr const char* kNothingYet =
    "Choose a file, a backup or the meter to compare the setup in memory with.";

std::string Counted(std::size_t count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string Joined(const std::vector<std::string>& texts, const char* between) {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : between) + text;
    return joined;
}

std::string WordsOf(const TakenOver& taken) {
    std::string words = Counted(taken.Taken.size(), "field") + " taken over.";
    if (!taken.Changed.empty()) words += " Changed with it: " + Joined(taken.Changed, ", ") + ".";
    if (!taken.Refused.empty()) words += " Not taken: " + Joined(taken.Refused, "; ") + ".";
    return words;
}

}  // namespace

CompareView::CompareView(Session& session) : Program(session) {
    On(cmdFile, &CompareView::CompareWithFile);
    On(cmdMeter, &CompareView::CompareWithMeter);
    On(Backup.Inner, &CompareView::CompareWithBackup);
    On(chkDiffer, &CompareView::Pair);
    On(cmdTake, &CompareView::TakeOverMarked);
    On(cmdCsv, &CompareView::SaveCsv);
    On(cmdCopy, &CompareView::Copy);
    On(cmdCancel, &CompareView::Cancel);
    Controls.On(cmdMainMenu, [this](Control&) {
        if (ShowMainMenu) ShowMainMenu();
    });
    chkDiffer.Value = 1;
}

void CompareView::On(Control& control, void (CompareView::*action)()) {
    Controls.On(control, [this, action](Control&) { (this->*action)(); });
}

void CompareView::Activate() {
    ++stay_;
    otherName_.clear();
    ListBackups();
    Tell({});
    Pair();
}

void CompareView::PutAway() {
    Cancel();
    ++stay_;
    otherName_.clear();
    Pair();
}

// A Put that began in a wait of the reading is not for this view to end.
void CompareView::Cancel() {
    if (cmdCancel.Visible) Program.Home.CancelTransfers();
}

void CompareView::Follow() {
    if (!otherName_.empty() && Program.Image != memory_) return Pair();
    ShowState();
}

void CompareView::ListBackups() {
    backups_ = NewestBackups(Program.Folder, kBackupsOffered);
    const std::vector<std::string_view> entries(backups_.begin(), backups_.end());
    Form::Fill(Backup.Inner, entries);
    Backup.Inner.Enabled = !backups_.empty();
}

void CompareView::CompareWithFile() {
    const int stay = stay_;
    const std::string path =
        Program.Dialogs.AskOpenFile({"Compare with Setup File", std::string(HomeView::kSetupFilter)});
    if (path.empty() || stay != stay_) return;
    Controls.SetIndex(Backup.Inner, -1);
    Load(path);
}

void CompareView::CompareWithBackup() {
    const auto index = static_cast<std::size_t>(Backup.Inner.ListIndex);
    if (index < backups_.size()) Load(BackupPath(Program.Folder, backups_[index]));
}

void CompareView::Load(const std::string& path) {
    SetupImage other;
    std::string wrong;
    if (Status status = LoadSetupFile(Program.Folder.Store, path, other, wrong); !status.Ok())
        return Tell(status.Text(), ColorRed);
    Take(other, path);
    if (!wrong.empty()) Tell(path + ": no whole setup: " + wrong, ColorRed);
}

// A press on the button does nothing while the meter is read; for who leaves meanwhile it is read no further.
void CompareView::CompareWithMeter() {
    const int stay = stay_;
    Controls.SetIndex(Backup.Inner, -1);
    ReopenLine(Program);  // where it can't be opened, that shows in the transfer's own number
    reading_ = true;
    Tell("Reading the meter to compare.", ColorGreen);
    const MeterReading reading = ReadMeter(Program, Program.Image);
    reading_ = false;
    ShowState();
    if (stay != stay_) {
        if (Program.Home.StatusText == HomeView::kStopping) Program.Home.HideStatus();
        return;
    }
    if (!reading.Trouble.empty()) return Tell(reading.Trouble, ColorRed);
    Take(reading.Came, "the meter");
}

void CompareView::Take(const SetupImage& other, const std::string& name) {
    other_ = other;
    otherName_ = name;
    Pair();
    const auto differing =
        std::count_if(all_.begin(), all_.end(), [](const FieldPair& p) { return p.Differs; });
    Tell(differing == 0 ? "No field differs."
                        : Counted(static_cast<std::size_t>(differing), "field") +
                              (differing == 1 ? " differs." : " differ."));
}

// The version is the one that a Put would go by.
void CompareView::Pair() {
    memory_ = Program.Image;
    all_.clear();
    if (!otherName_.empty()) {
        all_ = PairSetups(memory_, other_, RoadOf(Program.LinkState), Program.Identity.FirmwareVersion);
        if (const auto surplus = SurplusDifference(memory_, other_)) all_.push_back({*surplus});
    }
    rows_.clear();
    const bool only = chkDiffer.Value == 1;
    std::copy_if(all_.begin(), all_.end(), std::back_inserter(rows_),
                 [only](const FieldPair& row) { return row.Differs || !only; });
    marked_.clear();
    ShowState();
}

void CompareView::Mark(std::vector<std::size_t> rows) {
    std::erase_if(rows, [this](std::size_t row) { return row >= rows_.size(); });
    if (rows == marked_) return;
    marked_ = std::move(rows);
    ShowState();
}

void CompareView::TakeOverMarked() {
    std::vector<Field> fields;
    for (const std::size_t row : marked_) {
        if (rows_[row].Differs && rows_[row].Of != Field::Count) fields.push_back(rows_[row].Of);
    }
    const TakenOver taken = TakeOver(Program, other_, fields);
    if (Program.Home.Changed) Program.Home.Changed();
    Pair();
    Tell(WordsOf(taken), taken.Refused.empty() ? ColorGreen : ColorRed);
}

void CompareView::SaveCsv() {
    const int stay = stay_;
    const std::string table = CompareCsv(rows_);
    const std::string path = Program.Dialogs.AskSaveFile({"Save As CSV", kCsvFilter, true, "compared.CSV"});
    if (path.empty()) return;
    const Status status = Program.Folder.Store.Write(path, table);
    if (stay != stay_) return;
    Tell(status.Ok() ? "Saved in " + path : status.Text(), status.Ok() ? ColorWhite : ColorRed);
}

void CompareView::Copy() {
    const std::vector<FieldPair> rows = MarkedOrAll();
    if (ToClipboard) ToClipboard(CompareText(rows));
    Tell(Counted(rows.size(), "line") + " copied.");
}

std::vector<FieldPair> CompareView::MarkedOrAll() const {
    if (marked_.empty()) return rows_;
    std::vector<FieldPair> rows;
    for (const std::size_t row : marked_) rows.push_back(rows_[row]);
    return rows;
}

void CompareView::Tell(const std::string& text, Color color) {
    lblStatus.Caption = text;
    lblStatus.TextColor = color;
    ShowState();
}

void CompareView::ShowState() {
    const HomeState& home = Program.Home;
    const bool link = Program.Settings.CommsEnabled != 0 || Program.LinkState.EthernetMode;
    const auto takes = [this](std::size_t row) {
        return rows_[row].Differs && rows_[row].Of != Field::Count;
    };
    cmdMeter.Enabled = link && !reading_ && home.Transfers == 0 && Program.Writes.Running == 0;
    cmdTake.Enabled = std::any_of(marked_.begin(), marked_.end(), takes);
    cmdCsv.Enabled = !otherName_.empty();
    cmdCopy.Enabled = !rows_.empty();
    lblOther.Caption = otherName_.empty() ? kNothingYet : "In memory, and " + otherName_;
    pbBar.Value = home.ProgressPercent;
    pbBar.Visible = reading_ && home.ProgressVisible;
    cmdCancel.Visible = reading_ && home.Transfers == 1;
    Controls.TellChanged();
}

}  // namespace counter
