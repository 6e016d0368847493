#include "Desktop/ArrangementFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include "Desktop/Log.h"

namespace kelmar::desktop {

namespace {

/// A name that no file has yet: an older damaged file may be the one worth keeping.
QString freeDamagedPath(const QString& path) {
    QString damaged = path + ".damaged";
    for (int number = 2; QFileInfo::exists(damaged); ++number) {
        damaged = QString("%1.damaged.%2").arg(path).arg(number);
    }
    return damaged;
}

}  // namespace

ArrangementFile::ArrangementFile(QString path) : path_(std::move(path)) {}

QString ArrangementFile::standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kelmar-widgets/arrangement.json";
}

std::optional<Arrangement> ArrangementFile::load() {
    QFile file(path_);
    if (!file.exists()) {
        return std::nullopt;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        setAside(file.errorString().toStdString());
        return std::nullopt;
    }
    system::Result<Arrangement> arrangement = decodeArrangement(file.readAll());
    if (!arrangement) {
        setAside(arrangement.failure().reason);
        return std::nullopt;
    }
    return *std::move(arrangement);
}

void ArrangementFile::save(const Arrangement& arrangement) {
    if (!mayReplace_) {
        return;
    }
    QDir().mkpath(QFileInfo(path_).path());
    QSaveFile file(path_);
    const QByteArray json = encodeArrangement(arrangement);
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.commit()) {
        qCWarning(desktopLog).noquote()
            << "The arrangement could not be saved in" << path_ + ":" << file.errorString();
    }
}

void ArrangementFile::setAside(const std::string& reason) {
    const QString damaged = freeDamagedPath(path_);
    mayReplace_ = QFile::rename(path_, damaged);
    qCWarning(desktopLog).noquote()
        << "The arrangement in" << path_ << "cannot be used:" << reason.c_str()
        << (mayReplace_ ? "- it is kept as " + damaged
                        : "- it stays there, and places are not saved in this session");
}

}  // namespace kelmar::desktop
