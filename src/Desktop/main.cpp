#include <malloc.h>

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

int main(int argc, char** argv) {
    keepHeapSmall();
    return kelmar::desktop::runDesktop(argc, argv);
}
