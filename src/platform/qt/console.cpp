// The console of a program that a desktop starts: a stream that may lead nowhere.
#include "platform/Console.h"

#include <sys/stat.h>

#include "platform/Automation.h"

namespace tessaro {

namespace {

// Closed, or the null device.
bool nessunoLegge(std::FILE* f) {
    struct stat qui {
    }, nulla{};
    if (::fstat(::fileno(f), &qui) != 0) return true;
    return S_ISCHR(qui.st_mode) && ::stat("/dev/null", &nulla) == 0 && qui.st_rdev == nulla.st_rdev;
}

}   // namespace

std::FILE* ConsoleOut() {
    std::FILE* f = AvvioInForza().script ? stderr : stdout;
    return nessunoLegge(f) ? nullptr : f;
}

void ConsoleClear() {}
void ConsolePause() {}

}   // namespace tessaro
