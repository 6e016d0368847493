#include "Host/ProcessLauncher.h"

#include <QDeadlineTimer>
#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <cstring>
#include <fmt/format.h>
#include <optional>

#include "Host/LineBuffer.h"
#include "Kit/Protocol.h"
#include "System/FileVersion.h"

namespace kelmar::host {
namespace {

constexpr std::size_t longestErrorLine = 4'096;

std::string_view viewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// One child process from its start until it is gone, however it is brought there.
class Child final : public QObject {
public:
    Child(const std::string& executable, ExtensionListener& listener, const HostLimits& limits,
          RationedLog& overstays, QObject* parent)
        : QObject(parent),
          process_(this),
          executable_(executable),
          version_(system::fileVersion(executable)),
          listener_(&listener),
          limits_(limits),
          overstays_(overstays) {
        // All queued: a start may fail at once, and nobody expects to hear of a process before
        // having it, nor of what it says while writing to it.
        connect(&process_, &QProcess::readyReadStandardOutput, this, &Child::readOutput,
                Qt::QueuedConnection);
        connect(&process_, &QProcess::readyReadStandardError, this, &Child::readErrors,
                Qt::QueuedConnection);
        connect(&process_, &QProcess::finished, this, &Child::finish, Qt::QueuedConnection);
        connect(
            &process_, &QProcess::errorOccurred, this,
            [this](QProcess::ProcessError error) {
                if (error == QProcess::FailedToStart) {
                    leave("could not be started: " + process_.errorString().toStdString());
                }
            },
            Qt::QueuedConnection);
        process_.setWorkingDirectory(QStringLiteral("/"));
        process_.start(QString::fromStdString(executable), {});
    }

    /// While an update is being put in place nothing may stand there for a moment.
    [[nodiscard]] bool isOutdated() const {
        const auto current = system::fileVersion(executable_);
        return current && current != version_;
    }

    void write(std::string_view line) {
        process_.write(line.data(), static_cast<qint64>(line.size()));
        process_.write("\n", 1);
        // At once, as far as the pipe has room: a busy event loop comes to it late, and the
        // extension could be at work meanwhile.
        process_.waitForBytesWritten(0);
    }

    void end(Ending ending) {
        listener_ = nullptr;
        if (ending == Ending::atOnce) {
            process_.kill();
            return;
        }
        process_.closeWriteChannel();
        QTimer::singleShot(limits_.ending, this, [this] { killIfItStays(); });
    }

    void waitUntilGone(QDeadlineTimer deadline) {
        listener_ = nullptr;
        process_.closeWriteChannel();
        process_.waitForFinished(static_cast<int>(deadline.remainingTime()));
        killIfItStays();
        process_.waitForFinished();
    }

private:
    void readOutput() {
        const auto bytes = process_.readAllStandardOutput();
        if (listener_ == nullptr) {
            return;  // Not kept: one that is on its way out may print until it is killed.
        }
        output_.append(viewOf(bytes));
        while (listener_ != nullptr) {
            if (output_.isOverlong()) {
                listener_->overlongLineCame();
                return;
            }
            const auto line = output_.takeLine();
            if (!line) {
                return;
            }
            listener_->lineCame(*line);
        }
    }

    void readErrors() {
        const auto bytes = process_.readAllStandardError();
        if (listener_ == nullptr) {
            return;
        }
        errors_.append(viewOf(bytes));
        while (listener_ != nullptr) {
            const auto line = errors_.isOverlong() ? errors_.takePiece() : errors_.takeLine();
            if (!line) {
                return;
            }
            listener_->errorLineCame(*line);
        }
    }

    void finish(int code, QProcess::ExitStatus status) {
        leave(status == QProcess::NormalExit
                  ? fmt::format("ended with exit status {}", code)
                  : fmt::format("was ended by signal {} ({})", code, strsignal(code)));
    }

    void leave(std::string how) {
        if (auto* const listener = std::exchange(listener_, nullptr)) {
            listener->processEnded(std::move(how));
        }
        deleteLater();
    }

    void killIfItStays() {
        if (process_.state() != QProcess::NotRunning) {
            overstays_.write(
                LogLevel::warning,
                fmt::format("the extension stayed {} ms after the end of its input; killed",
                            limits_.ending.count()));
            process_.kill();
        }
    }

    QProcess process_;
    std::string executable_;
    std::optional<system::FileVersion> version_;  ///< Of the executable before the start.
    ExtensionListener* listener_;
    HostLimits limits_;
    RationedLog& overstays_;
    LineBuffer output_{kit::maximumLineLength};
    LineBuffer errors_{longestErrorLine};
};

class ChildHandle final : public ExtensionProcess {
public:
    explicit ChildHandle(Child* child) : child_(child) {}
    ~ChildHandle() override {
        if (!ended_) {
            end(Ending::gently);
        }
    }
    ChildHandle(const ChildHandle&) = delete;
    ChildHandle& operator=(const ChildHandle&) = delete;

    void write(std::string_view line) override {
        if (child_) {
            child_->write(line);
        }
    }
    [[nodiscard]] bool isOutdated() const override { return child_ && child_->isOutdated(); }
    void end(Ending ending) override {
        ended_ = true;
        if (child_) {
            child_->end(ending);
        }
    }

private:
    QPointer<Child> child_;
    bool ended_ = false;
};

}  // namespace

ProcessLauncher::ProcessLauncher(std::string executable, const HostLimits& limits, Timers& timers,
                                 Log& log)
    : executable_(std::move(executable)),
      limits_(limits),
      overstays_(log, timers, limits.logLines, limits.logPause) {}

ProcessLauncher::~ProcessLauncher() {
    const QDeadlineTimer deadline(limits_.ending);
    for (auto* const object : children_.children()) {
        static_cast<Child*>(object)->waitUntilGone(deadline);
    }
}

std::unique_ptr<ExtensionProcess> ProcessLauncher::launch(ExtensionListener& listener) {
    return std::make_unique<ChildHandle>(
        new Child(executable_, listener, limits_, overstays_, &children_));
}

}  // namespace kelmar::host
