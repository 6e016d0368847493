#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kelmar::host {

/// Hears what comes from a running extension.
class ExtensionListener {
public:
    virtual ~ExtensionListener() = default;
    /// A line of its standard output, without the line feed.
    virtual void lineCame(std::string_view line) = 0;
    /// A line so long that it can be no message; what follows it is not read.
    virtual void overlongLineCame() = 0;
    /// A line of its standard error.
    virtual void errorLineCame(std::string_view line) = 0;
    /// It ended, or never began; `how` says so in words that follow "the extension".
    virtual void processEnded(std::string how) = 0;
};

/// How a process is brought to its end.
enum class Ending {
    gently,  ///< Its input ends; it is killed only if it stays.
    atOnce,  ///< Killed.
};

/// A running extension. Its listener hears nothing more once `end` was called; destroying it
/// without is a gentle end. Never blocks.
class ExtensionProcess {
public:
    virtual ~ExtensionProcess() = default;
    /// `line` comes without its line feed.
    virtual void write(std::string_view line) = 0;
    /// Whether another program stands at the executable's path by now than when this was started.
    [[nodiscard]] virtual bool isOutdated() const = 0;
    virtual void end(Ending ending) = 0;
};

/// Starts the extension's executable, whatever stands at its path at that moment.
class ExtensionLauncher {
public:
    virtual ~ExtensionLauncher() = default;
    /// `listener` must outlive the process, or its end.
    [[nodiscard]] virtual std::unique_ptr<ExtensionProcess> launch(ExtensionListener& listener) = 0;
};

}  // namespace kelmar::host
