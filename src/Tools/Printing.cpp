#include "Tools/Printing.h"

#include <iostream>

#include "System/JsonWriter.h"

namespace kelmar::tools {

void printJson(const std::string& json) {
    std::cout << system::prettyPrinted(json) << '\n';
}

}  // namespace kelmar::tools
