// LinkSwitch: the small view over the home view that gives the program another meter, for this run alone or
// in the settings too. Many meters need no new start then.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "session/session.h"
#include "shell/meter_search.h"

namespace counter {

class LinkSwitch {
  public:
    static constexpr const char* kTitle = "Link";

    // Trials have a line of their own, `Port`, which opens what `Tried` names.
    struct World {
        SerialPort& Port;
        TriedDevice& Tried;
        const PortCatalog& Catalog;
    };

    LinkSwitch(Session& session, const World& world);
    LinkSwitch(const LinkSwitch&) = delete;

    // Shows the link as it is.
    void Load();
    // Escape: a search ends at its next wait, and says so. False where there is none.
    bool Cancel();

    std::function<void()> Close;  // the user is done; may be empty

    Form Controls;

  private:
    // A port number and what it means.
    struct Port {
        int Number;
        std::string Device;
    };

    Control& Add(ControlKind kind, std::string_view name, std::string_view caption = {});
    void Wire();
    void ListPorts();
    int FreeNumber() const;
    void ShowLink(const SettingsLines& lines);
    void ShowFiles();
    // The lines as the view says, in `lines`; what is wrong with it, or an empty text.
    std::string TakeLines(SettingsLines& lines) const;
    // False: the link is as it was, and the result says why.
    bool Use();
    Status BringUp();
    void UseForSession();
    void Keep();
    void Find();
    void TakeFound(const SearchResult& found);
    std::vector<std::string> DevicesToTry() const;
    void Busy(bool busy);
    void ShowResult(const std::string& text, Color color);

    Session& session_;
    World world_;
    SettingsLines lines_;  // what the view does not show is kept from here
    std::vector<Port> ports_;
    std::vector<std::string> portTexts_, addressTexts_;  // what the lists show
    bool finding_ = false;
    bool stop_ = false;

  public:
    // clang-format off
    Control& cboPort    = Add(ControlKind::List,     "cboPort",    "Port");
    Control& cboBaud    = Add(ControlKind::List,     "cboBaud",    "Baud rate");
    Control& cboAddress = Add(ControlKind::List,     "cboAddress", "Meter address");
    Control& txtModbus  = Add(ControlKind::Entry,    "txtModbus",  "Modbus address");
    Control& cmdFind    = Add(ControlKind::Button,   "cmdFind",    "&Find Meter");
    Control& cmdFile    = Add(ControlKind::Button,   "cmdFile",    "As in the Fi&le");
    Control& pbFind     = Add(ControlKind::Progress, "pbFind");
    Control& cmdUse     = Add(ControlKind::Button,   "cmdUse",     "&Use for This Session");
    Control& cmdKeep    = Add(ControlKind::Button,   "cmdKeep",    "&Keep");
    Control& cmdClose   = Add(ControlKind::Button,   "cmdClose",   "Cancel");
    Control& lblResult  = Add(ControlKind::Label,    "lblResult");
    // clang-format on
};

// Why the link can't be switched now, a sentence; empty: it can.
std::string WhyLinkStays(const Session& session);

}  // namespace counter
