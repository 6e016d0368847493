#include "Desktop/QtMessages.h"

#include <QString>
#include <QtGlobal>
#include <atomic>

namespace kelmar::desktop {

namespace {

std::atomic<host::Log*> messageLog = nullptr;  ///< Qt's handler is a plain function.

host::LogLevel levelOf(QtMsgType type) {
    switch (type) {
        case QtDebugMsg:
        case QtInfoMsg:
            return host::LogLevel::info;
        case QtWarningMsg:
            return host::LogLevel::warning;
        case QtCriticalMsg:
        case QtFatalMsg:
            return host::LogLevel::error;
    }
    return host::LogLevel::warning;
}

/// When a menu closes, Qt wants to activate the widget that had the keyboard, and complains that it
/// must not: which is how it is meant to be.
bool isOfNoConcern(const QString& message) {
    return message.startsWith("requestActivate() called for");
}

void take(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    host::Log* const log = messageLog;
    if (log != nullptr && !isOfNoConcern(message)) {
        log->write(levelOf(type), qFormatLogMessage(type, context, message).toStdString());
    }
}

}  // namespace

QtMessages::QtMessages(host::Log& log) {
    messageLog = &log;
    qInstallMessageHandler(take);
}

QtMessages::~QtMessages() {
    qInstallMessageHandler(nullptr);
    messageLog = nullptr;
}

}  // namespace kelmar::desktop
