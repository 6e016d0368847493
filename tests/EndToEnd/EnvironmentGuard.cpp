// Loaded into a program before everything else: says on standard error when it adds to its
// environment while it has threads, since one of them may be reading what then moves away.

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace {

std::ptrdiff_t countThreads() {
    std::error_code error;
    const std::filesystem::directory_iterator threads("/proc/self/task", error);
    return error ? 1 : std::distance(begin(threads), end(threads));
}

}  // namespace

extern "C" int setenv(const char* name, const char* value, int overwrite) noexcept {
    using Function = int (*)(const char*, const char*, int);
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "setenv"));
    if (countThreads() > 1) {
        std::fprintf(stderr, "%s was set beside other threads\n", name);
    }
    return real(name, value, overwrite);
}
