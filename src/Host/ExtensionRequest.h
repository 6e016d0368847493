#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Kit/Protocol.h"
#include "System/Result.h"

namespace kelmar::host {

/// Why a request got no result.
struct RequestFailure {
    enum class Kind {
        unavailable,  ///< The extension could not be asked or did not answer; ask again.
        refused,      ///< It answered with an error; it would do so again.
    };
    Kind kind = Kind::unavailable;
    std::string reason;
};

/// The result, still JSON, or why there is none.
using RequestOutcome = system::Result<std::string, RequestFailure>;

/// How long a request may wait for an extension that is down.
enum class Patience {
    lasting,  ///< Until it is back.
    brief,    ///< No longer than an answer may take: somebody is waiting, and an action that was
              ///< pressed must not run minutes later.
};

struct ExtensionRequest {
    kit::RequestBody body;
    Patience patience = Patience::lasting;
    std::function<void(const RequestOutcome&)> answer;
};

/// "timeline".
[[nodiscard]] std::string_view nameOf(kit::EntryKind kind);

/// "the timeline of Clock", "the action Stop": for the log.
[[nodiscard]] std::string describe(const kit::RequestBody& body);

}  // namespace kelmar::host
