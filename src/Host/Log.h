#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace kelmar::host {

/// How much a line matters; the numbers are those of syslog (RFC 5424, section 6.2.1).
enum class LogLevel { error = 3, warning = 4, notice = 5, info = 6 };

/// Where everything goes that a person can act on: which widget, what happened, what is done
/// about it.
class Log {
public:
    virtual ~Log() = default;
    virtual void write(LogLevel level, std::string_view line) = 0;
};

/// Whether lines begin with their level as "<4>", which the journal takes off and files under.
enum class LevelPrefix { absent, present };

/// Writes to a stream, one line each: what an extension said is text of a stranger, so control
/// characters are replaced and long texts cut. A line that would wait for its reader is lost. Every
/// thread may write.
class StreamLog final : public Log {
public:
    StreamLog(std::FILE* stream, LevelPrefix prefix) : stream_(stream), prefix_(prefix) {}
    /// Standard error, with levels when it is the journal (JOURNAL_STREAM of systemd.exec).
    [[nodiscard]] static StreamLog onStandardError();

    void write(LogLevel level, std::string_view line) override;

private:
    std::FILE* stream_;
    LevelPrefix prefix_;
};

/// The text as it may stand in one line of a log.
[[nodiscard]] std::string asLogLine(std::string_view text);

}  // namespace kelmar::host
