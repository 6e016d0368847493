// From exec to the first answer of the extension, beside a program that links the same libraries
// and answers a line without looking at it.

#include <array>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;  // NOLINT: POSIX's own name

namespace kelmar {
namespace {

const std::string request =
    R"({"jsonrpc":"2.0","id":1,"method":"widget/timeline","params":{"kind":"DueToday",)"
    R"("environment":{"family":"systemLarge"}}})"
    "\n";

/// Both ends of a pipe.
struct Pipe {
    Pipe() {
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            std::abort();
        }
    }
    std::array<int, 2> ends{};
};

/// Starts a program, sends it the request and reads its answer to the end of the line.
void ask(const char* path) {
    const Pipe input;
    const Pipe output;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.ends[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.ends[1], STDOUT_FILENO);
    std::string name = path;
    std::array<char*, 2> arguments{name.data(), nullptr};
    pid_t child = 0;
    if (::posix_spawn(&child, path, &actions, nullptr, arguments.data(), environ) != 0) {
        std::abort();
    }
    posix_spawn_file_actions_destroy(&actions);
    ::close(input.ends[0]);
    ::close(output.ends[1]);
    if (::write(input.ends[1], request.data(), request.size()) !=
        static_cast<ssize_t>(request.size())) {
        std::abort();
    }
    std::array<char, 65536> buffer{};
    ssize_t length = 0;
    do {
        length = ::read(output.ends[0], buffer.data(), buffer.size());
    } while (length > 0 && buffer.at(static_cast<std::size_t>(length) - 1) != '\n');
    ::close(input.ends[1]);
    ::close(output.ends[0]);
    ::waitpid(child, nullptr, 0);
}

void extensionFromExecToFirstAnswer(benchmark::State& state) {
    for (auto _ : state) {
        ask(KELMAR_EXTENSION);
    }
}
BENCHMARK(extensionFromExecToFirstAnswer)->Unit(benchmark::kMillisecond)->UseRealTime();

void bareProgramFromExecToFirstAnswer(benchmark::State& state) {
    for (auto _ : state) {
        ask(KELMAR_BARE_PROGRAM);
    }
}
BENCHMARK(bareProgramFromExecToFirstAnswer)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kelmar
