// counter-face: the window of a simulated meter's face, started by counter-sim. It shows the lines that come
// on standard input, one for each change (ParseFaceLine), and ends with them. "shown" on standard output says
// that the window is there.
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <optional>
#include <string>

#include "desktop/kit/page_body.h"
#include "desktop/pages/face_widget.h"
#include "desktop/pages/program_icon.h"
#include "system/display_check.h"

namespace counter {

namespace {

constexpr std::size_t kMostBytes = 4096;  // taken in at a time

// The last whole line is the face as it is now; what follows it waits for its end.
void TakeLines(std::string& pending, FaceWidget& face) {
    const std::size_t end = pending.rfind('\n');
    if (end == std::string::npos) return;
    const std::size_t before = end == 0 ? std::string::npos : pending.rfind('\n', end - 1);
    const std::size_t begin = before == std::string::npos ? 0 : before + 1;
    if (const auto shown = ParseFaceLine(pending.substr(begin, end - begin))) face.Show(*shown);
    pending.erase(0, end + 1);
}

// At the right edge: the main window of the desktop tool is in the middle. On a screen that is too narrow for
// both the face lies over it, not under it.
void PutBeside(FaceWidget& face) {
    face.setWindowFlag(Qt::WindowStaysOnTopHint);
    const QRect room = ScreenRoom(face);
    face.resize(face.sizeHint().boundedTo(room.size()));
    face.move(room.right() - face.width() + 1, room.center().y() - face.height() / 2);
}

int Run(int argc, char** argv) {
    std::optional<QApplication> application;
    {
        const DisplayCheck check;
        application.emplace(argc, argv);
    }
    CarryIcon("counter-face");
    FaceWidget face;
    face.setWindowTitle("Simulated meter");
    PutBeside(face);
    std::string pending;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &face, [&] {
        char bytes[kMostBytes];
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0) return QCoreApplication::exit();
        pending.append(bytes, static_cast<std::size_t>(count));
        TakeLines(pending, face);
    });
    face.show();
    // counter-sim waits for this: without it there is no window.
    [[maybe_unused]] const ssize_t told = write(STDOUT_FILENO, "shown\n", 6);
    return QApplication::exec();
}

}  // namespace

}  // namespace counter

int main(int argc, char** argv) {
    return counter::Run(argc, argv);
}
