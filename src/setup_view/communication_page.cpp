#include "setup_view/communication_page.h"

#include <vector>

#include "meter/field_value.h"
#include "meter/meter_words.h"
#include "meter/text.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

// Lists and boxes that only show and write their field; on opening, those of ListsAfterProtocol are shown
// later.
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

std::vector<Binding> ListsAfterProtocol(const CommunicationPage& page) {
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
    Field Of;
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
    Bind(ListsAfterProtocol(*this));
    for (const ByteBox& byte : Bytes(*this)) Bind({byte.Box, byte.Of});
    Bind({Protocol.Inner, Field::SerialProtocol}, [this](Control&) { PickProtocol(); });
    Controls().On(Parity.Inner, [this](Control&) { PickParity(); });
    Controls().On(TranChars.Inner, [this](Control& list) {
        PutCode(Image(), Field::TransmissionChars, list.ListIndex);
        MBRules(Values().ProtocolCode);
    });
    Controls().On(RecogChr.Inner, [this](Control& list) {
        PutCode(Image(), Field::RecognitionChar, list.ListIndex);
        CusRecog.Frame.Visible = list.ListIndex != 0;
    });
    Controls().On(lblAscTbl, [this](Control& label) {
        if (View.OpenHelp) View.OpenHelp(label.HelpNumber);
    });
}

void CommunicationPage::NameTheWay() {
    fraSerComm.Caption =
        Program.LinkState.EthernetMode ? "Serial Communications via Ethernet" : "Serial Communications";
}

void CommunicationPage::FillLists() {
    const Binding protocol[] = {{Protocol.Inner, Field::SerialProtocol}};
    Fill(protocol);
    Fill(PlainLists(*this));
    Fill(ListsAfterProtocol(*this));
}

// The rules of the protocol run before the lists of recognition and transmission characters have a selection,
// and once more when they have.
void CommunicationPage::ShowFields() {
    Show(PlainLists(*this));
    Show(Protocol.Inner, Field::SerialProtocol);
    Values().ProtocolCode = CodeOf(Image(), Field::SerialProtocol);
    MBRules(Values().ProtocolCode);
    Show(ListsAfterProtocol(*this));
    MBRules(Values().ProtocolCode);
    if (CodeOf(Image(), Field::ModbusAddress) == 0) PutCode(Image(), Field::ModbusAddress, 1);
    ShowBytes();
}

void CommunicationPage::ShowBytes() {
    for (const ByteBox& byte : Bytes(*this)) {
        byte.Box.Text = TextOfByte(byte.Of);
        if (byte.Name) byte.Name->Caption = AsciiName(CodeOf(Image(), byte.Of));
    }
}

void CommunicationPage::MBRules(int protocol) {
    SetupView::Quiet quiet(View);
    bool ascii = protocol == Protocol::CustomAscii;
    for (Control* shown : {&Address.Frame, &OutItems.Frame, &OutVal.Frame, &OutRate.Frame, &SerMode.Frame,
                           &chkAlmData, &chkLF, &CR.Frame, &TranChars.Frame, &RecogChr.Frame})
        shown->Visible = ascii;
    Parity.Frame.Visible = MBAddr.Frame.Visible = !ascii;
    MBTimeout.Frame.Visible = !ascii && protocol != Protocol::ModbusRtu;  // RTU has no time-out of its own
    RTS.Frame.Visible = ascii && Meter().MeterType == MeterKind::Counter;
    Duplex.Frame.Visible = true;
    bool special = ascii && TranChars.Inner.ListIndex == 1;
    TranStart.Frame.Visible = TranStop.Frame.Visible = special;
    CusRecog.Frame.Visible = ascii && RecogChr.Inner.ListIndex != 0;
    ShowRemoteC();
}

void CommunicationPage::ShowRemoteC() {
    const bool ascii = Values().ProtocolCode == Protocol::CustomAscii;
    fraRmtDspyC.Visible = ascii && Values().DisplayType == DisplayType::RemoteC;
    lblAscTbl.Visible = fraRmtDspyC.Visible || (ascii && TranChars.Inner.ListIndex == 1);
}

// A remote display sends nothing of its own. Both special characters show here whatever the list of
// transmission characters says, until the rules of the protocol run next: required.
void CommunicationPage::Come() {
    bool sends = !IsRemoteDisplay(Values().DisplayType);
    for (const Framed* pair : {&OutItems, &OutVal, &OutRate, &SerMode, &CR, &RTS})
        pair->Frame.Enabled = pair->Inner.Enabled = sends;
    chkAlmData.Enabled = chkLF.Enabled = sends;
    bool special = Protocol.Inner.ListIndex == Protocol::CustomAscii &&
                   !IsRemoteDisplay(View.Input.DType.Inner.ListIndex);
    TranChars.Frame.Visible = TranStart.Frame.Visible = TranStop.Frame.Visible = special;
}

void CommunicationPage::PickProtocol() {
    int protocol = Protocol.Inner.ListIndex;
    PutCode(Image(), Field::SerialProtocol, protocol);
    const int stay = View.Stay();
    if (protocol != Protocol::CustomAscii && View.Input.DType.Inner.ListIndex == DisplayType::RemoteC)
        View.Input.LeaveRemoteC();
    if (stay != View.Stay()) return;
    if (protocol == Protocol::CustomAscii) Program.LinkState.ParityIndex = Parity::None;
    Values().ProtocolCode = protocol;
    MBRules(protocol);
}

void CommunicationPage::PickParity() {
    PutCode(Image(), Field::Parity, Parity.Inner.ListIndex);
    Program.LinkState.ParityIndex = Parity.Inner.ListIndex;
}

void CommunicationPage::GiveLineItsParity() {
    const auto same = [this](Field field) { return FieldEqual(Image(), Program.Origin.Image, field); };
    const bool ascii = CodeOf(Image(), Field::SerialProtocol) == Protocol::CustomAscii;
    Program.LinkState.ParityIndex = same(Field::SerialProtocol) && same(Field::Parity)
                                        ? Program.Settings.ParityIndex
                                    : ascii ? Parity::None
                                            : CodeOf(Image(), Field::Parity);
}

void CommunicationPage::EntryClosed(const Control& entered) {
    // An address 0 is in the image until the view is opened again or the setup is written.
    if (&entered == &MBAddr.Inner && MBAddr.Inner.Text.find_first_not_of(" 0") == std::string::npos)
        MBAddr.Inner.Text = " 1";
    // A byte that was cancelled is the one that was there.
    for (const ByteBox& byte : Bytes(*this)) {
        if (&entered == &byte.Box && byte.Name) byte.Name->Caption = AsciiName(CodeOf(Image(), byte.Of));
    }
}

}  // namespace counter
