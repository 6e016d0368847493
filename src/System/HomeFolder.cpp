#include "System/HomeFolder.h"

#include <cerrno>
#include <pwd.h>
#include <unistd.h>
#include <vector>

#include "System/Fatal.h"

namespace kelmar::system {

std::string homeFolder() {
    passwd account = {};
    passwd* found = nullptr;
    std::vector<char> texts(1024);
    int error = 0;
    while ((error = ::getpwuid_r(::getuid(), &account, texts.data(), texts.size(), &found)) ==
               ERANGE ||
           error == EINTR) {
        if (error == ERANGE)
            texts.resize(texts.size() * 2);
    }
    if (found == nullptr || account.pw_dir == nullptr || *account.pw_dir == '\0') {
        fatal("the account database knows no home folder of user id " + std::to_string(::getuid()));
    }
    return account.pw_dir;
}

}  // namespace kelmar::system
