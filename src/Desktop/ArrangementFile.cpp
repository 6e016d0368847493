#include "Desktop/ArrangementFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <fmt/format.h>

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

/// Far more than all widgets that a desktop has room for.
constexpr qint64 largestFile = 16 << 20;

/// Opening a FIFO would wait for somebody who writes into it, and a device may never end.
bool isRegularFile(const QString& path) {
    return QFileInfo(path).isFile();
}

}  // namespace

ArrangementFile::ArrangementFile(QString path, host::Log& log)
    : path_(std::move(path)), log_(log) {}

QString ArrangementFile::standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kelmar-widgets/arrangement.json";
}

bool ArrangementFile::isEmpty() const {
    QFile file(path_);
    if (!file.exists()) {
        return true;
    }
    if (!isRegularFile(path_) || file.size() > largestFile || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const system::Result<Arrangement> arrangement = decodeArrangement(file.readAll());
    return arrangement && arrangement->widgets.empty();
}

std::optional<Arrangement> ArrangementFile::load() {
    QFile file(path_);
    if (!file.exists()) {
        return std::nullopt;
    }
    if (!isRegularFile(path_)) {
        setAside("it is not a regular file");
        return std::nullopt;
    }
    if (file.size() > largestFile) {
        setAside("it is too large");
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
    const QString trouble = write(encodeArrangement(arrangement));
    if (!trouble.isEmpty() && trouble != trouble_) {
        log_.write(host::LogLevel::warning,
                   fmt::format("The arrangement could not be saved in {}: {}", path_.toStdString(),
                               trouble.toStdString()));
    }
    trouble_ = trouble;
}

/// Why it failed, or nothing.
QString ArrangementFile::write(const QByteArray& json) const {
    if (!QDir().mkpath(QFileInfo(path_).path())) {
        return "its folder could not be made";
    }
    QSaveFile file(path_);
    // QSaveFile overlooks what fails while its buffer is emptied, and would put half a file in
    // place.
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(json) == json.size() &&
                           file.flush() && file.commit();
    return isWritten ? QString() : file.errorString();
}

void ArrangementFile::setAside(const std::string& reason) {
    const QString damaged = freeDamagedPath(path_);
    mayReplace_ = QFile::rename(path_, damaged);
    log_.write(
        host::LogLevel::warning,
        fmt::format("The arrangement in {} cannot be used ({}); {}", path_.toStdString(), reason,
                    mayReplace_ ? "it is kept as " + damaged.toStdString()
                                : "it stays there, and places are not saved in this session"));
}

}  // namespace kelmar::desktop
