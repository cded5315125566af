// The keys that, with Alt, come to what a window shows: each caption has one of its own.
#pragma once

#include <QString>
#include <QWidget>

namespace counter {

// Marks a letter of each caption that is on show in the window and can be used: buttons and tabs, then
// options and the captions that belong to a field. A caption that says its key itself keeps it. Where there
// are more captions than letters, the last fields have none.
void GiveAccessKeys(QWidget& window);

// A button that has this property has a key of its own, such as F9, and leaves the letters to the others.
inline constexpr const char* kOwnKey = "ownKey";

// A caption without its mark: "&Save" is "Save", "R && D" is "R & D".
QString WithoutKey(const QString& caption);

}  // namespace counter
