#include "system/display_check.h"

#include <errno.h>
#include <unistd.h>

#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

namespace counter {

namespace {

void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    const char* const x11 = std::getenv("DISPLAY");
    const char* const wayland = std::getenv("WAYLAND_DISPLAY");
    const bool named = (x11 != nullptr && *x11 != '\0') || (wayland != nullptr && *wayland != '\0');
    std::fprintf(stderr, "%s: %s; counterctl works without one\n", program_invocation_short_name,
                 named ? "the display can't be opened" : "there is no display (DISPLAY is not set)");
    _exit(kNoDisplayExit);
}

}  // namespace

DisplayCheck::DisplayCheck() {
    qInstallMessageHandler(EndWithoutDisplay);
}

DisplayCheck::~DisplayCheck() {
    qInstallMessageHandler(nullptr);
}

}  // namespace counter
