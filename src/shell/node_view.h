// NodeView: frmEther, the small view that logs into the Ethernet node at start, and the titles that tell the
// state of the node's connection.
//
// It is opened in the home view's place when the settings name a node; the home view comes up once the node
// has called back.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "session/session.h"

namespace counter {

// Exit status of a program whose node did not call back.
inline constexpr int kNoNodeExit = 3;
// Help while the node is waited for.
inline constexpr int kNodeHelpTopic = 3120;

class NodeView {
  public:
    static constexpr std::string_view kLoginDisconnected = "CTR Main Menu                   Disconnected";
    static constexpr std::string_view kLoginConnected = "CTR Main Menu                    Connected";
    static constexpr std::string_view kConnected = "COUNTER MAIN MENU                    Connected";
    static constexpr std::string_view kDisconnected = "COUNTER MAIN MENU                      Disconnected";

    explicit NodeView(Session& session);
    ~NodeView();
    NodeView(const NodeView&) = delete;
    NodeView& operator=(const NodeView&) = delete;

    // Once, before the first Activate: takes the settings from the file again.
    void Load();
    // The first time: logs in, then shows the home view. Where a port can't be had or the node does not call,
    // it says so in a message box, writes the settings back, closes the port and ends the process. After the
    // login it does nothing.
    void Activate();

    // What the view shows: whom it waits for, and how often it has asked.
    const std::string& Text() const { return text_; }
    // Of the connection, as of the last second: "Connected", "Listening" and so on. Shown nowhere.
    std::string_view StateName() const { return stateName_; }

    // Hooks; each may be empty. The first two are called from timers and must not wait.
    std::function<void(std::string_view title)> ShowTitle;  // of the home view
    std::function<void()> Changed;                          // Text is another
    std::function<void()> ShowHome;                         // in this view's place

  private:
    void Title(std::string_view title);
    void TryBegins(int tryNumber);
    void Tick();
    void GiveUp(const std::string& reason);

    Session& session_;
    bool begun_ = false;  // also while the login is still waiting
    std::string text_;
    std::string_view stateName_ = "Closed";
};

}  // namespace counter
