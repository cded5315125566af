// The icon of a program, on all of its windows.
#pragma once

#include <QString>

namespace counter {

// "counter-setup": also the name of its entry among the system's applications, by which a desktop finds the
// icon that was installed.
void CarryIcon(const QString& program);

}  // namespace counter
