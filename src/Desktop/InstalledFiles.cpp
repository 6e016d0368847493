#include "Desktop/InstalledFiles.h"

#include <QCoreApplication>
#include <QDir>

namespace kelmar::desktop {

namespace {

std::string installedFile(const QString& name) {
    const QDir programs(QCoreApplication::applicationDirPath());
    const QDir internal(programs.filePath(QStringLiteral(KELMAR_INTERNAL_FOLDER)));
    const QDir& folder = programs.exists(name) ? programs : internal;
    return QDir::cleanPath(folder.filePath(name)).toStdString();
}

}  // namespace

std::string installedKeyFile() {
    return installedFile("kelmar-planner.extension");
}

std::string installedUrlOpenerModule() {
    return installedFile("kelmar-widgets-gio.so");
}

}  // namespace kelmar::desktop
