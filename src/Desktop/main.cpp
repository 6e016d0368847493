#include "Desktop/Application.h"

int main(int argc, char** argv) {
    return kelmar::desktop::runDesktop(argc, argv);
}
