#include <iostream>

#include "System/HomeFolder.h"

/// Prints the home folder, for tests that run it under an account database of their own.
int main() {
    std::cout << kelmar::system::homeFolder() << '\n';
}
