#pragma once

namespace kelmar::host {

/// Whether something says where this session's bus is. Where nothing does, the D-Bus libraries
/// would start a bus of their own, which nobody else is on.
[[nodiscard]] bool mayHaveSessionBus();

}  // namespace kelmar::host
