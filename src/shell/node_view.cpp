#include "shell/node_view.h"

#include <array>

#include "link/change_settings.h"
#include "link/port_setup.h"
#include "shell/start.h"

namespace counter {

namespace {

// By number of the state.
constexpr std::array<std::string_view, 10> kStateNames = {
    "Closed",        "Open",       "Listening", "Connection Pending", "Resolving Host",
    "Host Resolved", "Connecting", "Connected", "Node Disconnecting", "Error"};

}  // namespace

NodeView::NodeView(Session& session) : session_(session) {
    session_.Node.TryBegins = [this](int tryNumber) { TryBegins(tryNumber); };
    session_.Node.Ticked = [this] { Tick(); };
}

NodeView::~NodeView() {
    session_.Node.TryBegins = nullptr;
    session_.Node.Ticked = nullptr;
}

// A file that can't be read now leaves the settings as the start has read them.
void NodeView::Load() {
    std::string text;
    if (session_.Folder.Store.Read(session_.Folder.At(kSettingsFile), text).Ok())
        ParseSettings(SplitSettings(text), session_.Settings);
}

void NodeView::Activate() {
    if (begun_ || !session_.LinkState.NodeFirstRun) return;
    begun_ = true;
    Title(kLoginDisconnected);
    if (const Status status = LogIntoNode(session_); !status.Ok()) return GiveUp(status.Text());
    if (!session_.Node.Connected()) return GiveUp(kNoNodeCall);
    Title(kLoginConnected);
    if (ShowHome) ShowHome();
}

void NodeView::Title(std::string_view title) {
    if (ShowTitle) ShowTitle(title);
}

void NodeView::TryBegins(int tryNumber) {
    text_ = "Asking the node at " + session_.Settings.NodeIp + " to call TCP port " +
            std::to_string(session_.Settings.TcpPort) + ": try " + std::to_string(tryNumber) + " of " +
            std::to_string(NodeClient::kLoginTries) + ".";
    if (Changed) Changed();
}

void NodeView::Tick() {
    stateName_ = kStateNames[static_cast<std::size_t>(session_.Node.State())];
    Title(session_.Node.Connected() ? kConnected : kDisconnected);
}

void NodeView::GiveUp(const std::string& reason) {
    session_.Dialogs.Show({"", reason, BoxIcon::None});
    // A folder that takes no file leaves the settings as they were, which is what is wanted.
    SaveSettings(session_.Folder, WaitOn(session_.Pump), session_.Settings.FileLines,
                 session_.Settings.Lines);
    ClosePort(session_.Link);
    session_.Node.Close();
    session_.Pump.EndProcess(kNoNodeExit);
}

}  // namespace counter
