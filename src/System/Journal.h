#pragma once

namespace kelmar::system {

/// Whether what is written to a descriptor goes to the journal (JOURNAL_STREAM, systemd.exec(5)),
/// which takes a level such as "<4>" off the front of a line and files it under that
/// (sd-daemon(3)). Everywhere else such a level would only be in people's way.
[[nodiscard]] bool isJournal(int descriptor);

}  // namespace kelmar::system
