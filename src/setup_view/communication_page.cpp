#include "setup_view/communication_page.h"

#include <cstdlib>

#include <vector>

#include "meter/text.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr int kFirstRemoteDisplay = 6;
constexpr int kRemoteC = 12;
constexpr int kCounter = 3;  // MeterType
constexpr int kModbusRtu = 1;

// Lists and boxes that only show and write their field; those behind the protocol are shown later on opening.
std::vector<Binding> PlainLists(const CommunicationPage& page) {
    return {
        {page.BaudRate.Inner, Field::BaudRate},
        {page.Address.Inner, Field::Address},
        {page.OutItems.Inner, Field::OutputItems},
        {page.OutVal.Inner, Field::OutputFilter},
        {page.OutRate.Inner, Field::OutputRate},
        {page.SerMode.Inner, Field::OutputMode},
        {page.chkAlmData, Field::IncludeAlarmData},
        {page.chkLF, Field::IncludeLf},
        {page.CR.Inner, Field::Cr},
        {page.RTS.Inner, Field::RtsType},
        {page.Duplex.Inner, Field::Duplex},
    };
}

std::vector<Binding> ListsBehindProtocol(const CommunicationPage& page) {
    return {
        {page.Parity.Inner, Field::Parity},
        {page.MBTimeout.Inner, Field::ModbusTimeout},
        {page.RecogChr.Inner, Field::RecognitionChar},
        {page.TranChars.Inner, Field::TransmissionChars},
    };
}

// Bytes, and the label that names the character where there is one.
struct ByteBox {
    Control& Box;
    Field Stored;
    Control* Name;
};

std::vector<ByteBox> Bytes(const CommunicationPage& page) {
    return {
        {page.MBAddr.Inner, Field::ModbusAddress, nullptr},
        {page.CusRecog.Inner, Field::CustomRecognition, &page.lblCusRecog},
        {page.TranStart.Inner, Field::SpecialStartChar, &page.lblTranStart},
        {page.TranStop.Inner, Field::SpecialStopChar, &page.lblTranStop},
        {page.StartChr.Inner, Field::StartChar, &page.lblStartChr},
        {page.StopChr.Inner, Field::StopChar, &page.lblStopChr},
        {page.Skip.Inner, Field::SkipNo, nullptr},
        {page.ShowNo.Inner, Field::ShowNo, nullptr},
    };
}

}  // namespace

void CommunicationPage::Wire() {
    Bind(PlainLists(*this));
    Bind(ListsBehindProtocol(*this));
    for (const ByteBox& byte : Bytes(*this)) {
        Field field = byte.Stored;
        Controls().On(byte.Box, [this, field](Control& box) { OpenEntry(box, field); });
    }
    Controls().On(Protocol.Inner, [this](Control&) { PickProtocol(); });
    Controls().On(Parity.Inner, [this](Control&) { PickParity(); });
    Controls().On(TranChars.Inner, [this](Control& list) {
        Put(Field::TransmissionChars, list.ListIndex);
        View.MBRules(Values().ProtocolCode);
    });
    Controls().On(RecogChr.Inner, [this](Control& list) {
        Put(Field::RecognitionChar, list.ListIndex);
        CusRecog.Frame.Visible = list.ListIndex != 0;
    });
    Controls().On(lblAscTbl, [this](Control& label) {
        if (View.OpenHelp) View.OpenHelp(label.HelpNumber);
    });
}

void CommunicationPage::NameTheRoad() {
    fraSerComm.Caption =
        Program.LinkState.EthernetMode == 1 ? "Serial Communications via Ethernet" : "Serial Communications";
}

void CommunicationPage::FillLists() {
    const Binding protocol[] = {{Protocol.Inner, Field::SerialProtocol}};
    Fill(protocol);
    Fill(PlainLists(*this));
    Fill(ListsBehindProtocol(*this));
}

// The rules of the protocol run before the lists of recognition and transmission characters have a selection,
// so a freshly opened view shows the custom character and no special ones: required.
void CommunicationPage::ShowStored() {
    Show(PlainLists(*this));
    Show(Protocol.Inner, Field::SerialProtocol);
    Values().ProtocolCode = Stored(Field::SerialProtocol);
    View.MBRules(Values().ProtocolCode);
    Show(ListsBehindProtocol(*this));
    if (Stored(Field::ModbusAddress) == 0) Put(Field::ModbusAddress, 1);
    ShowBytes();
}

void CommunicationPage::ShowBytes() {
    for (const ByteBox& byte : Bytes(*this)) {
        byte.Box.Text = TextOfByte(byte.Stored);
        if (byte.Name) byte.Name->Caption = AsciiName(Stored(byte.Stored));
    }
}

void CommunicationPage::ApplyProtocol(int protocol) {
    bool ascii = protocol == 0;
    for (Control* shown : {&Address.Frame, &OutItems.Frame, &OutVal.Frame, &OutRate.Frame, &SerMode.Frame,
                           &chkAlmData, &chkLF, &CR.Frame, &TranChars.Frame, &RecogChr.Frame})
        shown->Visible = ascii;
    Parity.Frame.Visible = MBAddr.Frame.Visible = !ascii;
    MBTimeout.Frame.Visible = !ascii && protocol != kModbusRtu;  // RTU has no time-out of its own
    fraRmtDspyC.Visible = ascii && Values().DisplayType == kRemoteC;
    RTS.Frame.Visible = ascii && Meter().MeterType == kCounter;
    Duplex.Frame.Visible = true;
    bool special = ascii && TranChars.Inner.ListIndex == 1;
    TranStart.Frame.Visible = TranStop.Frame.Visible = special;
    lblAscTbl.Visible = fraRmtDspyC.Visible || special;
    CusRecog.Frame.Visible = ascii && RecogChr.Inner.ListIndex != 0;
}

// A remote display sends nothing of its own. Both special characters show here whatever the list of
// transmission characters says, until the rules of the protocol run next: required.
void CommunicationPage::Come() {
    bool sends = Values().DisplayType < kFirstRemoteDisplay;
    for (const Framed* pair : {&OutItems, &OutVal, &OutRate, &SerMode, &CR, &RTS})
        pair->Frame.Enabled = pair->Inner.Enabled = sends;
    chkAlmData.Enabled = chkLF.Enabled = sends;
    bool special = Protocol.Inner.ListIndex == 0 && View.Input.DType.Inner.ListIndex < kFirstRemoteDisplay;
    TranChars.Frame.Visible = TranStart.Frame.Visible = TranStop.Frame.Visible = special;
}

void CommunicationPage::PickProtocol() {
    int protocol = Protocol.Inner.ListIndex;
    Put(Field::SerialProtocol, protocol);
    if (protocol != 0 && View.Input.DType.Inner.ListIndex == kRemoteC) View.Input.LeaveRemoteC();
    if (protocol == 0) Program.LinkState.ParityIndex = 0;
    Values().ProtocolCode = protocol;
    View.MBRules(protocol);
}

void CommunicationPage::PickParity() {
    Put(Field::Parity, Parity.Inner.ListIndex);
    Program.LinkState.ParityIndex = Parity.Inner.ListIndex;
}

void CommunicationPage::EntryClosed(const Control& entered) {
    // An address 0 stands in the image until the view is opened again or the setup is written.
    if (&entered == &MBAddr.Inner && MBAddr.Inner.Text.find_first_not_of(" 0") == std::string::npos)
        MBAddr.Inner.Text = " 1";
    // The characters of the remote display go by their box; the others by the last byte that was entered in
    // any box, which after a Cancel is another one: required.
    const bool remote = &entered == &StartChr.Inner || &entered == &StopChr.Inner;
    const int code = remote ? std::atoi(entered.Text.c_str()) : Program.Views.EntryByte;
    for (const ByteBox& byte : Bytes(*this)) {
        if (&entered == &byte.Box && byte.Name) byte.Name->Caption = AsciiName(code);
    }
}

}  // namespace counter
