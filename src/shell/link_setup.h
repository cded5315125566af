// LinkSetup: the view of counter-link, which lays down or changes Settings.SSS and tries what it says.
//
// What the view does not show (reserved digits, the kind of program) is kept as the file has it.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "controls/form.h"
#include "link/link.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"
#include "platform/sockets.h"
#include "settings/settings.h"
#include "shell/meter_search.h"

namespace counter {

class LinkSetup {
  public:
    static constexpr const char* kTitle = "Counter Link";

    // What it works with. `Port` opens the device that `Tried` names; `Catalog` lists the machine's own.
    struct World {
        counter::Pump& Pump;
        SerialPort& Port;
        TriedDevice& Tried;
        const PortCatalog& Catalog;
        ProgramFolder Folder;
        std::optional<counter::Sockets> Sockets = {};  // for a meter reached through a node
    };

    explicit LinkSetup(const World& world);
    ~LinkSetup();

    // Shows what the file says, or what a new one would begin with.
    void Load();

    // The test, or the search for a meter, ends at its next wait.
    void StopSearch() { stopSearch_ = true; }
    // Escape: likewise, and says so. False where there is nothing to stop.
    bool Cancel();

    // Whether the window may close: nothing would be lost, or the user says that it may be.
    bool MayClose();

    // Hooks into what shows the view; each may be empty.
    std::function<void()> Close;  // the user is done
    // Asks whether what was not saved may be lost; true: it may.
    std::function<bool(const Message&)> AskToDrop;
    // Starts Counter Setup on the folder; false where that fails.
    std::function<bool()> OpenSetup;

    Form Controls;

  private:
    Control& Add(ControlKind kind, std::string_view name, std::string_view caption = {});
    void Wire();
    void ListPorts();
    void ShowPorts();
    void PickPort();
    void ShowPortOfDevice();
    void ShowProtocol();
    void ShowNode();
    void ShowSettings(const Settings& settings);

    // The lines as the view says; an empty text, or what is wrong with it.
    std::string TakeLines(SettingsLines& lines) const;
    // What the user has entered, as far as it would be saved.
    struct Entered {
        std::string Wrong;
        SettingsLines Lines;
        std::string Device;
        friend bool operator==(const Entered&, const Entered&) = default;
    };
    Entered EnteredNow() const;
    // False: it was not saved, and the result says why.
    bool Save();
    void SaveAndOpen();
    // Afterwards `lines` are those of the file.
    Status WriteAll(SettingsLines& lines);
    void TakeWritten(const SettingsLines& lines);
    void Test();
    TrialWorld WorldOfTrial(const std::optional<counter::Sockets>& sockets);
    void FindOrStop();
    void Find();
    bool TellProgress(int number, int all, const SearchStep& step);
    void TakeFound(const SearchResult& found);
    std::vector<std::string> DevicesToTry() const;
    void Busy(bool busy);
    void ShowResult(const std::string& text, Color color);

    World world_;
    SettingsLines lines_;  // as the file has them
    Entered kept_;         // as the view showed what was loaded or saved last
    std::vector<PortDescription> ports_;
    std::vector<std::string> portTexts_;  // what the list of ports shows
    int portNumber_ = 1;
    bool testing_ = false;
    bool stopSearch_ = false;
    bool asking_ = false;

  public:
    // clang-format off
    Control& cboPort       = Add(ControlKind::List,   "cboPort",       "Serial port");
    Control& cmdRefresh    = Add(ControlKind::Button, "cmdRefresh",    "&Look again");
    Control& txtDevice     = Add(ControlKind::Entry,  "txtDevice",     "Device");
    Control& cboProtocol   = Add(ControlKind::List,   "cboProtocol",   "Protocol");
    Control& cboBaud       = Add(ControlKind::List,   "cboBaud",       "Baud rate");
    Control& cboParity     = Add(ControlKind::List,   "cboParity",     "Parity");
    Control& cboAddress    = Add(ControlKind::List,   "cboAddress",    "Meter address");
    Control& txtModbus     = Add(ControlKind::Entry,  "txtModbus",     "Modbus address");
    Control& txtVersion    = Add(ControlKind::Entry,  "txtVersion",    "Firmware version");
    Control& cboMeter      = Add(ControlKind::List,   "cboMeter",      "Meter");
    Control& chkWork       = Add(ControlKind::Check,  "chkWork",       "Work without a meter (files only)");
    Control& chkEcho       = Add(ControlKind::Check,  "chkEcho",       "The line echoes what is sent");
    Control& chkWakeUp     = Add(ControlKind::Check,  "chkWakeUp",     "Long wake-up (sleeping meters)");
    Control& chkNode       = Add(ControlKind::Check,  "chkNode",       "The meter is behind an Ethernet node");
    Control& txtNode       = Add(ControlKind::Entry,  "txtNode",       "Node address (12 hex digits)");
    Control& txtNodeIp     = Add(ControlKind::Entry,  "txtNodeIp",     "Node's IP address");
    Control& txtNodeUdp    = Add(ControlKind::Entry,  "txtNodeUdp",    "Node's UDP port");
    Control& txtTcp        = Add(ControlKind::Entry,  "txtTcp",        "TCP port of this program");
    Control& cmdTest       = Add(ControlKind::Button, "cmdTest",       "&Test");
    Control& cmdFind       = Add(ControlKind::Button, "cmdFind",       "&Find meter");
    Control& pbFind        = Add(ControlKind::Progress, "pbFind");
    Control& cmdSave       = Add(ControlKind::Button, "cmdSave",       "&Save");
    Control& cmdSaveOpen   = Add(ControlKind::Button, "cmdSaveOpen",   "Save and &open Counter Setup");
    Control& cmdClose      = Add(ControlKind::Button, "cmdClose",      "&Close");
    Control& lblResult     = Add(ControlKind::Label,  "lblResult");
    // clang-format on
};

}  // namespace counter
