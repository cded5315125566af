#include "system/program_folder.h"

#include <unistd.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <string_view>

namespace counter {

namespace {

std::string FolderIn(QCommandLineParser& parser, const QCoreApplication& application,
                     const char* description) {
    parser.setApplicationDescription(QString::fromLatin1(description));
    const QCommandLineOption folder("dir", "The program folder, where Settings.SSS lies.", "folder");
    parser.addOption(folder);
    parser.addHelpOption();
    parser.process(application);
    if (parser.isSet(folder)) return QFile::encodeName(parser.value(folder)).toStdString();
    return DefaultProgramFolder();
}

}  // namespace

std::string DefaultProgramFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return ChooseProgramFolder(QCoreApplication::applicationDirPath().toStdString(), data.toStdString());
}

std::string ChooseProgramFolder(const std::string& executableFolder, const std::string& dataFolder) {
    const bool portable = access((executableFolder + "/Settings.SSS").c_str(), F_OK) == 0;
    return portable ? executableFolder : dataFolder + "/counter-setup";
}

std::string FolderArgument(const QCoreApplication& application, const char* description) {
    QCommandLineParser parser;
    return FolderIn(parser, application, description);
}

FolderAndFile FolderAndFileArguments(const QCoreApplication& application, const char* description) {
    QCommandLineParser parser;
    parser.addPositionalArgument("file", "A setup file (.CT2) to open.", "[file]");
    FolderAndFile arguments{FolderIn(parser, application, description), {}};
    const QStringList names = parser.positionalArguments();
    if (!names.isEmpty())
        arguments.File = QFile::encodeName(QFileInfo(names[0]).absoluteFilePath()).toStdString();
    return arguments;
}

bool HelpIsAsked(int argc, char** argv) {
    return std::any_of(argv + 1, argv + std::max(argc, 1), [](const char* word) {
        return std::string_view(word) == "--help" || std::string_view(word) == "-h";
    });
}

std::vector<std::string> DataFolders(const std::string& programFolder, const std::string& name) {
    const std::string bin = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    return {programFolder, bin + "/../share/counter-setup/" + name, bin + "/../share/" + name};
}

}  // namespace counter
