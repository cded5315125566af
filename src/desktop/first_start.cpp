#include "desktop/first_start.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include "shell/start.h"

namespace counter {

namespace {

constexpr int kNoSettingsExit = 2;

// Runs counter-link on the folder until its window is closed.
bool RunCounterLink(Session& session) {
    QProcess program;
    program.setProgram(QCoreApplication::applicationDirPath() + "/counter-link");
    program.setArguments({"--dir", QFile::decodeName(session.Folder.Path.c_str())});
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(kSetupWaits, "1");
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start();
    session.Pump.WaitUntil(
        Pump::kForever, [&program] { return program.state() == QProcess::NotRunning; }, "counter-link");
    return program.error() != QProcess::FailedToStart;
}

bool CanRead(const Session& session) {
    std::string text;
    return session.Folder.Store.Read(session.Folder.At(kSettingsFile), text).Ok();
}

}  // namespace

Status StartWithSettings(Session& session, QtDialogs& dialogs) {
    for (;;) {
        Status status = Start(session);
        if (status.Ok() || CanRead(session)) return status;
        const std::string text =
            status.Text() +
            "\n\nThis file says which meter is connected and how. The program counter-link lays "
            "it down.";
        const bool wanted = dialogs.Choose({"Settings", text, BoxIcon::Stop}, "Open counter-link", "Quit");
        if (!wanted || !RunCounterLink(session)) session.Pump.EndProcess(kNoSettingsExit);
    }
}

}  // namespace counter
