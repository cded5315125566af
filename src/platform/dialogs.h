// Dialogs: what must stop the user.
#pragma once

#include <string>

namespace counter {

enum class BoxIcon { None, Stop };

struct Message {
    std::string Title;
    std::string Text;
    BoxIcon Icon = BoxIcon::None;
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;
    // Shows a message box and returns when the user has closed it.
    virtual void Show(const Message& message) = 0;
};

}  // namespace counter
