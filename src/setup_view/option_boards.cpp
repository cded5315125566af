#include "setup_view/option_boards.h"

#include <algorithm>

#include "meter/boards.h"
#include "meter/field_lists.h"
#include "meter/firmware.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

using Entries = std::span<const std::string_view>;

// Entries of the list without and with the 16 bit board, and with the boards of the last generation.
constexpr std::size_t kOld = 2, kWith16Bits = 3, kAll = 5;

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
    bool changeable = !Meter().SetupFromMeter;
    InOpt.Inner.Enabled = RlyOpt.Inner.Enabled = ComOpt.Inner.Enabled = changeable;
    RlyOpt.Frame.Visible = ComOpt.Frame.Visible = AnaOpt.Frame.Visible = HasPanel(Meter().MeterType);
}

void OptionBoards::FillInput() {
    Form::Fill(InOpt.Inner, lists::kInputOption);
    Values().InputOption = InputOptionFromSetup(Image());
    Controls().SetIndex(InOpt.Inner, Values().InputOption);
}

void OptionBoards::FillRelays() {
    bool twoOnly = HasTwoRelaysOnly(Meter().MeterType);
    Entries all = lists::kRelayOption;
    Form::Fill(RlyOpt.Inner, twoOnly ? all.subspan(RelayBoard::TwoRelays, 1) : all);
    Values().RelayOption = RelayBoardOf(Image(), Meter().MeterType);
    Controls().SetIndex(RlyOpt.Inner, twoOnly ? 0 : Values().RelayOption);
    FollowRelays();
}

void OptionBoards::FillComm() {
    Form::Fill(ComOpt.Inner, lists::kCommOption);
    Values().CommOption = CommBoardOf(Image());
    Controls().SetIndex(ComOpt.Inner, Values().CommOption);
    FollowComm();
}

void OptionBoards::FillAnalog() {
    int version = Meter().FirmwareVersion;
    bool noLink = Program.Settings.CommsEnabled == Comms::NoLink;
    std::size_t entries = kOld;
    if (!HasOnly12BitAnalog(version) || noLink) entries = kWith16Bits;
    if (BipolarAnalogOffered(version) || noLink) entries = kAll;
    Form::Fill(AnaOpt.Inner, Entries(lists::kAnalogOption).first(entries));
    AnaOpt.Inner.Enabled = noLink || !Meter().SetupFromMeter || !AnalogBoardCanBeRead();

    if (!noLink) RefuseIncompatibleBoard(CodeOf(Image(), Field::AnalogOption));
    int board = AnalogBoardOf(Image(), version, Meter().MeterType);
    Values().AnalogOption = board;
    if (!BipolarAnalogOffered(version)) board = std::min<int>(board, AnalogBoard::Unipolar16Bit);
    Controls().SetIndex(AnaOpt.Inner, board);
    FollowAnalog();
}

bool OptionBoards::AnalogBoardCanBeRead() const {
    int version = Meter().FirmwareVersion;
    return Values().ProtocolCode == Protocol::CustomAscii ? !HasOnly12BitAnalog(version)
                                                          : ModbusTellsAnalogOption(version);
}

void OptionBoards::RefuseIncompatibleBoard(int storedBoard) {
    int version = Meter().FirmwareVersion;
    bool sixteenBits = storedBoard >= AnalogBoard::Unipolar16Bit && HasOnly12BitAnalog(version);
    bool dual = storedBoard == AnalogBoard::Dual16Bit && !BipolarAnalogOffered(version);
    if (!sixteenBits && !dual) return;
    Program.Dialogs.Show(
        {"Error", "The Analog Output module is not compatible with this instrument", BoxIcon::None});
    Program.Pump.EndProcess(kIncompatibleBoardExit);
}

void OptionBoards::FollowRelays() {
    View.Offer(kAlarmsTab, Values().RelayOption != RelayBoard::None);
    bool four = Values().RelayOption == RelayBoard::FourRelays;
    View.Alarms.fraAlarm[3].Visible = View.Alarms.fraAlarm[4].Visible = four;
    View.Alarms.NumRdgsAlms.Frame[1].Visible = four;
}

void OptionBoards::FollowComm() {
    View.Offer(kCommunicationTab, Values().CommOption != CommBoard::None);
}

void OptionBoards::FollowAnalog() {
    View.Offer(kAnalogTab, Values().AnalogOption != AnalogBoard::None || !HasPanel(Meter().MeterType));
    View.Analog.FollowBoard();
}

// A meter that has the two-relay board alone offers it as its one entry.
void OptionBoards::PickRelays(Control& list) {
    const int board = HasTwoRelaysOnly(Meter().MeterType) ? RelayBoard::TwoRelays : list.ListIndex;
    Values().RelayOption = board;
    PutCode(Image(), Field::RelayOption, CodeOfEntry(RowOf(Field::RelayOption), board));
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
    if (!HasPanel(Meter().MeterType)) Values().AnalogOption = AnalogBoard::Bipolar16Bit;
    FollowAnalog();
}

}  // namespace counter
