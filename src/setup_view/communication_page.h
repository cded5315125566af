// The communication page: the meter's serial board. It rules the meter's side alone; the tool's own link
// follows only when the setup was put.
#pragma once

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct CommunicationPage : Page {
    explicit CommunicationPage(SetupView& view) : Page(view, kCommunicationTab) {}

    // clang-format off
    Control& fraSerComm   = Build.Add(ControlKind::Frame, nullptr, "fraSerComm", "Serial Communications");
    Framed   Protocol     = Build.Wrap(ControlKind::List,  &fraSerComm, "cboProtocol",  "Serial Protocol");
    Framed   BaudRate     = Build.Wrap(ControlKind::List,  &fraSerComm, "cboBaudRate",  "Baud Rate");
    Framed   Parity       = Build.Wrap(ControlKind::List,  &fraSerComm, "cboParity",    "Parity");
    Framed   Address      = Build.Wrap(ControlKind::List,  &fraSerComm, "cboAddress",   "Address");
    Framed   MBAddr       = Build.Wrap(ControlKind::Value, &fraSerComm, "txtMBAddr",    "Modbus Address");
    Framed   MBTimeout    = Build.Wrap(ControlKind::List,  &fraSerComm, "cboMBTimeout", "Modbus Timeout");
    Framed   Duplex       = Build.Wrap(ControlKind::List,  &fraSerComm, "cboDuplex",    "Full/Half Duplex");
    Framed   OutItems     = Build.Wrap(ControlKind::List,  &fraSerComm, "cboOutItems",  "Output Items");
    Framed   OutVal       = Build.Wrap(ControlKind::List,  &fraSerComm, "cboOutVal",    "Output Filter");
    Framed   OutRate      = Build.Wrap(ControlKind::List,  &fraSerComm, "cboOutRate",   "Output Rate");
    Framed   SerMode      = Build.Wrap(ControlKind::List,  &fraSerComm, "cboSerMode",   "Output Mode");
    Control& chkAlmData   = Build.Add(ControlKind::Check,  &fraSerComm, "chkAlmData",   "Incl Alarm Data");
    Control& chkLF        = Build.Add(ControlKind::Check,  &fraSerComm, "chkLF",        "Include LF");
    Framed   CR           = Build.Wrap(ControlKind::List,  &fraSerComm, "cboCR",        "CR (LF)");
    Framed   RTS          = Build.Wrap(ControlKind::List,  &fraSerComm, "cboRTS",       "RTS Type");
    Framed   RecogChr     = Build.Wrap(ControlKind::List,  &fraSerComm, "cboRecogChr",  "Recognition Char");
    Framed   CusRecog     = Build.Wrap(ControlKind::Value, &fraSerComm, "txtCusRecog",  "Cust RecogChar");
    Control& lblCusRecog  = Build.Add(ControlKind::Label, &CusRecog.Frame, "lblCusRecog");
    Framed   TranChars    = Build.Wrap(ControlKind::List,  &fraSerComm, "cboTranChars", "Transmission Chars");
    Framed   TranStart    = Build.Wrap(ControlKind::Value, &fraSerComm, "txtTranStart", "Special Start Char");
    Control& lblTranStart = Build.Add(ControlKind::Label, &TranStart.Frame, "lblTranStart");
    Framed   TranStop     = Build.Wrap(ControlKind::Value, &fraSerComm, "txtTranStop",  "Special Stop Char");
    Control& lblTranStop  = Build.Add(ControlKind::Label, &TranStop.Frame, "lblTranStop");

    Control& fraRmtDspyC  = Build.Add(ControlKind::Frame, &fraSerComm, "fraRmtDspyC", "Remote Display \"C\"");
    Framed   StartChr     = Build.Wrap(ControlKind::Value, &fraRmtDspyC, "txtStartChr", "Start Char");
    Control& lblStartChr  = Build.Add(ControlKind::Label, &StartChr.Frame, "lblStartChr");
    Framed   StopChr      = Build.Wrap(ControlKind::Value, &fraRmtDspyC, "txtStopChr",  "Stop Char");
    Control& lblStopChr   = Build.Add(ControlKind::Label, &StopChr.Frame, "lblStopChr");
    Framed   Skip         = Build.Wrap(ControlKind::Value, &fraRmtDspyC, "txtSkip",     "Skip No.");
    Framed   ShowNo        = Build.Wrap(ControlKind::Value, &fraRmtDspyC, "txtShow",     "Show No.");
    Control& lblAscTbl    = Build.Add(ControlKind::Label, &fraSerComm, "lblAscTbl", "ASCII   Char    Table");
    // clang-format on

    void Wire();
    void NameTheWay();
    void FillLists();
    void ShowFields();
    // Which fields make sense under protocol 0..3.
    void MBRules(int protocol);
    // The frame of a remote display "C", and the way to the table of characters.
    void ShowRemoteC();
    // Coming to the page.
    void Come();
    // What an entered byte rules beside its own box.
    void EntryClosed(const Control& entered);
    // By the setup, after a pick of protocol or parity was taken back; as the settings have it, where the
    // setup is as it came.
    void GiveLineItsParity();

  private:
    void PickProtocol();
    void PickParity();
    void ShowBytes();
};

}  // namespace counter
