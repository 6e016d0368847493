#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include "Desktop/Application.h"

/// For a program that starts once and then stays for months, mostly asleep: its few threads share
/// one heap instead of keeping what they freed for themselves, and what is freed at the end of it
/// goes back to the system.
static void keepHeapSmall() {
    constexpr int oneHeap = 1;
    constexpr int keptAtTheEnd = 64 * 1024;
    mallopt(M_ARENA_MAX, oneHeap);
    mallopt(M_TRIM_THRESHOLD, keptAtTheEnd);
}

/// Whoever starts the program may have closed a standard stream. What is opened next, be it the
/// connection to the X server, would have its number and get what is meant for the log.
static void openStandardStreams() {
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0) {
        close(descriptor);
    }
}

int main(int argc, char** argv) {
    openStandardStreams();
    keepHeapSmall();
    return kelmar::desktop::runDesktop(argc, argv);
}
