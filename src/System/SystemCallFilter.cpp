#include "System/SystemCallFilter.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <fmt/format.h>
#include <memory>
#include <seccomp.h>
#include <string_view>
#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>

#include "System/RawLine.h"

namespace kelmar::system {
namespace {

/// What may be called whatever the arguments. Files are opened within the rights that Landlock
/// leaves; what changes names, owners, times or modes is not among them.
constexpr std::array harmless{
    // Files and pipes.
    SCMP_SYS(access), SCMP_SYS(close), SCMP_SYS(faccessat), SCMP_SYS(faccessat2),
    SCMP_SYS(fadvise64), SCMP_SYS(fcntl), SCMP_SYS(fstat), SCMP_SYS(fstatfs), SCMP_SYS(ftruncate),
    SCMP_SYS(getcwd), SCMP_SYS(getdents64), SCMP_SYS(lseek), SCMP_SYS(lstat), SCMP_SYS(newfstatat),
    SCMP_SYS(open), SCMP_SYS(openat), SCMP_SYS(poll), SCMP_SYS(ppoll), SCMP_SYS(pread64),
    SCMP_SYS(read), SCMP_SYS(readlink), SCMP_SYS(readlinkat), SCMP_SYS(readv), SCMP_SYS(stat),
    SCMP_SYS(statfs), SCMP_SYS(statx), SCMP_SYS(unlink), SCMP_SYS(unlinkat), SCMP_SYS(write),
    SCMP_SYS(writev),
    // Memory.
    SCMP_SYS(brk), SCMP_SYS(madvise), SCMP_SYS(mremap), SCMP_SYS(munmap),
    // The process itself, and its end.
    SCMP_SYS(exit), SCMP_SYS(exit_group), SCMP_SYS(futex), SCMP_SYS(getegid), SCMP_SYS(geteuid),
    SCMP_SYS(getgid), SCMP_SYS(getpid), SCMP_SYS(getppid), SCMP_SYS(getrandom), SCMP_SYS(getrusage),
    SCMP_SYS(gettid), SCMP_SYS(getuid), SCMP_SYS(restart_syscall), SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn), SCMP_SYS(sched_getaffinity),
    SCMP_SYS(sched_yield), SCMP_SYS(sigaltstack), SCMP_SYS(sysinfo), SCMP_SYS(uname),
    // Time.
    SCMP_SYS(clock_getres), SCMP_SYS(clock_gettime), SCMP_SYS(clock_nanosleep),
    SCMP_SYS(gettimeofday), SCMP_SYS(nanosleep), SCMP_SYS(time)};

struct NamedCall {
    int number;
    std::string_view name;
};

/// What is likeliest to be tried by somebody who has taken the process over, to be told by name;
/// of the others the number has to do.
constexpr std::array notable{NamedCall{SCMP_SYS(accept), "accept"},
                             NamedCall{SCMP_SYS(bind), "bind"},
                             NamedCall{SCMP_SYS(bpf), "bpf"},
                             NamedCall{SCMP_SYS(chmod), "chmod"},
                             NamedCall{SCMP_SYS(clone), "clone"},
                             NamedCall{SCMP_SYS(clone3), "clone3"},
                             NamedCall{SCMP_SYS(connect), "connect"},
                             NamedCall{SCMP_SYS(execve), "execve"},
                             NamedCall{SCMP_SYS(execveat), "execveat"},
                             NamedCall{SCMP_SYS(fork), "fork"},
                             NamedCall{SCMP_SYS(io_uring_setup), "io_uring_setup"},
                             NamedCall{SCMP_SYS(ioctl), "ioctl"},
                             NamedCall{SCMP_SYS(kill), "kill"},
                             NamedCall{SCMP_SYS(link), "link"},
                             NamedCall{SCMP_SYS(memfd_create), "memfd_create"},
                             NamedCall{SCMP_SYS(mmap), "mmap of code"},
                             NamedCall{SCMP_SYS(mount), "mount"},
                             NamedCall{SCMP_SYS(mprotect), "mprotect to code"},
                             NamedCall{SCMP_SYS(open_by_handle_at), "open_by_handle_at"},
                             NamedCall{SCMP_SYS(prctl), "prctl"},
                             NamedCall{SCMP_SYS(prlimit64), "prlimit64"},
                             NamedCall{SCMP_SYS(process_vm_readv), "process_vm_readv"},
                             NamedCall{SCMP_SYS(process_vm_writev), "process_vm_writev"},
                             NamedCall{SCMP_SYS(ptrace), "ptrace"},
                             NamedCall{SCMP_SYS(rename), "rename"},
                             NamedCall{SCMP_SYS(setrlimit), "setrlimit"},
                             NamedCall{SCMP_SYS(socket), "socket"},
                             NamedCall{SCMP_SYS(socketpair), "socketpair"},
                             NamedCall{SCMP_SYS(symlink), "symlink"},
                             NamedCall{SCMP_SYS(tgkill), "tgkill of another"},
                             NamedCall{SCMP_SYS(unshare), "unshare"},
                             NamedCall{SCMP_SYS(userfaultfd), "userfaultfd"},
                             NamedCall{SCMP_SYS(vfork), "vfork"}};

/// Runs in a signal handler.
void tellOnce(int number) noexcept {
    static std::array<volatile std::sig_atomic_t, 1024> told = {};
    const auto index = static_cast<std::size_t>(number) % told.size();
    if (told[index] != 0)
        return;
    told[index] = 1;
    const auto* const call = std::ranges::find(notable, number, &NamedCall::number);
    std::array<char, 12> digits = {};
    const char* const end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    writeRawLine(
        {"refused to itself the system call ",
         call != notable.end()
             ? call->name
             : std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()))});
}

/// Says which call was refused, and has it return -EPERM. On a machine whose registers are not
/// known here the process ends instead.
void refuse(int /*signal*/, siginfo_t* info, void* context) {
    tellOnce(info->si_syscall);
    auto* const state = static_cast<ucontext_t*>(context);
#if defined(__x86_64__)
    state->uc_mcontext.gregs[REG_RAX] = -EPERM;
#elif defined(__aarch64__)
    state->uc_mcontext.regs[0] = static_cast<unsigned long long>(-EPERM);
#else
    static_cast<void>(state);
    ::_exit(128 + SIGSYS);
#endif
}

int catchRefusals() {
    struct sigaction action = {};
    action.sa_sigaction = refuse;
    action.sa_flags = SA_SIGINFO;
    sigset_t refusal = {};
    ::sigemptyset(&refusal);
    ::sigaddset(&refusal, SIGSYS);
    if (::sigaction(SIGSYS, &action, nullptr) != 0 ||
        ::sigprocmask(SIG_UNBLOCK, &refusal, nullptr) != 0)
        return -errno;
    return 0;
}

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

/// Negative error numbers, as libseccomp has them.
int addRules(const Filter& filter) {
    int error = 0;
    const auto allow = [&](int call, auto... conditions) {
        if (error == 0)
            error = seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, sizeof...(conditions),
                                     conditions...);
    };
    for (const int call : harmless)
        allow(call);
#if defined(__SANITIZE_ADDRESS__)
    // The sanitizers' runtime finds out with a pipe which memory can be read.
    allow(SCMP_SYS(pipe2));
#endif
    const auto isNoCode = scmp_arg_cmp{2, SCMP_CMP_MASKED_EQ, PROT_EXEC, 0};
    allow(SCMP_SYS(mmap), isNoCode);
    allow(SCMP_SYS(mprotect), isNoCode);
    // What abort() does.
    allow(SCMP_SYS(tgkill), scmp_arg_cmp{0, SCMP_CMP_EQ, static_cast<scmp_datum_t>(::getpid()), 0});
    return error;
}

}  // namespace

Result<Done> filterSystemCalls() {
    const Filter filter(seccomp_init(SCMP_ACT_TRAP), &seccomp_release);
    int error = filter ? catchRefusals() : -ENOMEM;
    if (error == 0)
        // The kernel's own error number, which says what is missing.
        error = seccomp_attr_set(filter.get(), SCMP_FLTATR_API_SYSRAWRC, 1);
    if (error == 0)
        error = addRules(filter);
    if (error == 0)
        error = seccomp_load(filter.get());
    if (error != 0)
        return Failure{fmt::format("it can make any system call, there is no filter: {}",
                                   std::strerror(-error))};
    return Done{};
}

}  // namespace kelmar::system
