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

// The same meter and settings as the menu of the desktop opens.
bool RunCounterTry() {
    return QProcess::startDetached(QCoreApplication::applicationDirPath() + "/counter-try", {});
}

// True: the program goes on without settings, on files alone.
bool WorksWithFiles(Session& session, QtDialogs& dialogs, bool fileGiven) {
    enum Way { kFind, kTry, kFiles, kQuit };
    const std::string text =
        "No meter is known yet in the folder " + session.Folder.Path +
        ".\n\n"
        "Find a Meter: counter-link looks for it on the ports of this computer and keeps "
        "how it is reached.\n"
        "Try the Simulated One: all views on a meter that is a program.\n"
        "Work With Files: setups are opened, changed and saved; no meter is needed." +
        (fileGiven ? "\n\nThe file that was given is opened by the first and the last of these." : "");
    const int way = dialogs.ChooseOf({"Counter Setup", text},
                                     {"Find a Meter", "Try the Simulated One", "Work With Files", "Quit"});
    if (way == kFiles) return true;
    if (way == kTry) {
        if (RunCounterTry()) session.Pump.EndProcess(0);
        dialogs.Show(
            {"Counter Setup", "counter-try can't be started: it comes with counter-sim.", BoxIcon::Stop});
        return false;
    }
    if (way == kQuit || !RunCounterLink(session)) session.Pump.EndProcess(kNoSettingsExit);
    return false;
}

}  // namespace

Status StartWithSettings(Session& session, QtDialogs& dialogs, bool fileGiven) {
    for (;;) {
        Status status = Start(session);
        if (status.Ok() || CanRead(session)) return status;
        if (status.Kind == StatusKind::NotFound) {
            if (WorksWithFiles(session, dialogs, fileGiven)) return {};
            continue;
        }
        const std::string text =
            status.Text() +
            "\n\nThis file says which meter is connected and how. The program counter-link lays "
            "it down.";
        const bool wanted = dialogs.Choose({"Settings", text, BoxIcon::Stop}, "Open counter-link", "Quit");
        if (!wanted || !RunCounterLink(session)) session.Pump.EndProcess(kNoSettingsExit);
    }
}

}  // namespace counter
