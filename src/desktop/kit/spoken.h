// What readers of the screen are told of a widget that draws itself. Its name and description are the
// widget's own.
#pragma once

#include <QAccessible>

namespace counter {

class Spoken {
  public:
    virtual ~Spoken() = default;
    virtual QAccessible::Role SpokenRole() const = 0;
    // What it shows; empty: nothing that its name doesn't say.
    virtual QString SpokenValue() const { return {}; }
};

// From now on such widgets speak. Asking again changes nothing.
void ServeSpoken();

}  // namespace counter
