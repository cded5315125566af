#include "system/program_folder.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

namespace counter {

std::string DefaultProgramFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return ChooseProgramFolder(QCoreApplication::applicationDirPath().toStdString(), data.toStdString());
}

std::string ChooseProgramFolder(const std::string& executableFolder, const std::string& dataFolder) {
    const bool portable = access((executableFolder + "/Settings.SSS").c_str(), F_OK) == 0;
    return portable ? executableFolder : dataFolder + "/counter-setup";
}

std::vector<std::string> DataFolders(const std::string& programFolder, const std::string& name) {
    const std::string bin = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    return {programFolder, bin + "/../share/counter-setup/" + name, bin + "/../share/" + name};
}

}  // namespace counter
