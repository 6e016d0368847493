#pragma once

#include <string>
#include <vector>

#include "Host/Log.h"

namespace kelmar::desktop::test {

/// Keeps the lines that would have gone to the journal.
class RecordingLog final : public host::Log {
public:
    void write(host::LogLevel /*level*/, std::string_view line) override {
        lines.emplace_back(line);
    }

    std::vector<std::string> lines;
};

}  // namespace kelmar::desktop::test
