#include "curve/send_curve_view.h"

#include <algorithm>
#include <vector>

#include "meter/field_code.h"
#include "meter/mode_tables.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr std::size_t kMostNameLength = 8;

constexpr const char* kCounterText =
    "  THE CUSTOM CURVE PARAMETERS TO BE SENT ARE STORED IN A .PRM FILE.\n"
    "  THIS ROUTINE SENDS THE PARAMETERS VIA RS-232 OR RS-485 TO THE COUNTER\n"
    "  WHERE THEY ARE STORED IN NON-VOLATILE MEMORY, EITHER ON THE MAIN COMPUTER\n"
    "  BOARD (CURVE #1) OR ON THE OPTIONAL V-TO-F CONVERTER BOARD (CURVE #2), IF\n"
    "  INSTALLED.  \n"
    "\n"
    "  IN USE, THE COUNTER MENU ITEM 'CONFIG', DIGIT 4 SELECTS WHICH OF THE TWO\n"
    "  CURVES, IF EITHER, IS BEING USED ACCORDING TO THE FOLLOWING:\n"
    "  CONFIG DIGIT 4 = 0   BASIC COUNTER (LIMITED FUNCTIONS, NO CURVE)\n"
    "                     = 1   EXTENDED COUNTER (ALL FUNCTIONS, NO CURVE)\n"
    "                     = 2   EXTENDED COUNTER, CURVE #1\n"
    "                     = 3   EXTENDED COUNTER, CURVE #2 (AVAIL ONLY WITH V-F)\n"
    "\n";
constexpr const char* kNoVFBoardText =
    "  NO VF BOARD INSTALLED.  .PRM FILE WILL BE STORED ON THE COMPUTER BD.\n";
constexpr const char* kVFBoardText =
    "  VF BOARD INSTALLED.  SELECT TO STORE .PRM FILE ON COMPUTER BD OR VF BD.\n";

constexpr const char* kOtherMeterText =
    "  THE CUSTOM CURVE PARAMETERS ARE STORED IN A .PRM FILE.\n"
    "  THIS ROUTINE SENDS THE PARAMETERS VIA RS-232 OR RS-485 TO THE METER\n"
    "  WHERE THEY ARE STORED IN NON-VOLATILE MEMORY ON THE SIGNAL CONDITIONER\n"
    "  BOARD.  THE METER MENU ITEM 'CONFIG', DIGIT 5 MAY SELECT THE CUSTOM\n"
    "  CURVE ACCORDING TO THE FOLLOWING:\n"
    "    CONFIG DIGIT 5 = 0   LINEAR RANGES (BASIC OR EXTENDED METER)\n"
    "                    = 1   CUSTOM CURVE (EXTENDED METER ONLY)\n"
    "\n";

// Of a text in UTF-8, whose further bytes of a character are 80 to BF.
std::size_t CharactersIn(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// Counters alone have a second curve.
bool HasTwoCurves(int meterType) {
    return IsCounterKind(meterType);
}

bool HasVFBoard(const SetupImage& image) {
    return IsVfMode(CodeOf(image, Field::Mode));
}

}  // namespace

SendCurveView::SendCurveView(Session& session) : Program(session) {
    cmdCancel.Enabled = false;
    Controls.On(cmdGo, [this](Control&) { Go(); });
    Controls.On(cmdCancel, [this](Control&) { Cancel(); });
    Controls.On(cmdDone, [this](Control&) {
        Unload();
        if (CloseDialog) CloseDialog();
    });
}

void SendCurveView::Load() {
    txtPath.Text = folder_.empty() ? Program.Folder.Store.Absolute(Program.Folder.At("")) : folder_;
    txtFileName.Text.clear();
    fraVF.Visible = true;
    Controls.SetOption(optMainBd, true);
    Explain();
}

void SendCurveView::Unload() {
    ++opening_;
    Controls.DropFocus();
    picSend.Text.clear();
}

void SendCurveView::Explain() {
    if (!HasTwoCurves(Program.Identity.MeterType)) {
        picSend.Text = kOtherMeterText;
    } else {
        fraVF.Visible = HasVFBoard(Program.Image);
        picSend.Text = std::string(kCounterText) + (fraVF.Visible ? kVFBoardText : kNoVFBoardText);
        if (!fraVF.Visible) Controls.SetOption(optMainBd, true);
    }
    Controls.TellChanged();
}

void SendCurveView::Go() {
    Explain();
    const std::string name(Trimmed(txtFileName.Text));
    if (!AcceptsName(name)) return;
    std::string content;
    const bool read = Program.Folder.Store.Read(PathOf(name), content).Ok();
    if (read) folder_ = txtPath.Text;
    const auto items = read ? ParsePrm(content) : std::nullopt;
    if (items) {
        Send(*items);
    } else {
        Tell("Error", "File doesn't exist.");  // whatever is wrong with it: required
    }
}

void SendCurveView::Send(const CurveItems& items) {
    const int opening = opening_;
    const auto write = [this, opening](const std::string& text) {
        if (opening == opening_) Write(text);
    };
    const int number = ++begun_;
    const auto cancelled = [this, number] { return number <= cancelledUpTo_; };
    cmdCancel.Enabled = ++sending_ > 0;
    CurveEnd end = CurveEnd::NotVerified;
    {
        const SetupWriteScope scope(Program.Writes,
                                    [&end] { return std::string("Custom curve: ") + LeftBy(end); });
        end = SendCurve(Program.Link, items, Target(), write,
                        [&] { return Program.Writes.EndWanted() || cancelled(); });
    }
    cmdCancel.Enabled = --sending_ > 0;
    if (cancelled() && (end == CurveEnd::NotBegun || end == CurveEnd::NotVerified))
        write(std::string(" CANCELLED: ") + LeftBy(end) + ".");
    if (end == CurveEnd::Failed) {
        write(kVerifyFailedText);
        write(kCheckCablingText);
    }
    if (end == CurveEnd::Stored) {
        write(kStoredText);
        if (opening == opening_) Controls.SetFocus(cmdDone);
    }
    Controls.TellChanged();
    Program.Writes.EndIfWanted();
}

bool SendCurveView::Cancel() {
    if (sending_ == 0) return false;
    cancelledUpTo_ = begun_;
    return true;
}

bool SendCurveView::AcceptsName(std::string_view name) {
    const char* wrong = nullptr;
    if (name.empty()) {
        wrong = " NO NAME ENTERED.";
    } else if (name.find('.') != std::string_view::npos) {
        wrong = "DO NOT ENTER EXTENSION.";
    } else if (CharactersIn(name) > kMostNameLength) {
        wrong = " LIMIT NAME TO 8 CHARACTERS";
    }
    if (wrong != nullptr) Tell("", wrong);
    return wrong == nullptr;
}

std::string SendCurveView::PathOf(std::string_view name) const {
    const std::string typed = txtPath.Text + std::string(name) + ".PRM";
    const std::string path = typed.starts_with('/') ? typed : Program.Folder.At(typed);
    const FileReader& files = Program.Folder.Store;
    if (files.Exists(path)) return path;
    const std::size_t nameAt = path.rfind('/') + 1;
    const std::string folder = path.substr(0, nameAt), wanted = SmallLetters(path.substr(nameAt));
    std::vector<std::string> names;
    files.List(folder.substr(0, std::max<std::size_t>(nameAt - 1, 1)), names);
    const auto same = std::ranges::find(names, wanted, SmallLetters);
    return same == names.end() ? path : folder + *same;
}

CurveBoard SendCurveView::Target() const {
    const bool main = !HasTwoCurves(Program.Identity.MeterType) || optMainBd.Value == 1;
    return main ? CurveBoard::Main : CurveBoard::VToF;
}

void SendCurveView::Write(const std::string& text) {
    picSend.Text += text + "\n";
    Controls.TellChanged();
}

void SendCurveView::Tell(const char* title, const char* text) {
    Program.Dialogs.Show({title, text});
}

}  // namespace counter
