// The console of a program that a desktop starts: a stream that may lead nowhere.
#include "platform/Console.h"

#include <sys/stat.h>

#include "platform/Automation.h"

namespace tessaro {

namespace {

// The null device's number, 0 without one; looked up once, since a trace asks before every system it solves.
dev_t dispositivoNullo() {
    static const dev_t numero = [] {
        struct stat nulla {};
        return ::stat("/dev/null", &nulla) == 0 ? nulla.st_rdev : dev_t{0};
    }();
    return numero;
}

// Closed, or the null device.
bool nessunoLegge(std::FILE* f) {
    struct stat qui {};
    if (::fstat(::fileno(f), &qui) != 0) return true;
    return S_ISCHR(qui.st_mode) && qui.st_rdev == dispositivoNullo();
}

}   // namespace

std::FILE* ConsoleOut() {
    std::FILE* f = AvvioInForza().script ? stderr : stdout;
    return nessunoLegge(f) ? nullptr : f;
}

void ConsoleClear() {}
void ConsolePause() {}

}   // namespace tessaro
