// The console that a trace is written to, if there is one.
#pragma once
#include <cstdio>
namespace tessaro {
// Standard output, under a script standard error; null when nobody can read it, so that a trace costs nothing then.
std::FILE* ConsoleOut();
void ConsoleClear();   // clearing and pausing mean nothing on a desktop: both do nothing
void ConsolePause();
}   // namespace tessaro
