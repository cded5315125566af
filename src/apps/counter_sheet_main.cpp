// counter-sheet: what counterctl becomes for the PDF of a setup's sheet. It needs no display.
#include <QGuiApplication>
#include <cstdlib>

#include "apps/command_line.h"
#include "desktop/kit/html_paper.h"

int main(int argc, char** argv) {
    // The arguments are counterctl's alone.
    const auto pdf = [argv](const std::string& title, const std::string& html) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        int count = 1;
        // What the library has to say of the user's desktop is of no concern here.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        const QGuiApplication application(count, argv);
        return counter::PdfOfHtml(title, html).toStdString();
    };
    return counter::RunCommandLine(argc, argv, {}, {pdf, nullptr});
}
