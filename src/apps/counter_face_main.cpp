// counter-face: the window of a simulated meter's face, started by counter-sim. It shows the lines that come
// on standard input, one for each change, and ends with them:
//
//   DIGITS POINT MINUS ALARMS ITEM REMOTE
//   ..1234 5 0 0100 1 0     six characters with "." for a blank digit; the digit behind which the point is
//   lit,
//                           1 to 6; 1 for a negative value; alarms 1 to 4; the Item that is shown, 0 to 3; 1
//                           for a remote value
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <optional>
#include <sstream>
#include <string>

#include "desktop/pages/face_widget.h"

namespace counter {

namespace {

constexpr std::size_t kDigits = 6;
constexpr std::size_t kMostBytes = 4096;  // taken in at a time

// Nothing where the line is not of that form.
std::optional<FaceText> ParseFaceLine(const std::string& line) {
    std::istringstream words(line);
    std::string digits, alarms;
    int point = 0, minus = 0, item = 0, remote = 0;
    words >> digits >> point >> minus >> alarms >> item >> remote;
    const bool whole =
        !words.fail() && digits.size() == kDigits && point >= 1 && point <= 6 && alarms.size() == 4;
    if (!whole) return std::nullopt;
    FaceText face;
    face.Digits = minus == 1 ? "-" : "";
    for (std::size_t i = 0; i < kDigits; ++i) {
        face.Digits += digits[i] == '.' ? ' ' : digits[i];
        if (static_cast<int>(i) + 1 == point) face.Digits += '.';
        if (i < face.Alarms.size()) face.Alarms[i] = alarms[i] == '1';
    }
    face.Note = remote == 1 ? "Remote" : "Item " + std::to_string(item);
    return face;
}

// The last whole line is the face as it is now; what follows it waits for its end.
void TakeLines(std::string& pending, FaceWidget& face) {
    const std::size_t end = pending.rfind('\n');
    if (end == std::string::npos) return;
    const std::size_t before = end == 0 ? std::string::npos : pending.rfind('\n', end - 1);
    const std::size_t begin = before == std::string::npos ? 0 : before + 1;
    if (const auto shown = ParseFaceLine(pending.substr(begin, end - begin))) face.Show(*shown);
    pending.erase(0, end + 1);
}

int Run(int argc, char** argv) {
    QApplication application(argc, argv);
    FaceWidget face;
    face.setWindowTitle("Simulated meter");
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
    return QApplication::exec();
}

}  // namespace

}  // namespace counter

int main(int argc, char** argv) {
    return counter::Run(argc, argv);
}
