#include "apps/program_arguments.h"

#include <QCommandLineParser>
#include <QFile>

#include "system/program_folder.h"

namespace counter {

std::string FolderArgument(const QCoreApplication& application, const char* description) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(description));
    const QCommandLineOption folder("dir", "The program folder, where Settings.SSS lies.", "folder");
    parser.addOption(folder);
    parser.addHelpOption();
    parser.process(application);
    if (parser.isSet(folder)) return QFile::encodeName(parser.value(folder)).toStdString();
    return DefaultProgramFolder();
}

}  // namespace counter
