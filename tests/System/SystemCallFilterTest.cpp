#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "System/SystemCallFilter.h"
#include "tests/System/InChild.h"

namespace kelmar::system {
namespace {

using testing::ChildOutcome;
using ::testing::HasSubstr;

struct Attempt {
    const char* title;
    const char* told;
    long (*make)();
};

std::ostream& operator<<(std::ostream& out, const Attempt& attempt) {
    return out << attempt.title;
}

/// The page of this very function: a call that would work on it otherwise.
void* ownPage() {
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    auto* const here = reinterpret_cast<std::byte*>(&ownPage);
    return here - reinterpret_cast<std::uintptr_t>(here) % page;
}

long execute() {
    std::array<char*, 1> none = {nullptr};
    return ::execve("/bin/true", none.data(), none.data());
}

const std::array attempts{
    Attempt{"InternetSocket", "socket", [] { return long{::socket(AF_INET, SOCK_STREAM, 0)}; }},
    Attempt{"LocalSocket", "socket", [] { return long{::socket(AF_UNIX, SOCK_STREAM, 0)}; }},
    Attempt{"SocketPair", "socketpair",
            [] {
                std::array<int, 2> ends = {};
                return long{::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data())};
            }},
    Attempt{"Connect", "connect", [] { return ::syscall(SYS_connect, 0, nullptr, 0); }},
    Attempt{"Execute", "execve", execute},
    Attempt{"ExecuteAt", "execveat",
            [] { return ::syscall(SYS_execveat, -1, "/bin/true", nullptr, nullptr, 0); }},
    Attempt{"Fork", "clone", [] { return long{::fork()}; }},
    Attempt{"Clone", "clone3", [] { return ::syscall(SYS_clone3, nullptr, 0); }},
    Attempt{"Trace", "ptrace", [] { return ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); }},
    Attempt{"ReadAnother", "process_vm_readv",
            [] { return ::syscall(SYS_process_vm_readv, ::getppid(), nullptr, 0, nullptr, 0, 0); }},
    Attempt{"OpenByHandle", "open_by_handle_at",
            [] { return ::syscall(SYS_open_by_handle_at, -1, nullptr, 0); }},
    Attempt{"KernelProgram", "bpf", [] { return ::syscall(SYS_bpf, 0, nullptr, 0); }},
    Attempt{"SubmissionRing", "io_uring_setup",
            [] { return ::syscall(SYS_io_uring_setup, 1, nullptr); }},
    Attempt{"Namespace", "unshare", [] { return long{::unshare(CLONE_NEWUSER)}; }},
    Attempt{"SignalToAnother", "kill", [] { return long{::kill(::getppid(), 0)}; }},
    Attempt{"ThreadSignalToAnother", "tgkill of another",
            [] { return ::syscall(SYS_tgkill, ::getppid(), ::getppid(), 0); }},
    Attempt{"MoreMemory", "prlimit64",
            [] {
                const rlimit unlimited{RLIM_INFINITY, RLIM_INFINITY};
                return long{::setrlimit(RLIMIT_AS, &unlimited)};
            }},
    Attempt{"NewCode", "mmap of code",
            [] {
                void* const code = ::mmap(nullptr, 4096, PROT_READ | PROT_EXEC,
                                          MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
                return code == MAP_FAILED ? -1L : 0L;
            }},
    Attempt{"ChangedCode", "mprotect to code",
            [] { return long{::mprotect(ownPage(), 4096, PROT_READ | PROT_WRITE | PROT_EXEC)}; }},
    Attempt{"HiddenFile", "memfd_create", [] { return ::syscall(SYS_memfd_create, "code", 0); }},
    Attempt{"ModeOfAFile", "system call", [] { return long{::chmod("/tmp", 0777)}; }},
    Attempt{"DeviceControl", "ioctl", [] { return ::syscall(SYS_ioctl, 0, 0, 0); }},
    Attempt{"NoCallOfTheirKind", " 1000", [] { return ::syscall(1000); }}};

class SystemCallFilterTest : public ::testing::TestWithParam<Attempt> {};

TEST_P(SystemCallFilterTest, RefusesAndSaysSoOnce) {
    const ChildOutcome outcome = testing::inChild([] {
        if (!filterSystemCalls())
            return 255;
        for (int count = 0; count < 3; ++count) {
            errno = 0;
            if (GetParam().make() != -1)
                return 254;
        }
        return errno;
    });
    EXPECT_EQ(outcome.exitStatus, EPERM);
    EXPECT_THAT(outcome.said, HasSubstr(std::string("refused to itself the system call")));
    EXPECT_THAT(outcome.said, HasSubstr(GetParam().told));
    EXPECT_EQ(outcome.lines(), 1);
}

INSTANTIATE_TEST_SUITE_P(Attempts, SystemCallFilterTest, ::testing::ValuesIn(attempts),
                         [](const auto& attempt) { return attempt.param.title; });

TEST(SystemCallFilter, LeavesFilesMemoryAndTime) {
    const ChildOutcome outcome = testing::inChild([] {
        if (!filterSystemCalls())
            return 255;
        const std::string text(1U << 22U, 'x');
        std::FILE* const file = std::fopen("/etc/passwd", "r");
        if (file == nullptr || std::fgetc(file) == EOF || std::fclose(file) != 0)
            return 254;
        return std::time(nullptr) > 0 && text.back() == 'x' ? 0 : 253;
    });
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_EQ(outcome.said, "");
}

TEST(SystemCallFilter, LetsTheProcessAbort) {
    const ChildOutcome outcome = testing::inChild([]() -> int {
        static_cast<void>(filterSystemCalls());
        std::abort();
    });
    EXPECT_EQ(outcome.signal, SIGABRT);
    EXPECT_EQ(outcome.said, "");
}

}  // namespace
}  // namespace kelmar::system
