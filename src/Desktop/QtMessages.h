#pragma once

#include "Host/Log.h"

namespace kelmar::desktop {

/// While it lives, what Qt has to say of its own accord goes to the host's log. Qt would write it
/// without a level, and wait for whoever reads it, or end with a reader that has gone.
class QtMessages {
public:
    /// `log` must outlive it, and is written to by whichever thread Qt is in.
    explicit QtMessages(host::Log& log);
    ~QtMessages();
    QtMessages(const QtMessages&) = delete;
    QtMessages& operator=(const QtMessages&) = delete;
};

}  // namespace kelmar::desktop
