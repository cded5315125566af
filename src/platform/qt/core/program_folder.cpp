#include "platform/qt/core/program_folder.h"

#include <unistd.h>

#include <QCoreApplication>
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

}  // namespace counter
