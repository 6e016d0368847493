#include "System/Journal.h"

#include <cstdlib>
#include <string>
#include <sys/stat.h>

namespace kelmar::system {

bool isJournal(int descriptor) {
    // The variable is inherited by every child, also by one whose output goes elsewhere, so it
    // counts only when it names the very stream.
    const char* const journal = std::getenv("JOURNAL_STREAM");
    struct stat status {};
    return journal != nullptr && ::fstat(descriptor, &status) == 0 &&
           std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino) == journal;
}

}  // namespace kelmar::system
