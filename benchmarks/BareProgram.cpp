// What any program costs that links what the extension links: it touches one symbol of each
// library, so that none is left out, and answers one line.

#include <glib.h>
#include <iostream>
#include <simdjson.h>
#include <string>
#include <unicode/uversion.h>

int main() {
    UVersionInfo version;
    u_getVersion(version);
    std::string line;
    std::getline(std::cin, line);
    std::cout << int{version[0]} << ' ' << glib_major_version << ' '
              << simdjson::get_active_implementation()->name() << '\n'
              << std::flush;
    return 0;
}
