#pragma once

#include <QVariantMap>
#include <string>

namespace kelmar::tools {

/// What the running host says of one kind of widget (Explain of com.kelmarplanner.Widgets), for a
/// person to read.
[[nodiscard]] std::string explained(const QVariantMap& explanation);

}  // namespace kelmar::tools
