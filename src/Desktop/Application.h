#pragma once

namespace kelmar::desktop {

/// The whole program `kelmar-widgets`; gives back its exit status.
int runDesktop(int argc, char** argv);

}  // namespace kelmar::desktop
