#include "Desktop/InstalledFiles.h"

#include <QCoreApplication>
#include <QDir>

namespace kelmar::desktop {

std::string installedKeyFile() {
    const QString name = QStringLiteral("kelmar-planner.extension");
    const QDir programs(QCoreApplication::applicationDirPath());
    const QDir extensions(programs.filePath(QStringLiteral(KELMAR_EXTENSION_FOLDER)));
    const QDir& folder = programs.exists(name) ? programs : extensions;
    return QDir::cleanPath(folder.filePath(name)).toStdString();
}

}  // namespace kelmar::desktop
