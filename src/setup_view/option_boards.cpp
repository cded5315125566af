#include "setup_view/option_boards.h"

#include <algorithm>

#include "meter/field_lists.h"
#include "meter/firmware.h"
#include "meter/firmware_rules.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

using Entries = std::span<const std::string_view>;

// From this kind on a meter has two relays and no choice of boards.
constexpr int kFirstTransmitter = 5;

}  // namespace

void OptionBoards::Wire() {
    Bind({InOpt.Inner, Field::InputOption},
         [this](Control& list) { View.Modes.PickInputBoard(list.ListIndex); });
    Bind({RlyOpt.Inner, Field::RelayOption}, [this](Control& list) { PickRelays(list); });
    Bind({ComOpt.Inner, Field::CommOption}, [this](Control& list) { PickComm(list); });
    Bind({AnaOpt.Inner, Field::AnalogOption}, [this](Control& list) { PickAnalog(list); });
}

void OptionBoards::OptionBoardsFill() {
    FillInput();
    FillRelays();
    FillComm();
    FillAnalog();
    // The boards of a meter that was read are fixed.
    bool changeable = Meter().SetupFromMeter != 1;
    InOpt.Inner.Enabled = RlyOpt.Inner.Enabled = ComOpt.Inner.Enabled = changeable;
    RlyOpt.Frame.Visible = ComOpt.Frame.Visible = AnaOpt.Frame.Visible = Meter().MeterType != 7;
}

void OptionBoards::FillInput() {
    Form::Fill(InOpt.Inner, lists::kInputOption);
    Values().InputOption = InputOptionFromSetup(Image());
    Controls().SetIndex(InOpt.Inner, Values().InputOption);
}

void OptionBoards::FillRelays() {
    if (Meter().MeterType >= kFirstTransmitter) {
        Form::Fill(RlyOpt.Inner, Entries(lists::kRelayOption).subspan(1, 1));
        Values().RelayOption = 1;
        Controls().SetIndex(RlyOpt.Inner, 0);
    } else {
        Form::Fill(RlyOpt.Inner, lists::kRelayOption);
        Values().RelayOption = IndexOfCode(RowOf(Field::RelayOption), CodeOf(Image(), Field::RelayOption));
        Controls().SetIndex(RlyOpt.Inner, Values().RelayOption);
    }
    FollowRelays();
}

void OptionBoards::FillComm() {
    Form::Fill(ComOpt.Inner, lists::kCommOption);
    Show(ComOpt.Inner, Field::CommOption);
    Values().CommOption = ComOpt.Inner.ListIndex;
    FollowComm();
}

void OptionBoards::FillAnalog() {
    int version = Meter().FirmwareVersion;
    bool noLink = Program.Settings.CommsEnabled == 0;
    std::size_t entries = 2;
    if (!HasOnly12BitAnalog(version) || noLink) entries = 3;
    if (BipolarAnalogOffered(version) || noLink) entries = 5;
    Form::Fill(AnaOpt.Inner, Entries(lists::kAnalogOption).first(entries));
    AnaOpt.Inner.Enabled = noLink || Meter().SetupFromMeter != 1 || !AnalogBoardCanBeRead();

    int board = CodeOf(Image(), Field::AnalogOption);
    if (!noLink) RefuseIncompatibleBoard(board);
    if (HasOnly12BitAnalog(version)) board = 1;
    if (BipolarAnalogOffered(version) && Meter().MeterType == 7) board = 3;
    Values().AnalogOption = board;
    View.Analog.fraAnaOut.Visible = board != 0;
    Controls().SetIndex(AnaOpt.Inner, BipolarAnalogOffered(version) ? board : std::min(board, 2));
    FollowAnalog();
}

bool OptionBoards::AnalogBoardCanBeRead() const {
    int version = Meter().FirmwareVersion;
    return Values().ProtocolCode == 0 ? !HasOnly12BitAnalog(version) : ModbusTellsAnalogOption(version);
}

void OptionBoards::RefuseIncompatibleBoard(int storedBoard) {
    int version = Meter().FirmwareVersion;
    bool sixteenBits = storedBoard >= 2 && HasOnly12BitAnalog(version);
    bool dual = storedBoard == 4 && !BipolarAnalogOffered(version);
    if (!sixteenBits && !dual) return;
    Program.Dialogs.Show(
        {"Error", "The Analog Output module is not compatible with this instrument", BoxIcon::None});
    Program.Pump.EndProcess(kIncompatibleBoardExit);
}

void OptionBoards::FollowRelays() {
    View.Offer(kAlarmsTab, Values().RelayOption != 0);
    bool four = Values().RelayOption == 2;
    View.Alarms.fraAlarm[3].Visible = View.Alarms.fraAlarm[4].Visible = four;
    View.Alarms.NumRdgsAlms.Frame[1].Visible = four;
}

void OptionBoards::FollowComm() {
    View.Offer(kCommunicationTab, Values().CommOption == 1 || Values().CommOption == 2);
}

void OptionBoards::FollowAnalog() {
    View.Offer(kAnalogTab, Values().AnalogOption > 0 || Meter().MeterType == 7);
}

// Where a meter has the two-relay board alone, picking that one entry stores "none": required.
void OptionBoards::PickRelays(Control& list) {
    Values().RelayOption = list.ListIndex;
    PutCode(Image(), Field::RelayOption, CodeOfEntry(RowOf(Field::RelayOption), list.ListIndex));
    FollowRelays();
}

void OptionBoards::PickComm(Control& list) {
    Values().CommOption = list.ListIndex;
    PutCode(Image(), Field::CommOption, list.ListIndex);
    FollowComm();
}

void OptionBoards::PickAnalog(Control& list) {
    Values().AnalogOption = list.ListIndex;
    PutCode(Image(), Field::AnalogOption, list.ListIndex);
    if (Meter().MeterType == 7) Values().AnalogOption = 3;
    FollowAnalog();
}

}  // namespace counter
